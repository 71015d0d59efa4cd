// Work that must stay bounded by the input: small crafted files that declare
// tens of thousands of records, read and listed as the desktop program opens
// them (each far below 50 ms), and the exchange sort's order over tens of
// thousands of tied keys. See PERFORMANCE.md.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "base/exchange_sort.h"
#include "base/file_io.h"
#include "document/binary_reader.h"
#include "text/listing.h"

namespace {

mirvane::Bytes CraftedFile(const std::string& name) {
    mirvane::Bytes file;
    mirvane::ReadWholeFile(std::filesystem::path(MIRVANE_SOURCE_DIR) / "tests/data/crafted" / name, file);
    return file;
}

void OpenCrafted(benchmark::State& state, const std::string& name, bool list) {
    const mirvane::Bytes file = CraftedFile(name);
    if (file.empty()) state.SkipWithError("crafted file missing");
    for (auto _ : state) {
        mirvane::Document doc;
        mirvane::ReadBinaryTyp(doc, file, name);
        if (list) benchmark::DoNotOptimize(mirvane::ListWholeDocument(doc, {"", {}}).Plain().size());
        benchmark::DoNotOptimize(doc.ReadErrorLog.size());
    }
}

// Keys in two values, the larger first: the swapping itself would take half
// a billion comparisons at 32,000 elements. The order only; moving the
// records themselves is linear.
void BM_SortTiedKeys(benchmark::State& state) {
    std::vector<std::size_t> ranks(static_cast<std::size_t>(state.range(0)));
    for (std::size_t i = 0; i < ranks.size(); ++i) ranks[i] = i % 2 ? 0 : 1;
    for (auto _ : state) benchmark::DoNotOptimize(mirvane::ExchangeSortOrder(ranks).data());
}

}  // namespace

BENCHMARK(BM_SortTiedKeys)->Arg(1000)->Arg(32000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OpenCrafted, read_67_bytes, std::string("slow-67-bytes-10MB-log.typ"), false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OpenCrafted, read_170_bytes, std::string("slow-170-bytes-22MB-log.typ"), false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OpenCrafted, read_283_bytes_tied_keys, std::string("timeout-283-bytes-exchange-sort.typ"), false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OpenCrafted, read_and_list_170_bytes, std::string("slow-170-bytes-22MB-log.typ"), true)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OpenCrafted, read_and_list_283_bytes, std::string("timeout-283-bytes-exchange-sort.typ"), true)
    ->Unit(benchmark::kMillisecond);
