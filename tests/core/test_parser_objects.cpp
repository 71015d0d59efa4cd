// Object bodies: polygon and line patterns and widths, POI palettes and
// pixels, labels and extended labels.
#include <gtest/gtest.h>

#include <string>

#include "document/encoding.h"
#include "parser_test_support.h"

using namespace mirvane;
using mirvane::test::B;
using mirvane::test::BytesOf;
using mirvane::test::ParseDocument;

namespace {

// The one record a section of `head` and `body` parses into.
template <typename Record>
Record ParseOne(std::vector<Record> Document::*records, const std::string& head, const std::string& body,
                std::string* log = nullptr) {
    const Document doc = ParseDocument(head + body + "[end]\n");
    if (log) *log = doc.ReadErrorLog;
    EXPECT_EQ((doc.*records).size(), 1u);
    return (doc.*records).empty() ? Record{} : (doc.*records)[0];
}

PolygonRecord ParsePolygon(const std::string& body) { return ParseOne(&Document::Polygons, "[_polygon]\nType=0x01\n", body); }
PolylineRecord ParseLine(const std::string& body) { return ParseOne(&Document::Polylines, "[_line]\nType=0x01\n", body); }
PoiRecord ParsePoi(const std::string& body, std::string* log = nullptr) {
    return ParseOne(&Document::Pois, "[_point]\nType=0x2f\nSubType=0x01\n", body, log);
}

std::string Rows(const std::string& row, int count) {
    std::string rows;
    for (int k = 0; k < count; ++k) rows += "\"" + row + "\"\n";
    return rows;
}

}  // namespace

struct PolygonForm {
    const char* Text;
    int Flags;
    std::size_t Colours;
};

const std::string kRows = Rows(std::string(32, '!'), 32);

class PolygonForms : public ::testing::TestWithParam<PolygonForm> {};

TEST_P(PolygonForms, FlagsAndColours) {
    const std::string text = GetParam().Text;
    const PolygonRecord r = ParsePolygon(text.find("32 32") == std::string::npos ? text : text + kRows);
    EXPECT_EQ(r.Flags & 0x0F, GetParam().Flags) << GetParam().Text;
    EXPECT_EQ(r.ColourBytes.size(), GetParam().Colours * 3) << GetParam().Text;
    EXPECT_EQ(r.Length, PolygonRecordLength(r));
}

INSTANTIATE_TEST_SUITE_P(
    Parser, PolygonForms,
    ::testing::Values(
        PolygonForm{"Xpm=\"0 0 1 0\"\n\"1 c #000000\"\n", 6, 1},
        PolygonForm{"Xpm=\"0 0 2 0\"\n\"1 c #000000\"\n\"2 c NONE\"\n", 6, 1},
        PolygonForm{"Xpm=\"0 0 3 0\"\n\"1 c #000000\"\n\"2 c #111111\"\n\"3 c #222222\"\n", 7, 3},
        PolygonForm{"Xpm=\"32 32 2 1\"\n\"! c #000000\"\n\"# c #111111\"\n", 8, 2},
        PolygonForm{"Xpm=\"32 32 2 1\"\n\"! c #000000\"\n\"  c none\"\n", 14, 1},
        PolygonForm{"Xpm=\"32 32 4 1\"\n\"! c #0\"\n\"# c #1\"\n\"3 c #2\"\n\"4 c #3\"\n", 9, 4},
        PolygonForm{"Xpm=\"32 32 4 1\"\n\"! c #0\"\n\"# c #1\"\n\"3 c #2\"\n\"4 c none\"\n", 13, 3},
        PolygonForm{"Xpm=\"32 32 4 1\"\n\"! c #0\"\n\"  c none\"\n\"3 c #2\"\n\"4 c none\"\n", 15, 2},
        // Colour lines by their parts: a code that is itself "c", tabs, blanks; a header without its quote.
        PolygonForm{"Xpm=\"32 32 2 1\n\"c c #86A5D6\"\n\"1\tc  none\"\n", 14, 1}));

