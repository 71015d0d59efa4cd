// Damaged and odd files: the reader logs what it cannot read, goes on, and
// never reads outside the file.
#include <gtest/gtest.h>

#include "document/binary_reader.h"
#include "document/binary_writer.h"
#include "document/encoding.h"
#include "document/presentation.h"
#include "document/record_writer.h"
#include "support/sample_document.h"

using namespace mirvane;

namespace {

Bytes SampleFile(SampleOptions options = {}) {
    Document doc = MakeSampleDocument(options);
    Bytes out;
    EXPECT_FALSE(BuildBinaryTyp(doc, out, {2024, 1, 1, 0, 0, 0}).has_value());
    return out;
}

Document Read(const Bytes& file) {
    Document doc;
    ReadBinaryTyp(doc, file, "damaged.typ");
    return doc;
}

std::size_t Count(const std::string& text, const std::string& what) {
    std::size_t n = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
    return n;
}

// The record as if read from a file holding `raw` for it: the writer stores
// those bytes as they stand.
void GiveRawBytes(PolygonRecord& record, Bytes raw) { record.Source = {std::move(raw), EncodePolygonRecord(record)}; }
void GiveRawBytes(PoiRecord& record, Bytes raw) { record.Source = {std::move(raw), EncodePoiRecord(record)}; }

void PutU16(Bytes& b, std::size_t at, int v) {
    b[at] = static_cast<std::uint8_t>(v & 0xFF);
    b[at + 1] = static_cast<std::uint8_t>((v >> 8) & 0xFF);
}

}  // namespace

TEST(DamagedInput, TruncationAtEveryOffsetIsLoggedNeverFatal) {
    const Bytes whole = SampleFile({4, 4, 4, 4, true});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const Bytes cut(whole.begin(), whole.begin() + static_cast<long>(length));
        const Document doc = Read(cut);
        EXPECT_TRUE(doc.ReadErrorFlag) << "cut at " << length;
        EXPECT_FALSE(doc.ReadErrorLog.empty()) << "cut at " << length;
        EXPECT_EQ(doc.FileLengthText, std::to_string(length));
    }
}

TEST(DamagedInput, WrongSignatureIsReportedAndReadingGoesOn) {
    Bytes file = SampleFile();
    file[2] = 'X';
    const Document doc = Read(file);
    EXPECT_NE(doc.ReadErrorLog.find(std::string(150, '-') + "\r\n" +
                                    "Le fichier semble être corrompu ou ne pas être un fichier TYP valide"),
              std::string::npos);
    EXPECT_EQ(doc.PolygonCount(), 12);
    EXPECT_EQ(doc.PoiCount(), 16);
}

// Older editors wrote layouts 2 and 4: they read by the same rule as the
// others, and are saved as 6 and 0, the same picture.
TEST(DamagedInput, ColourLayoutsTwoAndFourAreReadAndSavedAsKnownOnes) {
    Document source = MakeSampleDocument({2, 0, 0, 16, false});
    GiveRawBytes(source.Polygons[0], {0x02, 1, 2, 3});
    GiveRawBytes(source.Polygons[1], {0x04 | 0x10, 1, 2, 3, 4, 5, 6, 0x07, 0x04, 'A', 0});
    Bytes file;
    ASSERT_FALSE(BuildBinaryTyp(source, file, {}).has_value());
    Document doc = Read(file);
    EXPECT_FALSE(doc.ReadErrorFlag) << doc.ReadErrorLog;
    ASSERT_EQ(doc.PolygonCount(), 2);
    EXPECT_EQ(doc.Polygons[0].ColourBytes, (Bytes{1, 2, 3}));
    EXPECT_EQ(doc.Polygons[1].LabelBytes, (Bytes{0x07, 0x04, 'A', 0}));
    ASSERT_FALSE(BuildBinaryTyp(doc, file, {}).has_value());
    const Document saved = Read(file);
    EXPECT_FALSE(saved.ReadErrorFlag) << saved.ReadErrorLog;
    EXPECT_EQ(saved.Polygons[0].Flags, 0x06);
    EXPECT_EQ(saved.Polygons[1].Flags, 0x10);
    EXPECT_EQ(saved.Polygons[1].ColourBytes, doc.Polygons[1].ColourBytes);
}

// An extended label byte above 0x1F counts as its own length and runs into
// the next record: saved unchanged, the record keeps its own bytes and the
// next one is not duplicated into it.
TEST(DamagedInput, OddRecordIsWrittenBackWithItsOwnBytes) {
    Document source = MakeSampleDocument({2, 0, 2, 16, false});
    const Bytes odd{0x26, 1, 2, 3, 0x28};
    GiveRawBytes(source.Polygons[0], odd);
    Bytes file;
    ASSERT_FALSE(BuildBinaryTyp(source, file, {}).has_value());
    Document doc = Read(file);
    ASSERT_FALSE(BuildBinaryTyp(doc, file, {}).has_value());
    const Document again = Read(file);
    EXPECT_EQ(again.ReadErrorLog, doc.ReadErrorLog);
    const auto start = file.begin() + again.Header.PolygonDataOffset;
    EXPECT_EQ(Bytes(start, start + 5), odd);
    EXPECT_EQ(again.Polygons[1].ColourBytes, source.Polygons[1].ColourBytes);
}

