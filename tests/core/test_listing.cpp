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
using testing::RichToPlain;
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

bool Contains(const std::vector<std::string>& lines, const std::string& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
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
}

TEST(Listing, HeadingsOnlyForADocumentReadFromABinaryFile) {
    for (auto [state, fromText] : {std::pair{DocumentState::New, false}, {DocumentState::Loaded, true}}) {
        Document doc = LoadedDocument();
        doc.State = state;
        doc.FromText = fromText;
        EXPECT_EQ(ListWholeDocument(doc, kContext).Plain().rfind("\r\n\r\n[_id]\r\n", 0), 0u);
    }
    Document unnamed = LoadedDocument();
    unnamed.FileName.clear();
    EXPECT_EQ(ListWholeDocument(unnamed, kContext).Plain().rfind("; Longueur: 1234 octets\r\n", 0), 0u);
}

TEST(Listing, IdentitySectionShowsWhatIsNotGivenAsEmpty) {
    Document doc = LoadedDocument();
    auto idSection = [&] {
        const std::string plain = ListWholeDocument(doc, kContext).Plain();
        const std::size_t start = plain.find("[_id]");
        return plain.substr(start, plain.find("[End]", start) + 5 - start);
    };
    doc.Identity.CodePage = 1258;
    EXPECT_EQ(idSection(), "[_id]\r\nProductCode=1\r\nFID=42\r\nCodePage=1258\r\n [End]");
    doc.Identity.CodePage = 65001;
    doc.Identity.Fid.reset();
    doc.Identity.ProductCode = 65535;
    EXPECT_EQ(idSection(), "[_id]\r\nProductCode=65535\r\nFID=\r\nCodePage=65001\r\n [End]");
}

TEST(Listing, CommentTextAndDrawOrderRows) {
    Document doc = LoadedDocument();
    const std::string comment = "first\r\nsecond\nthird";
    doc.HeaderGapBytes.assign(comment.begin(), comment.end());
    doc.DrawOrder = {{1, 3, 0}, {3, 0x10e, 1}, {3, 5, 7}};
    const std::string plain = ListWholeDocument(doc, kContext).Plain();
    EXPECT_NE(plain.find("[_comments]\r\nfirst\r\nsecond\r\nthird\r\n[End]"), std::string::npos);
    EXPECT_NE(plain.find("[_drawOrder]\r\nType=0x003,1\r\nType=0x10e01,3\r\nType=0x00507,3\r\n[End]"),
              std::string::npos);
}

TEST(Listing, SolidPolygonsWithFlags6And7AndTheirTypeValues) {
    Document doc = LoadedDocument();
    doc.Polygons = {Polygon("003", "00", 6, Colours({0x112233})), Polygon("10e", "00", 7, Colours({0xA0B0C0, 1}))};
    EXPECT_EQ(ObjectLines(doc, ObjectKind::Polygon, 0),
              (std::vector<std::string>{"[_polygon]", "Type=0x03", "ExtendedLabels=N", "Xpm=\"0 0 1 0\"",
                                        "\"1 c #112233\"", "[end]"}));
    const auto night = ObjectLines(doc, ObjectKind::Polygon, 1);
    EXPECT_EQ(night[1], "Type=0x10e00");  // extended types keep three digits and the subtype
    EXPECT_EQ(night[3], "Xpm=\"0 0 2 0\"");
    EXPECT_EQ(night[4], "\"1 c #A0B0C0\"");
    EXPECT_EQ(night[5], "\"2 c #000001\"");
}

TEST(Listing, PatternWithTransparentBackgroundPrintsBlanks) {
    Document doc = LoadedDocument();
    doc.Polygons = {Polygon("001", "00", 0x0A, Colours({0xFF0000}))};
    doc.Polygons[0].PatternBytes[0] = 0x81;  // pixels 0 and 7 of the first row
    const auto lines = ObjectLines(doc, ObjectKind::Polygon);
    ASSERT_EQ(lines.size(), 4u + 2 + 32 + 2);  // heads, colours, rows, ruler and [end]
    EXPECT_EQ(lines[3], "Xpm=\"32 32 2 1\"");
    EXPECT_EQ(lines[4], "\"! c #FF0000\"");
    EXPECT_EQ(lines[5], "\"  c none\"");
    EXPECT_EQ(lines[6], "\"!      !                        \"");
    EXPECT_EQ(lines[7], "\"" + std::string(32, ' ') + "\"");
    EXPECT_EQ(lines[38], ";12345678901234567890123456789012");
}