TEST(ParserPolygon, PatternRowsUseTheFirstColoursCode) {
    std::string rows = "\"!" + std::string(31, '#') + "\",\n";  // C-array style row
    rows += "\"" + std::string(32, '!') + "\"\n";
    rows += "\"#!\"\n";  // too short: the rest reads as clear bits
    rows += Rows(std::string(40, '.') + "!", 29);  // too long: the rest is dropped
    const PolygonRecord r = ParsePolygon("Xpm=\"32 32 2 1\",\n\"! c #FF0000\"\n\"# c #00FF00\"\n" + rows);
    EXPECT_EQ(r.Flags, 0x08);
    EXPECT_EQ(r.ColourBytes, B({0x00, 0x00, 0xFF, 0x00, 0xFF, 0x00}));
    ASSERT_EQ(r.PatternBytes.size(), 128u);
    EXPECT_EQ(Bytes(r.PatternBytes.begin(), r.PatternBytes.begin() + 12),
              B({0x01, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0x02, 0, 0, 0}));
    EXPECT_EQ(r.PatternBytes[127], 0);
    EXPECT_EQ(r.Length, 1 + 6 + 128);
}

TEST(ParserLine, WidthsBordersAndOrientation) {
    const char* twoColours = "Xpm=\"0 0 2 0\"\n\"1 c #000000\"\n\"2 c #FFFFFF\"\n";
    // The listing's half border comes back whole: 2 + 2 * 1.5.
    PolylineRecord r = ParseLine(std::string("UseOrientation=Y\nLineWidth=2\nBorderWidth=1.5\n") + twoColours);
    EXPECT_EQ(r.Flags1, 0);
    EXPECT_EQ(r.Flags2, 0);
    EXPECT_EQ(r.PatternBytes, B({2, 5}));
    EXPECT_EQ(r.Length, 2 + 6 + 2);
    // Widths after the Xpm block are found by the look-ahead.
    r = ParseLine(std::string(twoColours) + "LineWidth=3\nBorderWidth=0\n");
    EXPECT_EQ(r.Flags1, 0);
    EXPECT_EQ(r.PatternBytes, B({3, 3}));
    // Without BorderWidth two solid colours are day and night.
    r = ParseLine(std::string("LineWidth=4\n") + twoColours);
    EXPECT_EQ(r.Flags1, 7);
    EXPECT_EQ(r.Flags2, 0x02);
    EXPECT_EQ(r.PatternBytes, B({4}));
}

TEST(ParserLabels, ValueRules) {
    // A run of label lines, in any case, makes one block.
    PolygonRecord r = ParsePolygon("String1=0x04,Hello, world\nstring2=0x01,Caf\xE9\n");
    EXPECT_EQ(r.Flags, 0x10);
    EXPECT_EQ(r.LabelBytes, BytesOf(std::string("\x29\x04Hello, world\0\x01" "Caf\xE9\0", 21)));
    // All behind the first comma is the label; without a comma the value is
    // a code alone or a label of code 0, as is a value whose first field is no code.
    r = ParsePolygon("String1=0x04,a=b\nString2=0x01,x0xy\nString3=0x05 \nString=Hi\nString=A=b,c\n");
    EXPECT_EQ(r.LabelBytes, BytesOf(std::string("\x31\x04" "a=b\0\x01x0xy\0\x05\0\0Hi\0\0A=b,c\0", 25)));
    // A label keeps its ';' and its blanks at the end: they are part of the name.
    r = ParsePolygon("  String1=0x04,Rue; Nord  \n");
    EXPECT_EQ(r.LabelBytes, BytesOf(std::string("\x1b\x04Rue; Nord  \0", 14)));
}

