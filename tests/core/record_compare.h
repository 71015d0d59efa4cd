// Comparing the records of two documents by their bytes, for round trips.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "document/document.h"

namespace mirvane::testing {

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

inline void ExpectSamePolygons(const Document& a, const Document& b) {
    ASSERT_EQ(a.Polygons.size(), b.Polygons.size());
    for (std::size_t i = 0; i < a.Polygons.size(); ++i) {
        SCOPED_TRACE(Describe("polygon", i, a.Polygons[i].Type, a.Polygons[i].SubType));
        ExpectSamePolygon(a.Polygons[i], b.Polygons[i]);
    }
}

inline void ExpectSamePolylines(const Document& a, const Document& b) {
    ASSERT_EQ(a.Polylines.size(), b.Polylines.size());
    EXPECT_EQ(a.PolylineCount, b.PolylineCount);
    EXPECT_EQ(a.ExtraPolylineCount, b.ExtraPolylineCount);
    for (std::size_t i = 0; i < a.Polylines.size(); ++i) {
        const auto& x = a.Polylines[i];
        const auto& y = b.Polylines[i];
        SCOPED_TRACE(Describe("polyline", i, x.Type, x.SubType));
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
    {
        SCOPED_TRACE("day");
        ExpectSameBitmap(x.Bitmaps[0], y.Bitmaps[0]);
    }
    if (x.Flags & 0x02) {
        SCOPED_TRACE("night");
        ExpectSameBitmap(x.Bitmaps[1], y.Bitmaps[1]);
    }
    EXPECT_EQ(x.LabelBytes, y.LabelBytes);
    EXPECT_EQ(x.ExtendedLabelBytes, y.ExtendedLabelBytes);
}

inline void ExpectSamePois(const Document& a, const Document& b) {
    ASSERT_EQ(a.Pois.size(), b.Pois.size());
    for (std::size_t i = 0; i < a.Pois.size(); ++i) {
        SCOPED_TRACE(Describe("POI", i, a.Pois[i].Type, a.Pois[i].SubType));
        ExpectSamePoi(a.Pois[i], b.Pois[i]);
    }
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
    ExpectSamePolygons(a, b);
    ExpectSamePolylines(a, b);
    ExpectSamePois(a, b);
    EXPECT_EQ(DenseDrawOrder(a.DrawOrder), DenseDrawOrder(b.DrawOrder));
    EXPECT_EQ(a.HeaderGapBytes, b.HeaderGapBytes);
    EXPECT_EQ(a.ExtraPoiDataBytes, b.ExtraPoiDataBytes);
    EXPECT_EQ(a.ExtraPoiIndexBytes, b.ExtraPoiIndexBytes);
    EXPECT_EQ(a.LabelTextBytes, b.LabelTextBytes);
    EXPECT_EQ(a.LabelTable1Bytes, b.LabelTable1Bytes);
    EXPECT_EQ(a.LabelTable2Bytes, b.LabelTable2Bytes);
}

}  // namespace mirvane::testing
