#include "command/Info.h"

#include <iostream>

#include "command/Kinds.h"
#include "command/RecordInput.h"
#include "command/json/FormatsJson.h"

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
        while (input.Next<Record>() != nullptr) {
        }
    });
    info.records = input.Count();
    if (const auto brokenAt = input.BrokenAt()) {
        info.truncated = true;
        TellUser(ErrorLine(info.file,
                           "record " + std::to_string(info.records + 1) + ", byte " + std::to_string(*brokenAt),
                           "damaged from here on"));
    }
    return info;
}

void Print(const FileInfo& info) {
    const std::string noun(RecordWord(*FormatOfName(info.format).kind, info.records != 1));
    std::cout << info.file << ": " << info.format << " (" << info.kind << "), version " << info.fileVersion << ", ";
    if (!info.header) std::cout << "header unreadable, ";
    std::cout << info.verifyName << ", " << info.records << ' ' << noun;
    if (info.truncated) std::cout << ", damaged end";
    std::cout << '\n';
}

}  // namespace

ExitCode TellInfo(const LoadedLibrary& library, const std::vector<std::string>& files, const std::string& formatName,
                  bool json) {
    ExitCode code = ExitCode::kDone;
    std::vector<FileInfo> infos;
    for (const std::string& file : files) {
        try {
            RecordInput input(library, ResolveInput(file, formatName));
            const FileInfo info = Gather(input);
            if (!info.header || info.verifyCode != VERIFY_OK || info.truncated) code = ExitCode::kFailed;
            if (!json) Print(info);
            infos.push_back(info);
        } catch (const CommandError& error) {
            if (error.Code() == ExitCode::kUsage) throw;
            TellUser(error.what());
            code = ExitCode::kFailed;
        }
    }
    if (json) std::cout << InfoJson(infos, files.size() > 1);
    return code;
}

}  // namespace orvale
