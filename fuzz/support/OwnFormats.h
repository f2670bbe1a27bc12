#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "command/console/CommandError.h"
#include "command/formats/FormatTable.h"
#include "command/formats/Kinds.h"
#include "host/Flatten.h"
#include "support/MemoryWatch.h"
#include "support/Scratch.h"
#include "support/Target.h"

/// What the targets of the command's own formats share: these are read and written through their sources and sinks.
namespace orvale::fuzz {

/// What a file of such a format holds. Records are never copied: a copy has its groups in another order.
template <class Record>
struct OwnFile {
    std::vector<std::unique_ptr<Record>> records;
    std::vector<Note> notes;
    bool isBroken = false;
};

/// Reads a file up to its end, and asks a little further, which must be harmless. What a format refuses is a
/// CommandError.
template <class Record>
OwnFile<Record> ReadOwn(const OwnFormat& format, const Scratch& file) {
    OwnFile<Record> told;
    const std::unique_ptr<RecordSource> source = format.open(file.Path(), "input");
    auto record = std::make_unique<Record>();
    for (; source->Next(*record); record = std::make_unique<Record>())
        told.records.push_back(std::move(record));
    for (int i = 0; i < 3; ++i)
        Must(!source->Next(*record), "behind the end there is nothing");
    told.isBroken = source->BrokenAt().has_value();
    told.notes = source->Notes();
    return told;
}

/// Reads an input, under the watch of memory; nothing where the format refuses it.
template <class Record>
OwnFile<Record> ReadOwnInput(const OwnFormat& format, std::string_view input) {
    const Scratch file("input", input);
    const MemoryWatch watch(input.size());
    try {
        return ReadOwn<Record>(format, file);
    } catch (const CommandError&) {
        return {};
    }
}

/// The bytes of a file of these records.
template <class Record>
std::string WriteOwn(const OwnFormat& format, const std::vector<std::unique_ptr<Record>>& records,
                     const OutputOptions& options = {}) {
    std::ostringstream out;
    const std::unique_ptr<RecordSink> sink = format.create(out, RecordKind<Record>::value, nullptr, options);
    for (const auto& record : records)
        sink->Put(*record);
    sink->Finish();
    return std::move(out).str();
}

/// Reads what the format's own sink wrote, which takes it for one of its files, whole.
template <class Record>
OwnFile<Record> ReadWritten(const OwnFormat& format, const std::string& bytes) {
    OwnFile<Record> told = ReadOwn<Record>(format, Scratch("copy", bytes));
    Must(!told.isBroken, "a file that was written is whole");
    Must(told.notes.empty(), "all that was written finds its place");
    return told;
}

/// What records say, each as one text.
template <class Record>
std::vector<std::u16string> SaidBy(const std::vector<std::unique_ptr<Record>>& records) {
    std::vector<std::u16string> said(records.size());
    for (std::size_t i = 0; i < records.size(); ++i)
        Flatten(*records[i], said[i]);
    return said;
}

/// The question of a format that keeps all of a record: what was read comes back as it was. `example` is a file with a
/// record; it is read first, as a format may have a library to load, which counts for nobody's memory.
template <class Record>
void AskOwnExact(const OwnFormat& format, std::string_view input, std::string_view example) {
    static const std::size_t examples = ReadOwn<Record>(format, Scratch("example", example)).records.size();
    Must(examples != 0, "the format reads its example");
    const OwnFile<Record> first = ReadOwnInput<Record>(format, input);
    const OwnFile<Record> second = ReadWritten<Record>(format, WriteOwn(format, first.records));
    Must(SaidBy(second.records) == SaidBy(first.records), "records come back as they were");
}

}  // namespace orvale::fuzz
