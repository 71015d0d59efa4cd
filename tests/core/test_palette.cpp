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
    // Red steps every 6 x 8 squares; the greys follow white.
    for (const auto& [square, rgb] : {std::pair{1, 0x000000u}, {2, 0x000020u}, {9, 0x003000u}, {17, 0x006500u},
                                     {49, 0x390000u}, {240, 0xFFFFFFu}, {241, 0x101010u}, {254, 0xE6E6E6u}})
        EXPECT_EQ(PaletteSquareColour(square), Rgb(rgb)) << square;
    EXPECT_FALSE(PaletteSquareColour(0).has_value());
    EXPECT_FALSE(PaletteSquareColour(255).has_value());

    std::set<Colour> distinct;
    for (int i = 1; i <= kPaletteSquareCount; ++i) {
        const Colour c = *PaletteSquareColour(i);
        distinct.insert(c);
        EXPECT_EQ(NearestGarminColour(c), c) << ColourText(c);
        EXPECT_TRUE(IsGarminColour(c));
    }
    EXPECT_EQ(distinct.size(), 254u);
    EXPECT_FALSE(IsGarminColour(Rgb(0x7B6542)));
}

TEST(Palette, EveryColourMapsIntoThePalette) {
    for (int r = 0; r < 256; r += 5)
        for (int g = 0; g < 256; g += 3)
            for (int b = 0; b < 256; b += 7)
                ASSERT_NE(PaletteSquareOf(NearestGarminColour(MakeColour(r, g, b))), 0) << r << "," << g << "," << b;
}

TEST(Palette, NearestGarminColourKeepsTheLowerLevelOnTiesAndPrefersAStrictlyNearerGrey) {
    const std::pair<std::uint32_t, std::uint32_t> cases[] = {
        {0x5A0000, 0x390000}, {0x004A00, 0x003000}, {0x004B00, 0x006500},  // channel ties and just past
        {0x141414, 0x101010},  // the cube gives #000020; the grey is much nearer
        {0xF00505, 0xFF0000},  // far from the grey axis: the cube colour
    };
    for (const auto& [in, out] : cases) EXPECT_EQ(NearestGarminColour(Rgb(in)), Rgb(out)) << ColourText(Rgb(in));
}

TEST(Palette, NearestEntryAndClosestPairTakeTheFirstOfEquals) {
    const std::vector<Colour> list{kWhite, Rgb(0x100000), Rgb(0x001000), kBlack};
    EXPECT_EQ(NearestColourIndex(Rgb(0x080808), list), 1);  // 1 and 2 tie at 24: the first wins
    EXPECT_EQ(NearestColourIndex(kBlack, list), 3);
    EXPECT_EQ(NearestColourIndex(kBlack, std::vector<Colour>{}), -1);

    // The last entry is never compared: entries 1 and 3 are twins, yet 0 is the pair.
    EXPECT_EQ(ClosestPairIndex(std::vector<Colour>{kRed, kGreen, Rgb(0x0000F0), kGreen}), 0);
    EXPECT_EQ(ClosestPairIndex(std::vector<Colour>{kBlack, kWhite, kRed}), 0);  // 765 is not below 765
    EXPECT_EQ(ClosestPairIndex(std::vector<Colour>{kBlue, kRed, Rgb(0xFE0000), kGreen}), 1);
    EXPECT_EQ(ClosestPairIndex(std::vector<Colour>{}), 0);
}

TEST(Palette, ThinningRemovesTheFirstOfTheClosestPair) {
    struct Case {
        std::vector<Colour> before;
        std::int16_t target;
        std::vector<Colour> after;
    };
    const Case cases[] = {
        {{kRed}, 1, {kRed}},
        {{kRed, kBlue}, 1, {kBlue}},
        {{kRed, kBlue, kGreen, kRed}, 2, {kGreen, kRed}},  // the last twin survives
        {{kBlack, kWhite, Rgb(0x010101), kRed, kBlue}, 4, {kWhite, Rgb(0x010101), kRed, kBlue}},
        {{kRed, kBlue}, 0, {}},
    };
    for (Case c : cases) {
        ThinColourList(c.before, c.target);
        EXPECT_EQ(c.before, c.after) << c.target;
    }
}

TEST(Palette, NeighboursAndSquarePositions) {
    for (const auto& [rgb, levels] : {std::pair{0x000000u, LevelIndices{0, 0, 0}}, {0xFFFFFFu, {3, 4, 6}},
                                      {0x7B6541u, {1, 1, 1}}, {0x7C6642u, {2, 2, 2}}})
        EXPECT_EQ(EnclosingLevels(Rgb(rgb)), levels) << rgb;
    EXPECT_EQ(PaletteSquareOf(Rgb(0x123456)), 0);
    EXPECT_EQ(PaletteSquarePosition(16), (GridPosition{15, 0}));
    EXPECT_EQ(PaletteSquarePosition(17), (GridPosition{0, 1}));
    EXPECT_EQ(PaletteSquarePosition(254), (GridPosition{13, 15}));
}

TEST(Palette, SystemColoursAndText) {
    const Colour system5 = static_cast<Colour>(0x80000005u);
    const SystemColourLookup system = [](int index) { return index == 5 ? Rgb(0xF0F0F0) : -1; };
    EXPECT_EQ(PlainColour(kRed, system), kRed);
    EXPECT_EQ(PlainColour(system5, system), Rgb(0xF0F0F0));
    EXPECT_EQ(PlainColour(system5, nullptr), 0);
    EXPECT_EQ(RgbNumber(0x0041657B), 0x7B6541);
    EXPECT_EQ(RgbNumber(system5), 0);
    EXPECT_EQ(ColourText(0x0041657B), "#7B6541");
    EXPECT_EQ(ColourText(system5), "#000000");
}

TEST(Palette, HslPair) {
    const Hsl red = RgbToHsl(255, 0, 0);
    EXPECT_FLOAT_EQ(red.h, 0);
    EXPECT_FLOAT_EQ(red.s, 1);
    EXPECT_FLOAT_EQ(red.l, 0.5f);
    EXPECT_FLOAT_EQ(RgbToHsl(0, 0, 255).h, 4);
    EXPECT_FLOAT_EQ(RgbToHsl(255, 0, 128).h, -128.0f / 255);  // red maximum, blue above green
    EXPECT_EQ(RgbToHsl(100, 100, 100).s, 0);

    for (int r = 0; r < 256; r += 15)
        for (int g = 0; g < 256; g += 17)
            for (int b = 0; b < 256; b += 5) {
                const Hsl t = RgbToHsl(r, g, b);
                ASSERT_EQ(HslToRgb(t.h, t.s, t.l), (RgbChannels{std::uint8_t(r), std::uint8_t(g), std::uint8_t(b)}))
                    << r << "," << g << "," << b;
            }
}

TEST(Palette, ChannelMixer) {
    // 128 is neutral; above it the channel moves toward 255 by (v - 128) / 128, cut.
    for (const auto& [channel, bar, mixed] : {std::tuple{100, 128, 100}, {100, 0, 0}, {100, 64, 50}, {100, 63, 49},
                                             {100, 192, 177}, {0, 255, 253}, {255, 255, 255}})
        EXPECT_EQ(MixChannel(static_cast<std::uint8_t>(channel), bar), mixed) << channel << " " << bar;
}
