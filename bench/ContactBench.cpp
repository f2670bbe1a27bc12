#include "FileBench.h"
#include "Yardsticks.h"
#include "native/QZSFile.h"
#include "text/VCardFile.h"

using namespace orvale::bench;

namespace {

/// The bare loop over the very file that Read of the same name reads.
template <class File, std::size_t (*Loop)(const std::string&)>
void Bare(benchmark::State& state) {
    const ScratchFile scratch;
    WriteAll<File>(scratch, MakeContacts(static_cast<std::size_t>(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(Loop(scratch.Path()));
    Count(state, scratch);
}

BENCHMARK_TEMPLATE(Read, CQZSFile, MakeContacts)->Apply(Sizes);
BENCHMARK_TEMPLATE(Bare, CQZSFile, ReadPrefixedTexts)->Apply(Sizes);
BENCHMARK_TEMPLATE(Read, CVCardFile, MakeContacts)->Apply(Sizes);
BENCHMARK_TEMPLATE(Bare, CVCardFile, ReadKeyedLines)->Apply(Sizes);
BENCHMARK_TEMPLATE(Write, CQZSFile, MakeContacts)->Apply(Sizes);
BENCHMARK_TEMPLATE(Write, CVCardFile, MakeContacts)->Apply(Sizes);

}  // namespace
