// Real text files: every one parses, compiles and reads back.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "corpus.h"
#include "document/binary_reader.h"
#include "document/binary_writer.h"
#include "document/encoding.h"
#include "document/record_writer.h"
#include "record_compare.h"
#include "text/parser.h"

using namespace mirvane;

namespace {

struct SectionCounts {
    std::size_t Polygons = 0, Polylines = 0, Pois = 0;
};

// Section heads as the program finds them: at the start of a line, in any
// case, outside comments; the last piece of the text is never a head.
SectionCounts CountSections(const std::string& text) {
    SectionCounts counts;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1) {
        std::string line = text.substr(start, end - start);
        const auto first = line.find_first_not_of(" \t\r");
        if (first == std::string::npos) continue;
        for (char& c : line) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        const std::string_view head = std::string_view(line).substr(first);
        counts.Polygons += head.starts_with("[_polygon]");
        counts.Polylines += head.starts_with("[_line]");
        counts.Pois += head.starts_with("[_point]");
    }
    return counts;
}

// A polygon whose colour bytes fit its layout survives compiling and reading,
// layout 2 (a transparent first colour) written as 6, the same picture.
// Those that do not fit come from an Xpm header without its closing quote,
// which leaves no colours.
void ExpectConsistentPolygonsSurvive(const Document& parsed, const Document& back) {
    ASSERT_EQ(parsed.Polygons.size(), back.Polygons.size());
    for (std::size_t i = 0; i < parsed.Polygons.size(); ++i) {
        PolygonRecord x = parsed.Polygons[i];
        if (static_cast<std::size_t>(ColourCountOf(x.Flags)) * 3 != x.ColourBytes.size()) continue;
        SCOPED_TRACE("polygon " + x.Type + "/" + x.SubType);
        x.Flags = EncodePolygonRecord(x)[0];
        mirvane::testing::ExpectSamePolygon(x, back.Polygons[i]);
    }
}

}  // namespace

TEST(ParserCorpus, EveryTextParsesCompilesAndReadsBack) {
    MIRVANE_REQUIRE_CORPUS();
    const auto files = mirvane::testing::CorpusFiles("text", ".txt");
    ASSERT_FALSE(files.empty());
    for (const auto& path : files) {
        SCOPED_TRACE(path.filename().string());
        const std::string text = mirvane::testing::ReadFileText(path);
        Document doc;
        ASSERT_TRUE(OpenTypText(doc, path.string()));
        const SectionCounts counts = CountSections(text);
        EXPECT_EQ(doc.Polygons.size(), counts.Polygons);
        EXPECT_EQ(doc.Polylines.size(), counts.Polylines);
        EXPECT_EQ(doc.Pois.size(), counts.Pois);

        // The writer asks for a FID and a product code, as the user would be.
        if (!doc.Identity.Fid) doc.Identity.Fid = 1;
        if (!doc.Identity.ProductCode) doc.Identity.ProductCode = 1;
        Bytes binary;
        const auto failure = BuildBinaryTyp(doc, binary, SaveTime{});
        ASSERT_FALSE(failure) << failure->Description;
        Document back;
        ReadBinaryTyp(back, binary);
        ExpectConsistentPolygonsSurvive(doc, back);
        mirvane::testing::ExpectSamePolylines(doc, back);
        mirvane::testing::ExpectSamePois(doc, back);
    }
}
