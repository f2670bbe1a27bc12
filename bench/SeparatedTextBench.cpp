#include <fstream>

#include "FileBench.h"
#include "text/CSVFile.h"
#include "text/SSYFile.h"

using namespace orvale::bench;

namespace {

/// With columns for every type of the contacts but the note, whose line break no line of the file can hold.
class CSVWithProfile : public CCSVFile {
 public:
    CSVWithProfile() {
        const CCSVProfile profile{{CF_GIVEN_NAME, CF_FAMILY_NAME, CF_TEL_CELL_VOICE, CF_TEL_HOME_VOICE, CF_EMAIL_PREF,
                                   CF_ADR_HOME_STREET, CF_ADR_HOME_CITY, CF_ADR_HOME_POSTCODE, CF_ORG},
                                  {u"Given name", u"Family name", u"Mobile", u"Phone", u"E-mail", u"Street", u"City",
                                   u"Postcode", u"Company"}};
        SetProfile(&profile);
    }
};

/// A line of captions in front of a whole file, which is then cut to its length again: what a header written last
/// costs.
void HeaderInFront(benchmark::State& state) {
    const ScratchFile scratch;
    WriteAll<CSVWithProfile>(scratch, MakeContacts(static_cast<std::size_t>(state.range(0))));
    CSVWithProfile file;
    const std::uint32_t flags = CFile::kModeReadWrite;
    if (file.Open(scratch.Name().c_str(), &flags) == 0) std::abort();
    const std::uint64_t length = file.GetLength();
    for (auto _ : state) {
        if (file.WriteFileHeader() == 0) std::abort();
        file.SetLength(length);
    }
    Count(state, scratch);
}

void ReadSSY(benchmark::State& state) {
    const ScratchFile scratch;
    const auto count = static_cast<std::size_t>(state.range(0));
    std::string bytes(54, '\0');  // reading doesn't look at the size
    CSSYFile converter;
    for (const CContactItem& contact : MakeContacts(count)) {
        const auto text = [&](std::size_t field) { return converter.ToNarrow(contact.fields.at(field)->Data); };
        bytes +=
            text(0) + ',' + text(1) + ",,,,9," + text(2) + ",6," + text(3) + ':' + text(4) + ",http&45//example.org";
        bytes.push_back('\0');
    }
    std::ofstream(scratch.Path(), std::ios::binary) << bytes;
    for (auto _ : state)
        if (ReadAll<CSSYFile>(scratch) != count) std::abort();
    Count(state, scratch);
}

BENCHMARK_TEMPLATE(Read, CSVWithProfile, MakeContacts)->Apply(Sizes);
BENCHMARK_TEMPLATE(Write, CSVWithProfile, MakeContacts)->Apply(Sizes);
BENCHMARK(HeaderInFront)->Apply(Sizes);
BENCHMARK(ReadSSY)->Apply(Sizes);

}  // namespace
