#include "command/Show.h"

#include <iostream>

#include "command/Kinds.h"
#include "command/RecordInput.h"
#include "command/show/RecordPrinter.h"

namespace orvale {
namespace {

template <class Record>
void ShowJson(RecordInput& input) {
    JsonDocumentWriter writer(std::cout, input.GetKind());
    while (const Record* record = input.Next<Record>())
        writer.Put(*record);
    writer.Finish();
    if (writer.Replaced() != 0)
        TellUser(
            ErrorLine(input.Name().name, "",
                      std::to_string(writer.Replaced()) + " halves of characters stand alone, which JSON can't tell"));
}

template <class Record>
void ShowListing(RecordInput& input, ColorMode color) {
    Screen screen(std::cout, UseColor(color));
    RecordPrinter<Record> printer(screen);
    while (const Record* record = input.Next<Record>())
        printer.Print(*record);
    if (input.Count() != 0) screen.EndLine();
    const std::string_view noun = RecordWord(input.GetKind(), input.Count() != 1);
    screen.Put(std::to_string(input.Count()) + " " + std::string(noun), Screen::Style::kQuiet);
    screen.EndLine();
}

}  // namespace

ExitCode Show(const LoadedLibrary& library, const ShowOrder& order) {
    RecordInput input(library, ResolveInput(order.file, order.format));
    RequireReadable(input);
    VisitKind(input.GetKind(), [&]<class Record>(std::type_identity<Record>) {
        if (order.json)
            ShowJson<Record>(input);
        else
            ShowListing<Record>(input, order.color);
    });
    const auto brokenAt = input.BrokenAt();
    if (!brokenAt) return ExitCode::kDone;
    std::cout.flush();
    TellUser(ErrorLine(order.file,
                       "record " + std::to_string(input.Count() + 1) + ", byte " + std::to_string(*brokenAt),
                       "damaged from here on"));
    return ExitCode::kFailed;
}

}  // namespace orvale
