#include <fstream>

#include "FileBench.h"
#include "command/exchange/VcfFormat.h"
#include "command/exchange/VcfReader.h"
#include "command/exchange/VcfWriter.h"
#include "text/VCardFile.h"

// The command's vcf, beside the module's vcard.
using namespace orvale;
using namespace orvale::bench;

namespace {

void WriteAllAsVcf(const ScratchFile& scratch, const std::vector<CContactItem>& contacts, VcfVersion version) {
    std::ofstream out(scratch.Path(), std::ios::binary);
    VcfWriter writer(out, version);
    for (const CContactItem& contact : contacts)
        writer.Put(contact);
    writer.Finish();
}

std::size_t ReadAllOfVcf(const ScratchFile& scratch) {
    VcfReader reader(scratch.Path(), "vcf");
    std::size_t count = 0;
    for (CContactItem contact; reader.Next(contact); contact.Clear())
        ++count;
    return count;
}

// The very file that Read<CVCardFile> reads.
void ReadVcfOf21(benchmark::State& state) {
    const ScratchFile scratch;
    const auto count = static_cast<std::size_t>(state.range(0));
    WriteAll<CVCardFile>(scratch, MakeContacts(count));
    for (auto _ : state)
        if (ReadAllOfVcf(scratch) != count) std::abort();
    Count(state, scratch);
}

template <VcfVersion kVersion>
void ReadVcf(benchmark::State& state) {
    const ScratchFile scratch;
    const auto count = static_cast<std::size_t>(state.range(0));
    WriteAllAsVcf(scratch, MakeContacts(count), kVersion);
    for (auto _ : state)
        if (ReadAllOfVcf(scratch) != count) std::abort();
    Count(state, scratch);
}

template <VcfVersion kVersion>
void WriteVcf(benchmark::State& state) {
    const ScratchFile scratch;
    const std::vector<CContactItem> contacts = MakeContacts(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        WriteAllAsVcf(scratch, contacts, kVersion);
    Count(state, scratch);
}

// What it costs to tell that a vCard is the module's.
void JudgeVCard(benchmark::State& state) {
    const ScratchFile scratch;
    WriteAll<CVCardFile>(scratch, MakeContacts(static_cast<std::size_t>(state.range(0))));
    for (auto _ : state)
        if (!VCardReaderTakesAll(scratch.Path())) std::abort();
    Count(state, scratch);
}

BENCHMARK_TEMPLATE(Read, CVCardFile, MakeContacts)->Apply(Sizes);
BENCHMARK(ReadVcfOf21)->Apply(Sizes);
BENCHMARK_TEMPLATE(ReadVcf, VcfVersion::k30)->Apply(Sizes);
BENCHMARK_TEMPLATE(ReadVcf, VcfVersion::k40)->Apply(Sizes);
BENCHMARK_TEMPLATE(WriteVcf, VcfVersion::k30)->Apply(Sizes);
BENCHMARK_TEMPLATE(WriteVcf, VcfVersion::k40)->Apply(Sizes);
BENCHMARK(JudgeVCard)->Apply(Sizes);

}  // namespace