TEST(Listing, FourColourPatternWithTransparentNightBackground) {
    Document doc = LoadedDocument();
    doc.Polygons = {Polygon("001", "00", 0x0D, Colours({1, 2, 3}))};
    const auto lines = ObjectLines(doc, ObjectKind::Polygon);
    EXPECT_EQ(lines[3], "Xpm=\"32 32 4 1\"");
    EXPECT_EQ(std::vector<std::string>(lines.begin() + 4, lines.begin() + 8),
              (std::vector<std::string>{"\"! c #000001\"", "\"# c #000002\"", "\"3 c #000003\"", "\"4 c none\""}));
    EXPECT_EQ(lines[8], "\"" + std::string(32, '#') + "\"");
}

TEST(Listing, PolylineWithHalfBorderWidth) {
    Document doc = LoadedDocument();
    doc.Polylines = {Polyline(0, 0, Colours({0x111111, 0x222222}), {2, 5})};
    doc.PolylineCount = 1;
    EXPECT_EQ(ObjectLines(doc, ObjectKind::Polyline),
              (std::vector<std::string>{"[_line]", "Type=0x01", "UseOrientation=Y", "LineWidth=2", "BorderWidth=1.5",
                                        "Xpm=\"0 0 2 0\"", "\"1 c #111111\"", "\"2 c #222222\"", "ExtendedLabels=N",
                                        "[end]"}));
}

TEST(Listing, SolidLineWithDayAndNightColoursHasNoBorder) {
    Document doc = LoadedDocument();
    doc.Polylines = {Polyline(7, 2, Colours({0x111111, 0x222222}), {3})};
    const auto lines = ObjectLines(doc, ObjectKind::Polyline);
    EXPECT_EQ(lines[2], "UseOrientation=N");
    EXPECT_EQ(lines[4], "Xpm=\"0 0 2 0\"");
    EXPECT_EQ(lines[5], "\"1 c #111111\"");
    EXPECT_EQ(lines[6], "\"2 c #222222\"");
    EXPECT_FALSE(Contains(lines, "BorderWidth=0"));
}

TEST(Listing, PatternLineHasTwoBlanksBeforeTheOne) {
    Document doc = LoadedDocument();
    doc.Polylines = {Polyline(3 << 3 | 2, 0, Colours({0x123456}), Bytes(12, 0xFF))};
    const auto lines = ObjectLines(doc, ObjectKind::Polyline);
    EXPECT_EQ(lines[3], "Xpm=\"32 3 2  1\"");
    EXPECT_EQ(lines[5], "\"  c none\"");
    EXPECT_EQ(lines[6], "\"" + std::string(32, '!') + "\"");
    EXPECT_EQ(lines[9], ";12345678901234567890123456789012");
}

TEST(Listing, PoiTransparentPixelsAndRulerOf33Pixels) {
    Document doc = LoadedDocument();
    doc.Pois = {PalettePoi(33, 1, 2, 2)};
    const auto lines = ObjectLines(doc, ObjectKind::Poi);
    EXPECT_EQ(lines[4], "DayXpm=\"33 1 3 1\"   Colormode=16");
    EXPECT_EQ(lines[7], "\"  \tc none\"");
    EXPECT_EQ(lines[8], "\"" + std::string(33, ' ') + "\"");
    EXPECT_EQ(lines[9], ";12345678901234567890123456789012");
}

TEST(Listing, PoiOfNoSizeAndNightBlock) {
    Document doc = LoadedDocument();
    PoiRecord empty = PalettePoi(0, 0, 0, 0);
    empty.Flags = 2;
    PoiRecord night = PalettePoi(1, 1, 1, 0);
    night.Flags = 3;
    night.Bitmaps[1] = night.Bitmaps[0];
    night.Bitmaps[1].PaletteBytes = Colours({0x0A0B0C});
    doc.Pois = {empty, night};
    const auto emptyLines = ObjectLines(doc, ObjectKind::Poi, 0);
    EXPECT_EQ(emptyLines[4], "DayXpm=\"0 0 0 0\"");
    EXPECT_EQ(emptyLines[5], "NightXpm=\"0 0 0 0\"");

    const auto lines = ObjectLines(doc, ObjectKind::Poi, 1);
    EXPECT_TRUE(Contains(lines, "NightXpm=\"1 1 1 1\"   Colormode=16"));
    EXPECT_TRUE(Contains(lines, "\"!\tc #0A0B0C\""));
}

