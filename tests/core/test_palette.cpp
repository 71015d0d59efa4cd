#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "colour/palette.h"

using namespace mirvane;

namespace {

// Colours are written #RRGGBB in these tests, as users read them.
Colour Rgb(std::uint32_t rrggbb) {
    return MakeColour(static_cast<std::uint8_t>(rrggbb >> 16), static_cast<std::uint8_t>(rrggbb >> 8),
                      static_cast<std::uint8_t>(rrggbb));
}

constexpr Colour kRed = 0x0000FF, kGreen = 0x00FF00, kBlue = 0xFF0000, kBlack = 0, kWhite = 0xFFFFFF;

}  // namespace

TEST(Palette, SquaresAreThe254GarminColoursInDialogOrder) {
    EXPECT_EQ(PaletteSquareColour(1), Rgb(0x000000));
    EXPECT_EQ(PaletteSquareColour(2), Rgb(0x000020));
    EXPECT_EQ(PaletteSquareColour(9), Rgb(0x003000));
    EXPECT_EQ(PaletteSquareColour(17), Rgb(0x006500));
    EXPECT_EQ(PaletteSquareColour(49), Rgb(0x390000));  // red steps every 6 x 8 squares
    EXPECT_EQ(PaletteSquareColour(240), Rgb(0xFFFFFF));
    EXPECT_EQ(PaletteSquareColour(241), Rgb(0x101010));
    EXPECT_EQ(PaletteSquareColour(254), Rgb(0xE6E6E6));
    EXPECT_FALSE(PaletteSquareColour(0).has_value());
    EXPECT_FALSE(PaletteSquareColour(255).has_value());

    std::set<Colour> distinct;
    for (int i = 1; i <= kPaletteSquareCount; ++i) distinct.insert(*PaletteSquareColour(i));
    EXPECT_EQ(distinct.size(), 254u);
}

TEST(Palette, GarminColoursMapToThemselves) {
    for (int i = 1; i <= kPaletteSquareCount; ++i) {
        const Colour c = *PaletteSquareColour(i);
        EXPECT_EQ(NearestGarminColour(c), c) << ColourText(c);
        EXPECT_TRUE(IsGarminColour(c));
    }
    EXPECT_FALSE(IsGarminColour(Rgb(0x7B6542)));
}

TEST(Palette, EveryColourMapsIntoThePalette) {
    for (int r = 0; r < 256; r += 5)
        for (int g = 0; g < 256; g += 3)
            for (int b = 0; b < 256; b += 7) {
                const Colour nearest = NearestGarminColour(MakeColour(r, g, b));
                ASSERT_NE(PaletteSquareOf(nearest), 0) << r << "," << g << "," << b;
            }
}

TEST(Palette, ChannelTiesKeepTheLowerLevel) {
    EXPECT_EQ(SplitColour(NearestGarminColour(MakeColour(90, 0, 0))).r, 57);
    EXPECT_EQ(SplitColour(NearestGarminColour(MakeColour(0, 74, 0))).g, 48);
    EXPECT_EQ(SplitColour(NearestGarminColour(MakeColour(0, 75, 0))).g, 101);
}

TEST(Palette, AGreyWinsOnlyWhenStrictlyNearer) {
    // The cube gives #000020 for #141414; the grey #101010 is much nearer.
    EXPECT_EQ(NearestGarminColour(Rgb(0x141414)), Rgb(0x101010));
    // A colour far from the grey axis keeps its cube colour.
    EXPECT_EQ(NearestGarminColour(Rgb(0xF00505)), Rgb(0xFF0000));
}

TEST(Palette, NearestEntryIsTheFirstOfEquals) {
    const std::vector<Colour> list{kWhite, Rgb(0x100000), Rgb(0x001000), kBlack};
    EXPECT_EQ(NearestColourIndex(Rgb(0x080808), list), 1);  // 1 and 2 tie at 24: the first wins
    EXPECT_EQ(NearestColourIndex(kBlack, list), 3);
    EXPECT_EQ(NearestColourIndex(kBlack, std::vector<Colour>{kWhite}), 0);
    EXPECT_EQ(NearestColourIndex(kBlack, std::vector<Colour>{}), -1);
}

TEST(Palette, ClosestPairNeverComparesTheLastEntry) {
    // Entries 1 and 3 are twins, but entry 3 is last and never compared.
    const std::vector<Colour> list{kRed, kGreen, Rgb(0x0000F0), kGreen};
    EXPECT_EQ(ClosestPairIndex(list), 0);
    EXPECT_EQ(ClosestPairIndex(std::vector<Colour>{kRed, kRed}), 0);            // nothing compared
    EXPECT_EQ(ClosestPairIndex(std::vector<Colour>{kBlack, kWhite, kRed}), 0);  // 765 is not below 765
    EXPECT_EQ(ClosestPairIndex(std::vector<Colour>{kBlue, kRed, Rgb(0xFE0000), kGreen}), 1);
    EXPECT_EQ(ClosestPairIndex(std::vector<Colour>{}), 0);
}

