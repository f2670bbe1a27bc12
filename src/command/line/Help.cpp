#include "command/line/Help.h"

#include <algorithm>

#include "command/line/Options.h"

namespace orvale {
namespace {

constexpr std::size_t kWidth = 80;

constexpr ExitRow kExitCodes[] = {
    {ExitCode::kDone, "all was done"},
    {ExitCode::kFailed, "a file failed: it is missing, damaged, not recognised, or exists already"},
    {ExitCode::kUsage, "the command line can't be acted on"},
    {ExitCode::kLoss, "--strict met a loss"},
};

// A text behind a head, in lines of the terminal's usual width; each of its lines begins in the column `indent`.
std::string Paragraph(std::string_view head, std::size_t indent, std::string_view text) {
    std::string out(head);
    std::size_t column = head.size();
    const auto start = [&] {
        out.append(indent - std::min(indent, column), ' ');
        column = std::max(indent, column);
    };
    if (!head.empty() && column + 1 > indent) {
        out += '\n';
        column = 0;
    }
    start();
    while (!text.empty()) {
        const std::size_t size = std::min(text.find(' '), text.size());
        const bool first = out.empty() || out.back() == ' ' || out.back() == '\n';
        if (!first && column + 1 + size > kWidth) {
            out += '\n';
            column = 0;
            start();
        } else if (!first) {
            out += ' ';
            ++column;
        }
        out += text.substr(0, size);
        column += size;
        text.remove_prefix(std::min(size + 1, text.size()));
    }
    return out + '\n';
}

}  // namespace

std::span<const ExitRow> AllExitCodes() {
    return kExitCodes;
}

std::string Usage(const VerbRow& row) {
    std::string usage = "orvale " + std::string(row.word);
    if (row.verb != Verb::kHelp) usage += " [OPTIONS]";
    if (!row.files.word.empty()) usage += " " + std::string(row.files.word);
    return usage;
}

std::string Sentence(std::string_view line) {
    std::string sentence(line);
    if (!sentence.empty() && sentence[0] >= 'a' && sentence[0] <= 'z')
        sentence[0] = static_cast<char>(sentence[0] - 'a' + 'A');
    return sentence + ".";
}

std::string OverviewText() {
    std::string text = "Usage: orvale VERB [OPTIONS] ...\n\n" + Paragraph("", 0, kAboutCommand) + "\nVerbs:\n";
    for (const VerbRow& row : AllVerbs()) {
        const std::string head = "  " + std::string(row.word) + " " + std::string(row.files.word);
        text += Paragraph(head, 32, row.about);
    }
    text += "\nExit codes:\n";
    for (const ExitRow& row : AllExitCodes())
        text += Paragraph("  " + std::to_string(static_cast<int>(row.code)), 5, row.about);
    return text + "\n" +
           Paragraph(
               "", 0,
               "'orvale help VERB' tells the options of a verb, and examples. 'orvale formats' lists the formats.");
}

std::string VerbText(const VerbRow& row) {
    std::string about = Sentence(row.about);
    if (!row.more.empty()) about += " " + std::string(row.more);
    std::string text = "Usage: " + Usage(row) + "\n\n" + Paragraph("", 0, about) + "\nOptions:\n";
    for (const OptionRow* option : OptionsOf(row.verb))
        text += Paragraph("  " + OptionHead(*option), 22, option->help);
    if (!row.examples.empty()) text += "\nExamples:\n";
    for (const Example& example : row.examples)
        text += "  " + std::string(example.line) + "\n" + Paragraph("", 6, example.about);
    return text;
}

}  // namespace orvale
