#include "command/Commands.h"

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "command/console/Screen.h"
#include "command/formats/FormatTable.h"
#include "command/line/Help.h"
#include "command/verbs/FormatsJson.h"
#include "command/verbs/Info.h"
#include "command/verbs/LogCommand.h"
#include "command/verbs/Show.h"
#include "command/verbs/View.h"
#include "platform/Interrupt.h"
#include "platform/ModulePath.h"
#include "platform/Text.h"

namespace orvale {
namespace {

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
        line += !row.Reads() ? "writes" : row.writes ? "reads, writes" : "reads";
        std::cout << line << '\n';
    }
    return ExitCode::kDone;
}

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

}  // namespace

ExitCode RunCommand(const Arguments& arguments) {
    // The module decides its code page by the environment, at its first conversion.
    if (arguments.codePage) setenv("ORVALE_CODEPAGE", std::to_string(*arguments.codePage).c_str(), 1);
    switch (arguments.verb) {
        case Verb::kFormats:
            return ListFormats(arguments.json);
        case Verb::kInfo:
            return TellInfo(LoadModule(arguments.module), arguments.files, arguments.format, arguments.json);
        case Verb::kShow: {
            ShowOrder order = arguments.show;
            order.file = arguments.files.front();
            order.format = arguments.format;
            order.json = arguments.json;
            order.color = arguments.color;
            return Show(LoadModule(arguments.module), std::move(order));
        }
        case Verb::kDiff: {
            DiffOrder order = arguments.diff;
            order.files = {arguments.files[0], arguments.files[1]};
            order.format = arguments.format;
            order.json = arguments.json;
            return Diff(LoadModule(arguments.module), order);
        }
        case Verb::kView: {
            ViewOrder order = arguments.view;
            order.files = arguments.files;
            order.format = arguments.format;
            return View(LoadModule(arguments.module), order);
        }
        case Verb::kConvert: {
            ConvertOrder order = arguments.convert;
            order.inputs = arguments.files;
            order.inputs.pop_back();
            order.output = arguments.files.back();
            return Convert(LoadModule(arguments.module), order);
        }
        case Verb::kLog:
            return LogCommand(PathOfModule(arguments.module), arguments.files.empty() ? "" : arguments.files.front());
        case Verb::kHelp:
            std::cout << (arguments.files.empty() ? OverviewText() : VerbText(VerbOfWord(arguments.files.front())));
            return ExitCode::kDone;
        case Verb::kVersion:
            return TellVersion(arguments.module);
    }
    return ExitCode::kUsage;
}

int Main(int count, const char* const* words) {
    const auto fail = [](ExitCode code, const char* line) {
        TellUser(line);
        return static_cast<int>(code);
    };
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
