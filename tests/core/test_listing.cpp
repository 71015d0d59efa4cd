// The text listing of documents and single objects, plain and rich.
#include <gtest/gtest.h>

#include <algorithm>

#include "labels/label_block.h"
#include "listing_test_support.h"
#include "text/listing.h"

namespace mirvane {
namespace {

using testing::Colours;
using testing::LoadedDocument;
using testing::PalettePoi;
using testing::Polygon;
using testing::Polyline;
using testing::TrueColourPoi;

const ListingContext kContext{"    02/01/2024     03:04:05", ListingClock{2025, 8, 9, 10, 11, 12}};

std::vector<std::string> Lines(const std::string& plain) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end; (end = plain.find("\r\n", start)) != std::string::npos; start = end + 2)
        lines.push_back(plain.substr(start, end - start));
    lines.push_back(plain.substr(start));
    return lines;
}

std::vector<std::string> ObjectLines(Document& doc, ObjectKind kind, int index = 0) {
    return Lines(ListOneObject(doc, ObjectRef{kind, index}).Plain());
}

TEST(Listing, EmptyDocumentHasHeadingsSectionsAndBanners) {
    Document doc = LoadedDocument();
    const std::string expected =
        "; test.typ\r\n; Longueur: 1234 octets\r\n"
        "; Fichier TYP compil\xE9     02/01/2024     03:04:05\r\n"
        "; D\xE9" "compil\xE9 le 09/08/2025 \xE0 10:11:12\r\n"
        "\r\n[_id]\r\nProductCode=1\r\nFID=42\r\nCodePage=1252\r\n [End]\r\n"
        "\r\n;=========== COMMENTAIRES ======\r\n[_comments]\r\n[End]\r\n\r\n\r\n\r\n\r\n"
        ";=========== POLYGONES : PRIORITE DANS L'AFFICHAGE ======\r\n[_drawOrder]\r\n[End]\r\n\r\n\r\n\r\n\r\n\r\n"
        ";===================== POLYGONES ========================\r\n\r\n\r\n"
        ";====================== LINES ===========================\r\n\r\n\r\n"
        ";====================== POINTS ==========================";
    EXPECT_EQ(ListWholeDocument(doc, kContext).Plain(), expected);
    EXPECT_FALSE(doc.ReadErrorFlag);
    EXPECT_TRUE(ListOneObject(doc, ObjectRef{ObjectKind::Polyline, 0}).Pieces().empty());
}

// The listing of one well-formed object, which must log nothing.
template <typename Record>
std::vector<std::string> LinesOf(Record r) {
    Document doc = LoadedDocument();
    ObjectKind kind = ObjectKind::Poi;
    if constexpr (std::is_same_v<Record, PolygonRecord>) doc.Polygons = {std::move(r)}, kind = ObjectKind::Polygon;
    if constexpr (std::is_same_v<Record, PolylineRecord>) doc.Polylines = {std::move(r)}, kind = ObjectKind::Polyline;
    if constexpr (std::is_same_v<Record, PoiRecord>) doc.Pois = {std::move(r)};
    auto lines = ObjectLines(doc, kind);
    EXPECT_FALSE(doc.ReadErrorFlag);
    return lines;
}

