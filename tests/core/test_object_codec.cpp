// Polygons and lines: every colour layout and body comes back byte for byte,
// colours fall to their roles by the layout, patterns keep their bit order,
// and a record cut short says what it lacks.
#include <gtest/gtest.h>

#include "document/object_codec.h"
#include "listing_test_support.h"

namespace mirvane {
namespace {

using testing::Colours;
using testing::Polygon;
using testing::Polyline;

// Bytes of a pattern of `rows` rows that differs from row to row and byte to byte.
Bytes PatternBytes(int rows) {
    Bytes bytes;
    for (int i = 0; i < rows * 4; ++i) bytes.push_back(static_cast<std::uint8_t>(i * 73 + 5));
    return bytes;
}

// Layouts 2 and 4 come back as 6 and 0: the same picture in a layout every decoder knows.
int WrittenLayout(int layout) { return layout == 2 ? 6 : layout == 4 ? 0 : layout; }

Bytes ColourBytesFor(std::uint8_t flags) {
    const int count = ColourLayout::Of(flags).StoredColours();
    Bytes bytes;
    for (int i = 0; i < count * 3; ++i) bytes.push_back(static_cast<std::uint8_t>(0x10 + i));
    return bytes;
}

TEST(ObjectCodec, PolygonsOfEveryLayoutComeBackByteForByte) {
    for (int layout = 0; layout < 8; ++layout) {
        for (std::uint8_t body : {0x00, 0x08}) {
            // Label bits and the unused high bits stay as they are.
            const auto flags = static_cast<std::uint8_t>(layout | body | 0xF0);
            SCOPED_TRACE(static_cast<int>(flags));
            PolygonRecord record = Polygon("003", "00", flags, ColourBytesFor(flags));
            if (body) record.PatternBytes = PatternBytes(32);
            const DecodedPolygon polygon = DecodePolygon(record);
            EXPECT_EQ(polygon.Status, DecodeStatus::Ok);
            EXPECT_EQ(polygon.Pattern.has_value(), body != 0);

            PolygonRecord rebuilt = Polygon("003", "00", 0xF0, {});
            EncodePolygon(polygon, rebuilt);
            EXPECT_EQ(rebuilt.Flags, (record.Flags & ~7) | WrittenLayout(layout));
            EXPECT_EQ(rebuilt.ColourBytes, record.ColourBytes);
            EXPECT_EQ(rebuilt.PatternBytes, record.PatternBytes);
        }
    }
}

TEST(ObjectCodec, LinesOfEveryLayoutAndHeightComeBackByteForByte) {
    for (int layout = 0; layout < 8; ++layout) {
        for (int rows : {0, 1, 7, 31}) {
            const auto flags1 = static_cast<std::uint8_t>(layout | rows << 3);
            SCOPED_TRACE(static_cast<int>(flags1));
            // Solid lines store one width byte when the day background is clear.
            Bytes body = rows ? PatternBytes(rows) : (layout & 2) ? Bytes{3} : Bytes{3, 9};
            const PolylineRecord record = Polyline(flags1, 0x05, ColourBytesFor(flags1), body);
            const DecodedPolyline line = DecodePolyline(record);
            EXPECT_EQ(line.Status, DecodeStatus::Ok);

            PolylineRecord rebuilt = Polyline(0, 0x05, {}, {});
            EncodePolyline(line, rebuilt);
            EXPECT_EQ(rebuilt.Flags1, (record.Flags1 & ~7) | WrittenLayout(layout));
            EXPECT_EQ(rebuilt.Flags2, 0x05);
            EXPECT_EQ(rebuilt.ColourBytes, record.ColourBytes);
            EXPECT_EQ(rebuilt.PatternBytes, record.PatternBytes);
        }
    }
}

TEST(ObjectCodec, ColoursFallToTheirRolesByTheLayout) {
    const std::vector<std::uint32_t> four{1, 2, 3, 4};
    struct Case {
        std::uint8_t layout;
        ColourRoles roles;
    };
    const Case cases[] = {
        {0, {1, 2, std::nullopt, std::nullopt}},
        {1, {1, 2, 3, 4}},
        {3, {1, std::nullopt, 2, 3}},  // day background clear
        {7, {1, std::nullopt, 2, std::nullopt}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(static_cast<int>(c.layout));
        const ColourLayout layout = ColourLayout::Of(c.layout);
        EXPECT_EQ(RolesOf(layout, four), c.roles);
        EXPECT_EQ(layout.StoredColours(), ColourCountOf(c.layout));
    }
    // A table too short leaves the later roles empty.
    EXPECT_EQ(RolesOf(ColourLayout::Of(1), {1, 2}), (ColourRoles{1, 2, std::nullopt, std::nullopt}));
}

TEST(ObjectCodec, PatternBitsRunFromTheLeftOfEachByte) {
    Bytes bytes(128, 0);
    bytes[0] = 0x81;  // cells 0 and 7 of the first row
    bytes[5] = 0x01;  // cell 8 of the second row
    const BitGrid pattern = DecodePattern(bytes, 32);
    EXPECT_EQ(pattern.At({0, 0}), 1);
    EXPECT_EQ(pattern.At({7, 0}), 1);
    EXPECT_EQ(pattern.At({8, 1}), 1);
    EXPECT_EQ(EncodePattern(pattern), bytes);
}

TEST(ObjectCodec, LineWidthsKeepTheTotalUnlessTheDayBackgroundIsClear) {
    EXPECT_EQ(EncodeLineWidths(ColourLayout::Of(0), 2, 6), (Bytes{2, 6}));
    EXPECT_EQ(EncodeLineWidths(ColourLayout::Of(6), 2, 6), (Bytes{2}));

    DecodedPolyline line;
    line.Layout = ColourLayout::Of(0);
    line.Colours = {1, 2};
    line.LineWidth = 4;  // no total: a line without border
    PolylineRecord record;
    EncodePolyline(line, record);
    EXPECT_EQ(record.PatternBytes, (Bytes{4, 4}));
}

TEST(ObjectCodec, RecordsCutShortSayWhatTheyLack) {
    // Fewer colours than the layout stores: what is there is still decoded.
    const DecodedPolygon fewColours = DecodePolygon(Polygon("001", "00", 0x09, Colours({7, 8})));
    EXPECT_EQ(fewColours.Status, DecodeStatus::MissingColours);
    EXPECT_EQ(fewColours.Colours, (std::vector<std::uint32_t>{0x070000, 0x080000}));  // 0x00BBGGRR

    PolygonRecord shortPattern = Polygon("001", "00", 0x08, Colours({1, 2}));
    shortPattern.PatternBytes = {0xFF};
    const DecodedPolygon cut = DecodePolygon(shortPattern);
    EXPECT_EQ(cut.Status, DecodeStatus::MissingPixels);
    EXPECT_EQ(cut.Pattern->At({7, 0}), 1);
    EXPECT_EQ(cut.Pattern->At({8, 0}), 0);  // past the bytes: background

    EXPECT_EQ(DecodePolyline(Polyline(0, 0, Colours({1, 2}), {3})).Status, DecodeStatus::MissingWidths);
    EXPECT_EQ(DecodePolyline(Polyline(2 << 3, 0, Colours({1, 2}), Bytes(7, 0))).Status, DecodeStatus::MissingPixels);
    // Trailing colour bytes that make no whole colour are not a colour.
    EXPECT_EQ(DecodeColourTable({1, 2, 3, 4}), std::vector<std::uint32_t>{0x010203});
}

}  // namespace
}  // namespace mirvane
