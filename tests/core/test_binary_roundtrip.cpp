// Documents built in code go through the writer and the reader and come
// back with the same bytes in every record.
#include <gtest/gtest.h>

#include <fstream>

#include "document/encoding.h"
#include "document/extra_sections.h"
#include "document/sorts.h"
#include "record_compare.h"
#include "support/sample_document.h"
#include "temp_folder.h"

using namespace mirvane;
using namespace mirvane::testing;

namespace {

const SaveTime kTime{2024, 3, 4, 5, 6, 7};

Bytes Build(Document& doc) { return BuiltTyp(doc, kTime); }

std::uint32_t U32At(const Bytes& b, std::size_t at) {
    return b[at] | (b[at + 1] << 8) | (b[at + 2] << 16) | (static_cast<std::uint32_t>(b[at + 3]) << 24);
}

}  // namespace

class HeaderSizes : public ::testing::TestWithParam<int> {};

// With a comment in the gap after the header, which moves every section.
TEST_P(HeaderSizes, SampleDocumentRoundTripsWithEveryEncoding) {
    Document doc = MakeSampleDocument({3 * kPolygonVariants, 3 * kPolylineVariants, 3 * kPoiVariants});
    doc.Identity.HeaderSize = GetParam();
    const std::string comment = "Made by the sample\r\nsecond line";
    doc.HeaderGapBytes.assign(comment.begin(), comment.end());
    const Bytes file = Build(doc);
    EXPECT_EQ(U32At(file, 0x27), GetParam() + comment.size());  // polygon data right after the gap
    const Document back = ReadTyp(file);
    EXPECT_FALSE(back.ReadErrorFlag) << back.ReadErrorLog;
    EXPECT_EQ(back.Header.HeaderSize, GetParam());
    EXPECT_EQ(back.Identity, doc.Identity);
    EXPECT_EQ(back.Header.Year, 2024);
    ExpectSameDocumentContent(doc, back);
}

INSTANTIATE_TEST_SUITE_P(Binary, HeaderSizes, ::testing::Values(91, 156, 174));

TEST(BinaryRoundTrip, RoutingIndexWaitsForAHeaderThatHadIt) {
    Document doc = MakeSampleDocument();
    PolylineRecord routed = MakeSamplePolyline(40, 1);
    routed.ExtraIndexBytes = {0x12, 0x34};
    doc.Polylines.push_back(routed);
    doc.ExtraPolylineCount = 1;
    doc.Header.HeaderSize = 156;
    doc.Identity.HeaderSize = 174;
    EXPECT_EQ(ReadTyp(Build(doc)).ExtraPolylineCount, 0);  // held header was 156 while polylines were written
    EXPECT_EQ(doc.Header.HeaderSize, 174);
    const Document second = ReadTyp(Build(doc));  // the next save writes it, keys and all
    EXPECT_FALSE(second.ReadErrorFlag) << second.ReadErrorLog;
    EXPECT_EQ(second.Extra4.ExtraPolylineIndexRecordSize, second.Header.PolylineIndexRecordSize + 2);
    ExpectSamePolylines(doc, second);
}

TEST(BinaryRoundTrip, AdditionalSectionsMoveWholeAndDropBelowTheirHeader) {
    Document doc = MakeSampleDocument();
    doc.Identity.HeaderSize = 156;
    doc.ExtraPoiDataBytes = {2, 7, 1, 2, 3, 4, 5};
    doc.ExtraPoiIndexBytes = {0x20, 0x00, 0, 0, 0};
    doc.ExtraPoiCount = 1;
    doc.Extra1.ExtraPoiIndexRecordSize = 5;
    doc.LabelTextBytes = {'a', 0, 'b', 'c', 0};
    doc.LabelTable1Bytes = {1, 2, 3, 4};
    doc.LabelTable2Bytes = {9, 9};
    doc.Extra2.LabelTable1RecordSize = 2;
    doc.Extra2.LabelTable2RecordSize = 1;
    doc.Extra2.LabelTable2Length = 2;
    doc.LabelCount = 2;
    const Document back = ReadTyp(Build(doc));
    EXPECT_FALSE(back.ReadErrorFlag) << back.ReadErrorLog;
    EXPECT_EQ(back.ExtraPoiCount, 1);
    EXPECT_EQ(back.LabelCount, 2);
    ExpectSameDocumentContent(doc, back);
    EXPECT_EQ(back.ExtraPois.size(), 1u);

    doc.Identity.HeaderSize = 91;
    const Document small = ReadTyp(Build(doc));
    EXPECT_TRUE(small.ExtraPoiDataBytes.empty());
    EXPECT_TRUE(small.LabelTextBytes.empty());
    EXPECT_FALSE(doc.LabelTextBytes.empty());  // still in memory
}

TEST(BinaryRoundTrip, DrawOrderLevelsAndMasks) {
    Document doc = MakeSampleDocument({0, 0, 0, 16, false});
    doc.DrawOrder = {{3, 0x10f, 0}, {1, 3, 0}, {1, 3, 0}, {3, 0x10f, 4}, {9, 0x20, 0}, {5, 4, 0}};
    const Bytes file = Build(doc);
    const std::uint32_t offset = U32At(file, 0x51);
    const Bytes expected = {0x03, 0, 0, 0, 0,  // level 1: type 3 once, duplicates gathered
                            0,    0, 0, 0, 0, 0x0F, 0x11, 0, 0, 0,  // level 3: 0x10f subtypes 0 and 4
                            0,    0, 0, 0, 0, 0x04, 0, 0, 0, 0,     // level 5
                            0,    0, 0, 0, 0, 0x20, 0, 0, 0, 0};    // level 9
    ASSERT_EQ(U32At(file, 0x57), expected.size());
    EXPECT_EQ(Bytes(file.begin() + offset, file.begin() + offset + expected.size()), expected);
    EXPECT_EQ(ReadTyp(file).DrawOrder,
              (std::vector<DrawOrderEntry>{{1, 3, 0}, {2, 0x10f, 0}, {2, 0x10f, 4}, {3, 4, 0}, {4, 0x20, 0}}));
}

