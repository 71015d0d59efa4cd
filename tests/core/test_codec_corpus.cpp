// Real files: every polygon, line and POI decodes and encodes back to the
// bytes it was read from.
#include <gtest/gtest.h>

#include "corpus.h"
#include "document/binary_reader.h"
#include "document/bitmap_codec.h"
#include "document/object_codec.h"

namespace mirvane {
namespace {

// The fields an encoder writes are emptied first, so that one it forgets shows.
template <typename Record>
void ClearDrawing(Record& r) {
    r.ColourBytes.clear();
    r.PatternBytes.clear();
}
void ClearDrawing(PoiRecord& r) { r.Bitmaps = {}; }

void ExpectSameDrawing(const PolygonRecord& a, const PolygonRecord& b) {
    EXPECT_EQ(a.Flags, b.Flags);
    EXPECT_EQ(a.ColourBytes, b.ColourBytes);
    EXPECT_EQ(a.PatternBytes, b.PatternBytes);
}

void ExpectSameDrawing(const PolylineRecord& a, const PolylineRecord& b) {
    EXPECT_EQ(a.Flags1, b.Flags1);
    EXPECT_EQ(a.ColourBytes, b.ColourBytes);
    EXPECT_EQ(a.PatternBytes, b.PatternBytes);
}

void ExpectSameDrawing(const PoiRecord& a, const PoiRecord& b) {
    EXPECT_EQ(a.Flags, b.Flags);
    EXPECT_EQ(a.Width, b.Width);
    EXPECT_EQ(a.Height, b.Height);
    for (int slot = 0; slot < ((b.Flags & 0x02) ? 2 : 1); ++slot) {
        EXPECT_EQ(a.Bitmaps[slot].ColourCount, b.Bitmaps[slot].ColourCount);
        EXPECT_EQ(a.Bitmaps[slot].ColourMode, b.Bitmaps[slot].ColourMode);
        EXPECT_EQ(a.Bitmaps[slot].PaletteBytes, b.Bitmaps[slot].PaletteBytes);
        EXPECT_EQ(a.Bitmaps[slot].PixelBytes, b.Bitmaps[slot].PixelBytes);
    }
}

template <typename Record, typename Decode, typename Encode>
void ExpectRoundTrips(const std::vector<Record>& records, Decode decode, Encode encode, const char* kind) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        SCOPED_TRACE(std::string(kind) + " " + std::to_string(i));
        Record rebuilt = records[i];
        ClearDrawing(rebuilt);
        encode(decode(records[i]), rebuilt);
        ExpectSameDrawing(rebuilt, records[i]);
    }
}

TEST(CodecCorpus, EveryRecordComesBackByteForByte) {
    MIRVANE_REQUIRE_CORPUS();
    auto files = testing::CorpusFiles("binary", ".typ");
    const auto compiled = testing::CorpusFiles("mkgmap", ".typ");
    files.insert(files.end(), compiled.begin(), compiled.end());
    ASSERT_FALSE(files.empty());
    std::size_t records = 0;
    for (const auto& path : files) {
        SCOPED_TRACE(path.string());
        Document doc;
        ASSERT_TRUE(OpenBinaryTyp(doc, path.string()));
        ExpectRoundTrips(doc.Polygons, DecodePolygon, EncodePolygon, "polygon");
        ExpectRoundTrips(doc.Polylines, DecodePolyline, EncodePolyline, "line");
        ExpectRoundTrips(doc.Pois, DecodePoi, EncodePoi, "POI");
        records += doc.Polygons.size() + doc.Polylines.size() + doc.Pois.size();
    }
    EXPECT_GT(records, 1000u);
}

}  // namespace
}  // namespace mirvane
