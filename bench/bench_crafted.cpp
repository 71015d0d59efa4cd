// Small crafted files that declare tens of thousands of records: what opening
// one costs, read and listed as the desktop program does. Each must stay far
// below 50 ms; see PERFORMANCE.md.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

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

}  // namespace

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
