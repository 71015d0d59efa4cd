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
    for (const auto& [square, rgb] : {std::pair{1, 0x000000u}, {9, 0x003000u}, {49, 0x390000u}, {240, 0xFFFFFFu},
                                     {241, 0x101010u}, {254, 0xE6E6E6u}})
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
    EXPECT_EQ(NearestColourIndex(kBlack, std::vector<Colour>{}), -1);

    // The last entry is never compared: entries 1 and 3 are twins, yet 0 is the pair.
    EXPECT_EQ(ClosestPairIndex(std::vector<Colour>{kRed, kGreen, Rgb(0x0000F0), kGreen}), 0);
    EXPECT_EQ(ClosestPairIndex(std::vector<Colour>{kBlack, kWhite, kRed}), 0);  // 765 is not below 765
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
        {{kRed, kBlue, kGreen, kRed}, 2, {kGreen, kRed}},  // the last twin survives
        {{kRed, kBlue}, 0, {}},
    };
    for (Case c : cases) {
        ThinColourList(c.before, c.target);
        EXPECT_EQ(c.before, c.after) << c.target;
    }
}

TEST(Palette, ChannelMixer) {
    // 128 is neutral; above it the channel moves toward 255 by (v - 128) / 128, cut.
    for (const auto& [channel, bar, mixed] :
         {std::tuple{100, 128, 100}, {100, 63, 49}, {100, 192, 177}, {0, 255, 253}, {255, 255, 255}})
        EXPECT_EQ(MixChannel(static_cast<std::uint8_t>(channel), bar), mixed) << channel << " " << bar;
}