TEST(Palette, ThinningRemovesTheFirstOfTheClosestPair) {
    std::vector<Colour> one{kRed};
    ThinColourList(one, 1);
    EXPECT_EQ(one, std::vector<Colour>{kRed});

    std::vector<Colour> two{kRed, kBlue};
    ThinColourList(two, 1);
    EXPECT_EQ(two, std::vector<Colour>{kBlue});

    // The last entry is the twin of the first, yet it survives while the others go.
    std::vector<Colour> twins{kRed, kBlue, kGreen, kRed};
    ThinColourList(twins, 2);
    EXPECT_EQ(twins, (std::vector<Colour>{kGreen, kRed}));

    std::vector<Colour> ordered{kBlack, kWhite, Rgb(0x010101), kRed, kBlue};
    ThinColourList(ordered, 4);
    EXPECT_EQ(ordered, (std::vector<Colour>{kWhite, Rgb(0x010101), kRed, kBlue}));

    std::vector<Colour> emptied{kRed, kBlue};
    ThinColourList(emptied, 0);
    EXPECT_TRUE(emptied.empty());
}

TEST(Palette, NeighbourIndicesNameTheLowerLevel) {
    EXPECT_EQ(EnclosingLevels(Rgb(0x000000)), (LevelIndices{0, 0, 0}));
    EXPECT_EQ(EnclosingLevels(Rgb(0xFFFFFF)), (LevelIndices{3, 4, 6}));
    EXPECT_EQ(EnclosingLevels(Rgb(0x7B6541)), (LevelIndices{1, 1, 1}));
    EXPECT_EQ(EnclosingLevels(Rgb(0x7C6642)), (LevelIndices{2, 2, 2}));
}

TEST(Palette, FramedSquare) {
    EXPECT_EQ(PaletteSquareOf(Rgb(0x123456)), 0);
    EXPECT_EQ(PaletteSquarePosition(1), (GridPosition{0, 0}));
    EXPECT_EQ(PaletteSquarePosition(16), (GridPosition{15, 0}));
    EXPECT_EQ(PaletteSquarePosition(17), (GridPosition{0, 1}));
    EXPECT_EQ(PaletteSquarePosition(254), (GridPosition{13, 15}));
}

TEST(Palette, SystemColoursAndText) {
    const SystemColourLookup system = [](int index) { return index == 5 ? Rgb(0xF0F0F0) : -1; };
    EXPECT_EQ(PlainColour(kRed, system), kRed);
    EXPECT_EQ(PlainColour(static_cast<Colour>(0x80000005u), system), Rgb(0xF0F0F0));
    EXPECT_EQ(PlainColour(static_cast<Colour>(0x80000005u), nullptr), 0);

    EXPECT_EQ(RgbNumber(0x0041657B), 0x7B6541);
    EXPECT_EQ(RgbNumber(static_cast<Colour>(0x80000005u)), 0);
    EXPECT_EQ(ColourText(0x0041657B), "#7B6541");
    EXPECT_EQ(ColourText(kRed), "#FF0000");
    EXPECT_EQ(ColourText(static_cast<Colour>(0x80000005u)), "#000000");
}

TEST(Palette, HslPair) {
    const Hsl red = RgbToHsl(255, 0, 0);
    EXPECT_FLOAT_EQ(red.h, 0);
    EXPECT_FLOAT_EQ(red.s, 1);
    EXPECT_FLOAT_EQ(red.l, 0.5f);
    EXPECT_FLOAT_EQ(RgbToHsl(0, 255, 0).h, 2);
    EXPECT_FLOAT_EQ(RgbToHsl(0, 0, 255).h, 4);
    EXPECT_FLOAT_EQ(RgbToHsl(255, 0, 128).h, -128.0f / 255);  // red maximum, blue above green
    const Hsl grey = RgbToHsl(100, 100, 100);
    EXPECT_EQ(grey.h, 0);
    EXPECT_EQ(grey.s, 0);
    EXPECT_EQ(HslToRgb(grey.h, 0, grey.l), (RgbChannels{100, 100, 100}));

    for (int r = 0; r < 256; r += 15)
        for (int g = 0; g < 256; g += 17)
            for (int b = 0; b < 256; b += 5) {
                const Hsl t = RgbToHsl(r, g, b);
                const RgbChannels back = HslToRgb(t.h, t.s, t.l);
                ASSERT_EQ(back, (RgbChannels{std::uint8_t(r), std::uint8_t(g), std::uint8_t(b)}))
                    << r << "," << g << "," << b;
            }
}

TEST(Palette, ChannelMixer) {
    EXPECT_EQ(MixChannel(100, 128), 100);
    EXPECT_EQ(MixChannel(100, 0), 0);
    EXPECT_EQ(MixChannel(100, 64), 50);
    EXPECT_EQ(MixChannel(100, 63), 49);
    EXPECT_EQ(MixChannel(100, 192), 177);  // 100 + 64 * 155 / 128 = 177.5
    EXPECT_EQ(MixChannel(0, 255), 253);    // 127 * 255 / 128 = 253.0
    EXPECT_EQ(MixChannel(255, 255), 255);
}
