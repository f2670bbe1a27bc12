#include "command/Commands.h"

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "command/console/Screen.h"
#include "command/line/Help.h"
#include "command/verbs/Convert.h"
#include "command/verbs/Diff.h"
#include "command/verbs/Info.h"
#include "command/verbs/ListFormats.h"
#include "command/verbs/LogCommand.h"
#include "command/verbs/Show.h"
#include "command/verbs/View.h"
#include "platform/Interrupt.h"
#include "platform/ModulePath.h"
#include "platform/StandardStreams.h"
#include "platform/Text.h"

namespace orvale {
namespace {

std::filesystem::path PathOfModule(const std::string& named) {
    return named.empty() ? LoadedLibrary::DefaultPath() : std::filesystem::path(named);
}

ExitCode TellVersion(const std::string& named) {
    const std::filesystem::path module = AbsolutePath(PathOfModule(named));
    std::error_code ignored;
    const bool there = std::filesystem::is_regular_file(module, ignored);
    std::cout << "orvale " ORVALE_VERSION "\nmodule: " << (there ? "" : "none at ")
              << Visible(FromUtf8(module.string())) << '\n';
    return ExitCode::kDone;
}

LoadedLibrary LoadModule(const std::string& named) {
    const std::filesystem::path path = PathOfModule(named);
    try {
        return LoadedLibrary(path);
    } catch (const std::runtime_error& error) {
        std::string_view reason = error.what();  // the loader's begins with the whole path
        const std::string place = AbsolutePath(path).string() + ": ";
        if (reason.starts_with(place)) reason.remove_prefix(place.size());
        FailFile(path.string(), "", reason);
    }
}

// ---- what a verb is asked for, of the command line

ShowOrder OrderOfShow(const Arguments& typed) {
    return {.file = typed.files.front(),
            .format = typed.format,
            .json = typed.json,
            .csv = typed.csv,
            .safeCsv = typed.safeCsv,
            .color = typed.color,
            .profiles = typed.profiles,
            .profileOnly = typed.profileOnly,
            .noProfile = typed.noProfile,
            .withPasswords = typed.withPasswords};
}

ConvertOrder OrderOfConvert(const Arguments& typed) {
    return {.inputs = {typed.files.begin(), typed.files.end() - 1},
            .output = typed.files.back(),
            .from = typed.format,
            .to = typed.to,
            .profiles = typed.profiles,
            .options = {.withPasswords = typed.withPasswords, .vcardVersion = typed.vcardVersion},
            .force = typed.force,
            .partial = typed.partial,
            .strict = typed.strict,
            .unique = typed.unique,
            .verify = typed.verify};
}

}  // namespace

ExitCode RunCommand(const Arguments& typed) {
    // The module decides its code page by the environment, at its first conversion.
    if (typed.codePage) setenv("ORVALE_CODEPAGE", std::to_string(*typed.codePage).c_str(), 1);
    const std::string word = typed.files.empty() ? "" : typed.files.front();
    switch (typed.verb) {
        case Verb::kFormats:
            return ListFormats(typed.json);
        case Verb::kInfo:
            return TellInfo(LoadModule(typed.module), typed.files, typed.format, typed.json);
        case Verb::kShow:
            return Show(LoadModule(typed.module), OrderOfShow(typed));
        case Verb::kView:
            return View(LoadModule(typed.module),
                        {typed.files, typed.format, typed.profiles, typed.output, typed.force});
        case Verb::kDiff:
            return Diff(LoadModule(typed.module),
                        {{typed.files[0], typed.files[1]}, typed.format, typed.profiles, typed.json});
        case Verb::kConvert:
            return Convert(LoadModule(typed.module), OrderOfConvert(typed));
        case Verb::kLog:
            return LogCommand(PathOfModule(typed.module), word);
        case Verb::kHelp:
            std::cout << (typed.files.empty() ? OverviewText() : VerbText(VerbOfWord(word)));
            return ExitCode::kDone;
        case Verb::kVersion:
            return TellVersion(typed.module);
    }
    return ExitCode::kUsage;
}

int Main(int count, const char* const* words) {
    const auto fail = [](ExitCode code, const char* line) {
        TellUser(line);
        return static_cast<int>(code);
    };
    HoldClosedStreams();
    try {
        std::ios::sync_with_stdio(false);
        std::setlocale(LC_CTYPE, "");  // the code page of text in files is that of the user's locale
        CatchInterrupts();
        const ExitCode code = RunCommand(ParseArguments(count, words));
        std::cout.flush();
        ThrowIfInterrupted();  // a reader who took what he wanted ends the work as a signal would
        if (!std::cout) return fail(ExitCode::kFailed, "standard output: can't be written");
        return static_cast<int>(code);
    } catch (const Interrupted&) {
        return EndByInterrupt();
    } catch (const CommandError& error) {
        std::cout.flush();
        return fail(error.Code(), error.what());
    } catch (const std::bad_alloc&) {
        return fail(ExitCode::kFailed, "out of memory");
    } catch (const std::exception& error) {
        return fail(ExitCode::kFailed, error.what());
    }
}

}  // namespace orvale
