#include <fstream>

#include "CalendarAndMail.h"
#include "FileBench.h"
#if ORVALE_ICAL
#include "command/exchange/IcsFile.h"
#endif
#if ORVALE_GMIME
#include "command/exchange/MboxFile.h"
#endif

using namespace orvale::bench;

namespace {

template <class Sink, class Records>
void Save(const ScratchFile& scratch, const Records& records) {
    std::ofstream out(scratch.Path(), std::ios::binary | std::ios::trunc);
    Sink sink(out);
    for (const auto& record : records)
        sink.Put(record);
    sink.Finish();
    if (!out.flush()) std::abort();
}

template <class Sink, auto Make>
void WriteExchange(benchmark::State& state) {
    const ScratchFile scratch;
    const auto records = Make(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        Save<Sink>(scratch, records);
    Count(state, scratch);
}

template <class Source, class Sink, auto Make>
void ReadExchange(benchmark::State& state) {
    const ScratchFile scratch;
    const auto records = Make(static_cast<std::size_t>(state.range(0)));
    Save<Sink>(scratch, records);
    using Record = std::decay_t<decltype(records.front())>;
    for (auto _ : state) {
        Source source(scratch.Path(), "bench");
        std::int64_t count = 0;
        for (Record record; source.Next(record); record = Record())
            ++count;
        if (count != state.range(0)) std::abort();
    }
    Count(state, scratch);
}

#define ORVALE_EXCHANGE(Source, Sink, Make)                      \
    BENCHMARK_TEMPLATE(WriteExchange, Sink, Make)->Apply(Sizes); \
    BENCHMARK_TEMPLATE(ReadExchange, Source, Sink, Make)->Apply(Sizes)

#if ORVALE_ICAL
ORVALE_EXCHANGE(orvale::IcsSource, orvale::IcsSink, MakeItems);
#endif
#if ORVALE_GMIME
ORVALE_EXCHANGE(orvale::MboxSource, orvale::MboxSink, MakeEmails);
#endif

}  // namespace
