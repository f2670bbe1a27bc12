#include "command/verbs/View.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>

#include "command/console/Progress.h"
#include "command/files/Profiles.h"
#include "command/files/RecordInput.h"
#include "command/formats/Kinds.h"
#include "command/html/Page.h"
#include "platform/AtomicFile.h"
#include "platform/Launch.h"

namespace orvale {
namespace {

namespace fs = std::filesystem;

// Puts a file's records on the page; what was wrong with the file is told behind it.
void PutFile(Page& page, const LoadedLibrary& library, const InputName& name, std::vector<std::string>& damages) {
    RecordInput input(library, name);
    RequireReadable(input);
    page.Expect(input.GetKind());
    page.AddProfile(input.GetProfile(), false);
    Progress progress("reading", name.name);
    VisitKind(input.GetKind(), [&]<class Record>(std::type_identity<Record>) {
        while (const auto* record = input.Next<Record>()) {
            page.Put(*record);
            progress.Tick(input.Count());
        }
    });
    if (const auto brokenAt = input.BrokenAt())
        damages.push_back(ErrorLine(name.name, PlaceOfDamage(input, *brokenAt), "damaged from here on"));
    if (input.PassedOver() != 0) damages.push_back(ErrorLine(name.name, "", PassedOverText(input.PassedOver())));
    if (name.format->endRule == EndRule::kOneRecord && input.Count() == 0)
        damages.push_back(ErrorLine(name.name, "", "holds no record of the format " + std::string(name.format->name)));
}

void WritePage(Page& page, const std::string& path, const std::string& shownName) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    page.Write(out);
    out.close();
    if (!out) FailFile(shownName, "", "can't be written");
}

void WriteToOutput(Page& page, const ViewOrder& order) {
    std::error_code error;
    if (fs::is_directory(order.output, error)) FailFile(order.output, "", "is a folder");
    if (!order.force && fs::exists(order.output, error))
        FailFile(order.output, "", "exists already; --force replaces it");
    AtomicFile file(order.output);
    WritePage(page, file.TemporaryPath(), order.output);
    file.Commit(order.force ? AtomicFile::Existing::kReplaced : AtomicFile::Existing::kKept);
}

// The page has to outlive the command: a browser reads it when it gets to it.
ExitCode OpenPage(Page& page) {
    TemporaryFile file(".html");
    WritePage(page, file.Path(), file.Path());
    file.Keep();
    switch (OpenOnDesktop(file.Path())) {
        case Launch::kDone:
            std::cout << file.Path() << '\n';
            return ExitCode::kDone;
        case Launch::kMissing:
            TellUser(ErrorLine(file.Path(), "", "the page is here; there is no xdg-open to open it with"));
            return ExitCode::kFailed;
        case Launch::kFailed:
            TellUser(ErrorLine(file.Path(), "", "the page is here; xdg-open found no browser to open it with"));
            return ExitCode::kFailed;
    }
    return ExitCode::kFailed;
}

}  // namespace

ExitCode View(const LoadedLibrary& library, const ViewOrder& order) {
    std::vector<InputName> names = ResolveInputs(order.files, order.format);
    TakeGivenProfiles(order.profiles, Kind::kContacts, names, nullptr);
    Page page;
    std::vector<std::string> damages;
    for (const InputName& name : names)
        PutFile(page, library, name, damages);
    ExitCode code = ExitCode::kDone;
    const std::string where = order.output.empty() ? "the temporary page" : order.output;
    try {
        if (order.output.empty())
            code = OpenPage(page);
        else
            WriteToOutput(page, order);
    } catch (const std::system_error& error) {
        FailFile(where, "", SystemReason(error.code()));
    }
    for (const std::string& line : damages)
        TellUser(line);
    return damages.empty() ? code : ExitCode::kFailed;
}

}  // namespace orvale
