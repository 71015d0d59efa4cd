// Parsing speed of the text form: a synthetic document with `n` objects of
// each kind (32 by 32 polygon patterns, patterned lines, 64 by 64 POIs of 16
// and of 40 colours). Time must grow linearly with the text.
#include <benchmark/benchmark.h>

#include <string>

#include "document/encoding.h"
#include "text/parser.h"

namespace {

constexpr const char* kCodes = "!#%?$*=123456789";

std::string TypeLine(int k) {
    return "Type=0x" + mirvane::TypeText(k / 32 + 1) + mirvane::SubTypeText(k % 32) + "\n";
}

std::string QuotedRows(int rows, const std::string& row) {
    std::string text;
    for (int r = 0; r < rows; ++r) text += "\"" + row + "\"\n";
    return text;
}

std::string Polygon(int k) {
    std::string row;
    for (int x = 0; x < 32; ++x) row += (x + k) % 3 ? '!' : '#';
    return "[_polygon]\n" + TypeLine(k) + "String1=0x04,Polygon " + std::to_string(k) +
           "\nExtendedLabels=N\nXpm=\"32 32 2 1\"\n\"! c #102030\"\n\"# c #405060\"\n" + QuotedRows(32, row) +
           ";12345678901234567890123456789012\n[end]\n\n";
}

std::string Line(int k) {
    std::string row;
    for (int x = 0; x < 32; ++x) row += x % 4 ? '!' : '#';
    return "[_line]\n" + TypeLine(k) + "UseOrientation=Y\nXpm=\"32 4 2  1\"\n\"! c #000000\"\n\"# c #FFFFFF\"\n" +
           QuotedRows(4, row) + "String1=0x04,Line " + std::to_string(k) + "\nExtendedLabels=N\n[end]\n\n";
}

// Palette of `colours` entries; two characters a code from 17 colours on.
std::string Poi(int k, int colours) {
    const bool twoCharacters = colours > 16;
    const auto code = [&](int v) {
        return twoCharacters ? std::string{kCodes[v / 16], kCodes[v % 16]} : std::string(1, kCodes[v]);
    };
    std::string text = "[_point]\nType=0x" + mirvane::TypeText(k / 32 + 1) + "\nSubType=0x" +
                       mirvane::SubTypeText(k % 32) + "\nString1=0x04,Point\nExtendedLabels=N\nDayXpm=\"64 64 " +
                       std::to_string(colours) + (twoCharacters ? " 2" : " 1") + "\"   Colormode=16\n";
    for (int v = 0; v < colours; ++v) text += "\"" + code(v) + "\tc #" + mirvane::TypeText(v) + "ABC\"\n";
    std::string row;
    for (int x = 0; x < 64; ++x) row += code((x + k) % colours);
    return text + QuotedRows(64, row) + "[end]\n\n";
}

std::string SyntheticDocument(int n) {
    std::string text = "[_id]\nProductCode=1\nFID=8000\nCodePage=1252\n[End]\n\n[_drawOrder]\n";
    for (int k = 0; k < n; ++k) text += "Type=0x" + mirvane::TypeText(k % 256) + "," + std::to_string(k % 8 + 1) + "\n";
    text += "[End]\n\n";
    for (int k = 0; k < n; ++k) text += Polygon(k);
    for (int k = 0; k < n; ++k) text += Line(k);
    for (int k = 0; k < n; ++k) text += Poi(k, k % 2 ? 16 : 40);
    return text;
}

void BM_ParseTypText(benchmark::State& state) {
    const std::string text = SyntheticDocument(static_cast<int>(state.range(0)));
    mirvane::Document check;
    mirvane::ParseTypText(check, text);
    if (check.ReadErrorFlag || check.Pois.size() != static_cast<std::size_t>(state.range(0))) {
        state.SkipWithError("the synthetic text does not parse cleanly");
        return;
    }
    for (auto _ : state) {
        mirvane::Document doc;
        mirvane::ParseTypText(doc, text);
        benchmark::DoNotOptimize(doc.Pois.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(text.size()));
    state.SetComplexityN(static_cast<std::int64_t>(text.size()));
}
BENCHMARK(BM_ParseTypText)->Arg(250)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

}  // namespace
