#include "command/exchange/IcalLibrary.h"

#include "command/exchange/LazyLibrary.h"

namespace orvale {
namespace {

const IcalLibrary* Load() {
    const SharedLibrary& library = LoadLibraryOf("ics", ORVALE_ICAL_SONAME);
    auto* const functions = new IcalLibrary(library);
#define ORVALE_LOAD(name) functions->name = library.Get<std::remove_pointer_t<decltype(&::name)>>(#name);
    ORVALE_ICAL_FUNCTIONS(ORVALE_LOAD)
#undef ORVALE_LOAD
    functions->icalerror_set_errors_are_fatal(0);
    return functions;
}

}  // namespace

const IcalLibrary& Ical() {
    static const IcalLibrary* const library = Load();
    return *library;
}

}  // namespace orvale
