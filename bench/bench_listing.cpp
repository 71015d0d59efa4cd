// Listing a large document: thousands of objects of each kind, 64 by 64 POIs;
// and the picture of one such POI.
#include <benchmark/benchmark.h>

#include "document/encoding.h"
#include "document/object_preview.h"
#include "labels/label_block.h"
#include "text/listing.h"

namespace {

using namespace mirvane;

Bytes ColourTable(int count) {
    Bytes bytes;
    for (int i = 0; i < count * 3; ++i) bytes.push_back(static_cast<std::uint8_t>(i * 37));
    return bytes;
}

PoiBitmap Bitmap64(int colours, std::uint8_t mode) {
    PoiBitmap bitmap;
    bitmap.ColourCount = static_cast<std::uint8_t>(colours);
    bitmap.ColourMode = mode;
    bitmap.PaletteBytes = ColourTable(colours);
    const int bpp = *BitsPerPixel(mode, colours);
    bitmap.PixelBytes.resize(static_cast<std::size_t>(PalettePixelByteLength(64, 64, bpp)));
    for (std::size_t i = 0; i < bitmap.PixelBytes.size(); ++i) bitmap.PixelBytes[i] = static_cast<std::uint8_t>(i * 7);
    return bitmap;
}

Document LargeDocument(int perKind) {
    Document doc;
    doc.State = DocumentState::Loaded;
    doc.FileName = "large.typ";
    doc.Identity.txtFID = "42";
    doc.Identity.txtProductCode = "1";
    doc.Identity.CodePageIndex = 2;
    const Bytes labels = EncodeLabelBlock({{0, "Some label"}, {4, "Another label"}});
    for (int i = 0; i < perKind; ++i) {
        PolygonRecord polygon;
        polygon.Type = TypeText(i % 0x80);
        polygon.SubType = "00";
        polygon.Flags = 0x19;  // night colours, pattern, labels
        polygon.ColourBytes = ColourTable(4);
        polygon.PatternBytes.assign(128, static_cast<std::uint8_t>(i));
        polygon.LabelBytes = labels;
        doc.Polygons.push_back(polygon);

        PolylineRecord line;
        line.Type = polygon.Type;
        line.SubType = "00";
        line.Flags1 = (8 << 3) | 1;  // eight rows, night colours
        line.Flags2 = 0x01;
        line.ColourBytes = ColourTable(4);
        line.PatternBytes.assign(32, static_cast<std::uint8_t>(i));
        line.LabelBytes = labels;
        doc.Polylines.push_back(line);

        PoiRecord poi;
        poi.Type = polygon.Type;
        poi.SubType = "01";
        poi.Flags = 0x07;  // pixels, night block, labels
        poi.Width = poi.Height = 64;
        poi.Bitmaps[0] = Bitmap64(24, 16);
        poi.Bitmaps[1] = Bitmap64(9, 0);
        poi.LabelBytes = labels;
        doc.Pois.push_back(poi);
    }
    doc.PolylineCount = perKind;
    return doc;
}

void BM_ListWholeDocument(benchmark::State& state) {
    Document doc = LargeDocument(static_cast<int>(state.range(0)));
    const ListingContext context{"    01/01/2024     00:00:00", {}};
    std::size_t bytes = 0;
    for (auto _ : state) {
        const ListingText text = ListWholeDocument(doc, context);
        const std::string rich = text.Rich();
        const std::string plain = text.Plain();
        bytes += rich.size() + plain.size();
        benchmark::DoNotOptimize(rich.data());
        benchmark::DoNotOptimize(plain.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}
BENCHMARK(BM_ListWholeDocument)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);

void BM_ListOnePoi(benchmark::State& state) {
    Document doc = LargeDocument(1);
    std::size_t bytes = 0;
    for (auto _ : state) {
        const ListingText text = ListOneObject(doc, ObjectRef{ObjectKind::Poi, 0});
        bytes += text.Rich().size();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}
BENCHMARK(BM_ListOnePoi);

void BM_PictureOfOnePoi(benchmark::State& state) {
    const Document doc = LargeDocument(1);
    for (auto _ : state) {
        const PixelPicture picture = PictureOfObject(doc, ObjectRef{ObjectKind::Poi, 0});
        benchmark::DoNotOptimize(picture.Day.data());
    }
}
BENCHMARK(BM_PictureOfOnePoi);

}  // namespace
