// Every real binary draws the same after a save, and after the text listing
// is compiled back.
#include <gtest/gtest.h>

#include "compare/drawing_diff.h"
#include "corpus.h"
#include "document/binary_reader.h"
#include "document/binary_writer.h"
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

Document Compiled(Document doc) {
    const std::string text = ListWholeDocument(doc, ListingContext{}).Plain();
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

}  // namespace
