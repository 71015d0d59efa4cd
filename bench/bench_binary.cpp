// Reading and writing a large binary TYP: thousands of objects of each kind,
// 64x64 POIs. Reported as bytes of TYP file per second.
#include <benchmark/benchmark.h>

#include "document/binary_reader.h"
#include "document/binary_writer.h"
#include "support/sample_document.h"

namespace {

mirvane::Document LargeDocument(int objectsOfEachKind) {
    mirvane::SampleOptions options;
    options.Polygons = objectsOfEachKind;
    options.Polylines = objectsOfEachKind;
    options.Pois = objectsOfEachKind;
    options.PoiSize = 64;
    return mirvane::MakeSampleDocument(options);
}

mirvane::Bytes LargeFile(int objectsOfEachKind) {
    mirvane::Document doc = LargeDocument(objectsOfEachKind);
    mirvane::Bytes file;
    mirvane::BuildBinaryTyp(doc, file, {});
    return file;
}

void BM_ReadBinaryTyp(benchmark::State& state) {
    const mirvane::Bytes file = LargeFile(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        mirvane::Document doc;
        mirvane::ReadBinaryTyp(doc, file, "large.typ");
        benchmark::DoNotOptimize(doc.Pois.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(file.size()));
}

void BM_WriteBinaryTyp(benchmark::State& state) {
    mirvane::Document doc = LargeDocument(static_cast<int>(state.range(0)));
    std::size_t size = 0;
    for (auto _ : state) {
        mirvane::Bytes file;
        mirvane::BuildBinaryTyp(doc, file, {});
        size = file.size();
        benchmark::DoNotOptimize(file.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(size));
}

}  // namespace

BENCHMARK(BM_ReadBinaryTyp)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteBinaryTyp)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);
