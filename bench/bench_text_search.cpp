// Search and replace over a listing-sized text: one find near the end, and a
// replace-all of a word on every line, reported as bytes of text per second.
#include <benchmark/benchmark.h>

#include <string>

#include "models/textpane/text_search.h"

namespace {

std::string ListingLike(int lines) {
    std::string text;
    for (int i = 0; i < lines; ++i) text += "[_polygon]\r\nType=0x010\r\nXpm=\"0 0 1 0\"\r\n\"1 c #ff0000\"\r\n[end]\r\n";
    return text;
}

void BM_FindWholeWordAnyCase(benchmark::State& state) {
    const std::string text = ListingLike(static_cast<int>(state.range(0))) + "Château";
    for (auto _ : state) benchmark::DoNotOptimize(mirvane::FindInText(text, "CHÂTEAU", 0, {false, true}));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(BM_FindWholeWordAnyCase)->Arg(1000)->Arg(100000);

void BM_ReplaceAllHoldingTheWord(benchmark::State& state) {
    const std::string text = ListingLike(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(mirvane::ReplaceAllInText(text, "type", "TypeType", 0, {false, false}));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(BM_ReplaceAllHoldingTheWord)->Arg(1000)->Arg(100000);

}  // namespace
