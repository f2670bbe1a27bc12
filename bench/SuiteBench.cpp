#include <libxml/parser.h>
#include <malloc.h>

#include <fstream>
#include <functional>

#include "CalendarAndMail.h"
#include "FileBench.h"
#include "records/ContactFieldTypes.h"
#include "xml/CDXMLFile.h"
#include "xml/MLXMLFile.h"
#include "xml/PBXMLFile.h"
#include "xml/SMSXMLFile.h"

using namespace orvale::bench;

namespace {

/// A profile that knows the memories and the types of MakeContacts.
CPhonebookProfile MakeProfile() {
    CPhonebookProfile profile;
    for (const CContactItem& contact : MakeContacts(10)) {
        if (profile.FindDevice(contact.Storage) != nullptr) continue;
        profile.devices.push_back(std::make_unique<CPhonebookDevice>());
        CPhonebookDevice& device = *profile.devices.back();
        device.id = contact.Storage;
        device.config = PBDV_HAS_GROUP;
        for (const ContactFieldType& type : kContactFieldTypes)
            device.typeIds.push_back(static_cast<std::uint32_t>(type.id));
        device.typeLabels.resize(device.typeIds.size());
        device.typeIcons.resize(device.typeIds.size());
        device.typeLengths.resize(device.typeIds.size());
    }
    return profile;
}

template <class File, class Records>
void Save(const ScratchFile& scratch, const Records& records) {
    File file;
    CFileInterface& face = file;
    const std::uint32_t flags = CFile::kCreateReadWrite;
    std::int32_t good = face.Open(scratch.Name().c_str(), &flags);
    const CPhonebookProfile profile = MakeProfile();
    if (std::is_same_v<File, CPBXMLFile>) face.SetProfile(&profile);
    good &= face.WriteFileHeader();
    for (const auto& record : records)
        good &= face.Write(&record);
    face.Close();
    if (good == 0) std::abort();
}

/// The most memory that the process holds at once, beyond what it held when the object was made.
class Peak {
 public:
    Peak() {
        malloc_trim(0);
        std::ofstream("/proc/self/clear_refs") << 5;
        before_ = Kilobytes("VmRSS:");
    }
    double Megabytes() const { return (Kilobytes("VmHWM:") - before_) / 1024; }

 private:
    static double Kilobytes(const std::string& name) {
        std::ifstream status("/proc/self/status");
        double kilobytes = 0;
        for (std::string word; status >> word;)
            if (word == name && status >> kilobytes) break;
        return kilobytes;
    }

    double before_;
};

/// Runs a body on a document of so many records, first once for its memory.
template <class File, auto Make, class Body>
void Measure(benchmark::State& state, Body body) {
    const ScratchFile scratch;
    Save<File>(scratch, Make(static_cast<std::size_t>(state.range(0))));
    const Peak peak;
    body(scratch);
    state.counters["peak_MB"] = peak.Megabytes();
    for (auto _ : state)
        body(scratch);
    Count(state, scratch);
}

template <class File>
void OpenFile(File& file, const ScratchFile& scratch) {
    const std::uint32_t flags = CFile::kModeRead;
    if (file.Open(scratch.Name().c_str(), &flags) == 0 || file.ReadFileHeader() == 0) std::abort();
}

template <class File, auto Make>
void Open(benchmark::State& state) {
    Measure<File, Make>(state, [](const ScratchFile& scratch) {
        File file;
        OpenFile(file, scratch);
    });
}

/// The least that any reader of a whole document must do: the library's tree of it, without blank texts.
template <class File, auto Make>
void Bare(benchmark::State& state) {
    Measure<File, Make>(state, [](const ScratchFile& scratch) {
        xmlDoc* const document = xmlReadFile(scratch.Path().c_str(), nullptr, XML_PARSE_NOBLANKS);
        if (document == nullptr) std::abort();
        xmlFreeDoc(document);
    });
}

/// All records of a document that is open.
template <class File, auto Make>
void Walk(benchmark::State& state) {
    const ScratchFile scratch;
    Save<File>(scratch, Make(static_cast<std::size_t>(state.range(0))));
    File file;
    OpenFile(file, scratch);
    for (auto _ : state) {
        std::int64_t count = 0;
        for (void* record = nullptr; file.Read(&record) != 0;)
            ++count;
        if (count != state.range(0)) std::abort();
    }
    Count(state, scratch);
}

/// A whole document, up to the file on the disk.
template <class File, auto Make>
void Build(benchmark::State& state) {
    const ScratchFile scratch;
    const auto records = Make(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        Save<File>(scratch, records);
    Count(state, scratch);
}

#define ORVALE_SUITE(File, Make)                        \
    BENCHMARK_TEMPLATE(Bare, File, Make)->Apply(Sizes); \
    BENCHMARK_TEMPLATE(Open, File, Make)->Apply(Sizes); \
    BENCHMARK_TEMPLATE(Walk, File, Make)->Apply(Sizes); \
    BENCHMARK_TEMPLATE(Build, File, Make)->Apply(Sizes)

ORVALE_SUITE(CPBXMLFile, MakeContacts);
ORVALE_SUITE(CCDXMLFile, MakeItems);
ORVALE_SUITE(CSMSXMLFile, MakeMessages);
ORVALE_SUITE(CMLXMLFile, MakeEmails);

}  // namespace
