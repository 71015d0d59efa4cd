#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>

#include "graphics/pixel_grid.h"
#include "graphics/transforms.h"
#include "grid_text.h"

using namespace mirvane;
using namespace mirvane::testing;

TEST(PixelGrid, CellsOutsideTheGridAreRefused) {
    IndexGrid grid(3, 2);
    for (const Cell outside : {Cell{-1, 0}, Cell{0, -1}, Cell{3, 0}, Cell{0, 2}}) {
        EXPECT_FALSE(grid.Contains(outside));
        EXPECT_THROW(grid.At(outside), std::out_of_range);
        EXPECT_THROW(grid.Set(outside, 1), std::out_of_range);
    }
    EXPECT_THROW(grid.Row(2), std::out_of_range);
    EXPECT_THROW(IndexGrid(-1, 4), std::invalid_argument);
    EXPECT_EQ(grid, IndexGrid(3, 2));
}

TEST(Transforms, TurnKeepingSizeClipsToTheBuffer) {
    // A pattern 4 wide and 2 high turns inside a 4 x 4 square and is cut back to 4 x 2.
    for (const auto& [turn, after, square] :
         {std::tuple{Turn::Clockwise, GridRows{"0051", "0062"}, GridRows{"31", "42"}},
          std::tuple{Turn::CounterClockwise, GridRows{"4800", "3700"}, GridRows{"24", "13"}}}) {
        IndexGrid grid = GridOf({"1234", "5678"});
        RotateKeepingSize(grid, turn, std::uint8_t{0});
        EXPECT_EQ(RowsOf(grid), after);
        IndexGrid small = GridOf({"12", "34"});
        RotateKeepingSize(small, turn, std::uint8_t{0});
        EXPECT_EQ(RowsOf(small), square);
    }
}
