#include <benchmark/benchmark.h>

#include "Contacts.h"
#include "Yardsticks.h"
#include "native/QZSFile.h"
#include "text/VCardFile.h"

using namespace orvale::bench;

namespace {

template <class File>
void WriteAll(const ScratchFile& scratch, const std::vector<CContactItem>& contacts) {
    File file;
    CFileInterface& face = file;
    const std::uint32_t flags = CFile::kCreateReadWrite;
    std::int32_t good = face.Open(scratch.Name().c_str(), &flags) & face.WriteFileHeader();
    for (const CContactItem& contact : contacts)
        good &= face.Write(&contact);
    if (good == 0) std::abort();
}

template <class File>
std::size_t ReadAll(const ScratchFile& scratch) {
    File file;
    const std::uint32_t flags = CFile::kModeRead;
    void* record = nullptr;
    std::size_t count = 0;
    if (file.Open(scratch.Name().c_str(), &flags) == 0 || file.ReadFileHeader() == 0) std::abort();
    while (file.Read(&record) != 0)
        ++count;
    return count;
}

void Count(benchmark::State& state, const ScratchFile& scratch) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(scratch.Size()));
}

template <class File>
void Write(benchmark::State& state) {
    const ScratchFile scratch;
    const std::vector<CContactItem> contacts = MakeContacts(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        WriteAll<File>(scratch, contacts);
    Count(state, scratch);
}

template <class File>
void Read(benchmark::State& state) {
    const ScratchFile scratch;
    const auto count = static_cast<std::size_t>(state.range(0));
    WriteAll<File>(scratch, MakeContacts(count));
    for (auto _ : state)
        if (ReadAll<File>(scratch) != count) std::abort();
    Count(state, scratch);
}

/// The bare loop over the very file that Read of the same name reads.
template <class File, std::size_t (*Loop)(const std::string&)>
void Bare(benchmark::State& state) {
    const ScratchFile scratch;
    WriteAll<File>(scratch, MakeContacts(static_cast<std::size_t>(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(Loop(scratch.Path()));
    Count(state, scratch);
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(100)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK_TEMPLATE(Read, CQZSFile)->Apply(Sizes);
BENCHMARK_TEMPLATE(Bare, CQZSFile, ReadPrefixedTexts)->Apply(Sizes);
BENCHMARK_TEMPLATE(Read, CVCardFile)->Apply(Sizes);
BENCHMARK_TEMPLATE(Bare, CVCardFile, ReadKeyedLines)->Apply(Sizes);
BENCHMARK_TEMPLATE(Write, CQZSFile)->Apply(Sizes);
BENCHMARK_TEMPLATE(Write, CVCardFile)->Apply(Sizes);

}  // namespace
