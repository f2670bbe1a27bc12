#include "command/verbs/Show.h"

#include <iostream>
#include <optional>

#include "command/console/Progress.h"
#include "command/files/InputScan.h"
#include "command/files/JoinedInputs.h"
#include "command/files/Profiles.h"
#include "command/formats/Kinds.h"
#include "command/json/JsonDocument.h"
#include "command/json/ProfileJson.h"
#include "command/show/CsvTable.h"
#include "command/show/RecordPrinter.h"
#include "platform/Terminal.h"
#include "platform/Text.h"

namespace orvale {
namespace {

// Told only where the records go somewhere else than to a terminal, on which they are progress enough.
class ShowProgress {
 public:
    explicit ShowProgress(const ShowOrder& order) {
        if (!IsTerminal(StandardStream::kOutput)) line_.emplace("reading", ShownName(order.file));
    }
    void Tick(std::size_t count) {
        if (line_) line_->Tick(count);
    }

 private:
    std::optional<Progress> line_;
};

template <class Record>
void ShowJson(JoinedInputs& input, const ShowOrder& order, Kind kind, const SharedProfile& profile) {
    JsonDocumentWriter writer(std::cout, kind, order.noProfile ? nullptr : profile, order.withPasswords);
    ShowProgress progress(order);
    for (const Record* record = nullptr; !order.profileOnly && (record = input.Next<Record>()) != nullptr;) {
        writer.Put(*record);
        progress.Tick(input.Count());
    }
    writer.Finish();
    for (const std::string& line : writer.Remarks())
        TellUser(ErrorLine(ShownName(order.file), "", line));
    for (const Note& loss : writer.Losses())
        TellUser(ErrorLine(ShownName(order.file), "", "lost: " + loss.what + ": " + std::to_string(loss.count)));
}

template <class Record>
void ShowListing(JoinedInputs& input, const ShowOrder& order, Kind kind) {
    Screen screen(std::cout, UseColor(order.color));
    RecordPrinter<Record> printer(screen);
    ShowProgress progress(order);
    while (const auto* record = input.Next<Record>()) {
        printer.Print(*record);
        progress.Tick(input.Count());
    }
    printer.Finish();
    if (input.Count() != 0) screen.EndLine();
    const std::string_view noun = RecordWord(kind, input.Count() != 1);
    screen.Put(std::to_string(input.Count()) + " " + std::string(noun), Screen::Style::kQuiet);
    screen.EndLine();
}

// Reads the records once for the columns, then for the rows.
template <class Record>
void ShowCsv(const LoadedLibrary& library, const std::vector<InputName>& names, JoinedInputs& input,
             const ShowOrder& order) {
    CsvTable table(std::cout, order.safeCsv);
    JoinedInputs ahead(library, names);
    ahead.onEmpty = [](const std::string&) {};
    while (const auto* record = ahead.Next<Record>())
        table.Look(*record);
    table.PutHead<Record>();
    while (const auto* record = input.Next<Record>())
        table.Put(*record);
}

void ShowProfile(const ShowOrder& order, const SharedProfile& profile) {
    Screen screen(std::cout, UseColor(order.color));
    if (!profile) {
        screen.Put("no profile", Screen::Style::kQuiet);
        screen.EndLine();
    }
    for (const Fact& fact : FactsOf(profile, order.withPasswords))
        screen.Row(fact.what, fact.value);
}

}  // namespace

ExitCode Show(const LoadedLibrary& library, const ShowOrder& order) {
    if (order.csv && (order.json || order.profileOnly))
        FailUsage(std::string("--csv and ") + (order.json ? "--json" : "--profile-only") + " can't stand together");
    if (order.profileOnly && order.noProfile) FailUsage("--profile-only and --no-profile can't stand together");
    std::vector<InputName> names = ResolveInputs({order.file}, order.format);
    const InputsInfo info = RequireReadable(library, names, std::nullopt);
    const SharedProfile given =
        TakeGivenProfiles(order.profiles, info.kind, names, order.json ? &FormatOfName("json") : nullptr);
    TellColumnLosses(names.front());
    JoinedInputs input(library, names);
    std::vector<std::string> damages;
    input.onDamage = [&](const std::string& file, const std::string& place) {
        damages.push_back(ErrorLine(file, place, "damaged from here on"));
    };
    if (names.size() > 1) input.onEmpty = [&](const std::string& line) { damages.push_back(line); };
    VisitKind(info.kind, [&]<class Record>(std::type_identity<Record>) {
        if (order.json)
            ShowJson<Record>(input, order, info.kind, given ? given : info.profile);
        else if (order.csv)
            ShowCsv<Record>(library, names, input, order);
        else if (order.profileOnly)
            ShowProfile(order, info.profile);
        else
            ShowListing<Record>(input, order, info.kind);
    });
    if (input.PassedOver() != 0)
        damages.push_back(ErrorLine(ShownName(order.file), "", PassedOverText(input.PassedOver())));
    for (const std::string& line : damages)
        TellUser(line);
    return damages.empty() ? ExitCode::kDone : ExitCode::kFailed;
}

}  // namespace orvale