// The listing's forms of all four colour choices come back in the round
// trips of test_parser_listing; keys in other cases and orders are read too.
TEST(ParserLabels, ExtendedLabelKeysInAnyCaseAndOrder) {
    const PoiRecord poi = ParsePoi("ExtendedLabels=Y\nFontStyle=NormalFont\nCustomColor=DayAndNight\nDaycustomColor=#112233\n"
                                          "NightcustomColor:#445566\n");
    EXPECT_EQ(poi.Flags, 0x08);
    EXPECT_EQ(poi.ExtendedLabelBytes, B({24 + 3, 0x33, 0x22, 0x11, 0x66, 0x55, 0x44}));
    EXPECT_EQ(poi.Length, 5 + 7);
    // Without "ExtendedLabels=Y", in any order; the last of a repeated key wins.
    const PolygonRecord any = ParsePolygon("DaycustomColor=#112233\nCustomColor=Yes\nCustomColor=Day\nFontStyle = SmallFont\n");
    EXPECT_EQ(any.Flags, 0x20);
    EXPECT_EQ(any.ExtendedLabelBytes, B({8 + 2, 0x33, 0x22, 0x11}));
}

TEST(ParserPoi, OnlyATransparentLineForcesThePalette) {
    const PoiRecord r = ParsePoi("DayXpm=\"3 1 1 1\"\n\"  c none\"\n\"   \"\n");
    const PoiBitmap& day = r.Bitmaps[0];
    EXPECT_EQ(day.ColourCount, 0);
    EXPECT_TRUE(day.ForcePalette);
    EXPECT_EQ(day.ColourMode, 16);  // no Colormode= means 16
    EXPECT_EQ(day.PaletteBytes.size(), 3u);
    EXPECT_EQ(day.PixelBytes, B({0}));
    EXPECT_EQ(r.Length, 5 + 1);
}

// Texts of other editors spell the palette's alpha "alpha=" (the listing's
// own forms come back in the round trips of test_parser_listing).
TEST(ParserPoi, Mode32PaletteTakesTheShortAlphaSpelling) {
    const PoiRecord r = ParsePoi("DayXpm=\"2 1 2 1\"   Colormode=32\n\"! c #FF0000\"  alpha=0\n\"# c #00FF00\"  alpha=15\n\"!#\"\n");
    EXPECT_EQ(r.Bitmaps[0].PaletteBytes, B({0x00, 0x00, 0xFF, 0x00, 0xF0, 0x0F, 0xF0}));
    EXPECT_EQ(r.Bitmaps[0].PixelBytes, B({0x04}));
}

TEST(ParserPoi, NightOnlyPoiCountsNoNightPixels) {
    const PoiRecord r = ParsePoi("NightXpm=\"2 1 1 1\"  Colormode=16\n\"! c #102030\"\n\"!!\"\n");
    EXPECT_EQ(r.Flags, 0x02);
    EXPECT_EQ(r.Bitmaps[1].PaletteBytes, B({0x30, 0x20, 0x10}));
    EXPECT_EQ(r.Bitmaps[1].PixelBytes.size(), 1u);
    EXPECT_EQ(r.Length, 5 + 2 + 3);
}

TEST(ParserPoi, TransparentLineFirstMiddleOrLast) {
    const std::string colours[] = {"\"! c #FF0000\"\n", "\"# c #0000FF\"\n"};
    const std::string none = "\"  c none\"\n";
    for (int at = 0; at < 3; ++at) {
        std::string palette = colours[0] + colours[1];
        palette.insert(at == 0 ? 0 : at == 1 ? colours[0].size() : palette.size(), none);
        std::string log;
        const PoiRecord r = ParsePoi("DayXpm=\"4 1 3 1\"   Colormode=16\n" + palette + "\"! # !\"\n", &log);
        SCOPED_TRACE(at);
        EXPECT_TRUE(log.empty()) << log;
        EXPECT_EQ(r.Flags, 0x01);
        EXPECT_EQ(r.Bitmaps[0].ColourCount, 2);
        EXPECT_EQ(r.Bitmaps[0].PaletteBytes, B({0x00, 0x00, 0xFF, 0xFF, 0x00, 0x00}));
        // 2 bits a pixel, index 2 transparent; the fifth character is dropped.
        EXPECT_EQ(r.Bitmaps[0].PixelBytes, B({0x98}));
        EXPECT_EQ(r.Length, 5 + 6 + 1);
    }
}
