// Every real binary, and random documents of every layout, draw the same
// after a save and after the text listing is compiled back.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <random>
#include <set>
#include <sstream>

#include "compare/drawing_diff.h"
#include "compare/lint.h"
#include "corpus.h"
#include "document/binary_reader.h"
#include "document/binary_writer.h"
#include "document/encoding.h"
#include "listing_test_support.h"
#include "support/sample_document.h"
#include "text/listing.h"
#include "text/parser.h"

using namespace mirvane;
using namespace mirvane::testing;

namespace {

const SaveTime kTime{2024, 3, 4, 5, 6, 7};

Document Saved(Document doc) {
    Bytes out;
    const auto failure = BuildBinaryTyp(doc, out, kTime);
    EXPECT_FALSE(failure.has_value()) << (failure ? failure->Description : "");
    Document reread;
    ReadBinaryTyp(reread, out, "/maps/saved.typ");
    return reread;
}

using TextEdit = std::function<std::string(const std::string&)>;

Document Compiled(Document doc, const TextEdit& edit = {}) {
    std::string text = ListWholeDocument(doc, ListingContext{}).Plain();
    if (edit) text = edit(text);
    Document parsed;
    LoadTypText(parsed, text, "/maps/listed.txt");
    return Saved(std::move(parsed));
}

std::string FirstLines(const std::vector<std::string>& lines) {
    std::string text;
    for (std::size_t i = 0; i < lines.size() && i < 5; ++i) text += "  " + lines[i] + "\n";
    return text;
}

TEST(CompareCorpus, SavedBinaryDrawsTheSame) {
    MIRVANE_REQUIRE_CORPUS();
    for (const auto& path : CorpusFiles("binary", ".typ")) {
        Document doc;
        ASSERT_TRUE(OpenBinaryTyp(doc, path.string())) << path;
        const auto lines = CompareDrawings(doc, Saved(doc));
        EXPECT_TRUE(lines.empty()) << path.filename() << "\n" << FirstLines(lines);
    }
}

TEST(CompareCorpus, CompiledListingDrawsTheSame) {
    MIRVANE_REQUIRE_CORPUS();
    for (const auto& path : CorpusFiles("binary", ".typ")) {
        Document doc;
        ASSERT_TRUE(OpenBinaryTyp(doc, path.string())) << path;
        const auto lines = CompareDrawings(doc, Compiled(doc));
        EXPECT_TRUE(lines.empty()) << path.filename() << ": " << lines.size() << " differences\n"
                                   << FirstLines(lines);
    }
}

// The sample's records (labels, extended labels, POIs of every colour mode,
// night bitmaps) with random colours, a random layout of those the writer
// stores, solid or patterned, and active-routing lines; as read from a file
// whose header holds the routing index.
Document RandomDocument(unsigned seed, int regularLines) {
    std::mt19937 random(seed);
    auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    auto bytes = [&](int count) {
        Bytes b(static_cast<std::size_t>(count));
        for (auto& x : b) x = static_cast<std::uint8_t>(random());
        return b;
    };
    auto layout = [&] { return std::array<std::uint8_t, 6>{0, 1, 3, 5, 6, 7}[below(6)]; };
    Document doc = MakeSampleDocument({0, 0, 0, 16, false});
    for (int i = 0; i < 8; ++i) {
        PolygonRecord p = MakeSamplePolygon(i, below(kPolygonVariants));
        p.Flags = static_cast<std::uint8_t>((p.Flags & 0x30) | layout() | (below(2) ? 0x08 : 0));
        p.ColourBytes = bytes(ColourCountOf(p.Flags) * 3);
        p.PatternBytes = (p.Flags & 0x08) ? bytes(128) : Bytes{};
        doc.Polygons.push_back(p);
        doc.DrawOrder.push_back({1 + below(4), i + 1, 0});
    }
    for (int i = 0; i < regularLines + 2; ++i) {
        const bool routing = i >= regularLines;
        PolylineRecord l = MakeSamplePolyline(routing ? i - regularLines : i, below(kPolylineVariants));
        const int rows = below(3) ? 0 : 1 + below(31);
        l.Flags1 = static_cast<std::uint8_t>(layout() | rows << 3);
        l.ColourBytes = bytes(ColourCountOf(l.Flags1) * 3);
        const auto width = static_cast<std::uint8_t>(1 + below(8));
        if (rows) l.PatternBytes = bytes(rows * 4);
        else if (l.Flags1 & 0x02) l.PatternBytes = {width};
        else l.PatternBytes = {width, static_cast<std::uint8_t>(width + 2 * below(4))};
        if (routing) l.ExtraIndexBytes = {static_cast<std::uint8_t>(1 + i), 0};
        doc.Polylines.push_back(l);
    }
    doc.PolylineCount = regularLines;
    doc.ExtraPolylineCount = 2;
    for (int i = 0; i < 8; ++i) doc.Pois.push_back(MakeSamplePoi(i, below(kPoiVariants), 1 + below(24)));
    doc.Identity.HeaderSize = doc.Header.HeaderSize = 174;
    return doc;
}

// Type, subtype and extra index bytes of each active-routing line, which
// the drawing comparison does not tell from a regular line.
std::multiset<std::string> RoutingLines(const Document& doc) {
    std::multiset<std::string> lines;
    for (std::size_t i = static_cast<std::size_t>(doc.PolylineCount); i < doc.Polylines.size(); ++i) {
        const PolylineRecord& l = doc.Polylines[i];
        lines.insert(l.Type + l.SubType + ":" + std::to_string(l.ExtraIndexBytes[0] * 256 + l.ExtraIndexBytes[1]));
    }
    return lines;
}

// Saved, then listed and compiled back, each draws the same.
TEST(CompareRandom, EveryLayoutDrawsTheSameAfterASaveAndThroughTheText) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const Document made = RandomDocument(seed, seed % 5 == 0 ? 0 : 8);
        Document doc = Saved(made);
        ASSERT_FALSE(doc.ReadErrorFlag) << doc.ReadErrorLog;
        EXPECT_EQ(CompareDrawings(made, doc), std::vector<std::string>{});
        const Document compiled = Compiled(doc);
        EXPECT_EQ(RoutingLines(compiled), RoutingLines(made));
        const auto lines = CompareDrawings(doc, compiled);
        EXPECT_TRUE(lines.empty()) << lines.size() << " differences\n" << FirstLines(lines);
    }
}

