// The parser's driver: line preparation, sections, failures, edit scopes.
#include <gtest/gtest.h>

#include <string>

#include "parser_test_support.h"

using namespace mirvane;
using mirvane::test::B;
using mirvane::test::BytesOf;
using mirvane::test::ParseDocument;

namespace {

std::string SolidPolygon(const std::string& type) {
    return "[_polygon]\nType=0x" + type + "\nXpm=\"0 0 1 0\"\n\"1 c #102030\"\n[end]\n";
}

}  // namespace

TEST(ParserSections, IdentityKeysInAnyCaseWithCommentsAndTextBefore) {
    const Document doc = ParseDocument(
        "anything at all\r\n; Longueur: 123 octets\r\n[_ID]  trailing\r\nproductcode=0xFFFF ; note\r\n"
        "FID=0x10,\r\ncodepage=1251\r\n[END]\r\n");
    EXPECT_EQ(doc.Identity.ProductCode, 65535);
    EXPECT_EQ(doc.Identity.Fid, 16);
    EXPECT_EQ(doc.Identity.CodePage, 1251);
    EXPECT_FALSE(doc.ReadErrorFlag) << doc.ReadErrorLog;
}

// A value that is no 16-bit number is logged with the range and leaves the
// field not given, so the save asks for it instead of writing another number.
TEST(ParserSections, IdentityValuesAndTheirRange) {
    struct Case {
        const char* line;
        std::optional<std::uint16_t> value;
        bool logged;
    };
    const Case cases[] = {
        {"FID=0x1F40", 8000, false},      {"ProductCode=65535", 65535, false},
        {"ProductCode=-1", 65535, false},  // the signed form of 0xFFFF
        {"FID=", std::nullopt, false},     {"FID=70000", std::nullopt, true},
        {"ProductCode=0x10000", std::nullopt, true}, {"FID=80a", std::nullopt, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        const Document doc = ParseDocument(std::string("[_id]\n") + c.line + "\n[End]\n");
        const bool fid = c.line[0] == 'F';
        EXPECT_EQ(fid ? doc.Identity.Fid : doc.Identity.ProductCode, c.value);
        const std::string expectedLog = "\r\nLigne 2 : \"" + std::string(c.line) +
                                        "\" : Il faut rentrer un entier compris entre 0 et 65535";
        EXPECT_EQ(doc.ReadErrorLog, c.logged ? expectedLog : "");
    }
    Document applied;
    applied.Identity.Fid = 7;
    ParseTypText(applied, "[_id]\nFID=70000\n[End]\n");
    EXPECT_EQ(applied.Identity.Fid, 7);  // the field stays as it was
}

TEST(ParserSections, CodePagesOfferedAndUtf8AreKeptOthersLogged) {
    Document doc;
    ParseTypText(doc, "[_id]\nCodePage=65001\n[End]\n");
    EXPECT_EQ(doc.Identity.CodePage, 65001);
    ParseTypText(doc, "[_id]\nCodePage = 1251\n[End]\n");
    EXPECT_EQ(doc.Identity.CodePage, 1251);
    ParseTypText(doc, "[_id]\nCodePage=1300\n[End]\n");
    EXPECT_EQ(doc.Identity.CodePage, 1251);
    EXPECT_EQ(doc.ReadErrorLog, "\r\nLigne 2 : \"CodePage=1300\"");
}

// A UTF-8 text (a byte order mark at the start of any line, or valid UTF-8)
// has its labels converted to its 8-bit code page; a label the code page
// cannot hold is left out and named.
TEST(ParserSections, Utf8LabelsGoToTheDeclaredCodePage) {
    const std::string body = "[_polygon]\nType=0x01\nString1=0x02,Stra\xC3\x9F" "e\nString2=0x15,Gara\xC5\xBC" "e\n[end]\n";
    const std::string latin = "[_id]\nCodePage=1252\n[End]\n" + body;
    Document doc = ParseDocument(latin);
    EXPECT_EQ(doc.Polygons.at(0).LabelBytes, BytesOf(std::string("\x11\x02Stra\xDF" "e\0", 9)));
    EXPECT_EQ(doc.ReadErrorLog, "\r\nLigne 7 : \"\xC5\xBC\" absent de la page de code 1252, "
                                "libell\xC3\xA9 laiss\xC3\xA9 de c\xC3\xB4t\xC3\xA9 pour l'objet Type=0x001 SubType=0x00");
    doc = ParseDocument("; header\n\xEF\xBB\xBF[_id]\nCodePage=1250\n[End]\n" + body);
    EXPECT_EQ(doc.Polygons.at(0).LabelBytes,
              BytesOf(std::string("\x21\x02Stra\xDF" "e\0\x15Gara\xBF" "e\0", 17)));
    doc = ParseDocument("[_id]\nCodePage=65001\n[End]\n" + body);
    EXPECT_EQ(doc.Polygons.at(0).LabelBytes.size(), 1u + 9 + 9);
}

TEST(ParserSections, CommentsLoseLeadingBlankLinesAndSemicolonText) {
    const Document doc = ParseDocument(
        "[_comments]\n\n; only a comment\nFirst line ; cut here\n\nThird,\n[end]\n[_comments]\nMore\n[end]\n");
    EXPECT_EQ(doc.HeaderGapBytes, BytesOf("First line\r\n\r\nThird\r\nMore"));
}

TEST(ParserSections, DrawOrderEntriesComeBackSorted) {
    Document doc = ParseDocument(
        "[_drawOrder]\nType=0x10f00,2\nType=0x3,1\ntype=0x10e01,1\nType=0x002,1,\nType=0x004\nType = 0x0203,3\n[End]\n");
    const std::vector<DrawOrderEntry> expected{{1, 2, 0}, {1, 3, 0}, {1, 0x10e, 1}, {2, 0x10f, 0}, {3, 2, 3}};
    EXPECT_EQ(doc.DrawOrder, expected);
    EXPECT_EQ(doc.ReadErrorLog, "\r\nLigne 6 : \"Type=0x004\"");  // no level
}

TEST(ParserSections, LastPieceOfTheTextIsNeverAHead) {
    // Without a final line end an [end] there still closes a body.
    const Document doc = ParseDocument("[_polygon]\nType=0x05\n[end] ; closing");
    ASSERT_EQ(doc.Polygons.size(), 1u);
    EXPECT_EQ(doc.Polygons[0].Type, "005");
    EXPECT_FALSE(doc.ReadErrorFlag);
}

TEST(ParserFailures, UnclosedSectionsStopAtTheLastLine) {
    for (const char* head : {"[_id]", "[_comments]", "[_drawOrder]", "[_polygon]", "[_line]", "[_point]"}) {
        const std::string text = std::string(head) + "\nType=0x03\n\"1 c #000000\"\n";
        Document doc = ParseDocument(text);
        EXPECT_TRUE(doc.ReadErrorFlag) << head;
        EXPECT_NE(doc.ReadErrorLog.find("Ligne 4 : \"\""), std::string::npos) << head << doc.ReadErrorLog;
    }
    const Document doc = ParseDocument("[_polygon]\nType=0x03");
    ASSERT_EQ(doc.Polygons.size(), 1u);
    EXPECT_EQ(doc.Polygons[0].Type, "003");
    EXPECT_EQ(doc.ReadErrorLog, "\r\nLigne 2 : \"Type=0x03\"");
}

TEST(ParserFailures, BadValuesAreLoggedAndParsingGoesOn) {
    const Document doc = ParseDocument(
        "[_line]\nType=0x01\nLineWidth=300\nXpm=\"0 0 1 0\"\n\"1 c #0000zz\"\n[end]\n" + SolidPolygon("02"));
    EXPECT_TRUE(doc.ReadErrorFlag);
    EXPECT_NE(doc.ReadErrorLog.find("Ligne 3 : \"LineWidth=300\""), std::string::npos);
    ASSERT_EQ(doc.Polylines.size(), 1u);
    EXPECT_EQ(doc.Polylines[0].ColourBytes, B({0, 0, 0}));  // a bad digit reads as 0, no error
    EXPECT_EQ(doc.Polygons.size(), 1u);
}

TEST(ParserFailures, ArbitraryTextAlwaysEnds) {
    const std::string sample =
        "[_id]\nProductCode=1\n[End]\n[_drawOrder]\nType=0x10f00,2\n[End]\n" + SolidPolygon("10e01") +
        "[_line]\nType=0x01\nXpm=\"32 2 2  1\"\n\"! c #000000\"\n\"  c none\"\n\"!!!\"\n\"!\"\n[end]\n"
        "[_point]\nType=0x2f\nSubType=0x01\nString1=0x04,abc\nExtendedLabels=Y\nFontStyle=SmallFont\n"
        "CustomColor=DayAndNight\nDaycustomColor:#112233\nNightcustomColor:#445566\n"
        "DayXpm=\"3 2 2 1\"  Colormode=32\n\"! c #FF0000\"  alpha=3\n\"  c none\"\n\"! !\"\n\"!!\"\n"
        "NightXpm=\"2 2 0 1\" Colormode=0\n\"#123456\"\n[end]\n";
    // Every cut of the sample: the parser ends and names what it could not read.
    for (std::size_t cut = 0; cut <= sample.size(); ++cut) {
        Document doc;
        ParseTypText(doc, std::string_view(sample).substr(0, cut));
        ParseTypText(doc, std::string_view(sample).substr(cut), ObjectRef{ObjectKind::Poi, 0});
        ParseTypText(doc, std::string_view(sample).substr(cut), ObjectRef{ObjectKind::Polygon, 0});
    }
    // A huge declared bitmap on a short text stays short in the log and
    // makes no pixel bytes.
    for (const char* header : {"\"255 255 0 0\" Colormode=0", "\"255 255 1 1\"\n\"! c #000000\""}) {
        Document doc = ParseDocument(std::string("[_point]\nDayXpm=") + header + "\n\"!!\"\n");
        ASSERT_EQ(doc.Pois.size(), 1u);
        EXPECT_TRUE(doc.Pois[0].Bitmaps[0].PixelBytes.empty());
        EXPECT_LT(doc.ReadErrorLog.size(), 200u);
    }
}

TEST(ParserScopes, SingleObjectScopeRebuildsTheSelectedRecordAndFindsItAgain) {
    Document doc = ParseDocument(SolidPolygon("01") + SolidPolygon("05") + SolidPolygon("03") +
                                 "[_comments]\nnote\n[end]\n");
    ASSERT_EQ(doc.Polygons.size(), 3u);
    EXPECT_EQ(doc.Polygons[1].Type, "003");  // sorted
    ParseResult result = ParseTypText(doc, "[_polygon]\nType=0x07\n[end]\n", ObjectRef{ObjectKind::Polygon, 0});
    ASSERT_EQ(doc.Polygons.size(), 3u);
    EXPECT_EQ(doc.Polygons[2].Type, "007");
    EXPECT_TRUE(doc.Polygons[2].ColourBytes.empty());  // reset, then refilled
    EXPECT_EQ(result.SelectIndex, 2);
    EXPECT_EQ(doc.HeaderGapBytes, Bytes({'n', 'o', 't', 'e'}));  // one object's text leaves the comment alone
}

TEST(ParserScopes, SectionOfAnotherKindWritesOverRecordZero) {
    Document doc = ParseDocument(SolidPolygon("01") + SolidPolygon("02") + "[_line]\nType=0x05\n[end]\n");
    ParseTypText(doc, "[_polygon]\nType=0x09\n[end]\n", ObjectRef{ObjectKind::Polyline, 0});
    ASSERT_EQ(doc.Polygons.size(), 2u);
    EXPECT_EQ(doc.Polygons[0].Type, "009");
    EXPECT_EQ(doc.Polygons[0].ColourBytes, B({0x30, 0x20, 0x10}));  // not reset
    EXPECT_EQ(doc.Polygons[1].Type, "002");                          // not sorted either
    EXPECT_FALSE(doc.ReadErrorFlag);
}

TEST(ParserFiles, LoadSetsTheDefaultsOfATextDocument) {
    Document doc;
    doc.Polygons.resize(4);
    doc.Identity.CodePage = 1250;
    doc.Identity.HeaderSize = 174;
    LoadTypText(doc, "[_id]\nFID=7\n[End]\n", "/maps/dir/style.txt");
    EXPECT_TRUE(doc.Polygons.empty());
    EXPECT_TRUE(doc.FromText);
    EXPECT_EQ(doc.FileName, "style.txt");
    EXPECT_EQ(doc.FileFolder, "/maps/dir");
    EXPECT_EQ(doc.Identity.HeaderSize, 91);
    EXPECT_EQ(doc.Identity.CodePage, 1252);
    EXPECT_EQ(doc.Identity.Fid, 7);
    EXPECT_FALSE(OpenTypText(doc, "/nonexistent/file.txt"));
    EXPECT_EQ(doc.Identity.Fid, 7);
}
