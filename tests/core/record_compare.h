// Writing documents and reading them back, and comparing the records of two
// documents by their bytes, for round trips.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "document/binary_reader.h"
#include "document/binary_writer.h"
#include "document/document.h"

namespace mirvane::testing {

// The file a save writes; a refused save fails the test.
inline Bytes BuiltTyp(Document& doc, const SaveTime& time = {}) {
    Bytes out;
    const auto failure = BuildBinaryTyp(doc, out, time);
    EXPECT_FALSE(failure.has_value()) << (failure ? failure->Description : "");
    return out;
}

inline Document ReadTyp(const Bytes& file, const std::string& path = "test.typ") {
    Document doc;
    ReadBinaryTyp(doc, file, path);
    return doc;
}

// Each record kind's fields as one tuple, so a failure shows them all.
inline auto Fields(const PolygonRecord& r) {
    return std::tie(r.Type, r.SubType, r.Flags, r.ColourBytes, r.PatternBytes, r.LabelBytes, r.ExtendedLabelBytes);
}

inline auto Fields(const PolylineRecord& r) {
    return std::tie(r.Type, r.SubType, r.Flags1, r.Flags2, r.ColourBytes, r.PatternBytes, r.LabelBytes,
                    r.ExtendedLabelBytes, r.ExtraIndexBytes);
}

inline auto Fields(const PoiBitmap& b) {
    return std::tie(b.ColourCount, b.ColourMode, b.PaletteBytes, b.PixelBytes, b.ForcePalette);
}

inline void ExpectSamePolygon(const PolygonRecord& x, const PolygonRecord& y) { EXPECT_EQ(Fields(x), Fields(y)); }
inline void ExpectSamePolyline(const PolylineRecord& x, const PolylineRecord& y) { EXPECT_EQ(Fields(x), Fields(y)); }
inline void ExpectSameBitmap(const PoiBitmap& x, const PoiBitmap& y) { EXPECT_EQ(Fields(x), Fields(y)); }

inline void ExpectSamePoi(const PoiRecord& x, const PoiRecord& y) {
    EXPECT_EQ(std::tie(x.Type, x.SubType, x.Flags, x.Width, x.Height, x.LabelBytes, x.ExtendedLabelBytes),
              std::tie(y.Type, y.SubType, y.Flags, y.Width, y.Height, y.LabelBytes, y.ExtendedLabelBytes));
    for (int slot = 0; slot < ((x.Flags & 0x02) ? 2 : 1); ++slot) {
        SCOPED_TRACE(slot ? "night" : "day");
        ExpectSameBitmap(x.Bitmaps[slot], y.Bitmaps[slot]);
    }
}

// Each record of `a` against the one in the same row of `b`.
template <typename Record, typename Compare>
void ExpectSameRows(const char* kind, const std::vector<Record>& a, const std::vector<Record>& b,
                       Compare compare) {
    ASSERT_EQ(a.size(), b.size()) << kind;
    for (std::size_t i = 0; i < a.size(); ++i) {
        SCOPED_TRACE(std::string(kind) + " #" + std::to_string(i) + " " + a[i].Type + "/" + a[i].SubType);
        compare(a[i], b[i]);
    }
}

inline void ExpectSamePolylines(const Document& a, const Document& b) {
    EXPECT_EQ(a.PolylineCount, b.PolylineCount);
    EXPECT_EQ(a.ExtraPolylineCount, b.ExtraPolylineCount);
    ExpectSameRows("polyline", a.Polylines, b.Polylines, ExpectSamePolyline);
}

inline void ExpectSamePois(const Document& a, const Document& b) {
    ExpectSameRows("POI", a.Pois, b.Pois, ExpectSamePoi);
}

// All three kinds of record.
inline void ExpectSameRecords(const Document& a, const Document& b) {
    ExpectSameRows("polygon", a.Polygons, b.Polygons, ExpectSamePolygon);
    ExpectSamePolylines(a, b);
    ExpectSamePois(a, b);
}

// The draw order with levels renumbered 1, 2, 3...: gaps in level numbers
// (an empty first level, say) do not survive a save.
inline std::vector<DrawOrderEntry> DenseDrawOrder(std::vector<DrawOrderEntry> entries) {
    int dense = 0, lastLevel = 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (i == 0 || entries[i].Level != lastLevel) ++dense;
        lastLevel = entries[i].Level;
        entries[i].Level = dense;
    }
    return entries;
}

// Everything a save must keep: records, draw order, gap and additional sections.
inline void ExpectSameDocumentContent(const Document& a, const Document& b) {
    ExpectSameRecords(a, b);
    EXPECT_EQ(DenseDrawOrder(a.DrawOrder), DenseDrawOrder(b.DrawOrder));
    EXPECT_EQ(std::tie(a.HeaderGapBytes, a.ExtraPoiDataBytes, a.ExtraPoiIndexBytes, a.LabelTextBytes,
                       a.LabelTable1Bytes, a.LabelTable2Bytes),
              std::tie(b.HeaderGapBytes, b.ExtraPoiDataBytes, b.ExtraPoiIndexBytes, b.LabelTextBytes,
                       b.LabelTable1Bytes, b.LabelTable2Bytes));
}

}  // namespace mirvane::testing