TEST(Listing, TrueColourModes) {
    Document doc = LoadedDocument();
    doc.Pois = {TrueColourPoi(0, Colours({0x102030, 0x405060})),
                TrueColourPoi(16, Colours({0x405060, 0x102030, 0x405060})),
                // 28 bits a pixel: 0x102030 alpha 0, then 0x405060 alpha 15.
                TrueColourPoi(32, {0x30, 0x20, 0x10, 0x00, 0x06, 0x05, 0xF4})};
    const std::string comment = ";Couleurs 24 bits : pas de palette ";

    auto lines = ObjectLines(doc, ObjectKind::Poi, 0);
    EXPECT_EQ(lines[4], "DayXpm=\"2 1 0 1\"   Colormode=0");
    EXPECT_EQ(std::vector<std::string>(lines.begin() + 5, lines.begin() + 9),
              (std::vector<std::string>{comment, "\"#102030\"", "\"#405060\"", ";12"}));

    lines = ObjectLines(doc, ObjectKind::Poi, 1);
    EXPECT_EQ(std::vector<std::string>(lines.begin() + 6, lines.begin() + 9),
              (std::vector<std::string>{"\"#405060\"", "\"#102030\"", "\"#405060\""}));

    lines = ObjectLines(doc, ObjectKind::Poi, 2);
    EXPECT_EQ(lines[6], "\"#102030\"  canalalpha=0");
    EXPECT_EQ(lines[7], "\"#405060\"  canalalpha=15");
    EXPECT_FALSE(doc.ReadErrorFlag);
}

TEST(Listing, Mode32PaletteCarriesAlpha) {
    Document doc = LoadedDocument();
    PoiRecord poi = PalettePoi(1, 1, 1, 0);
    poi.Bitmaps[0].ColourMode = 32;
    poi.Bitmaps[0].PaletteBytes = {0x30, 0x20, 0x10, 0x07};  // 0x102030, alpha 7
    poi.Bitmaps[0].PixelBytes = {0};
    doc.Pois = {poi};
    const ListingText listing = ListOneObject(doc, ObjectRef{ObjectKind::Poi, 0});
    EXPECT_TRUE(Contains(Lines(listing.Plain()), "\"!\tc #102030\"  canalalpha=7"));
    EXPECT_NE(listing.Rich().find("\"!\tc #102030\"  {\\cf3 canalalpha=}7"), std::string::npos);
}

TEST(Listing, LabelsAndExtendedLabels) {
    Document doc = LoadedDocument();
    PolygonRecord polygon = Polygon("003", "00", 0x36, Colours({0}));
    polygon.LabelBytes = EncodeLabelBlock({{0, "text"}, {4, "Caf\xE9"}});
    polygon.ExtendedLabelBytes = {0x1A, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06};  // SmallFont, DayAndNight
    doc.Polygons = {polygon};
    const auto lines = ObjectLines(doc, ObjectKind::Polygon);
    EXPECT_EQ(std::vector<std::string>(lines.begin() + 2, lines.begin() + 9),
              (std::vector<std::string>{"String1=0x00,text", "String2=0x04,Caf\xE9", "ExtendedLabels=Y",
                                        "FontStyle=SmallFont", "CustomColor=DayAndNight", "DaycustomColor:#030201",
                                        "NightcustomColor:#060504"}));
}

