#pragma once

// The verbs, as one table.

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace orvale {

enum class Verb { kFormats, kInfo, kShow, kView, kDiff, kConvert, kLog, kHelp, kVersion };

/// What may stand in a place of the command line; the shells complete it by that.
enum class Values { kNone, kFiles, kInputFormats, kOutputFormats, kVerbs, kChoices, kOther };

/// A place of the command line: what is called so in the help, and what may stand there.
struct Place {
    std::string_view word = {};  ///< empty for a flag, or a verb that takes nothing
    Values values = Values::kNone;
    std::string_view choices = {};  ///< of kChoices: the words, with a blank between them
};

/// A command line that does something with the files of samples/, and what it does.
struct Example {
    std::string_view line;
    std::string_view about;
};

/// A verb, as the parser, the help, the manual and the completions have it.
struct VerbRow {
    Verb verb;
    std::string_view word;
    Place files = {};
    std::size_t least = 0;       ///< how many of them it takes
    std::size_t most = 0;        ///< kAnyNumber for no limit
    std::string_view about;      ///< one line, without a dot
    std::string_view more = {};  ///< sentences behind that line, in the help of the verb and in the manual
    std::span<const Example> examples = {};
};

constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

/// The command's one table of verbs.
std::span<const VerbRow> AllVerbs();

const VerbRow& RowOfVerb(Verb verb);

/// The row of a word. Ends the work with a usage error that names what is near, if there is no such verb.
const VerbRow& VerbOfWord(std::string_view word);

/// The words of the verbs, with a comma between them.
std::string VerbList();

}  // namespace orvale