// Forms the decompiled texts of the corpus do not hold (test_listing_corpus
// compares those line by line).
TEST(Listing, ObjectsOfEveryLayout) {
    const std::string blanks(32, ' '), ruler = ";12345678901234567890123456789012";
    const std::string noPalette = ";Couleurs 24 bits : pas de palette ";
    struct Case {
        const char* name;
        std::vector<std::string> lines;
        std::vector<std::pair<std::size_t, std::string>> expected;  // line index, text
        std::size_t count = 0;                                      // all lines when not 0
    };
    const Case cases[] = {
        {"pattern on a transparent ground prints blanks",
         LinesOf([] {
             PolygonRecord r = Polygon("001", "00", 0x0A, Colours({0xFF0000}));
             r.PatternBytes[0] = 0x81;  // pixels 0 and 7 of the first row
             return r;
         }()),
         {{3, "Xpm=\"32 32 2 1\""}, {4, "\"! c #FF0000\""}, {5, "\"  c none\""},
          {6, "\"!      !                        \""}, {7, "\"" + blanks + "\""}, {38, ruler}},
         4 + 2 + 32 + 2},  // heads, colours, rows, ruler and [end]
        {"line with a border of half a pixel", LinesOf(Polyline(0, 0, Colours({0x111111, 0x222222}), {2, 5})),
         {{0, "[_line]"}, {1, "Type=0x01"}, {2, "UseOrientation=Y"}, {3, "LineWidth=2"}, {4, "BorderWidth=1.5"},
          {5, "Xpm=\"0 0 2 0\""}, {6, "\"1 c #111111\""}, {7, "\"2 c #222222\""}, {8, "ExtendedLabels=N"},
          {9, "[end]"}}, 10},
        {"POI with transparent pixels and a ruler of 33", LinesOf(PalettePoi(33, 1, 2, 2)),
         {{4, "DayXpm=\"33 1 3 1\"   Colormode=16"}, {7, "\"  \tc none\""}, {8, "\"" + std::string(33, ' ') + "\""},
          {9, ruler}}},
        {"true colour, mode 0", LinesOf(TrueColourPoi(0, Colours({0x102030, 0x405060}))),
         {{4, "DayXpm=\"2 1 0 1\"   Colormode=0"}, {5, noPalette}, {6, "\"#102030\""}, {7, "\"#405060\""}, {8, ";12"}}},
        // 28 bits a pixel: 0x102030 alpha 0, then 0x405060 alpha 15.
        {"true colour, mode 32", LinesOf(TrueColourPoi(32, {0x30, 0x20, 0x10, 0x00, 0x06, 0x05, 0xF4})),
         {{6, "\"#102030\"  canalalpha=0"}, {7, "\"#405060\"  canalalpha=15"}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_TRUE(c.count == 0 || c.lines.size() == c.count) << c.lines.size();
        for (const auto& [index, text] : c.expected) {
            ASSERT_LT(index, c.lines.size());
            EXPECT_EQ(c.lines[index], text);
        }
    }
}

TEST(Listing, BrokenObjectsAreLoggedAndTheListingGoesOn) {
    Document doc = LoadedDocument();
    doc.Polygons = {Polygon("001", "00", 7, Colours({1})), Polygon("002", "00", 6, Colours({2}))};
    doc.Polylines = {Polyline(5, 0, Colours({1, 2}), {1, 3}), Polyline(6, 0, Colours({4}), {1})};  // one colour short
    doc.PolylineCount = 2;
    PoiRecord shortPixels = PalettePoi(4, 4, 2, 0);
    shortPixels.Bitmaps[0].PixelBytes.resize(1);
    PoiRecord unknownMode = PalettePoi(1, 1, 1, 0);
    unknownMode.Bitmaps[0].ColourMode = 8;
    doc.Pois = {shortPixels, unknownMode, PalettePoi(1, 1, 1, 0)};
    const std::string plain = ListWholeDocument(doc, kContext).Plain();

    EXPECT_EQ(plain.find("[_polygon]\r\nType=0x01\r\n"), std::string::npos);
    EXPECT_NE(plain.find("[_polygon]\r\nType=0x02\r\n"), std::string::npos);
    EXPECT_NE(plain.find("LineWidth=1\r\nXpm=\"0 0 1 0\"\r\n\"1 c #000004\""), std::string::npos);
    EXPECT_EQ(std::count(plain.begin(), plain.end(), '['), 6 + 3 * 2);  // four of the seven objects lost
    EXPECT_NE(plain.find("[_point]"), std::string::npos);
    EXPECT_TRUE(doc.ReadErrorFlag);
    EXPECT_EQ(doc.ReadErrorLog,
              "\r\nProbl\xC3\xA8me avec le polygone Type=0x001   SubType=0x00"
              "\r\nProbl\xC3\xA8me avec la polyligne Type=0x001   SubType=0x00"
              "\\par Probl\xC3\xA8me avec le POI  Type=0x02f   SubType=0x0f"
              "\\par Probl\xC3\xA8me avec le POI  Type=0x02f   SubType=0x0f");
}

}  // namespace
}  // namespace mirvane
