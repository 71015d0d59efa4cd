// Real files made by public map projects: each reads without a crash, and a
// read and write back keeps every record's bytes and the draw order section.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "corpus.h"
#include "record_compare.h"

using namespace mirvane;
using namespace mirvane::testing;

namespace {

// Every record's bytes up to the next record of its section, with its key,
// sorted: a file's records as a set, whatever order its index gives them.
std::vector<std::pair<std::string, Bytes>> RecordSlices(const Bytes& file) {
    const Document doc = ReadTyp(file, "slices.typ");
    std::vector<std::pair<std::string, Bytes>> slices;
    auto add = [&](std::int32_t base, std::int32_t length, const auto& records) {
        std::set<std::int32_t> ends{length};
        for (const auto& r : records) ends.insert(r.Offset);
        for (const auto& r : records)
            slices.emplace_back(r.Type + r.SubType, Bytes(file.begin() + base + r.Offset,
                                                          file.begin() + base + *ends.upper_bound(r.Offset)));
    };
    const TypHeader& h = doc.Header;
    add(h.PolygonDataOffset, h.PolygonDataLength, doc.Polygons);
    add(h.PolylineDataOffset, h.PolylineDataLength, doc.Polylines);
    add(h.PoiDataOffset, h.PoiDataLength, doc.Pois);
    std::sort(slices.begin(), slices.end());
    slices.emplace_back("draw order", Bytes(file.begin() + h.DrawOrderOffset,
                                            file.begin() + h.DrawOrderOffset + h.DrawOrderLength));
    return slices;
}

}  // namespace

TEST(CorpusBinary, EveryFileRoundTripsWithTheSameRecords) {
    MIRVANE_REQUIRE_CORPUS();
    const auto files = CorpusBinaries();
    ASSERT_FALSE(files.empty());
    for (const auto& path : files) {
        SCOPED_TRACE(path.string());
        Document original;
        ASSERT_TRUE(OpenBinaryTyp(original, path.string()));
        EXPECT_EQ(original.State, DocumentState::Loaded);

        Document working = original;
        const Bytes first = BuiltTyp(working, {2024, 5, 6, 7, 8, 9});
        Document reread = ReadTyp(first, "again.typ");
        // The log says what it said of the source file, and no more.
        EXPECT_EQ(reread.ReadErrorLog, original.ReadErrorLog);
        ExpectSameDocumentContent(original, reread);
        const std::string text = ReadFileText(path);
        EXPECT_TRUE(RecordSlices(first) == RecordSlices(Bytes(text.begin(), text.end())))
            << "a record's bytes or the draw order changed";

        // Writing the same document again gives the same bytes but for the date.
        Bytes a = first, b = BuiltTyp(reread, {2030, 1, 2, 3, 4, 5});
        ASSERT_EQ(a.size(), b.size());
        std::fill(a.begin() + 0x0E, a.begin() + 0x15, 0);
        std::fill(b.begin() + 0x0E, b.begin() + 0x15, 0);
        EXPECT_TRUE(a == b);
    }
}
