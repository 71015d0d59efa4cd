#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "colour/bitmap_import.h"

using namespace mirvane;

namespace {

// Pictures are written 0xAARRGGBB here, as the decoders give them; colours of
// the bitmap 0x00BBGGRR, as the documents hold them.
constexpr std::uint32_t kOpaqueRed = 0xFFFF0000, kOpaqueWhite = 0xFFFFFFFF, kOpaqueBlack = 0xFF000000;
constexpr std::uint32_t kClear = 0x00000000;
constexpr Colour kRed = 0x0000FF, kWhite = 0xFFFFFF, kBlack = 0;

RgbaPicture Picture(int width, int height, std::initializer_list<std::uint32_t> pixels) {
    RgbaPicture picture(width, height);
    picture.Pixels.assign(pixels);
    return picture;
}

// Every pixel a colour of its own: (x, y) -> red x, green y, blue 0x40.
RgbaPicture Gradient(int width, int height) {
    RgbaPicture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) picture.SetPixel(x, y, 0xFF000040u | x << 16 | y << 8);
    return picture;
}

// Every pixel's palette index, row by row.
std::vector<int> IndicesOf(const ImportedBitmap& bitmap) {
    std::vector<int> indices;
    for (int y = 0; y < bitmap.Height; ++y)
        for (const std::uint8_t index : bitmap.Indices.Row(y)) indices.push_back(index);
    return indices;
}

std::vector<Colour> PaletteColours(const ImportedBitmap& bitmap) {
    std::vector<Colour> colours;
    for (const ImportedColour& entry : bitmap.Palette) colours.push_back(entry.Rgb);
    return colours;
}

// Each pixel's index names an entry of its own colour and alpha, or the pixel is transparent.
void ExpectIndicesMatchPixels(const ImportedBitmap& bitmap) {
    for (int y = 0; y < bitmap.Height; ++y)
        for (int x = 0; x < bitmap.Width; ++x) {
            const Cell cell{x, y};
            const std::uint8_t index = bitmap.Indices.At(cell);
            if (index == kTransparentIndex) {
                EXPECT_TRUE(bitmap.IsTransparent(cell));
                continue;
            }
            ASSERT_LT(index, bitmap.Palette.size());
            EXPECT_EQ(bitmap.Palette[index].Rgb, static_cast<Colour>(bitmap.Colours.At(cell)));
            EXPECT_EQ(bitmap.Palette[index].Alpha, bitmap.ColourMode == kModeAlpha ? bitmap.Alpha.At(cell) : kOpaque);
        }
}

}  // namespace

