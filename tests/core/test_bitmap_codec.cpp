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
        for (int colours : {1, 2, 3, 15, 16, 17, 255}) {
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

TEST(BitmapCodec, IndicesFillBytesFromTheirLowestBits) {
    // Width 5 with 4 bits: six pixels a row, the last one padding.
    IndexGrid indices(5, 2);
    indices.Set({0, 0}, 1);
    indices.Set({1, 0}, 2);
    indices.Set({4, 1}, 15);
    EXPECT_EQ(EncodeIndices(indices, 5, 2, 4), (Bytes{0x21, 0, 0, 0, 0, 0x0F}));
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

    // A POI of no size has no pixels to lack.
    EXPECT_EQ(DecodeBitmap(PaletteBitmap(2, 16, 0, 0), 0, 0).Status, DecodeStatus::Ok);
}

}  // namespace
}  // namespace mirvane
