// The listing and the parser meet: a document listed as text and parsed
// back holds the same records.
#include <gtest/gtest.h>

#include "corpus.h"
#include "document/binary_reader.h"
#include "support/sample_document.h"
#include "record_compare.h"
#include "text/listing.h"
#include "text/parser.h"

using namespace mirvane;

namespace {

Document ParseListingOf(Document& listed) {
    const std::string text = ListWholeDocument(listed, ListingContext{}).Plain();
    Document parsed;
    ParseTypText(parsed, text);
    return parsed;
}

}  // namespace

TEST(ParserListing, CorpusBinariesComeBackThroughTheirListing) {
    MIRVANE_REQUIRE_CORPUS();
    for (const auto& path : mirvane::testing::CorpusFiles("binary", ".typ")) {
        SCOPED_TRACE(path.filename().string());
        Document binary;
        ASSERT_TRUE(OpenBinaryTyp(binary, path.string()));
        const Document parsed = ParseListingOf(binary);
        mirvane::testing::ExpectSamePolygons(binary, parsed);
        mirvane::testing::ExpectSamePolylines(binary, parsed);
        mirvane::testing::ExpectSamePois(binary, parsed);
        EXPECT_EQ(binary.DrawOrder, parsed.DrawOrder);
        EXPECT_EQ(binary.HeaderGapBytes, parsed.HeaderGapBytes);
        EXPECT_EQ(binary.Identity.Fid, parsed.Identity.Fid);
        EXPECT_EQ(binary.Identity.ProductCode, parsed.Identity.ProductCode);
        EXPECT_EQ(binary.Identity.CodePage, parsed.Identity.CodePage);
    }
}

// Every polygon and polyline encoding of the sample survives record for
// record. POIs are compared by what they draw, in the random round trip of
// test_compare_corpus.
TEST(ParserListing, SampleShapesComeBackThroughTheirListing) {
    SampleOptions options;
    options.Polygons = 2 * kPolygonVariants;
    options.Polylines = 2 * kPolylineVariants;
    options.Pois = 0;
    Document sample = MakeSampleDocument(options);
    const Document parsed = ParseListingOf(sample);
    EXPECT_FALSE(parsed.ReadErrorFlag) << parsed.ReadErrorLog;
    mirvane::testing::ExpectSamePolygons(sample, parsed);
    mirvane::testing::ExpectSamePolylines(sample, parsed);
    EXPECT_EQ(sample.DrawOrder, parsed.DrawOrder);
}

// Applying an object's own listing, unchanged, leaves the records as they
// were and selects the same row again.
TEST(ParserListing, ApplyingAnUnchangedObjectListingChangesNothing) {
    MIRVANE_REQUIRE_CORPUS();
    Document doc;
    ASSERT_TRUE(OpenBinaryTyp(doc, (mirvane::testing::CorpusDir() / "binary" / "jbm-osm.typ").string()));
    ASSERT_FALSE(doc.ReadErrorFlag) << doc.ReadErrorLog;
    const Document before = doc;
    for (ObjectKind kind : kObjectKinds) {
        for (int row = 0; row < doc.CountOf(kind); ++row) {
            SCOPED_TRACE(std::to_string(static_cast<int>(kind)) + " #" + std::to_string(row));
            const std::string text = ListOneObject(doc, ObjectRef{kind, row}).Plain();
            const ParseResult result = ParseTypText(doc, text, ObjectRef{kind, row});
            EXPECT_EQ(result.SelectIndex, row);
        }
    }
    EXPECT_FALSE(doc.ReadErrorFlag) << doc.ReadErrorLog;
    mirvane::testing::ExpectSamePolygons(before, doc);
    mirvane::testing::ExpectSamePolylines(before, doc);
    mirvane::testing::ExpectSamePois(before, doc);
}
