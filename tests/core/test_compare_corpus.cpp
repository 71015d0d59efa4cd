// Every real binary draws the same after its text listing is compiled back
// (a plain save keeps its records' bytes: test_corpus_binary), and random
// documents of every layout after a save and through the text.
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <random>
#include <set>
#include <sstream>

#include "base/codepage.h"
#include "compare/drawing_diff.h"
#include "corpus.h"
#include "document/encoding.h"
#include "record_compare.h"
#include "support/sample_document.h"
#include "text/listing.h"
#include "text/parser.h"

using namespace mirvane;
using namespace mirvane::testing;

namespace {

const SaveTime kTime{2024, 3, 4, 5, 6, 7};

Document Saved(Document doc) { return ReadTyp(BuiltTyp(doc, kTime), "/maps/saved.typ"); }

// The listing compiled back, after `edit` when given.
Document Compiled(Document doc, const std::function<std::string(const std::string&)>& edit = {}) {
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

TEST(CompareCorpus, CompiledListingDrawsTheSame) {
    MIRVANE_REQUIRE_CORPUS();
    for (const auto& path : CorpusFiles("binary", ".typ")) {
        Document doc;
        ASSERT_TRUE(OpenBinaryTyp(doc, path.string())) << path;
        // As decompile writes it: in the file's code page, or in UTF-8 with a byte order mark.
        const auto inUtf8 = [&doc](const std::string& text) {
            return "\xEF\xBB\xBF" + DecodeDocumentBytes(text, doc.Identity.CodePage);
        };
        for (const bool utf8 : {false, true}) {
            const auto lines = CompareDrawings(doc, utf8 ? Compiled(doc, inUtf8) : Compiled(doc));
            EXPECT_TRUE(lines.empty()) << path.filename() << (utf8 ? " in UTF-8: " : ": ") << lines.size()
                                       << " differences\n" << FirstLines(lines);
        }
    }
}

// A comment after every bitmap header, colour line and pixel row.
std::string WithComments(const std::string& text) {
    std::istringstream in(text);
    std::string out, line;
    while (std::getline(in, line))
        out += line + (line.starts_with('"') || line.find("Xpm=") != std::string::npos ? "\n;\n" : "\n");
    return out;
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
        else l.PatternBytes = {width, static_cast<std::uint8_t>(width + below(8))};
        if (routing) l.ExtraIndexBytes = {static_cast<std::uint8_t>(1 + i), 0};
        doc.Polylines.push_back(l);
    }
    doc.PolylineCount = regularLines;
    doc.ExtraPolylineCount = 2;
    for (int i = 0; i < 8; ++i) {
        PoiRecord poi = MakeSamplePoi(i, below(kPoiVariants), 1 + below(24));
        // A full palette with a transparent pixel: index 255, one past the colours.
        if (poi.Bitmaps[0].ColourCount == 255 && poi.Bitmaps[0].ColourMode < 32) poi.Bitmaps[0].PixelBytes[0] = 255;
        doc.Pois.push_back(poi);
    }
    doc.Identity.HeaderSize = doc.Header.HeaderSize = 174;
    return doc;
}

// Type, subtype and index bytes of the active-routing lines, which the
// drawing comparison does not tell from regular lines.
std::multiset<std::string> RoutingLines(const Document& doc) {
    std::multiset<std::string> lines;
    for (auto l = doc.Polylines.begin() + doc.PolylineCount; l != doc.Polylines.end(); ++l)
        lines.insert(l->Type + l->SubType + ":" + std::to_string(l->ExtraIndexBytes[0] * 256 + l->ExtraIndexBytes[1]));
    return lines;
}

// Saved, then listed (with comments inside its bitmaps) and compiled back,
// each draws the same.
TEST(CompareRandom, EveryLayoutDrawsTheSameAfterASaveAndThroughTheText) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const Document made = RandomDocument(seed, seed % 5 == 0 ? 0 : 8);
        Document doc = Saved(made);
        ASSERT_FALSE(doc.ReadErrorFlag) << doc.ReadErrorLog;
        EXPECT_EQ(CompareDrawings(made, doc), std::vector<std::string>{});
        const Document compiled = Compiled(doc, WithComments);
        EXPECT_EQ(RoutingLines(compiled), RoutingLines(made));
        const auto lines = CompareDrawings(doc, compiled);
        EXPECT_TRUE(lines.empty()) << lines.size() << " differences\n" << FirstLines(lines);
    }
}

}  // namespace
