#include "faults/Roads.h"

#include <sys/syscall.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>

#include "command/Commands.h"
#include "command/json/JsonDocument.h"
#include "platform/SharedLibrary.h"
#include "platform/Text.h"

namespace orvale::test {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kUnfinished = ".orvale-";

std::string BytesOf(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

bool IsUnfinished(const std::string& path) {
    return path.starts_with(kUnfinished);
}

// The files with characters for the references to them: where the XML library has no memory for the name of the
// encoding, it writes these, which read the same.
Files Plain(Files files) {
    for (auto& [name, bytes] : files) {
        for (std::size_t at = 0; (at = bytes.find("&#", at)) != std::string::npos; ++at) {
            const std::size_t end = bytes.find(';', at);
            if (end == std::string::npos) break;
            const bool isHex = bytes[at + 2] == 'x';
            const std::string digits = bytes.substr(at + (isHex ? 3 : 2), end - at - (isHex ? 3 : 2));
            const auto unit = static_cast<char16_t>(std::strtoul(digits.c_str(), nullptr, isHex ? 16 : 10));
            bytes.replace(at, end - at + 1, ToUtf8(std::u16string(1, unit)));
        }
    }
    return files;
}

// The calls by which a file is taken away: where one of them fails, it stays.
bool TakesAway(const std::string& call) {
    const std::set<int> kCalls = {SYS_unlink, SYS_unlinkat, SYS_rmdir};
    return kCalls.contains(std::stoi(call));
}

}  // namespace

FaultRun RunCommandWith(const Fault& fault, const std::vector<std::string>& words,
                        const std::function<void()>& meanwhile) {
    std::vector<const char*> all{"orvale"};
    for (const std::string& word : words)
        all.push_back(word.c_str());
    all.insert(all.end(), {"--module", ORVALE_MODULE});
#if defined(ORVALE_COVERAGE)
    static const SharedLibrary kept(ORVALE_MODULE);  // unloaded, it would write its counters while faults are made
#endif
    return RunWith(
        fault, [&] { return Main(static_cast<int>(all.size()), all.data()); }, meanwhile);
}

Files FilesIn(const fs::path& folder) {
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const std::string name = entry.path().lexically_relative(folder).string();
        files[name] = entry.is_directory() ? "folder" : BytesOf(entry.path());
    }
    return files;
}

std::size_t TakeUnfinished(Files& files) {
    std::size_t count = 0;
    for (auto at = files.begin(); at != files.end();) {
        if (!IsUnfinished(at->first)) {
            ++at;
            continue;
        }
        count += at->first.find('/') == std::string::npos;
        at = files.erase(at);
    }
    return count;
}

Road::Road(std::string name, std::vector<std::string> words, Files files)
    : name_(std::move(name)), words_(std::move(words)), before_(std::move(files)) {
    for (std::string& word : words_)
        if (word.starts_with("@/")) word = (folder_ / word.substr(2)).string();
    left_ = {{"", ""}};  // other than what is there
    clean_ = Run({});
    after_ = left_;
}

void Road::Restore() {
    if (left_ == before_) return;
    for (const auto& entry : fs::directory_iterator(folder_ / ""))
        fs::remove_all(entry.path());
    for (const auto& [name, bytes] : before_)
        folder_.Put(name, bytes);
}

FaultRun Road::Run(const Fault& fault, const std::function<void()>& meanwhile) {
    Restore();
    const FaultRun run = RunCommandWith(fault, words_, meanwhile);
    left_ = FilesIn(folder_ / "");
    return run;
}

FaultRun Road::RunAgain() {
    const FaultRun run = RunCommandWith({}, words_);
    left_ = FilesIn(folder_ / "");
    return run;
}

std::string Road::Judge(const Fault& fault, const FaultRun& run) {
    if (fault.kind == Fault::kKilled) {
        Files left = left_;
        const std::size_t unfinished = TakeUnfinished(left);
        if (unfinished > 2) return "more than two files left over";
        if (left != before_ && left != after_) return "lost its target";
        // What is left over must not hinder the next run.
        if (unfinished == 0 || left != before_) return "";
        if (RunAgain().exitCode != clean_.exitCode) return "hinders the next run";
        left = left_;
        TakeUnfinished(left);
        return left == after_ ? "" : "hinders the next run's work";
    }
    if (run.signal != 0) return "ended by signal " + std::to_string(run.signal);
    if (run.openFiles != clean_.openFiles) return "files left open";
    if (run.leaked) return "memory left";
    Files left = left_;
    const std::size_t unfinished = TakeUnfinished(left);
    // Taking away what is unfinished takes system calls, and of a folder also memory.
    if (unfinished != 0 && !fault.forEver && !(fault.kind == Fault::kSystemCall && TakesAway(run.call)))
        return "left an unfinished file";
    if (run.exitCode == clean_.exitCode) {
        if (left != after_ && Plain(left) != Plain(after_)) return "success, with another file";
        if (run.output != clean_.output) return "success, with other output";
        if (run.errors != clean_.errors) return "success, with other words";
        return "";
    }
    if (run.exitCode != 1) return "exit code " + std::to_string(run.exitCode);
    // What is amiss with a file is the result of `info`.
    const bool told = run.errors.find("orvale: ") != std::string::npos ||
                      (words_.front() == "info" && !run.output.empty() && run.output != clean_.output);
    if (!told) return "fails without a word";
    return left == before_ ? "" : "failure, with another file";
}

std::pair<std::string, std::string> SampleOf(const FormatRow& format, std::optional<Kind> kind) {
    std::set<fs::path> paths;
    for (const auto& entry : fs::directory_iterator(ORVALE_SAMPLES))
        paths.insert(entry.path());
    for (const fs::path& path : paths) {
        if (path.extension() == ".md" || DetectFormat(path) != &format) continue;
        if (kind && !format.kind && JsonDocument(path, path.string()).GetKind() != kind) continue;
        return {path.filename().string(), BytesOf(path)};
    }
    throw std::runtime_error("no sample of the format " + std::string(format.name));
}

std::vector<std::unique_ptr<Road>> AllRoads() {
    std::vector<std::unique_ptr<Road>> roads;
    const auto add = [&](const std::string& name, std::vector<std::string> words, Files files) {
        roads.push_back(std::make_unique<Road>(name, std::move(words), std::move(files)));
    };
    const FormatRow& json = FormatOfName("json");
    for (const FormatRow& format : FormatTable()) {
        const std::string name(format.name);
        if (format.Reads()) {
            const auto sample = SampleOf(format);
            add("info " + name, {"info", "@/" + sample.first}, {sample});
            add("show " + name, {"show", "--json", "@/" + sample.first}, {sample});
            if (&format != &json) add("convert from " + name, {"convert", "@/" + sample.first, "@/new.json"}, {sample});
        }
        if (!format.writes) continue;
        const FormatRow& from = &format == &json ? FormatOfName("qzs") : json;
        const auto source = SampleOf(from, format.kind);
        const std::string target = "out" + std::string(format.extension);
        for (const bool verifies : {true, false}) {
            if (verifies && !format.Reads()) continue;
            // Several records of a format of one go to a new folder; else an old file is replaced.
            const bool intoFolder = format.endRule == EndRule::kOneRecord;
            Files files{source};
            if (!intoFolder) files[target] = "what was there";
            std::vector<std::string> words{"convert", "--to", name, "@/" + source.first, "@/" + target};
            if (!intoFolder) words.emplace_back("--force");
            if (!verifies) words.emplace_back("--no-verify");
            add("convert to " + name + (verifies ? "" : " unverified"), words, files);
        }
    }
    return roads;
}

}  // namespace orvale::test
