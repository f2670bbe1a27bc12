#pragma once

#include <string_view>

/// What a fuzz target is made with. It asks one question of any bytes; a "no" ends the process where it is met, which
/// the engine and the replay both tell with the input.
namespace orvale::fuzz {

/// One target of those in the program: the engine's programs have one each, the replay has all.
class Target {
 public:
    using Question = void (*)(std::string_view input);

    Target(std::string_view name, Question question);

    std::string_view Name() const { return name_; }

    /// Asks the question of an input. The first call makes zone, clock and code page what they are in every run:
    /// ORVALE_CODEPAGE of the environment is kept, else it is UTF-8.
    void Ask(std::string_view input) const;

    /// The target of a name, of any for the empty name; null if there is none.
    static const Target* Find(std::string_view name);

 private:
    std::string_view name_;
    Question question_;
    const Target* next_;
};

/// What has to hold, in words.
void Must(bool holds, std::string_view what);

}  // namespace orvale::fuzz

/// Opens a target's question, whose input is `input`.
#define ORVALE_FUZZ_TARGET(name)                                \
    static void Question(std::string_view input);               \
    static const orvale::fuzz::Target kTarget(name, &Question); \
    static void Question(std::string_view input)
