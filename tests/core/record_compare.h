// Writing documents and reading them back, and comparing the records of two
// documents by their bytes, for round trips.
#pragma once

#include <gtest/gtest.h>

#include <string>

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

inline std::string Describe(const std::string& kind, std::size_t i, const std::string& type,
                            const std::string& subType) {
    return kind + " #" + std::to_string(i) + " " + type + "/" + subType;
}

inline void ExpectSamePolygon(const PolygonRecord& x, const PolygonRecord& y) {
    EXPECT_EQ(x.Type, y.Type);
    EXPECT_EQ(x.SubType, y.SubType);
    EXPECT_EQ(x.Flags, y.Flags);
    EXPECT_EQ(x.ColourBytes, y.ColourBytes);
    EXPECT_EQ(x.PatternBytes, y.PatternBytes);
    EXPECT_EQ(x.LabelBytes, y.LabelBytes);
    EXPECT_EQ(x.ExtendedLabelBytes, y.ExtendedLabelBytes);
}

inline void ExpectSamePolyline(const PolylineRecord& x, const PolylineRecord& y) {
    EXPECT_EQ(x.Type, y.Type);
    EXPECT_EQ(x.SubType, y.SubType);
    EXPECT_EQ(x.Flags1, y.Flags1);
    EXPECT_EQ(x.Flags2, y.Flags2);
    EXPECT_EQ(x.ColourBytes, y.ColourBytes);
    EXPECT_EQ(x.PatternBytes, y.PatternBytes);
    EXPECT_EQ(x.LabelBytes, y.LabelBytes);
    EXPECT_EQ(x.ExtendedLabelBytes, y.ExtendedLabelBytes);
    EXPECT_EQ(x.ExtraIndexBytes, y.ExtraIndexBytes);
}

inline void ExpectSameBitmap(const PoiBitmap& x, const PoiBitmap& y) {
    EXPECT_EQ(x.ColourCount, y.ColourCount);
    EXPECT_EQ(x.ColourMode, y.ColourMode);
    EXPECT_EQ(x.PaletteBytes, y.PaletteBytes);
    EXPECT_EQ(x.PixelBytes, y.PixelBytes);
    EXPECT_EQ(x.ForcePalette, y.ForcePalette);
}

inline void ExpectSamePoi(const PoiRecord& x, const PoiRecord& y) {
    EXPECT_EQ(x.Type, y.Type);
    EXPECT_EQ(x.SubType, y.SubType);
    EXPECT_EQ(x.Flags, y.Flags);
    EXPECT_EQ(x.Width, y.Width);
    EXPECT_EQ(x.Height, y.Height);
    for (int slot = 0; slot < ((x.Flags & 0x02) ? 2 : 1); ++slot) {
        SCOPED_TRACE(slot ? "night" : "day");
        ExpectSameBitmap(x.Bitmaps[slot], y.Bitmaps[slot]);
    }
    EXPECT_EQ(x.LabelBytes, y.LabelBytes);
    EXPECT_EQ(x.ExtendedLabelBytes, y.ExtendedLabelBytes);
}

// Each record of `a` against the one in the same row of `b`.
template <typename Record, typename Compare>
void ExpectSameRows(const char* kind, const std::vector<Record>& a, const std::vector<Record>& b,
                       Compare compare) {
    ASSERT_EQ(a.size(), b.size()) << kind;
    for (std::size_t i = 0; i < a.size(); ++i) {
        SCOPED_TRACE(Describe(kind, i, a[i].Type, a[i].SubType));
        compare(a[i], b[i]);
    }
}

inline void ExpectSamePolygons(const Document& a, const Document& b) {
    ExpectSameRows("polygon", a.Polygons, b.Polygons, ExpectSamePolygon);
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
    ExpectSamePolygons(a, b);
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
    EXPECT_EQ(a.HeaderGapBytes, b.HeaderGapBytes);
    EXPECT_EQ(a.ExtraPoiDataBytes, b.ExtraPoiDataBytes);
    EXPECT_EQ(a.ExtraPoiIndexBytes, b.ExtraPoiIndexBytes);
    EXPECT_EQ(a.LabelTextBytes, b.LabelTextBytes);
    EXPECT_EQ(a.LabelTable1Bytes, b.LabelTable1Bytes);
    EXPECT_EQ(a.LabelTable2Bytes, b.LabelTable2Bytes);
}

}  // namespace mirvane::testing
