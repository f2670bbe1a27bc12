#pragma once

#include <cstdint>

namespace orvale {

/// The version of a record's layout, as its first member: a 32-bit number that a new record has and that copying a
/// record leaves alone, so that a record with nothing but values can leave its copying to the compiler.
template <std::int32_t kNumber>
class LayoutVersion {
 public:
    LayoutVersion() = default;
    LayoutVersion(const LayoutVersion&) {}  // NOLINT(modernize-use-equals-default)
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment,modernize-use-equals-default)
    LayoutVersion& operator=(const LayoutVersion&) { return *this; }

    LayoutVersion& operator=(std::int32_t number) {
        number_ = number;
        return *this;
    }
    operator std::int32_t() const { return number_; }  // NOLINT(google-explicit-constructor): it is the number

 private:
    std::int32_t number_ = kNumber;
};

}  // namespace orvale
