#pragma once

#include <benchmark/benchmark.h>

#include <cstdlib>

#include "Contacts.h"
#include "frame/FileInterface.h"

/// The benchmarks that all formats have: writing a file of so many records, and reading it.
namespace orvale::bench {

template <class File, class Record>
void WriteAll(const ScratchFile& scratch, const std::vector<Record>& records) {
    File file;
    CFileInterface& face = file;
    const std::uint32_t flags = CFile::kCreateReadWrite;
    std::int32_t good = face.Open(scratch.Name().c_str(), &flags) & face.WriteFileHeader();
    for (const Record& record : records)
        good &= face.Write(&record);
    if (good == 0) std::abort();
}

/// The number of records.
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

inline void Count(benchmark::State& state, const ScratchFile& scratch) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(scratch.Size()));
}

/// Make gives so many records.
template <class File, auto Make>
void Write(benchmark::State& state) {
    const ScratchFile scratch;
    const auto records = Make(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        WriteAll<File>(scratch, records);
    Count(state, scratch);
}

/// A file of kRecords records holds all that were written; 0 stands for as many as these.
template <class File, auto Make, std::size_t kRecords = 0>
void Read(benchmark::State& state) {
    const ScratchFile scratch;
    const auto count = static_cast<std::size_t>(state.range(0));
    WriteAll<File>(scratch, Make(count));
    for (auto _ : state)
        if (ReadAll<File>(scratch) != (kRecords != 0 ? kRecords : count)) std::abort();
    Count(state, scratch);
}

inline void Sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(100)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
}

}  // namespace orvale::bench
