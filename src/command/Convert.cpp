#include "command/Convert.h"

#include <filesystem>
#include <functional>
#include <memory>

#include "command/Flatten.h"
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
    JoinedInputs(const LoadedLibrary& library, const std::vector<InputName>& names)
        : library_(library), names_(names), brokenAt_(names.size()) {}

    template <class Record>
    const Record* Next() {
        for (; place_ < names_.size(); ++place_, input_.reset()) {
            if (!input_) input_ = std::make_unique<RecordInput>(library_, names_[place_]);
            if (const Record* record = input_->Next<Record>()) return record;
            brokenAt_[place_] = input_->BrokenAt();
            if (brokenAt_[place_] && onDamage) onDamage(names_[place_].name, input_->Count() + 1, *brokenAt_[place_]);
        }
        return nullptr;
    }

    /// Where each input that was read is damaged; none for one that is whole.
    const std::vector<std::optional<std::uint64_t>>& BrokenAt() const { return brokenAt_; }

    /// Called at each damaged end with the file, the number of the broken record and its offset.
    std::function<void(const std::string&, std::size_t, std::uint64_t)> onDamage;

 private:
    const LoadedLibrary& library_;
    const std::vector<InputName>& names_;
    std::vector<std::optional<std::uint64_t>> brokenAt_;
    std::size_t place_ = 0;
    std::unique_ptr<RecordInput> input_;
};

// What the reader of an input could not make out, up to where the input is whole.
void AddScan(LossReport& report, const InputName& input, std::optional<std::uint64_t> brokenAt) {
    if (input.format->type != FileFormat::kVCard) return;
    const VCardScan scan = ScanVCard(input.name, brokenAt.value_or(UINT64_MAX));
    const auto add = [&](const std::string& what, const VCardScan::Finding& finding) {
        if (finding.count == 0) return;
        report.AddLoss(what, finding.count, input.name + ", line " + std::to_string(finding.firstLine));
    };
    add("lines with an unknown key, which joined the value before them", scan.unknownLines);
    add("lines outside of cards of version 2.1", scan.skippedLines);
    add("bytes that code page " + std::to_string(ThreadCodePage().number) + " doesn't have", scan.badBytes);
}

template <class Record>
void CompareWithInputs(LossReport& report, JoinedInputs& inputs, RecordInput& written, const std::string& shownName) {
    std::u16string flatBefore;
    std::u16string flatAfter;
    std::size_t number = 0;
    while (const Record* before = inputs.Next<Record>()) {
        ++number;
        const Record* const after = written.Next<Record>();
        if (after == nullptr)
            FailFile(shownName, "record " + std::to_string(number), "was written and can't be read back");
        Flatten(*before, flatBefore);
        Flatten(*after, flatAfter);
        if (flatBefore != flatAfter) report.Compare(FactsOf(*before), FactsOf(*after), number);
    }
    if (written.Next<Record>() != nullptr || written.BrokenAt())
        FailFile(shownName, "", "more came back than was written");
}

template <class Record>
ExitCode ConvertRecords(const LoadedLibrary& library, const ConvertOrder& order, const std::vector<InputName>& names,
                        const Format& to, Kind kind) {
    PendingFile pending(order.output);
    JoinedInputs inputs(library, names);
    inputs.onDamage = [&](const std::string& name, std::size_t number, std::uint64_t offset) {
        const std::string place = "record " + std::to_string(number) + ", byte " + std::to_string(offset);
        if (!order.partial) FailFile(name, place, "damaged from here on; --partial takes what came before");
        TellUser(ErrorLine(name, place, "damaged from here on and left out"));
    };
    RecordOutput output(library, to, kind, pending.Path(), order.output);
    while (const Record* record = inputs.Next<Record>())
        output.Put(*record);
    output.Finish();

    LossReport report{std::string(RecordWord(kind))};
    for (std::size_t i = 0; i < names.size(); ++i)
        AddScan(report, names[i], inputs.BrokenAt()[i]);
    if (output.Replaced() != 0)
        report.AddLoss("halves of characters that JSON can't tell", output.Replaced(), order.output);
    if (order.verify) {
        JoinedInputs again(library, names);
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
            return ConvertRecords<Record>(library, order, names, to, *kind);
        } catch (const fs::filesystem_error& error) {
            FailFile(order.output, "", error.code().message());
        }
    });
}

}  // namespace orvale
