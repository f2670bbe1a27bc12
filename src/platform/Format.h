#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

namespace orvale {

/// One argument of Format: a number or a 16-bit text. Built by Format from what it is given.
class FormatArgument {
 public:
    template <class Number, std::enable_if_t<std::is_integral_v<Number>, int> = 0>
    FormatArgument(Number number)  // NOLINT(google-explicit-constructor): the arguments of Format convert silently
        : isText_(false), number_(static_cast<std::int64_t>(number)) {}
    FormatArgument(std::u16string_view text) : isText_(true), text_(text) {}    // NOLINT(google-explicit-constructor)
    FormatArgument(const std::u16string& text) : isText_(true), text_(text) {}  // NOLINT(google-explicit-constructor)
    FormatArgument(const char16_t* text)
        : isText_(true), text_(text != nullptr ? text : u"") {}  // NOLINT(google-explicit-constructor)
    FormatArgument(const void* address)                          // NOLINT(google-explicit-constructor)
        : isText_(false), number_(static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(address))) {}

    bool IsText() const { return isText_; }
    std::int64_t Number() const { return number_; }
    std::u16string_view Text() const { return text_; }

 private:
    bool isText_;
    std::int64_t number_ = 0;
    std::u16string_view text_;
};

std::u16string FormatList(std::u16string_view format, std::initializer_list<FormatArgument> arguments);

/// printf on 16-bit text. Known are %s (16-bit text), %d, %u, %x, %X and %%, each with the flags "-" and "0", a width
/// and a precision. An argument that is missing or of the wrong kind counts as 0 or as the empty text.
template <class... Arguments>
std::u16string Format(std::u16string_view format, const Arguments&... arguments) {
    return FormatList(format, {FormatArgument(arguments)...});
}

}  // namespace orvale
