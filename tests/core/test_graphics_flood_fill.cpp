#include <gtest/gtest.h>

#include "graphics/flood_fill.h"
#include "grid_text.h"

using namespace mirvane;
using namespace mirvane::testing;

namespace {

struct FillCase {
    const char* name;
    GridRows before;
    Cell start;
    GridRows after;  // filled with 5
    int changed;
};

const FillCase kFillCases[] = {
    {"checkerboard fills one square", {"010", "101", "010"}, {1, 1}, {"010", "151", "010"}, 1},
    {"a diagonal wall keeps the sides apart", {"0001", "0010", "0100", "1000"}, {0, 0},
     {"5551", "5510", "5100", "1000"}, 6},
    {"the same value changes nothing", {"55", "05"}, {0, 0}, {"55", "05"}, 0},
    {"a start outside changes nothing", {"00"}, {2, 0}, {"00"}, 0},
};

}  // namespace

TEST(FloodFill, FillsTheFourWayRegionOfTheStartValue) {
    for (const FillCase& c : kFillCases) {
        IndexGrid grid = GridOf(c.before);
        EXPECT_EQ(FloodFill(grid, c.start, std::uint8_t{5}), c.changed) << c.name;
        EXPECT_EQ(RowsOf(grid), c.after) << c.name;
    }
}

TEST(FloodFill, RegionComesInRowMajorOrder) {
    // Editors paint the region cell by cell and may stop early, so the order shows.
    const IndexGrid grid = GridOf({"0100", "0101", "0001"});
    EXPECT_EQ(RegionAt(grid, {2, 0}),
              (std::vector<Cell>{{0, 0}, {2, 0}, {3, 0}, {0, 1}, {2, 1}, {0, 2}, {1, 2}, {2, 2}}));
}

TEST(FloodFill, LargeRegionsNeedNoDeepCallStack) {
    // One corridor that winds through the whole grid: the longest path a fill can walk.
    BitGrid maze(512, 512);
    int corridor = 0;
    for (int y = 0; y < 512; ++y)
        for (int x = 0; x < 512; ++x) {
            const bool wall = y % 2 == 1 && x != (y % 4 == 1 ? 511 : 0);
            maze.Set({x, y}, wall ? 1 : 0);
            corridor += wall ? 0 : 1;
        }
    EXPECT_EQ(FloodFill(maze, {0, 0}, std::uint8_t{2}), corridor);
    EXPECT_EQ(maze.At({0, 511}), 2);
}
