// Real files made by public map projects: each reads without a crash, and a
// read and write back keeps every record's bytes.
#include <gtest/gtest.h>

#include "corpus.h"
#include "document/binary_reader.h"
#include "document/binary_writer.h"
#include "record_compare.h"

using namespace mirvane;
using namespace mirvane::testing;

namespace {

std::vector<std::filesystem::path> AllBinaries() {
    auto files = CorpusFiles("binary", ".typ");
    auto more = CorpusFiles("mkgmap", ".typ");
    files.insert(files.end(), more.begin(), more.end());
    return files;
}

Bytes Rewritten(Document& doc, const SaveTime& time) {
    Bytes out;
    const auto failure = BuildBinaryTyp(doc, out, time);
    EXPECT_FALSE(failure.has_value()) << (failure ? failure->Description : "");
    return out;
}

}  // namespace

TEST(CorpusBinary, EveryFileRoundTripsWithTheSameRecords) {
    MIRVANE_REQUIRE_CORPUS();
    const auto files = AllBinaries();
    ASSERT_FALSE(files.empty());
    for (const auto& path : files) {
        SCOPED_TRACE(path.string());
        Document original;
        ASSERT_TRUE(OpenBinaryTyp(original, path.string()));
        EXPECT_EQ(original.State, DocumentState::Loaded);

        Document working;
        ASSERT_TRUE(OpenBinaryTyp(working, path.string()));
        const Bytes first = Rewritten(working, {2024, 5, 6, 7, 8, 9});
        Document reread;
        ReadBinaryTyp(reread, first, "again.typ");
        // Length errors of the source file stay; the rewritten file must read cleanly.
        EXPECT_FALSE(reread.ReadErrorFlag && !original.ReadErrorFlag) << reread.ReadErrorLog;
        ExpectSameDocumentContent(original, reread);

        // Writing the same document again gives the same bytes but for the date.
        const Bytes second = Rewritten(reread, {2030, 1, 2, 3, 4, 5});
        ASSERT_EQ(first.size(), second.size());
        Bytes a = first, b = second;
        std::fill(a.begin() + 0x0E, a.begin() + 0x15, 0);
        std::fill(b.begin() + 0x0E, b.begin() + 0x15, 0);
        EXPECT_TRUE(a == b);
    }
}
