#include "command/verbs/ListFormats.h"

#include <iostream>

#include "command/formats/FormatTable.h"
#include "command/verbs/ResultsJson.h"

namespace orvale {

ExitCode ListFormats(bool json) {
    if (json) {
        std::cout << FormatsJson();
        return ExitCode::kDone;
    }
    for (const FormatRow& row : FormatTable()) {
        std::string line(row.name);
        line.resize(16, ' ');
        line += row.kind ? KindWord(*row.kind) : "all kinds";
        line.resize(28, ' ');
        line += row.extension;
        line.resize(36, ' ');
        if (!row.lacks.empty())
            line.append("needs ").append(row.lacks).append(", which this build goes without");
        else
            line += !row.Reads() ? "writes" : row.writes ? "reads, writes" : "reads";
        std::cout << line << '\n';
    }
    return ExitCode::kDone;
}

}  // namespace orvale
