// Language lookups (parsed file cached between calls), code page conversion
// of a label-sized text and of a whole listing, nearest Garmin colour.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "colour/palette.h"
#include "base/codepage.h"
#include "lang/lookup.h"

namespace {

namespace fs = std::filesystem;

void BM_LookupText(benchmark::State& state) {
    const fs::path folder = fs::temp_directory_path() / "mirvane_bench_langues";
    fs::create_directories(folder);
    {
        std::ofstream file(folder / "Bench.lng", std::ios::binary);
        for (int section = 0; section < 16; ++section) {
            file << "[Section" << section << "]\r\n";
            for (int key = 0; key < 100; ++key) file << "key" << key << "=Some caption text " << key << "\r\n";
        }
    }
    mirvane::SetLanguageFolder(folder.string());
    mirvane::SetLanguageName("Bench");
    for (auto _ : state) benchmark::DoNotOptimize(mirvane::LookupText("Section15", "default", "key99"));
    mirvane::SetLanguageFolder("");
    fs::remove_all(folder);
}
BENCHMARK(BM_LookupText);

std::string SampleBytes(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(32 + (i * 37) % 224);
    return bytes;
}

void BM_DecodeCodePage(benchmark::State& state) {
    const std::string bytes = SampleBytes(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(mirvane::DecodeCodePage(bytes, 1251));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_DecodeCodePage)->Arg(64)->Arg(1 << 20);

void BM_EncodeCodePage(benchmark::State& state) {
    const std::string text = mirvane::DecodeCodePage(SampleBytes(static_cast<std::size_t>(state.range(0))), 1251);
    for (auto _ : state) benchmark::DoNotOptimize(mirvane::EncodeCodePage(text, 1251));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_EncodeCodePage)->Arg(64)->Arg(1 << 20);

void BM_NearestGarminColour(benchmark::State& state) {
    mirvane::Colour c = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(mirvane::NearestGarminColour(c));
        c = (c + 0x010307) & 0xFFFFFF;
    }
}
BENCHMARK(BM_NearestGarminColour);

}  // namespace
