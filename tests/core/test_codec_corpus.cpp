// Real files: every polygon, line and POI decodes and encodes back to the
// bytes it was read from.
#include <gtest/gtest.h>

#include "corpus.h"
#include "document/bitmap_codec.h"
#include "document/object_codec.h"
#include "record_compare.h"

namespace mirvane {
namespace {

// The fields an encoder writes are emptied first, so that one it forgets shows.
template <typename Record>
void ClearDrawing(Record& r) {
    r.ColourBytes.clear();
    r.PatternBytes.clear();
}
void ClearDrawing(PoiRecord& r) { r.Bitmaps = {}; }

template <typename Record, typename Decode, typename Encode, typename Compare>
void ExpectRoundTrips(const char* kind, const std::vector<Record>& records, Decode decode, Encode encode,
                      Compare compare) {
    std::vector<Record> rebuilt = records;
    for (std::size_t i = 0; i < records.size(); ++i) {
        ClearDrawing(rebuilt[i]);
        encode(decode(records[i]), rebuilt[i]);
    }
    testing::ExpectSameRows(kind, rebuilt, records, compare);
}

TEST(CodecCorpus, EveryRecordComesBackByteForByte) {
    MIRVANE_REQUIRE_CORPUS();
    const auto files = testing::CorpusBinaries();
    ASSERT_FALSE(files.empty());
    std::size_t records = 0;
    for (const auto& path : files) {
        SCOPED_TRACE(path.string());
        Document doc;
        ASSERT_TRUE(OpenBinaryTyp(doc, path.string()));
        ExpectRoundTrips("polygon", doc.Polygons, DecodePolygon, EncodePolygon, testing::ExpectSamePolygon);
        ExpectRoundTrips("line", doc.Polylines, DecodePolyline, EncodePolyline, testing::ExpectSamePolyline);
        ExpectRoundTrips("POI", doc.Pois, DecodePoi, EncodePoi, testing::ExpectSamePoi);
        records += doc.Polygons.size() + doc.Polylines.size() + doc.Pois.size();
    }
    EXPECT_GT(records, 1000u);
}

}  // namespace
}  // namespace mirvane
