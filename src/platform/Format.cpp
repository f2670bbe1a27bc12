#include "platform/Format.h"

#include <algorithm>

namespace orvale {
namespace {

struct Directive {
    bool left = false;
    bool zeros = false;
    int width = 0;
    int precision = -1;
    char16_t conversion = 0;
};

int TakeDigits(std::u16string_view& format) {
    constexpr int kWidest = 1 << 16;  // no format of this project comes near; keeps a slip from filling memory
    int number = 0;
    for (; !format.empty() && format.front() >= u'0' && format.front() <= u'9'; format.remove_prefix(1))
        number = std::min(kWidest, number * 10 + (format.front() - u'0'));
    return number;
}

Directive TakeDirective(std::u16string_view& format) {
    Directive directive;
    for (; !format.empty() && (format.front() == u'-' || format.front() == u'0'); format.remove_prefix(1))
        (format.front() == u'-' ? directive.left : directive.zeros) = true;
    directive.width = TakeDigits(format);
    if (!format.empty() && format.front() == u'.') {
        format.remove_prefix(1);
        directive.precision = TakeDigits(format);
    }
    if (!format.empty()) {
        directive.conversion = format.front();
        format.remove_prefix(1);
    }
    return directive;
}

// The digits of a number; a precision is the least number of digits. As printf takes an int, %d takes 32 bits and their
// sign, whatever the argument's type, and the others take 32 bits of a negative number; of an address they take all.
std::u16string Digits(const Directive& directive, std::int64_t number) {
    const bool isSigned = directive.conversion == u'd';
    const unsigned base = directive.conversion == u'x' || directive.conversion == u'X' ? 16 : 10;
    const char16_t letters = directive.conversion == u'x' ? u'a' : u'A';
    if (isSigned) number = static_cast<std::int32_t>(number);
    auto rest = static_cast<std::uint64_t>(number);
    if (number < 0) rest = isSigned ? 0 - rest : number >= INT32_MIN ? rest & 0xFFFFFFFF : rest;
    std::u16string digits;
    for (; rest != 0; rest /= base) {
        const auto digit = static_cast<char16_t>(rest % base);
        digits.push_back(static_cast<char16_t>(digit < 10 ? u'0' + digit : letters + digit - 10));
    }
    const int least = directive.precision >= 0 ? directive.precision : 1;
    while (static_cast<int>(digits.size()) < least)
        digits.push_back(u'0');
    const bool negative = isSigned && number < 0;
    if (directive.zeros && directive.precision < 0 && !directive.left)
        while (static_cast<int>(digits.size()) + negative < directive.width)
            digits.push_back(u'0');
    if (negative) digits.push_back(u'-');
    std::reverse(digits.begin(), digits.end());
    return digits;
}

void AppendPadded(std::u16string& out, std::u16string_view text, const Directive& directive) {
    const std::size_t width = std::max(0, directive.width);
    const std::size_t padding = width > text.size() ? width - text.size() : 0;
    if (!directive.left) out.append(padding, u' ');
    out.append(text);
    if (directive.left) out.append(padding, u' ');
}

}  // namespace

std::u16string FormatList(std::u16string_view format, std::initializer_list<FormatArgument> arguments) {
    std::u16string out;
    const FormatArgument* next = arguments.begin();
    while (!format.empty()) {
        const std::size_t percent = std::min(format.find(u'%'), format.size());
        out.append(format.substr(0, percent));
        format.remove_prefix(percent);
        if (format.empty()) break;
        format.remove_prefix(1);
        const Directive directive = TakeDirective(format);
        if (directive.conversion == u'%') {
            out.push_back(u'%');
            continue;
        }
        const FormatArgument argument = next != arguments.end() ? *next++ : FormatArgument(0);
        if (directive.conversion == u's') {
            const std::u16string_view text = argument.Text();
            AppendPadded(out, directive.precision >= 0 ? text.substr(0, directive.precision) : text, directive);
        } else {
            AppendPadded(out, Digits(directive, argument.Number()), directive);
        }
    }
    return out;
}

}  // namespace orvale
