// Damaged and odd files: the reader logs what it cannot read, goes on, and
// never reads outside the file.
#include <gtest/gtest.h>

#include "document/encoding.h"
#include "document/record_writer.h"
#include "record_compare.h"
#include "support/sample_document.h"

using namespace mirvane;
using namespace mirvane::testing;

namespace {

Bytes SampleFile(SampleOptions options = {}) {
    Document doc = MakeSampleDocument(options);
    return BuiltTyp(doc, {2024, 1, 1, 0, 0, 0});
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

void PutU32(Bytes& b, std::size_t at, std::uint32_t v) {
    for (int i = 0; i < 4; ++i) b[at + i] = static_cast<std::uint8_t>(v >> (8 * i));
}

// A POI that declares no colours yet holds 1-bit palette pixels after its
// five head bytes, as older editors wrote.
void GivePalettePixelsWithoutColours(PoiRecord& poi, std::uint8_t size, std::uint8_t pixel) {
    poi.Flags = 0x01;
    poi.Width = poi.Height = size;
    poi.Bitmaps[0] = PoiBitmap{};
    poi.Bitmaps[0].PixelBytes = Bytes(PalettePixelByteLength(size, size, 1), pixel);
    Bytes raw{0x01, size, size, 0, 0};
    raw.resize(raw.size() + poi.Bitmaps[0].PixelBytes.size(), pixel);
    GiveRawBytes(poi, raw);
}

}  // namespace

TEST(DamagedInput, TruncationAtEveryOffsetIsLoggedNeverFatal) {
    const Bytes whole = SampleFile({4, 4, 4, 4, true});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const Document doc = ReadTyp(Bytes(whole.begin(), whole.begin() + static_cast<long>(length)));
        EXPECT_TRUE(doc.ReadErrorFlag) << "cut at " << length;
        EXPECT_FALSE(doc.ReadErrorLog.empty()) << "cut at " << length;
        EXPECT_EQ(doc.FileLengthText, std::to_string(length));
    }
}

TEST(DamagedInput, WrongSignatureIsReportedAndReadingGoesOn) {
    Bytes file = SampleFile();
    file[2] = 'X';
    const Document doc = ReadTyp(file);
    EXPECT_NE(doc.ReadErrorLog.find("pas être un fichier TYP valide"), std::string::npos);
    EXPECT_EQ(doc.PolygonCount(), 12);
    EXPECT_EQ(doc.PoiCount(), 16);
}

// Older editors wrote layouts 2 and 4: they read by the same rule as the
// others, and are saved as 6 and 0, the same picture.
TEST(DamagedInput, ColourLayoutsTwoAndFourAreReadAndSavedAsKnownOnes) {
    Document source = MakeSampleDocument({2, 0, 0, 16, false});
    GiveRawBytes(source.Polygons[0], {0x02, 1, 2, 3});
    GiveRawBytes(source.Polygons[1], {0x04 | 0x10, 1, 2, 3, 4, 5, 6, 0x07, 0x04, 'A', 0});
    Document doc = ReadTyp(BuiltTyp(source));
    EXPECT_FALSE(doc.ReadErrorFlag) << doc.ReadErrorLog;
    ASSERT_EQ(doc.PolygonCount(), 2);
    EXPECT_EQ(doc.Polygons[0].ColourBytes, (Bytes{1, 2, 3}));
    EXPECT_EQ(doc.Polygons[1].LabelBytes, (Bytes{0x07, 0x04, 'A', 0}));
    const Document saved = ReadTyp(BuiltTyp(doc));
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
    Document doc = ReadTyp(BuiltTyp(source));
    const Bytes file = BuiltTyp(doc);
    const Document again = ReadTyp(file);
    EXPECT_EQ(again.ReadErrorLog, doc.ReadErrorLog);
    const auto start = file.begin() + again.Header.PolygonDataOffset;
    EXPECT_EQ(Bytes(start, start + 5), odd);
    EXPECT_EQ(again.Polygons[1].ColourBytes, source.Polygons[1].ColourBytes);
}