TEST(BinaryRoundTrip, TypesThatOverflowTheKeyFailTheSaveAndKeepTheOldFile) {
    Document doc = MakeSampleDocument();
    TempFolder folder;
    const auto path = folder.Path() / "overflow.typ";
    { std::ofstream(path, std::ios::binary) << "previous"; }
    doc.Polygons[0].Type = "400";
    const auto failure = SaveBinaryTyp(doc, path.string(), kTime);
    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(failure->ErrorNumber, 6);
    std::ifstream in(path, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "previous");
}

TEST(BinaryRoundTrip, MissingIdentityStopsTheSaveWithItsMessage) {
    Document doc = MakeSampleDocument();
    Bytes out;
    const auto failureText = [&] {
        const auto failure = BuildBinaryTyp(doc, out, kTime);
        return failure ? failure->Title + "|" + failure->Description : "";
    };
    doc.Identity.Fid.reset();
    EXPECT_EQ(failureText(), "FID absent|Il faut indiquer le FID.");
    doc.Identity.Fid = 65535;
    doc.Identity.ProductCode.reset();
    EXPECT_EQ(failureText(), "Product Code absent|Il faut indiquer le Product Code.");
    // Values above 32767 fill the sign bit of the header field and still come back whole.
    doc.Identity.ProductCode = 32768;
    EXPECT_EQ(failureText(), "");
    EXPECT_EQ(ReadTyp(out).Identity.Fid, 65535);
    EXPECT_EQ(ReadTyp(out).Identity.ProductCode, 32768);
}

// Whatever an editor or a text left in a record, the file written reads back
// with an empty log and keeps what the record holds.
TEST(BinaryRoundTrip, RecordsThatPromiseMoreThanTheyHoldAreWrittenReadable) {
    using Check = bool (*)(const Document& before, const Document& back);
    const std::vector<std::pair<void (*)(Document&), Check>> cases = {
        {[](Document& d) {  // a true colour night bitmap without bit 0
             d.Pois[0].Flags = 0x02, d.Pois[0].Bitmaps[1] = PoiBitmap{};
             d.Pois[0].Bitmaps[1].PixelBytes = Bytes(4 * 4 * 3, 0x55);
         },
         [](const Document& a, const Document& b) { return b.Pois[0].Bitmaps[1].PixelBytes == a.Pois[0].Bitmaps[1].PixelBytes; }},
        {[](Document& d) { d.Polygons[0].Flags = 0x09, d.Polygons[0].ColourBytes.resize(6); },  // four colours declared
         [](const Document&, const Document& b) { return b.Polygons[0].ColourBytes.size() == 12u; }},
        {[](Document& d) { d.Polygons[0].Flags |= 0x30, d.Polygons[0].LabelBytes.clear(), d.Polygons[0].ExtendedLabelBytes.clear(); },
         [](const Document&, const Document& b) { return (b.Polygons[0].Flags & 0x30) == 0; }},
        {[](Document& d) { d.Polylines[0].Flags1 = 0x1E, d.Polylines[0].PatternBytes.resize(4); },  // three rows declared
         [](const Document&, const Document& b) { return b.Polylines[0].PatternBytes.size() == 12u; }},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        Document doc = MakeSampleDocument({1, 1, 1, 4, false});
        cases[i].first(doc);
        const Document back = ReadTyp(Build(doc));
        EXPECT_FALSE(back.ReadErrorFlag) << back.ReadErrorLog;
        EXPECT_TRUE(cases[i].second(doc, back));
    }
}

TEST(AdditionalLabels, BrowserShowsTablesInHexAndTheStrings) {
    Document doc;
    doc.LabelTextBytes = {'G', 'a', 's', 0, 'B', 0xE4, 'r', 0};
    doc.Extra2.LabelTextLength = 8;
    doc.LabelTable1Bytes = {0x01, 0xAB, 0x02, 0x0C};
    doc.Extra2.LabelTable1RecordSize = 2;
    doc.LabelTable2Bytes = {0x7F};
    doc.Extra2.LabelTable2RecordSize = 1;
    const LabelsBrowserContent content = LabelsBrowserText(doc);
    EXPECT_EQ(content.RowCount, 2);
    EXPECT_EQ(content.Text, "\r\n 01 AB\t 7F\t\tGas\r\n 02 0C\t\t\tB\xE4r");
}

TEST(HeaderExtensions, SizeOf164LosesTheUnknownBytesAndKeepsLabels) {
    Document doc = MakeSampleDocument();
    doc.Identity.HeaderSize = 174;
    Bytes file = Build(doc);
    for (int i = 156; i < 164; ++i) file[i] = 0xEE;
    EXPECT_EQ(ReadTyp(file).Extra3.Raw[0], 0xEE);
    file[0] = 164;
    Document read = ReadTyp(file);
    EXPECT_EQ(read.Identity.HeaderSize, 164);
    EXPECT_EQ(read.Extra3.Raw[0], 0);  // a header of exactly 164 leaves them unread
    const Bytes saved = Build(read);
    EXPECT_EQ(saved[156], 0);
    EXPECT_EQ(saved[0], 164);
}
