#include <gtest/gtest.h>

#include <stdexcept>

#include "graphics/pixel_grid.h"
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

TEST(PixelGrid, ResizeKeepsTheTopLeftAndFillsTheRest) {
    IndexGrid grid = GridOf({"123", "456"});
    grid.Resize(4, 3, 9);
    EXPECT_EQ(RowsOf(grid), (GridRows{"1239", "4569", "9999"}));
    grid.Resize(2, 1);
    EXPECT_EQ(RowsOf(grid), (GridRows{"12"}));
}
