#include <gtest/gtest.h>

#include "graphics/transforms.h"
#include "grid_text.h"

using namespace mirvane;
using namespace mirvane::testing;

namespace {

const GridRows kThreeByFive = {"123", "456", "789", "abc", "def"};

GridRows Rotated(const GridRows& rows, Turn turn, int times = 1) {
    IndexGrid grid = GridOf(rows);
    for (int i = 0; i < times; ++i) Rotate(grid, turn);
    return RowsOf(grid);
}

}  // namespace

TEST(Transforms, QuarterTurnsExchangeWidthAndHeightAndFourRestore) {
    EXPECT_EQ(Rotated(kThreeByFive, Turn::Clockwise), (GridRows{"da741", "eb852", "fc963"}));
    EXPECT_EQ(Rotated(kThreeByFive, Turn::CounterClockwise), (GridRows{"369cf", "258be", "147ad"}));
    for (const Turn turn : {Turn::Clockwise, Turn::CounterClockwise}) {
        EXPECT_EQ(Rotated(kThreeByFive, turn, 4), kThreeByFive);
        EXPECT_EQ(Rotated(GridRows{"7"}, turn, 4), GridRows{"7"});
    }
}

TEST(Transforms, TurnKeepingSizeClipsToTheBuffer) {
    // A pattern 4 wide and 2 high turns inside a 4 x 4 square and is cut back to 4 x 2.
    for (const auto& [turn, after] : {std::pair{Turn::Clockwise, GridRows{"0051", "0062"}},
                                      std::pair{Turn::CounterClockwise, GridRows{"4800", "3700"}}}) {
        IndexGrid grid = GridOf({"1234", "5678"});
        RotateKeepingSize(grid, turn, std::uint8_t{0});
        EXPECT_EQ(RowsOf(grid), after);

        IndexGrid square = GridOf({"12", "34"});
        RotateKeepingSize(square, turn, std::uint8_t{0});
        EXPECT_EQ(RowsOf(square), Rotated({"12", "34"}, turn));
    }
}

TEST(Transforms, FlipsMirrorAndUndoThemselves) {
    IndexGrid grid = GridOf(kThreeByFive);
    FlipHorizontal(grid);
    EXPECT_EQ(RowsOf(grid), (GridRows{"321", "654", "987", "cba", "fed"}));
    FlipHorizontal(grid);
    FlipVertical(grid);
    EXPECT_EQ(RowsOf(grid), (GridRows{"def", "abc", "789", "456", "123"}));
    FlipVertical(grid);
    EXPECT_EQ(RowsOf(grid), kThreeByFive);
}

TEST(Transforms, ShiftWrapsAround) {
    struct Case {
        int dx, dy;
        GridRows after;
    };
    const Case cases[] = {
        {1, 0, {"312", "645"}},  {-1, 0, {"231", "564"}}, {0, 1, {"456", "123"}},
        {1, -1, {"645", "312"}}, {3, 2, {"123", "456"}},  {-7, 5, {"564", "231"}},
    };
    for (const Case& c : cases) {
        IndexGrid grid = GridOf({"123", "456"});
        Shift(grid, c.dx, c.dy);
        EXPECT_EQ(RowsOf(grid), c.after) << c.dx << "," << c.dy;
    }
}

TEST(Transforms, InvertSwapsTheTwoColoursOfAPattern) {
    BitGrid pattern = GridOf({"0110", "1000"});
    InvertBits(pattern);
    EXPECT_EQ(RowsOf(pattern), (GridRows{"1001", "0111"}));
}
