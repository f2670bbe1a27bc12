#include "frame/Log.h"

namespace orvale {
namespace {

// What happens when the module is loaded: the log learns from the registry whether it is on. Nothing else.
class Application {
 public:
    Application() {
        constexpr std::u16string_view kModuleName = u"Orvale";
        constexpr std::int32_t kIsLibrary = 1;
        constexpr std::uint32_t kDefaultSwitch = 0;
        LogInit(&kModuleName, &kIsLibrary, &kDefaultSwitch);
    }
};

const Application application;

}  // namespace
}  // namespace orvale