TEST(BitmapImportSize, LongSideComesToTheLimitAndTheOtherIsCut) {
    struct Case {
        int width, height, side;
        PictureSize expected;
    };
    const Case cases[] = {
        {25, 100, 64, {16, 64}}, {65, 65, 64, {64, 64}}, {30, 20, 64, {30, 20}},
        {1000, 5, 64, {64, 0}},  {99, 70, 64, {64, 45}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FitWithin(c.width, c.height, c.side), c.expected) << c.width << "x" << c.height;
}

TEST(BitmapImportScale, EnlargementRepeatsAndReductionAveragesTheOpaqueCoveredArea) {
    struct Case {
        const char* name;
        RgbaPicture source, scaled;
    };
    const Case cases[] = {
        {"whole enlargement", Picture(2, 1, {kOpaqueRed, 0x7F00FF00}),
         Picture(4, 2,
                 {kOpaqueRed, kOpaqueRed, 0x7F00FF00, 0x7F00FF00, kOpaqueRed, kOpaqueRed, 0x7F00FF00, 0x7F00FF00})},
        // The first new pixel covers all of pixel 0 and half of pixel 1.
        {"three to two", Picture(3, 1, {kOpaqueBlack, 0xFF0000FF, kOpaqueWhite}),
         Picture(2, 1, {0xFF000055, 0xFFAAAAFF})},
        // Transparent pixels lend no colour: half as opaque, still red.
        {"beside transparent", Picture(2, 1, {kOpaqueRed, 0x0000FF00}), Picture(1, 1, {0x80FF0000})},
        {"all transparent", RgbaPicture(2, 2, kClear), Picture(1, 1, {kClear})},
        {"nothing to scale", RgbaPicture(), RgbaPicture(3, 2, kClear)},
        {"to no size", Gradient(5, 5), RgbaPicture(0, 10)},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ScalePicture(c.source, c.scaled.Width, c.scaled.Height), c.scaled) << c.name;
}

TEST(BitmapImportPalette, DistinctColoursInAscendingOrderWithTransparentPixels) {
    const RgbaPicture picture = Picture(3, 2, {kOpaqueWhite, kOpaqueRed, kClear,  //
                                               kOpaqueRed, 0xFF0000FF, 0x04FFFFFF});
    const ImportedBitmap bitmap = ImportBitmap(picture, ImportColours::AsTheyAre);
    EXPECT_EQ(bitmap.ColourModeIndex(), 1);
    EXPECT_EQ(PaletteColours(bitmap), (std::vector<Colour>{kRed, 0xFF0000, kWhite}));
    // Nearly transparent counts as transparent: alpha 4 of 255 is step 15.
    EXPECT_EQ(IndicesOf(bitmap), (std::vector<int>{2, 0, kTransparentIndex, 0, 1, kTransparentIndex}));
    EXPECT_EQ(bitmap.Alpha.At({2, 1}), kFullyTransparent);
    EXPECT_EQ(CountImportColours(picture), 3);
}

TEST(BitmapImportPalette, BlackEntryStaysInFrontOfASingleColour) {
    struct Case {
        const char* name;
        RgbaPicture picture;
        std::vector<Colour> palette;
        std::uint8_t index;
    };
    const Case cases[] = {
        {"all transparent", RgbaPicture(4, 4, kClear), {kBlack}, kTransparentIndex},
        {"one colour", RgbaPicture(4, 4, kOpaqueRed), {kBlack, kRed}, 1},
        {"only black", RgbaPicture(1, 1, kOpaqueBlack), {kBlack, kBlack}, 0},
    };
    for (const Case& c : cases) {
        const ImportedBitmap bitmap = ImportBitmap(c.picture, ImportColours::AsTheyAre);
        EXPECT_EQ(PaletteColours(bitmap), c.palette) << c.name;
        EXPECT_EQ(bitmap.Indices.At({0, 0}), c.index) << c.name;
    }
}

TEST(BitmapImportPalette, MoreColoursThanAPaletteHolds) {
    // 254 colours fit as they are; 255 do not.
    const RgbaPicture fits = Gradient(2, 127);
    EXPECT_EQ(CountImportColours(fits), 254);
    EXPECT_EQ(ImportBitmap(fits, ImportColours::AsTheyAre).ColourCount(), 254);

    const RgbaPicture photo = Gradient(64, 64);
    ASSERT_GT(CountImportColours(photo), kMaxPaletteColours);
    EXPECT_EQ(ImportBitmap(photo, ImportColours::AsTheyAre).Colours.At({63, 10}), 0x400A3Fu);  // true colour

    const ImportedBitmap garmin = ImportBitmap(photo, ImportColours::NearestGarmin);
    EXPECT_TRUE(garmin.GarminColours);
    EXPECT_FALSE(garmin.IsTrueColour());
    EXPECT_LE(garmin.ColourCount(), kMaxPaletteColours);
    const std::vector<Colour> colours = PaletteColours(garmin);
    EXPECT_TRUE(std::ranges::all_of(colours, IsGarminColour));
    EXPECT_EQ(std::set(colours.begin(), colours.end()).size(), colours.size());
    ExpectIndicesMatchPixels(garmin);
}

TEST(BitmapImportPalette, TrueColourMarksTransparentPixelsWithAnUnusedColour) {
    RgbaPicture photo = Gradient(64, 64);
    photo.SetPixel(0, 0, kClear);
    photo.SetPixel(1, 0, 0xFFFF00FF);  // magenta, the first key tried
    const ImportedBitmap bitmap = ImportBitmap(photo, ImportColours::AsTheyAre);
    ASSERT_TRUE(bitmap.IsTrueColour());
    EXPECT_EQ(bitmap.Indices.At({0, 0}), kTransparentIndex);
    EXPECT_EQ(bitmap.Indices.At({1, 0}), 0);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            ASSERT_TRUE(bitmap.IsTransparent({x, y}) ||
                        static_cast<Colour>(bitmap.Colours.At({x, y})) != bitmap.KeyColour);
}

TEST(BitmapImportAlphaMode, PartialAlphaKeepsAlphaPerEntry) {
    const RgbaPicture picture = Picture(4, 1, {kOpaqueRed, 0x80FF0000, kClear, kClear});
    const ImportedBitmap bitmap = ImportBitmap(picture, ImportColours::AsTheyAre);
    EXPECT_EQ(bitmap.ColourModeIndex(), 2);
    // Red opaque, red at 7 of 15, and one entry (black, 15) for both transparent pixels.
    EXPECT_EQ(bitmap.Palette, (std::vector<ImportedColour>{{kBlack, 15}, {kRed, 0}, {kRed, 7}}));
    EXPECT_EQ(IndicesOf(bitmap), (std::vector<int>{1, 2, 0, 0}));
}

TEST(BitmapImportAlphaMode, ManyAlphasBecomeTrueColourWithAlphaPerPixel) {
    // Each Garmin colour at several alphas: more (colour, alpha) pairs than a
    // palette holds, even after the colours are made Garmin colours.
    RgbaPicture picture(64, 64);
    for (int k = 0; k < 64 * 64; ++k) {
        const Colour garmin = *PaletteSquareColour(k % kPaletteSquareCount + 1);
        const auto step = static_cast<std::uint8_t>(k / kPaletteSquareCount % 14 + 1);
        picture.SetPixel(k % 64, k / 64, ArgbOf(garmin, AlphaByteOf(step)));
    }
    const ImportedBitmap bitmap = ImportBitmap(picture, ImportColours::NearestGarmin);
    EXPECT_EQ(bitmap.ColourMode, kModeAlpha);
    ASSERT_TRUE(bitmap.IsTrueColour());
    EXPECT_EQ(PictureOf(bitmap), picture);  // every pixel keeps its own alpha
}
