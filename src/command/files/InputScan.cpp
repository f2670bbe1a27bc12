#include "command/files/InputScan.h"

#include <cstdint>
#include <variant>

#include "command/console/CommandError.h"
#include "command/files/Columns.h"
#include "command/scan/ColumnScan.h"
#include "command/scan/TextScan.h"
#include "host/LossReport.h"

namespace orvale {
namespace {

// What the module's reader of an input can't make out of it, up to an offset.
std::vector<Note> ScanInput(const InputName& input, std::uint64_t end) {
    if (input.format->profile == ProfileShape::kColumns)
        return ScanColumns(input.path, std::get<CCSVProfile>(*ColumnsOf(input)), end);
    return ScanText(*input.format, input.path, end);
}

}  // namespace

std::vector<Note> NotInRecords(const std::vector<InputName>& names, const JoinedInputs& inputs) {
    std::vector<Note> notes;
    for (std::size_t i = 0; i < names.size(); ++i)
        for (const Note& note : ScanInput(names[i], inputs.BrokenAt()[i].value_or(UINT64_MAX)))
            notes.push_back({note.what, note.count, names[i].name + ", " + note.firstPlace});
    notes.insert(notes.end(), inputs.Notes().begin(), inputs.Notes().end());
    return notes;
}

void TellColumnLosses(const InputName& input) {
    if (input.format->profile != ProfileShape::kColumns) return;
    LossReport report("");
    for (const Note& note : ScanInput(input, UINT64_MAX))
        report.AddLoss(note.what, note.count, note.firstPlace);
    for (const std::string& line : report.Lines())
        TellUser(ErrorLine(input.name, "", line));
}

}  // namespace orvale