TEST(DamagedInput, PaletteBitmapDeclaringNoColoursIsReadAgainWithPalette) {
    Document source = MakeSampleDocument({0, 0, 2, 16, false});
    // POI 0 declares 0 colours but holds 1-bit palette pixels; POI 1 follows it.
    PoiRecord& odd = source.Pois[0];
    odd.Flags = 0x01;
    odd.Width = odd.Height = 4;  // 48 bytes as true colour, 4 with a palette: the next POI lies in reach
    odd.Bitmaps[0] = PoiBitmap{};
    odd.Bitmaps[0].PixelBytes = Bytes(PalettePixelByteLength(4, 4, 1), 0xA5);
    GiveRawBytes(odd, {0x01, 4, 4, 0, 0, 0xA5, 0xA5, 0xA5, 0xA5});
    Bytes file;
    ASSERT_FALSE(BuildBinaryTyp(source, file, {}).has_value());
    const Document doc = Read(file);
    EXPECT_EQ(Count(doc.ReadErrorLog, "est invalide."), 1u) << doc.ReadErrorLog;
    EXPECT_EQ(Count(doc.ReadErrorLog, "Erreur dans la longueur du POI"), 0u) << doc.ReadErrorLog;
    ASSERT_EQ(doc.PoiCount(), 2);
    EXPECT_TRUE(doc.Pois[0].Bitmaps[0].ForcePalette);
    EXPECT_EQ(doc.Pois[0].Bitmaps[0].PixelBytes, odd.Bitmaps[0].PixelBytes);
    EXPECT_EQ(doc.Pois[1].Bitmaps[0].PixelBytes, source.Pois[1].Bitmaps[0].PixelBytes);

    // Written back as it was read: palette-coded pixels behind a count of 0.
    Document again = doc;
    Bytes rewritten;
    ASSERT_FALSE(BuildBinaryTyp(again, rewritten, {}).has_value());
    EXPECT_EQ(Read(rewritten).Pois[0].Bitmaps[0].PixelBytes, odd.Bitmaps[0].PixelBytes);
}

TEST(DamagedInput, LastPoiThatRunsOutOfFileIsRetriedSilently) {
    Document source = MakeSampleDocument({0, 0, 1, 8, false});
    PoiRecord& poi = source.Pois[0];
    poi.Flags = 0x01;
    poi.Bitmaps[0] = PoiBitmap{};
    poi.Bitmaps[0].PixelBytes = Bytes(PalettePixelByteLength(8, 8, 1), 0x0F);
    Bytes raw{0x01, 8, 8, 0, 0};
    raw.insert(raw.end(), poi.Bitmaps[0].PixelBytes.begin(), poi.Bitmaps[0].PixelBytes.end());
    GiveRawBytes(poi, raw);
    source.DrawOrder.clear();
    Bytes file;
    ASSERT_FALSE(BuildBinaryTyp(source, file, {}).has_value());
    // The index row is all that follows the record: a true colour read runs past the end.
    const Document doc = Read(file);
    EXPECT_TRUE(doc.Pois[0].Bitmaps[0].ForcePalette);
    EXPECT_EQ(doc.Pois[0].Bitmaps[0].PixelBytes, source.Pois[0].Bitmaps[0].PixelBytes);
}

TEST(DamagedInput, HeaderDatesAndUnknownSizes) {
    Bytes file = SampleFile();
    PutU16(file, 0x0E, 105);
    file[0x10] = 13;
    Document doc = Read(file);
    EXPECT_EQ(DateCreationCaption(doc.Header), "    01/12/2005     00:00:00");

    file = SampleFile();
    PutU16(file, 0, 168);  // unknown to the combo, yet reads the eight unknown bytes
    doc = Read(file);
    EXPECT_EQ(doc.Identity.HeaderSize, 168);
}

TEST(DamagedInput, IndexBeyondTheFileAndAbsurdSizesStayBounded) {
    Bytes file = SampleFile();
    PutU16(file, 0x4B, 0);                               // polygon index record size 0
    file[0x3D] = 0xFF; file[0x3E] = 0xFF; file[0x3F] = 0xFF; file[0x40] = 0x7F;  // polyline index far away
    file[0x57] = 0xFF; file[0x58] = 0xFF;               // draw order length 65535
    PutU16(file, 0x37, 0xFFFF);                         // POI rows of 65535 bytes...
    file[0x39] = 0xFF; file[0x3A] = 0xFF; file[0x3B] = 0xFF; file[0x3C] = 0x7F;  // ...32767 of them
    const Document doc = Read(file);
    EXPECT_EQ(doc.PolygonCount(), 0);
    EXPECT_NE(doc.ReadErrorLog.find("erreur n°11"), std::string::npos);
    EXPECT_TRUE(doc.ReadErrorFlag);
}

TEST(DamagedInput, TwoSeparatorsInARowGiveATypeZeroEntry) {
    Document source = MakeSampleDocument({0, 0, 0, 16, false});
    source.DrawOrder = {{1, 3, 0}};
    Bytes file;
    ASSERT_FALSE(BuildBinaryTyp(source, file, {}).has_value());
    // Append two separators and an entry to the draw order section at the end of the file.
    const Bytes extra = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x05, 0, 0, 0, 0};
    file.insert(file.end(), extra.begin(), extra.end());
    PutU16(file, 0x57, 5 + static_cast<int>(extra.size()));
    const Document doc = Read(file);
    EXPECT_EQ(doc.DrawOrder, (std::vector<DrawOrderEntry>{{1, 3, 0}, {2, 0, 0}, {2, 5, 0}}));
}
