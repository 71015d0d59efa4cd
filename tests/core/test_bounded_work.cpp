// Work bounded by the input: the exchange sort's order computed without its
// quadratic swapping, a read log that cannot grow without end, and small
// crafted files that once cost seconds and megabytes.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "base/exchange_sort.h"
#include "base/file_io.h"
#include "document/encoding.h"
#include "document/error_log.h"
#include "labels/label_block.h"
#include "record_compare.h"
#include "text/listing.h"
#include "text/parser.h"

namespace mirvane {
namespace {

// The exchange sort as the program has it, swap by swap, with ranks whose
// ties swap when `swapsTies` marks them.
std::vector<std::size_t> LiteralExchangeSort(const std::vector<std::size_t>& ranks,
                                             const std::vector<bool>& swapsTies) {
    std::vector<std::size_t> order(ranks.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    for (std::size_t i = 0; i + 1 < order.size(); ++i)
        for (std::size_t j = i + 1; j < order.size(); ++j) {
            const std::size_t a = ranks[order[i]], b = ranks[order[j]];
            if (a > b || (a == b && a < swapsTies.size() && swapsTies[a])) std::swap(order[i], order[j]);
        }
    return order;
}

TEST(ExchangeSortOrder, EqualsTheLiteralSortOnRandomKeysWithTies) {
    std::mt19937 random(20240611);
    for (int round = 0; round < 3000; ++round) {
        const std::size_t n = random() % 40;
        const std::size_t distinct = 1 + random() % (1 + random() % 12);
        std::vector<std::size_t> keys(n);
        for (auto& k : keys) k = random() % distinct;
        std::vector<bool> swapsTies(distinct);
        for (std::size_t r = 0; r < distinct; ++r) swapsTies[r] = round % 2 == 1 && random() % 2 == 0;
        // Ranks must be dense; keys that never occur leave gaps, which the
        // order must not care about either.
        ASSERT_EQ(ExchangeSortOrder(keys, swapsTies), LiteralExchangeSort(keys, swapsTies))
            << "round " << round << ", " << n << " keys";
    }
}

TEST(CappedErrorLog, EachKindIsWrittenAtMostItsBoundThenCounted) {
    Document doc;
    CappedErrorLog log(doc);
    int made = 0;
    for (int i = 0; i < 32000; ++i) {
        log.Add("many", [&] {
            ++made;
            return "\r\nmany " + std::to_string(i);
        });
        if (i == 3) log.Add("few", "\r\nfew");
    }
    log.Finish();
    EXPECT_TRUE(doc.ReadErrorFlag);
    EXPECT_EQ(made, static_cast<int>(kMaxLoggedPerKind)) << "left-out texts are never made";
    const std::string count = "\r\n... et 31 900 autres erreurs de ce genre";
    const std::size_t at = doc.ReadErrorLog.find(count);
    ASSERT_NE(at, std::string::npos) << doc.ReadErrorLog.substr(0, 200);
    // Right under the last one written, before what other kinds wrote after it.
    EXPECT_EQ(doc.ReadErrorLog.rfind("many 99", at), at - 7);
    EXPECT_NE(doc.ReadErrorLog.find("\r\nfew"), std::string::npos);
    EXPECT_EQ(doc.ReadErrorLog.find("many 100"), std::string::npos);
}

TEST(CappedErrorLog, ParserLogsEveryFailingLineOnlyUpToTheBound) {
    std::string text = "[_drawOrder]\r\n";
    for (int i = 0; i < 5000; ++i) text += "Type=0x004\r\n";  // no level
    text += "[End]\r\n";
    Document doc;
    ParseTypText(doc, text);
    EXPECT_TRUE(doc.ReadErrorFlag);
    EXPECT_LT(doc.ReadErrorLog.size(), 20000u);
    EXPECT_NE(doc.ReadErrorLog.find("autres erreurs de ce genre"), std::string::npos);
}

// Files of a few hundred bytes that declare tens of thousands of records.
// They must read, as any damaged file does, with a log of a few kilobytes
// and no more records than their bytes can hold; the benchmark
// OpenCrafted measures their time.
TEST(CraftedInput, SmallFilesDeclaringThousandsOfRecordsStaySmall) {
    const std::filesystem::path folder = std::filesystem::path(MIRVANE_SOURCE_DIR) / "tests/data/crafted";
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        Bytes file;
        ASSERT_TRUE(ReadWholeFile(entry.path(), file)) << name;
        ++files;
        Document doc = testing::ReadTyp(file, name);
        EXPECT_EQ(doc.State, DocumentState::Loaded) << name;
        EXPECT_TRUE(doc.ReadErrorFlag) << name;
        EXPECT_LT(doc.ReadErrorLog.size(), 200000u) << name;
        const std::size_t records = doc.Polygons.size() + doc.Polylines.size() + doc.Pois.size() + doc.ExtraPois.size();
        EXPECT_LE(records, file.size()) << name;
        const std::string listing = ListWholeDocument(doc, {"", {}}).Plain();
        EXPECT_LT(listing.size() + doc.ReadErrorLog.size(), 1000000u) << name;
    }
    EXPECT_EQ(files, 3);
}

std::string PoiWithLabel(std::size_t labelLength) {
    return "[_id]\r\nProductCode=1\r\nFID=1\r\nCodePage=1252\r\n[End]\r\n[_point]\r\nType=0x2f\r\nSubType=0x01\r\n"
           "String1=0x04," + std::string(labelLength, 'A') +
           "\r\nXpm=\"1 1 1 1\"\r\n\"! c #000000\"\r\n\"!\"\r\n[end]\r\n";
}

// Labels up to what the two-byte prefix counts are kept whole; past that
// they are refused with the object named, and the object is still written
// as a valid record, only without labels.
TEST(LongLabels, KeptUpToTheLimitThenRefusedWithTheObjectNamed) {
    for (const std::size_t length : {16370u, 16381u, 16382u, 40000u}) {
        Document doc;
        LoadTypText(doc, PoiWithLabel(length), "long.txt");
        const bool kept = length + 2 <= 16383;  // language code and terminator
        ASSERT_EQ(doc.PoiCount(), 1) << length;
        EXPECT_EQ(doc.ReadErrorFlag, !kept) << length;
        if (!kept) {
            EXPECT_NE(doc.ReadErrorLog.find("Type=0x02f SubType=0x01"), std::string::npos) << doc.ReadErrorLog;
            EXPECT_LT(doc.ReadErrorLog.size(), 400u) << "the label is not echoed";
        }
        const Document back = testing::ReadTyp(testing::BuiltTyp(doc));
        EXPECT_FALSE(back.ReadErrorFlag) << length << back.ReadErrorLog;
        const auto labels = DecodeLabelBlock(back.Pois.at(0).LabelBytes);
        EXPECT_EQ(labels && !labels->empty() && labels->front().Text.size() == length, kept) << length;
    }
}

}  // namespace
}  // namespace mirvane
