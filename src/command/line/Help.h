#pragma once

// What `orvale help` prints.

#include <span>
#include <string>
#include <string_view>

#include "command/console/CommandError.h"
#include "command/line/Verbs.h"

namespace orvale {

/// What the command is for, in one sentence.
constexpr std::string_view kAboutCommand =
    "Lists, shows, checks and converts files of a mobile phone's contacts, calendar, messages and mails.";

struct ExitRow {
    ExitCode code;
    std::string_view about;
};

/// The exit codes, in their order.
std::span<const ExitRow> AllExitCodes();

/// The verb and what it takes, as "orvale show [OPTIONS] FILE".
std::string Usage(const VerbRow& row);

/// A line of a table as a sentence: with a capital and a dot.
std::string Sentence(std::string_view line);

/// The help of the command: its verbs.
std::string OverviewText();

/// The help of a verb: its options and examples.
std::string VerbText(const VerbRow& row);

}  // namespace orvale
