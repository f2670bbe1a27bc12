#include "command/verbs/Convert.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "command/console/Progress.h"
#include "command/files/InputScan.h"
#include "command/files/JoinedInputs.h"
#include "command/files/Profiles.h"
#include "command/files/RecordOutput.h"
#include "command/formats/Kinds.h"
#include "command/json/ProfileJson.h"
#include "host/Flatten.h"
#include "host/LossReport.h"
#include "platform/Clock.h"
#include "platform/Text.h"
#include "records/DriverName.h"

namespace orvale {
namespace {

namespace fs = std::filesystem;

// The format of the output; `kind` is known only once the inputs were opened, and an .xml output waits for it.
const FormatRow* OutputFormat(const ConvertOrder& order, std::optional<Kind> kind) {
    const FormatRow* format = order.to.empty() ? FormatOfExtension(order.output, kind) : &FormatOfName(order.to);
    if (const FormatRow& vcf = FormatOfName("vcf"); !order.options.vcardVersion.empty() && format != nullptr) {
        if (order.to.empty() && format->extension == vcf.extension) format = &vcf;
        if (format != &vcf) FailUsage("--vcard-version is of the format vcf alone");
    }
    if (format == nullptr && (kind || !IsKnownExtension(order.output)))
        FailUsage(ErrorLine(order.output, "", "nothing tells its format; --to names one"));
    if (format != nullptr && !format->writes) FailUsage(WhyNotWritten(*format));
    return format;
}

void RequirePlaceFor(const ConvertOrder& order, const std::vector<InputName>& inputs) {
    if (order.output == kStandardStream) return;
    std::error_code ignored;
    const fs::file_status status = fs::status(order.output, ignored);
    if (!fs::exists(status)) return;
    if (fs::is_directory(status)) FailFile(order.output, "", "is a folder");
    if (!fs::is_regular_file(status)) FailFile(order.output, "", "is no regular file");
    for (const InputName& input : inputs)
        if (fs::equivalent(input.path, order.output, ignored)) FailFile(order.output, "", "is an input too");
    if (!order.force) FailFile(order.output, "", "exists already; --force replaces it");
}

constexpr const char* kStandardOutput = "standard output";

std::unique_ptr<const TemporaryFile> MakeSpool() {
    try {
        return std::make_unique<TemporaryFile>();
    } catch (const std::system_error& error) {
        FailFile(kStandardOutput, "temporary file", SystemReason(error.code()));
    }
}

void CopyToStandardOutput(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (in.peek() != std::ifstream::traits_type::eof()) std::cout << in.rdbuf();
    if (!in) FailFile(kStandardOutput, "temporary file", "can't be read");
}

// A reader of text puts the moment of reading in place of a date that it can't read, and marks the entry: the second
// reading gives another moment, which is no difference.
void Settle(DateValue& before, const DateValue& after) {
    constexpr double kOneHour = 1.0 / 24;
    const double now = DateValue::Now().Value();
    if (std::fabs(before.Value() - now) < kOneHour && std::fabs(after.Value() - now) < kOneHour) before = after;
}

void Settle(CCalendarItem& before, const CCalendarItem& after) {
    if (before.operation == 0) return;
    Settle(before.dtstart, after.dtstart);
    Settle(before.dtend, after.dtend);
    Settle(before.recurenddate, after.recurenddate);
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

// All that a conversion works with.
struct Conversion {
    const LoadedLibrary& library;
    const ConvertOrder& order;
    std::vector<InputName> inputs;
    Kind kind;
    const FormatRow& to;
    std::string outputName;  // what lines about it call it
    std::string outputPath;
    bool replaces;                      // what stands at the output's place
    SharedProfile profile = nullptr;    // of the output
    bool builtInProfile = false;        // it is one that nobody gave
    std::string droppedProfileOf = {};  // the input whose profile the output doesn't take; empty if there is none
};

// The output's profile: the one that the user gave, else that of an input, else a built-in one.
void ChooseProfile(Conversion& work, const SharedProfile& given, const InputsInfo& inputs) {
    const bool takesInputs = inputs.profile && work.to.Takes(ShapeOf(inputs.profile));
    if (inputs.profile && !takesInputs && !given) work.droppedProfileOf = inputs.profileOf;
    work.profile = given ? given : takesInputs ? inputs.profile : nullptr;
    work.builtInProfile = !work.profile;
    if (work.builtInProfile) work.profile = BuiltInProfile(work.library, work.inputs, work.to);
}

// A writer doesn't look at the limits of its format's reader.
[[noreturn]] void FailReadingBack(const Conversion& work, const std::vector<InputName>& files, std::size_t number) {
    for (const InputName& file : files)
        RequireReadable(RecordInput(work.library, file));
    std::string reason = "was written and can't be read back";
    if (!work.to.limit.empty()) reason += "; the format takes " + std::string(work.to.limit);
    FailFile(work.outputName, "record " + std::to_string(number), reason);
}

template <class Record>
void CompareWithInputs(LossReport& report, JoinedInputs& inputs, JoinedInputs& written, const Conversion& work,
                       const std::vector<InputName>& files, std::size_t total) {
    Progress progress("checking", work.outputName);
    std::u16string flatBefore;
    std::u16string flatAfter;
    std::size_t number = 0;
    while (const auto* before = inputs.Next<Record>()) {
        progress.Tick(++number, total);
        const auto* const after = written.Next<Record>();
        if (after == nullptr) FailReadingBack(work, files, number);
        Flatten(*before, flatBefore);
        Flatten(*after, flatAfter);
        if (flatBefore != flatAfter) Compare(report, *before, *after, number, !work.to.type);
    }
    if (written.Next<Record>() != nullptr)
        FailFile(work.outputName, "",
                 "a value holds what begins a record of this format: more came back than was written");
}

// What a profile says once it is in a file object, which adds an ending to the driver's name: that is no loss.
std::vector<Fact> FactsOfKept(const SharedProfile& profile) {
    std::vector<Fact> facts = FactsOf(profile, true);
    for (Fact& fact : facts)
        if (fact.what == "dllname") fact.value = DriverName(fact.value);
    return facts;
}

// Reads the new files back and holds them against the inputs.
template <class Record>
void Verify(LossReport& report, const Conversion& work, const RecordOutput& output, std::size_t total) {
    std::vector<InputName> files;
    const SharedProfile columns = work.to.profile == ProfileShape::kColumns ? work.profile : nullptr;
    for (const std::string& file : output.Files())
        files.push_back({work.outputName, file, &work.to, true, columns});
    JoinedInputs again(work.library, work.inputs);
    again.onlyUnique = work.order.unique;
    if (work.order.partial) again.onEmpty = [](const std::string&) {};
    JoinedInputs written(work.library, files);
    // All records came back if the comparison ends: what is left behind the last one are pieces of a value.
    written.onDamage = [&](const std::string&, const std::string& place) {
        report.AddLoss("pieces of a value that ends its record", 1, place);
    };
    CompareWithInputs<Record>(report, again, written, work, files, total);
    if (!work.builtInProfile && work.to.profile != ProfileShape::kColumns)
        report.Compare(FactsOfKept(work.profile), FactsOf(written.FirstProfile(), true), std::string("the profile"));
}

template <class Record>
void WriteAll(JoinedInputs& inputs, RecordOutput& output, const std::string& shownName) {
    Progress progress("writing", shownName);
    while (const auto* record = inputs.Next<Record>()) {
        output.Put(*record);
        progress.Tick(inputs.Count());
    }
    output.Finish();
}

// What was lost before there were records, and what the writer left out.
void GatherLosses(LossReport& report, const Conversion& work, const JoinedInputs& inputs, const RecordOutput& output) {
    if (!work.droppedProfileOf.empty()) report.AddLoss("profile", 1, work.droppedProfileOf);
    if (inputs.PassedOver() != 0)
        report.AddLoss("records that could not be read and were passed over", inputs.PassedOver(),
                       inputs.PassedOverIn());
    for (const Note& note : NotInRecords(work.inputs, inputs))
        report.AddLoss(note.what, note.count, note.firstPlace);
    for (const Note& note : output.Losses())
        report.AddLoss(note.what, note.count, note.firstPlace.empty() ? work.outputName : note.firstPlace);
}

template <class Record>
ExitCode ConvertRecords(const Conversion& work) {
    const ConvertOrder& order = work.order;
    const StoppedClock clock(Now());  // a record whose input tells no time gets the same one at each reading
    const auto tell = [&](const std::string& line) { TellUser(ErrorLine(work.outputName, "", line)); };
    JoinedInputs inputs(work.library, work.inputs);
    inputs.onlyUnique = order.unique;
    inputs.onDamage = [&](const std::string& name, const std::string& place) {
        if (!order.partial) FailFile(name, place, "damaged from here on; --partial takes what came before");
        TellUser(ErrorLine(name, place, "damaged from here on and left out"));
    };
    if (order.partial && work.inputs.size() > 1) inputs.onEmpty = [](const std::string& line) { TellUser(line); };
    RecordOutput output(work.library, work.to, work.kind, work.outputPath, work.outputName, work.replaces, work.profile,
                        order.options);
    WriteAll<Record>(inputs, output, work.outputName);

    if (inputs.LeftOut() != 0)
        tell("left out: " + std::to_string(inputs.LeftOut()) + " " +
             std::string(RecordWord(work.kind, inputs.LeftOut() != 1)) + " equal to an earlier one");
    LossReport report{std::string(RecordWord(work.kind))};
    GatherLosses(report, work, inputs, output);
    for (const std::string& line : output.Remarks())
        tell(line);
    if (order.verify && work.to.Reads()) Verify<Record>(report, work, output, inputs.Count());
    for (const std::string& line : report.Lines())
        tell(line);
    if (order.strict && report.HasLoss()) {
        tell("not written, for --strict takes no loss");
        return ExitCode::kLoss;
    }
    output.Commit();
    return inputs.PassedOver() == 0 ? ExitCode::kDone : ExitCode::kFailed;
}

}  // namespace

ExitCode Convert(const LoadedLibrary& library, const ConvertOrder& order) {
    if (order.strict && !order.verify) FailUsage("--strict needs the reading back that --no-verify leaves out");
    const FormatRow* to = OutputFormat(order, std::nullopt);
    if (!order.from.empty() && to != nullptr) {
        const FormatRow& from = FormatOfName(order.from);
        if (from.kind && to->kind && from.kind != to->kind)
            FailUsage("--from and the output's format are of two kinds");
    }
    std::vector<InputName> inputs = ResolveInputs(order.inputs, order.from);
    const InputsInfo info = RequireReadable(library, inputs, to != nullptr ? to->kind : std::nullopt);
    if (to == nullptr) to = OutputFormat(order, info.kind);
    RequirePlaceFor(order, inputs);
    const SharedProfile given = TakeGivenProfiles(order.profiles, info.kind, inputs, to);

    const std::unique_ptr<const TemporaryFile> spool = order.output == kStandardStream ? MakeSpool() : nullptr;
    Conversion work{.library = library,
                    .order = order,
                    .inputs = std::move(inputs),
                    .kind = info.kind,
                    .to = *to,
                    .outputName = spool ? kStandardOutput : order.output,
                    .outputPath = spool ? spool->Path() : order.output,
                    .replaces = order.force || spool};
    ChooseProfile(work, given, info);
    const ExitCode code =
        VisitKind(info.kind, [&]<class Record>(std::type_identity<Record>) { return ConvertRecords<Record>(work); });
    if (spool && code != ExitCode::kLoss) CopyToStandardOutput(spool->Path());
    return code;
}

}  // namespace orvale