TEST(DamagedInput, PaletteBitmapDeclaringNoColoursIsReadAgainWithPalette) {
    Document source = MakeSampleDocument({0, 0, 2, 16, false});
    // 48 bytes as true colour, 4 with a palette: the next POI lies in reach.
    GivePalettePixelsWithoutColours(source.Pois[0], 4, 0xA5);
    Document doc = ReadTyp(BuiltTyp(source));
    EXPECT_EQ(Count(doc.ReadErrorLog, "est invalide."), 1u) << doc.ReadErrorLog;
    EXPECT_EQ(Count(doc.ReadErrorLog, "Erreur dans la longueur du POI"), 0u) << doc.ReadErrorLog;
    ASSERT_EQ(doc.PoiCount(), 2);
    EXPECT_TRUE(doc.Pois[0].Bitmaps[0].ForcePalette);
    EXPECT_EQ(doc.Pois[0].Bitmaps[0].PixelBytes, source.Pois[0].Bitmaps[0].PixelBytes);
    EXPECT_EQ(doc.Pois[1].Bitmaps[0].PixelBytes, source.Pois[1].Bitmaps[0].PixelBytes);
    // Written back as it was read: palette-coded pixels behind a count of 0.
    EXPECT_EQ(ReadTyp(BuiltTyp(doc)).Pois[0].Bitmaps[0].PixelBytes, source.Pois[0].Bitmaps[0].PixelBytes);
}

TEST(DamagedInput, LastPoiThatRunsOutOfFileIsRetriedSilently) {
    Document source = MakeSampleDocument({0, 0, 1, 8, false});
    GivePalettePixelsWithoutColours(source.Pois[0], 8, 0x0F);
    source.DrawOrder.clear();
    // The index row is all that follows the record: a true colour read runs past the end.
    const Document doc = ReadTyp(BuiltTyp(source));
    EXPECT_TRUE(doc.Pois[0].Bitmaps[0].ForcePalette);
    EXPECT_EQ(doc.Pois[0].Bitmaps[0].PixelBytes, source.Pois[0].Bitmaps[0].PixelBytes);
}

TEST(DamagedInput, UnknownHeaderSizeIsKept) {
    Bytes file = SampleFile();
    PutU16(file, 0, 168);  // unknown to the combo, yet reads the eight unknown bytes
    EXPECT_EQ(ReadTyp(file).Identity.HeaderSize, 168);
}

TEST(DamagedInput, IndexBeyondTheFileAndAbsurdSizesStayBounded) {
    Bytes file = SampleFile();
    PutU16(file, 0x4B, 0);               // polygon index record size 0
    PutU32(file, 0x3D, 0x7FFFFFFF);      // polyline index far away
    PutU16(file, 0x57, 0xFFFF);          // draw order length 65535
    PutU16(file, 0x37, 0xFFFF);          // POI rows of 65535 bytes...
    PutU32(file, 0x39, 0x7FFFFFFF);      // ...32767 of them
    const Document doc = ReadTyp(file);
    EXPECT_EQ(doc.PolygonCount(), 0);
    EXPECT_NE(doc.ReadErrorLog.find("erreur n°11"), std::string::npos);
    EXPECT_TRUE(doc.ReadErrorFlag);
}

TEST(DamagedInput, TwoSeparatorsInARowGiveATypeZeroEntry) {
    Document source = MakeSampleDocument({0, 0, 0, 16, false});
    source.DrawOrder = {{1, 3, 0}};
    Bytes file = BuiltTyp(source);
    // Append two separators and an entry to the draw order section at the end of the file.
    const Bytes extra = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x05, 0, 0, 0, 0};
    file.insert(file.end(), extra.begin(), extra.end());
    PutU16(file, 0x57, 5 + static_cast<int>(extra.size()));
    EXPECT_EQ(ReadTyp(file).DrawOrder, (std::vector<DrawOrderEntry>{{1, 3, 0}, {2, 0, 0}, {2, 5, 0}}));
}
