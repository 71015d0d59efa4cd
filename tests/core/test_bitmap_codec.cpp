// POI bitmaps: every colour mode, palette size and row padding comes back
// byte for byte; pixels show the colours and transparency their mode gives;
// a bitmap cut short says what it lacks.
#include <gtest/gtest.h>

#include "document/bitmap_codec.h"
#include "document/encoding.h"
#include "record_compare.h"

namespace mirvane {
namespace {

// Bytes that differ from one to the next, so that a shifted bit shows.
Bytes Varied(std::size_t count, int seed) {
    Bytes bytes(count);
    for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<std::uint8_t>(i * 89 + seed * 31 + 7);
    return bytes;
}

// An odd number of 28-bit entries ends in half a byte of padding, which is
// written as 0 (real files have it so).
void ClearAlphaStreamPadding(Bytes& bytes, std::uint8_t mode, int entries) {
    if (mode == 32 && entries % 2 == 1) bytes.back() &= 0x0F;
}

PoiBitmap PaletteBitmap(int colours, std::uint8_t mode, int width, int height) {
    PoiBitmap bitmap;
    bitmap.ColourCount = static_cast<std::uint8_t>(colours);
    bitmap.ColourMode = mode;
    bitmap.PaletteBytes = Varied(static_cast<std::size_t>(PaletteByteLength(colours, mode)), colours);
    ClearAlphaStreamPadding(bitmap.PaletteBytes, mode, colours);
    const int bits = *BitsPerPixel(mode, colours);
    bitmap.PixelBytes = Varied(static_cast<std::size_t>(PalettePixelByteLength(width, height, bits)), width);
    return bitmap;
}

PoiBitmap TrueColourBitmap(std::uint8_t mode, int width, int height) {
    PoiBitmap bitmap;
    bitmap.ColourMode = mode;
    bitmap.PixelBytes = Varied(static_cast<std::size_t>(*TrueColourPixelByteLength(width, height, mode)), mode);
    ClearAlphaStreamPadding(bitmap.PixelBytes, mode, width * height);
    return bitmap;
}

using testing::ExpectSameBitmap;

TEST(BitmapCodec, PaletteBitmapsComeBackByteForByteWithTheirRowPadding) {
    // Counts give 1, 2, 4 and 8 bits a pixel; odd widths pad every row, and
    // the padding bits of the varied bytes are not zero.
    for (std::uint8_t mode : {0, 16, 32}) {
        for (int colours : {1, 2, 3, 14, 15, 16, 17, 255}) {
            for (int width : {1, 5, 8, 33}) {
                SCOPED_TRACE(::testing::Message() << "mode " << int(mode) << ", " << colours << " colours, width "
                                                << width);
                const PoiBitmap bitmap = PaletteBitmap(colours, mode, width, 3);
                const DecodedBitmap decoded = DecodeBitmap(bitmap, width, 3);
                EXPECT_EQ(decoded.Status, DecodeStatus::Ok);
                EXPECT_EQ(decoded.Indices.Width(), PaddedRowWidth(width, *BitsPerPixel(mode, colours)));
                ExpectSameBitmap(EncodeBitmap(decoded, width, 3), bitmap);
            }
        }
    }
}

TEST(BitmapCodec, TrueColourBitmapsComeBackByteForByte) {
    for (std::uint8_t mode : {0, 16, 32}) {
        for (auto [width, height] : {std::pair{1, 1}, {3, 1}, {5, 7}, {64, 64}}) {
            SCOPED_TRACE(::testing::Message() << "mode " << int(mode) << ", " << width << " by " << height);
            const PoiBitmap bitmap = TrueColourBitmap(mode, width, height);
            const DecodedBitmap decoded = DecodeBitmap(bitmap, width, height);
            EXPECT_EQ(decoded.Status, DecodeStatus::Ok);
            EXPECT_TRUE(decoded.IsTrueColour());
            ExpectSameBitmap(EncodeBitmap(decoded, width, height), bitmap);
        }
    }
}

TEST(BitmapCodec, PoisWithNightBitmapsComeBackByteForByte) {
    PoiRecord record;
    record.Flags = 0x0B;  // own pixels, night block, extended labels
    record.Width = 5;
    record.Height = 2;
    record.Bitmaps[0] = PaletteBitmap(3, 16, 5, 2);
    record.Bitmaps[1] = TrueColourBitmap(32, 5, 2);
    const DecodedPoi poi = DecodePoi(record);
    ASSERT_TRUE(poi.Night.has_value());
    EXPECT_EQ(poi.Status(), DecodeStatus::Ok);

    PoiRecord rebuilt;
    rebuilt.Flags = 0x09;
    EncodePoi(poi, rebuilt);
    testing::ExpectSamePoi(rebuilt, record);

    // Without bit 1 there is no night bitmap to decode, whatever the slot holds.
    record.Flags = 0x01;
    EXPECT_FALSE(DecodePoi(record).Night.has_value());
}

TEST(BitmapCodec, IndicesFillBytesFromTheirLowestBits) {
    // Width 5 with 4 bits: six pixels a row, the last one padding.
    IndexGrid indices(5, 2);
    indices.Set({0, 0}, 1);
    indices.Set({1, 0}, 2);
    indices.Set({4, 1}, 15);
    EXPECT_EQ(EncodeIndices(indices, 5, 2, 4), (Bytes{0x21, 0, 0, 0, 0, 0x0F}));
    // Width 5 with 1 bit: eight pixels a row.
    IndexGrid bits(5, 1, 1);
    EXPECT_EQ(EncodeIndices(bits, 5, 1, 1), Bytes{0x1F});
}

TEST(BitmapCodec, PixelsPastThePaletteOrOfFullAlphaAreTransparent) {
    // 15 colours: 4 bits in mode 0 with index 15 transparent, 8 bits in mode 16.
    EXPECT_EQ(BitsPerPixel(0, 15), 4);
    EXPECT_EQ(BitsPerPixel(16, 15), 8);
    DecodedBitmap bitmap;
    bitmap.ColourMode = 32;
    bitmap.Palette = {{0x0000FF, 14}, {0x00FF00, 15}};
    bitmap.Indices = IndexGrid(3, 1);
    bitmap.Indices.Set({1, 0}, 1);
    bitmap.Indices.Set({2, 0}, 2);
    EXPECT_EQ(bitmap.PixelColour({0, 0}), 0x0000FFu);
    EXPECT_FALSE(bitmap.PixelColour({1, 0}));  // alpha 15
    EXPECT_FALSE(bitmap.PixelColour({2, 0}));  // the index one past the palette
    EXPECT_FALSE(bitmap.PixelColour({3, 0}));  // outside the bitmap
}

TEST(BitmapCodec, ForcedPaletteWithoutColoursIsTransparentOnly) {
    PoiBitmap bitmap;
    bitmap.ForcePalette = true;
    bitmap.ColourMode = 16;
    bitmap.PixelBytes = {0x00, 0x00};
    const DecodedBitmap decoded = DecodeBitmap(bitmap, 9, 1);
    EXPECT_EQ(decoded.Status, DecodeStatus::Ok);
    EXPECT_FALSE(decoded.IsTrueColour());
    EXPECT_FALSE(decoded.PixelColour({8, 0}));
    ExpectSameBitmap(EncodeBitmap(decoded, 9, 1), bitmap);
}

TEST(BitmapCodec, BitmapsCutShortSayWhatTheyLack) {
    PoiBitmap shortPixels = PaletteBitmap(4, 0, 4, 4);
    shortPixels.PixelBytes.resize(3);
    const DecodedBitmap cut = DecodeBitmap(shortPixels, 4, 4);
    EXPECT_EQ(cut.Status, DecodeStatus::MissingPixels);
    EXPECT_EQ(cut.Indices.At({0, 3}), 0);  // past the bytes

    PoiBitmap shortPalette = PaletteBitmap(4, 32, 1, 1);
    shortPalette.PaletteBytes.pop_back();
    EXPECT_EQ(DecodeBitmap(shortPalette, 1, 1).Status, DecodeStatus::MissingColours);

    PoiBitmap shortTrueColour = TrueColourBitmap(16, 2, 2);
    shortTrueColour.PixelBytes.resize(12);  // the key colour and three pixels
    EXPECT_EQ(DecodeBitmap(shortTrueColour, 2, 2).Status, DecodeStatus::MissingPixels);

    PoiBitmap unknownMode = PaletteBitmap(2, 16, 2, 2);
    unknownMode.ColourMode = 8;
    const DecodedBitmap unknown = DecodeBitmap(unknownMode, 2, 2);
    EXPECT_EQ(unknown.Status, DecodeStatus::UnknownColourMode);
    EXPECT_TRUE(unknown.Indices.Empty());

    // A POI of no size has no pixels to lack.
    EXPECT_EQ(DecodeBitmap(PaletteBitmap(2, 16, 0, 0), 0, 0).Status, DecodeStatus::Ok);
}

}  // namespace
}  // namespace mirvane
