#include "command/verbs/Info.h"

#include <iostream>

#include "command/console/Progress.h"
#include "command/console/Screen.h"
#include "command/files/InputScan.h"
#include "command/files/RecordInput.h"
#include "command/formats/Kinds.h"
#include "command/verbs/ResultsJson.h"
#include "platform/Text.h"

namespace orvale {
namespace {

FileInfo Gather(RecordInput& input) {
    FileInfo info;
    info.file = input.Name().name;
    info.format = input.Name().format->name;
    info.kind = KindWord(input.GetKind());
    info.fileVersion = input.FileVersion();
    info.verifyCode = input.Verify();
    info.verifyName = VerifyName(input.Verify());
    info.header = input.HeaderRead();
    if (!info.header) return info;
    VisitKind(input.GetKind(), [&]<class Record>(std::type_identity<Record>) {
        Progress progress("reading", info.file);
        while (input.Next<Record>() != nullptr)
            progress.Tick(input.Count());
    });
    info.records = input.Count();
    if (const auto brokenAt = input.BrokenAt()) {
        info.truncated = true;
        TellUser(ErrorLine(info.file, PlaceOfDamage(input, *brokenAt), "damaged from here on"));
    }
    return info;
}

// A format whose files hold one record has no truncated files, only such without their record.
bool LacksItsRecord(const RecordInput& input) {
    return input.Name().format->endRule == EndRule::kOneRecord && input.Count() == 0;
}

void Print(const FileInfo& info) {
    const std::string noun = info.records == 1 ? "record" : "records";
    std::cout << Visible(FromUtf8(info.file)) << ": " << info.format << " (" << info.kind << "), version "
              << info.fileVersion << ", ";
    if (!info.header) std::cout << "header unreadable, ";
    std::cout << info.verifyName << " (" << info.verifyCode << "), " << info.records << ' ' << noun;
    if (info.truncated) std::cout << ", damaged end";
    std::cout << '\n';
}

// Tells what one file is, and whether all is well with it.
bool TellFile(const LoadedLibrary& library, const InputName& name, bool json, std::vector<FileInfo>& infos) {
    RecordInput input(library, name);
    const FileInfo info = Gather(input);
    if (input.PassedOver() != 0) TellUser(ErrorLine(info.file, "", PassedOverText(input.PassedOver())));
    if (LacksItsRecord(input)) TellUser(ErrorLine(info.file, "", "holds no record of its format"));
    if (info.header)
        TellColumnLosses(name);
    else
        TellUser(ErrorLine(info.file, "", HeaderReason(input)));
    if (!json) Print(info);
    infos.push_back(info);
    return info.header && info.verifyCode == VERIFY_OK && !info.truncated && input.PassedOver() == 0 &&
           !LacksItsRecord(input);
}

}  // namespace

ExitCode TellInfo(const LoadedLibrary& library, const std::vector<std::string>& files, const std::string& formatName,
                  bool json) {
    RequireOneStandardInput(files);
    ExitCode code = ExitCode::kDone;
    std::vector<FileInfo> infos;
    bool asList = files.size() > 1;
    for (const std::string& file : files) {
        try {
            const std::vector<InputName> names = ResolveInputs({file}, formatName);
            asList = asList || std::filesystem::is_directory(file);
            for (const InputName& name : names)
                if (!TellFile(library, name, json, infos)) code = ExitCode::kFailed;
        } catch (const CommandError& error) {
            if (error.Code() == ExitCode::kUsage) throw;
            TellUser(error.what());
            code = ExitCode::kFailed;
        }
    }
    if (json) std::cout << InfoJson(infos, asList);
    return code;
}

}  // namespace orvale
