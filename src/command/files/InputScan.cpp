#include "command/files/InputScan.h"

#include <variant>

#include "command/console/CommandError.h"
#include "command/files/Columns.h"
#include "command/scan/ColumnScan.h"
#include "command/scan/TextScan.h"
#include "host/LossReport.h"

namespace orvale {

std::vector<Note> ScanInput(const InputName& input, std::uint64_t end) {
    if (input.format->profile == ProfileShape::kColumns)
        return ScanColumns(input.path, std::get<CCSVProfile>(*ColumnsOf(input)), end);
    return ScanText(*input.format, input.path, end);
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
