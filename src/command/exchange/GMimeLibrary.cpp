#include "command/exchange/GMimeLibrary.h"

#include "command/exchange/LazyLibrary.h"

#if defined(__SANITIZE_ADDRESS__)
namespace {
bool isLoaded = false;
}
// The leak checker's own thread may crash where it looks at the threads' storage of a library that was loaded late.
extern "C" __attribute__((visibility("default"))) int __lsan_is_turned_off() {
    return isLoaded ? 1 : 0;
}
#endif

namespace orvale {
namespace {

const GMimeLibrary* Load() {
    const SharedLibrary& library = LoadLibraryOf("mbox", ORVALE_GMIME_SONAME);
    auto* const functions = new GMimeLibrary(library);
#define ORVALE_LOAD(name) functions->name = library.Get<std::remove_pointer_t<decltype(&::name)>>(#name);
    ORVALE_GMIME_FUNCTIONS(ORVALE_LOAD)
#undef ORVALE_LOAD
#if defined(__SANITIZE_ADDRESS__)
    isLoaded = true;
#endif
    functions->g_mime_init();
    // What it says of bad input on standard error is said by notes.
    functions->g_log_set_default_handler([](const gchar*, GLogLevelFlags, const gchar*, gpointer) {}, nullptr);
    return functions;
}

}  // namespace

const GMimeLibrary& GMime() {
    static const GMimeLibrary* const library = Load();
    return *library;
}

}  // namespace orvale
