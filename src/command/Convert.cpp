#include "command/Convert.h"

#include <filesystem>
#include <memory>

#include "command/Kinds.h"
#include "command/LossReport.h"
#include "command/RecordInput.h"
#include "command/RecordOutput.h"
#include "command/VCardScan.h"
#include "platform/CodePage.h"
#include "platform/PendingFile.h"

namespace orvale {
namespace {

namespace fs = std::filesystem;

const Format& OutputFormat(const ConvertOrder& order) {
    const Format* const format = order.to.empty() ? FormatOfExtension(order.output) : &FormatOfName(order.to);
    if (format == nullptr) FailUsage(ErrorLine(order.output, "", "nothing tells its format; --to names one"));
    if (!format->writes) FailUsage("the format " + std::string(format->name) + " is only read, never written");
    return *format;
}

void RequirePlaceFor(const ConvertOrder& order) {
    std::error_code ignored;
    const fs::file_status status = fs::status(order.output, ignored);
    if (!fs::exists(status)) return;
    if (fs::is_directory(status)) FailFile(order.output, "", "is a folder");
    if (!fs::is_regular_file(status)) FailFile(order.output, "", "is no regular file");
    for (const std::string& input : order.inputs)
        if (fs::equivalent(input, order.output, ignored)) FailFile(order.output, "", "is an input too");
    if (!order.force) FailFile(order.output, "", "exists already; --force replaces it");
}

/// The inputs, opened one after the other and read as one.
class JoinedInputs {
 public:
    JoinedInputs(const LoadedLibrary& library, const std::vector<InputName>& names, bool partial)
        : library_(library), names_(names), partial_(partial) {}

    template <class Record>
    const Record* Next() {
        for (; place_ < names_.size(); ++place_, input_.reset()) {
            if (!input_) input_ = std::make_unique<RecordInput>(library_, names_[place_]);
            if (const Record* record = input_->Next<Record>()) return record;
            JudgeEnd();
        }
        return nullptr;
    }

    /// Says nothing of what was said when the inputs were read before.
    void BeQuiet() { quiet_ = true; }

 private:
    void JudgeEnd() {
        const auto brokenAt = input_->BrokenAt();
        if (!brokenAt || quiet_) return;
        const std::string place =
            "record " + std::to_string(input_->Count() + 1) + ", byte " + std::to_string(*brokenAt);
        if (!partial_) FailFile(names_[place_].name, place, "damaged from here on; --partial takes what came before");
        TellUser(ErrorLine(names_[place_].name, place, "damaged from here on and left out"));
    }

    const LoadedLibrary& library_;
    const std::vector<InputName>& names_;
    bool partial_;
    bool quiet_ = false;
    std::size_t place_ = 0;
    std::unique_ptr<RecordInput> input_;
};

void AddScan(LossReport& report, const InputName& input) {
    if (input.format->type != FileFormat::kVCard) return;
    const VCardScan scan = ScanVCard(input.name);
    const auto add = [&](const std::string& what, const VCardScan::Finding& finding) {
        if (finding.count != 0)
            report.AddLoss(what, finding.count, input.name + ", line " + std::to_string(finding.firstLine));
    };
    add("lines with an unknown key, which joined the value before them", scan.unknownLines);
    add("lines outside of cards of version 2.1", scan.skippedLines);
    add("bytes that code page " + std::to_string(ThreadCodePage().number) + " doesn't have", scan.badBytes);
}

template <class Record>
void CompareWithInputs(LossReport& report, JoinedInputs& inputs, RecordInput& written, const std::string& shownName) {
    std::size_t number = 0;
    while (const Record* before = inputs.Next<Record>()) {
        ++number;
        const Record* const after = written.Next<Record>();
        if (after == nullptr)
            FailFile(shownName, "record " + std::to_string(number), "was written and can't be read back");
        report.Compare(FactsOf(*before), FactsOf(*after), number);
    }
    if (written.Next<Record>() != nullptr || written.BrokenAt())
        FailFile(shownName, "", "more came back than was written");
}

}  // namespace

ExitCode Convert(const LoadedLibrary& library, const ConvertOrder& order) {
    if (order.strict && !order.verify) FailUsage("--strict needs the reading back that --no-verify leaves out");
    const Format& to = OutputFormat(order);
    if (!order.from.empty()) {
        const Format& from = FormatOfName(order.from);
        if (from.kind && to.kind && from.kind != to.kind) FailUsage("--from and the output's format are of two kinds");
    }

    std::vector<InputName> names;
    std::optional<Kind> kind = to.kind;
    for (const std::string& name : order.inputs) {
        names.push_back(ResolveInput(name, order.from));
        const RecordInput input(library, names.back());
        RequireReadable(input);
        if (kind && *kind != input.GetKind()) {
            FailFile(name, "",
                     "holds " + std::string(RecordWord(input.GetKind(), true)) + ", not " +
                         std::string(RecordWord(*kind, true)));
        }
        kind = input.GetKind();
    }
    RequirePlaceFor(order);

    return VisitKind(*kind, [&]<class Record>(std::type_identity<Record>) {
        try {
            PendingFile pending(order.output);
            JoinedInputs inputs(library, names, order.partial);
            RecordOutput output(library, to, *kind, pending.Path(), order.output);
            while (const Record* record = inputs.Next<Record>())
                output.Put(*record);
            output.Finish();

            LossReport report{std::string(RecordWord(*kind))};
            for (const InputName& name : names)
                AddScan(report, name);
            if (output.Replaced() != 0)
                report.AddLoss("halves of characters that JSON can't tell", output.Replaced(), order.output);
            if (order.verify) {
                JoinedInputs again(library, names, true);
                again.BeQuiet();
                RecordInput written(library, {pending.Path().string(), &to, true});
                CompareWithInputs<Record>(report, again, written, order.output);
            }
            for (const std::string& line : report.Lines())
                TellUser(ErrorLine(order.output, "", line));
            if (order.strict && report.HasLoss()) {
                TellUser(ErrorLine(order.output, "", "not written, for --strict takes no loss"));
                return ExitCode::kLoss;
            }
            pending.Commit();
            return ExitCode::kDone;
        } catch (const fs::filesystem_error& error) {
            FailFile(order.output, "", error.code().message());
        }
    });
}

}  // namespace orvale