TEST(Listing, BadLabelBlockIsLoggedAndTheObjectListed) {
    Document doc = LoadedDocument();
    doc.Pois = {PalettePoi(1, 1, 1, 0)};
    doc.Pois[0].Flags |= 0x04;
    doc.Pois[0].LabelBytes = {1};
    const auto lines = ObjectLines(doc, ObjectKind::Poi);
    EXPECT_EQ(lines[3], "ExtendedLabels=N");
    EXPECT_EQ(doc.ReadErrorLog, "\r\nProbl\xC3\xA8me de lecture des strings du POI Type=0x02f  SubTypes = 0x0f");
    EXPECT_TRUE(doc.ReadErrorFlag);
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

TEST(Listing, LineWithFlags2ShowsItsMessageAndGoesOn) {
    Document doc = LoadedDocument();
    doc.Polylines = {Polyline(2, 0, Colours({1}), {1})};
    EXPECT_EQ(ListOneObject(doc, ObjectRef{ObjectKind::Polyline, 0}).Notices, std::vector<std::string>{"1er octet d'en-t\xC3\xAAte : 0x02 !!!"});
}

Document RichSample() {
    Document doc = LoadedDocument();
    PolygonRecord polygon = Polygon("10e", "01", 0x19, Colours({1, 2, 3, 4}));
    polygon.LabelBytes = EncodeLabelBlock({{0, "ab"}});
    doc.Polygons = {polygon};
    doc.Polylines = {Polyline(1 << 3, 0x05, Colours({1, 2}), Bytes(4, 0x0F))};
    doc.Polylines[0].LabelBytes = EncodeLabelBlock({{2, "x"}});
    doc.Polylines[0].ExtendedLabelBytes = {0x0B, 1, 2, 3};
    doc.PolylineCount = 1;
    doc.Pois = {PalettePoi(3, 2, 3, 1), TrueColourPoi(0, Colours({1, 2}))};
    doc.DrawOrder = {{1, 0x10e, 1}};
    const std::string comment = "one\r\ntwo";
    doc.HeaderGapBytes.assign(comment.begin(), comment.end());
    return doc;
}

TEST(Listing, RichFormGivesBackThePlainForm) {
    Document doc = RichSample();
    const ListingText text = ListWholeDocument(doc, kContext);
    EXPECT_EQ(RichToPlain(text.Rich()), text.Plain());
    for (ObjectKind kind : kObjectKinds) {
        const ListingText listing = ListOneObject(doc, ObjectRef{kind, 0});
        EXPECT_EQ(RichToPlain(listing.Rich()), listing.Plain());
    }
}

TEST(Listing, RichFormDress) {
    Document doc = RichSample();
    RtfColours colours;
    colours.Colour[1] = "\\red1\\green2\\blue3";
    const std::string rich = ListWholeDocument(doc, kContext).Rich(colours);
    EXPECT_EQ(rich.rfind("{{\\colortbl \\red0\\green0\\blue0;\\red1\\green2\\blue3;\\red0\\green0\\blue255;"
                         "\\red255\\green0\\blue0;}{\\cf0{\\cf1; test.typ}\\par {\\cf1; Longueur: 1234 octets}",
                         0),
              0u);
    for (const char* dress : {"\\par \\par {\\fs20 \\cf2 [_id]}\\par {\\cf3 ProductCode=}1\\par ",
                              "\\par { \\cf2 [End]}", "{\\cf2[_drawOrder]}\\par Type=0x10e01,1",
                              "{\\cf2 [_comments]}\\par one\\par two\\par {\\cf2 [End]}",
                              "{\\cf3 Type=0x}10e01\\par{\\cf3 String1=}0x00,ab\\par {\\cf3 ExtendedLabels=}N",
                              "{\\cf3 Xpm=}\"32 32 4 1\"", "{\\cf1 ;12345678901234567890123456789012}",
                              "{\\cf3 DaycustomColor:}#030201", "{\\cf3 DayXpm=}\"3 2 3 1\"   {\\cf3 Colormode=}16",
                              "{\\cf1 ;Couleurs 24 bits : pas de palette }", "{\\cf2 [end]}}}"})
        EXPECT_NE(rich.find(dress), std::string::npos) << dress;
}

TEST(Listing, SingleObjectIsFramedAlone) {
    Document doc = RichSample();
    const std::string rich = ListOneObject(doc, ObjectRef{ObjectKind::Polyline, 0}).Rich();
    EXPECT_NE(rich.find("}{\\cf0{\\cf2 [_line]}\\par {\\cf3 Type=0x}01"), std::string::npos);
    EXPECT_TRUE(ListOneObject(doc, ObjectRef{ObjectKind::Polyline, 5}).Pieces().empty());
}

}  // namespace
}  // namespace mirvane
