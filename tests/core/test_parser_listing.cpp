// The listing and the parser meet: a document listed as text and parsed
// back holds the same records.
#include <gtest/gtest.h>

#include "corpus.h"
#include "record_compare.h"
#include "support/sample_document.h"
#include "text/listing.h"
#include "text/parser.h"

using namespace mirvane;
using namespace mirvane::testing;

namespace {

// The whole listing parsed back: the same records, draw order, comment and
// identity, and a text the parser reads without a word. The command line's
// plain-only listing writes the same text.
void ExpectSameThroughTheListing(Document& listed) {
    const std::string plain = ListWholeDocument(listed, ListingContext{}).Plain();
    EXPECT_EQ(ListWholeDocument(listed, ListingContext{}, ListingForm::PlainOnly).Plain(), plain);
    Document parsed;
    ParseTypText(parsed, plain);
    EXPECT_FALSE(parsed.ReadErrorFlag) << parsed.ReadErrorLog;
    ExpectSameRecords(listed, parsed);
    EXPECT_EQ(listed.DrawOrder, parsed.DrawOrder);
    EXPECT_EQ(listed.HeaderGapBytes, parsed.HeaderGapBytes);
    EXPECT_EQ(std::tie(listed.Identity.Fid, listed.Identity.ProductCode, listed.Identity.CodePage),
              std::tie(parsed.Identity.Fid, parsed.Identity.ProductCode, parsed.Identity.CodePage));
}

}  // namespace

TEST(ParserListing, CorpusBinariesComeBackThroughTheirListing) {
    MIRVANE_REQUIRE_CORPUS();
    for (const auto& path : CorpusBinaries()) {
        SCOPED_TRACE(path.filename().string());
        Document binary;
        ASSERT_TRUE(OpenBinaryTyp(binary, path.string()));
        ExpectSameThroughTheListing(binary);
    }
}

// Every polygon and polyline encoding of the sample survives record for
// record. POIs are compared by what they draw, in the random round trip of
// test_compare_corpus.
TEST(ParserListing, SampleShapesComeBackThroughTheirListing) {
    Document sample = MakeSampleDocument({2 * kPolygonVariants, 2 * kPolylineVariants, 0});
    ExpectSameThroughTheListing(sample);
}

// Applying an object's own listing, unchanged, leaves the records as they
// were and selects the same row again.
TEST(ParserListing, ApplyingAnUnchangedObjectListingChangesNothing) {
    MIRVANE_REQUIRE_CORPUS();
    Document doc;
    ASSERT_TRUE(OpenBinaryTyp(doc, (CorpusDir() / "binary" / "jbm-osm.typ").string()));
    ASSERT_FALSE(doc.ReadErrorFlag) << doc.ReadErrorLog;
    const Document before = doc;
    for (ObjectKind kind : kObjectKinds) {
        for (int row = 0; row < doc.CountOf(kind); ++row) {
            SCOPED_TRACE(std::to_string(static_cast<int>(kind)) + " #" + std::to_string(row));
            const std::string text = ListOneObject(doc, ObjectRef{kind, row}).Plain();
            EXPECT_EQ(ParseTypText(doc, text, ObjectRef{kind, row}).SelectIndex, row);
        }
    }
    EXPECT_FALSE(doc.ReadErrorFlag) << doc.ReadErrorLog;
    ExpectSameRecords(before, doc);
}
