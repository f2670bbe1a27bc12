#pragma once

#include <locale.h>

namespace orvale {

/// A locale object of the system, kept for as long as this lives: building one costs more than reading a hundred
/// records. Freed with it, so that a module that is unloaded leaves nothing behind.
class KeptLocale {
 public:
    KeptLocale(int mask, const char* name) : locale_(newlocale(mask, name, nullptr)) {}
    ~KeptLocale() {
        if (locale_ != nullptr) freelocale(locale_);
    }
    KeptLocale(const KeptLocale&) = delete;
    KeptLocale& operator=(const KeptLocale&) = delete;

    /// Null where the system doesn't have the locale.
    locale_t Get() const { return locale_; }

 private:
    locale_t locale_;
};

}  // namespace orvale
