#include "command/Convert.h"

#include <filesystem>

#include "command/Flatten.h"
#include "command/JoinedInputs.h"
#include "command/Kinds.h"
#include "command/LossReport.h"
#include "command/RecordOutput.h"
#include "command/VCardScan.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/Text.h"

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

// What the reader of an input could not make out, up to where the input is whole.
void AddScan(LossReport& report, const InputName& input, std::optional<std::uint64_t> brokenAt) {
    if (input.format->type != FileFormat::kVCard) return;
    const VCardScan scan = ScanVCard(input.name, brokenAt.value_or(UINT64_MAX));
    const auto add = [&](const std::string& what, const VCardScan::Finding& finding) {
        if (finding.count == 0) return;
        report.AddLoss(what, finding.count, input.name + ", line " + std::to_string(finding.firstLine));
    };
    add("lines with an unknown key, which joined the value before them", scan.joinedLines);
    add("lines that belong to no value, which were dropped", scan.droppedLines);
    add("lines outside of cards of version 2.1", scan.skippedLines);
    add("ends of values behind a zero byte", scan.cutValues);
    add("bytes that code page " + std::to_string(ThreadCodePage().number) + " doesn't have", scan.badBytes);
}

// A reader puts the moment of reading in place of a date that it can't read, and marks the entry: the second reading
// gives another moment, which is no difference.
void Settle(CCalendarItem& before, const CCalendarItem& after) {
    if (before.operation == 0) return;
    before.dtstart = after.dtstart;
    before.dtend = after.dtend;
}

template <class Record>
void Settle(Record&, const Record&) {}

template <class Record>
void Compare(LossReport& report, const Record& before, const Record& after, std::size_t number, bool throughUtf8) {
    Record settled = before;
    Settle(settled, after);
    std::vector<Fact> facts = FactsOf(settled);
    if (throughUtf8) {  // halves of characters are told once, by their number
        for (Fact& fact : facts)
            fact.value = FromUtf8(ToUtf8(fact.value));
    }
    report.Compare(facts, FactsOf(after), number);
}

template <class Record>
void CompareWithInputs(LossReport& report, JoinedInputs& inputs, JoinedInputs& written, const std::string& shownName,
                       bool throughUtf8) {
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
        if (flatBefore != flatAfter) Compare(report, *before, *after, number, throughUtf8);
    }
    if (written.Next<Record>() != nullptr)
        FailFile(shownName, "", "a value holds what begins a record of this format: more came back than was written");
}

template <class Record>
ExitCode ConvertRecords(const LoadedLibrary& library, const ConvertOrder& order, const std::vector<InputName>& names,
                        const Format& to, Kind kind) {
    const StoppedClock clock(Now());  // a record whose input tells no time gets the same one at each reading
    JoinedInputs inputs(library, names);
    inputs.onDamage = [&](const std::string& name, const std::string& place) {
        if (!order.partial) FailFile(name, place, "damaged from here on; --partial takes what came before");
        TellUser(ErrorLine(name, place, "damaged from here on and left out"));
    };
    RecordOutput output(library, to, kind, order.output, order.force);
    while (const Record* record = inputs.Next<Record>())
        output.Put(*record);
    output.Finish();

    LossReport report{std::string(RecordWord(kind))};
    for (const std::string& name : inputs.NamesWithProfile())
        report.AddLoss("profile", 1, name);
    for (std::size_t i = 0; i < names.size(); ++i)
        AddScan(report, names[i], inputs.BrokenAt()[i]);
    if (output.Replaced() != 0)
        report.AddLoss("halves of characters that JSON can't tell", output.Replaced(), order.output);
    if (order.verify) {
        std::vector<InputName> files;
        for (const std::string& file : output.Files())
            files.push_back({file, &to, true});
        JoinedInputs again(library, names);
        JoinedInputs written(library, files);
        // All records came back if the comparison ends: what is left behind the last one are pieces of a value.
        written.onDamage = [&](const std::string&, const std::string& place) {
            report.AddLoss("pieces of a value that ends its record", 1, place);
        };
        CompareWithInputs<Record>(report, again, written, order.output, !to.type);
    }
    for (const std::string& line : report.Lines())
        TellUser(ErrorLine(order.output, "", line));
    if (order.strict && report.HasLoss()) {
        TellUser(ErrorLine(order.output, "", "not written, for --strict takes no loss"));
        return ExitCode::kLoss;
    }
    output.Commit();
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
    const std::vector<InputName> names = ResolveInputs(order.inputs, order.from);
    const Kind kind = RequireReadable(library, names, to.kind);
    RequirePlaceFor(order);
    return VisitKind(kind, [&]<class Record>(std::type_identity<Record>) {
        return ConvertRecords<Record>(library, order, names, to, kind);
    });
}

}  // namespace orvale
