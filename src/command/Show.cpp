#include "command/Show.h"

#include <iostream>

#include "command/JoinedInputs.h"
#include "command/Kinds.h"
#include "command/show/RecordPrinter.h"

namespace orvale {
namespace {

template <class Record>
void ShowJson(JoinedInputs& input, const ShowOrder& order, Kind kind) {
    JsonDocumentWriter writer(std::cout, kind);
    while (const Record* record = input.Next<Record>())
        writer.Put(*record);
    writer.Finish();
    if (writer.Replaced() == 0) return;
    const std::string count = std::to_string(writer.Replaced());
    TellUser(ErrorLine(order.file, "", count + " halves of characters stand alone, which JSON can't tell"));
}

template <class Record>
void ShowListing(JoinedInputs& input, const ShowOrder& order, Kind kind) {
    Screen screen(std::cout, UseColor(order.color));
    RecordPrinter<Record> printer(screen);
    while (const Record* record = input.Next<Record>())
        printer.Print(*record);
    printer.Finish();
    if (input.Count() != 0) screen.EndLine();
    const std::string_view noun = RecordWord(kind, input.Count() != 1);
    screen.Put(std::to_string(input.Count()) + " " + std::string(noun), Screen::Style::kQuiet);
    screen.EndLine();
}

}  // namespace

ExitCode Show(const LoadedLibrary& library, const ShowOrder& order) {
    const std::vector<InputName> names = ResolveInputs({order.file}, order.format);
    const Kind kind = RequireReadable(library, names, std::nullopt);
    JoinedInputs input(library, names);
    std::vector<std::string> damages;
    input.onDamage = [&](const std::string& file, const std::string& place) {
        damages.push_back(ErrorLine(file, place, "damaged from here on"));
    };
    VisitKind(kind, [&]<class Record>(std::type_identity<Record>) {
        if (order.json)
            ShowJson<Record>(input, order, kind);
        else
            ShowListing<Record>(input, order, kind);
    });
    for (const std::string& name : input.NamesWithProfile())
        damages.empty() ? TellUser(ErrorLine(name, "", "its profile isn't shown")) : void();
    for (const std::string& line : damages)
        TellUser(line);
    return damages.empty() ? ExitCode::kDone : ExitCode::kFailed;
}

}  // namespace orvale