// Each line of `text` through `edit`, which appends what it returns.
std::string EachLine(const std::string& text, const std::function<std::string(const std::string&)>& edit) {
    std::istringstream in(text);
    std::string out, line;
    while (std::getline(in, line)) out += edit(line);
    return out;
}

// A comment after every bitmap header, palette line and pixel row.
std::string WithComments(const std::string& text) {
    return EachLine(text, [](const std::string& line) {
        const bool bitmap = line.starts_with('"') || line.find("Xpm=") != std::string::npos;
        return line + "\n" + (bitmap ? "; a comment\n" : "");
    });
}

// The 4x3 night bitmap listed 5x4: a pixel more on every row and one row more.
std::string LargerNight(const std::string& text) {
    bool night = false;
    std::string lastRow;
    return EachLine(text, [&](std::string line) {
        std::string out;
        if (line.starts_with("NightXpm=\"4 3 ")) {
            night = true;
            line.replace(10, 3, "5 4");
        } else if (night && line.starts_with('"') && line.find("\tc ") == std::string::npos) {
            line.insert(line.rfind('"'), "1");
            lastRow = line;
        } else if (night && !lastRow.empty()) {
            out = lastRow + "\n";
            night = false;
        }
        return out + line + "\n";
    });
}

Document WithPolylineWidths(std::initializer_list<std::pair<std::uint8_t, std::array<std::uint8_t, 2>>> lines) {
    Document doc = MakeSampleDocument({0, 0, 0, 16, false});
    for (const auto& [layout, widths] : lines) {
        PolylineRecord l = MakeSamplePolyline(static_cast<int>(doc.Polylines.size()), 0);
        l.Flags1 = layout;
        l.ColourBytes.assign(static_cast<std::size_t>(ColourCountOf(layout)) * 3, 0x40);
        l.PatternBytes = {widths[0], widths[1]};
        doc.Polylines.push_back(l);
    }
    doc.PolylineCount = static_cast<int>(doc.Polylines.size());
    return doc;
}

Document WithTwoSizedNight() {
    Document doc = MakeSampleDocument({0, 0, 0, 16, false});
    PoiRecord poi = PalettePoi(4, 3, 2, 0);
    poi.Bitmaps[0].PixelBytes[0] = 0x05;  // a few pixels of the second colour
    poi.Bitmaps[1] = poi.Bitmaps[0];
    poi.Bitmaps[1].PixelBytes[1] = 0x01;
    poi.Flags |= 0x02;
    doc.Pois.push_back(poi);
    return doc;
}

Document WithSubTypedDrawOrderOfAStandardType() {
    Document doc = MakeSampleDocument({0, 0, 0, 16, false});
    doc.Polygons.push_back(MakeSamplePolygon(0, 0));
    doc.Polygons.back().Type = "003";
    doc.DrawOrder = {{1, 3, 0}, {2, 3, 5}};
    return doc;
}

// Small documents the text once lost: listed, edited as a map maker might,
// compiled back, and drawing the same; or, where the file cannot hold what
// the document says, named by lint.
TEST(CompareText, ObjectsComeBackThroughAnEditedText) {
    struct Case {
        const char* Name;
        Document Made;
        TextEdit Edit;
        const char* Lint = nullptr;
    };
    const Case cases[] = {
        {"comments in palettes and pixel rows", RandomDocument(7, 8), WithComments},
        {"odd total widths", WithPolylineWidths({{0, {1, 2}}, {0, {2, 5}}, {1, {3, 4}}, {0, {1, 1}}}), {}},
        {"a night bitmap of another size", WithTwoSizedNight(), LargerNight},
        {"a draw order subtype on a standard type", WithSubTypedDrawOrderOfAStandardType(), {},
         "draw order polygon 0x003,0x05: a type below 0x100 has no subtypes"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        Document doc = Saved(c.Made);
        ASSERT_FALSE(doc.ReadErrorFlag) << doc.ReadErrorLog;
        if (c.Lint) {
            const auto findings = LintDocument(c.Made);
            const auto named = [&](const std::string& line) { return line.starts_with(c.Lint); };
            EXPECT_TRUE(std::any_of(findings.begin(), findings.end(), named)) << FirstLines(findings);
            continue;
        }
        const Document compiled = Compiled(doc, c.Edit);
        EXPECT_FALSE(compiled.ReadErrorFlag) << compiled.ReadErrorLog;
        const auto lines = CompareDrawings(doc, compiled);
        EXPECT_TRUE(lines.empty()) << lines.size() << " differences\n" << FirstLines(lines);
    }
}

}  // namespace
