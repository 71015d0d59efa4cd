// Four-way flood fill: cells connect through their edges, never through a
// corner. Works with a stack of its own, so the size of the region does not
// matter.
#pragma once

#include <vector>

#include "graphics/pixel_grid.h"

namespace mirvane {

// The cells marked non-zero in `candidates` that connect to `start`, in
// row-major order. Empty when `start` is outside the grid or not marked.
std::vector<Cell> ConnectedCells(const BitGrid& candidates, Cell start);

// The connected region of the start cell's value, in row-major order.
template <typename T>
std::vector<Cell> RegionAt(const Grid<T>& grid, Cell start) {
    if (!grid.Contains(start)) return {};
    const T seed = grid.At(start);
    BitGrid sameValue(grid.Width(), grid.Height());
    for (int y = 0; y < grid.Height(); ++y)
        for (int x = 0; x < grid.Width(); ++x) sameValue.Set({x, y}, grid.At({x, y}) == seed ? 1 : 0);
    return ConnectedCells(sameValue, start);
}

// Gives the region of the start cell `value`. Returns the number of cells
// changed: 0 when the start is outside or already holds `value`.
template <typename T>
int FloodFill(Grid<T>& grid, Cell start, const T& value) {
    if (!grid.Contains(start) || grid.At(start) == value) return 0;
    const std::vector<Cell> region = RegionAt(grid, start);
    for (const Cell& c : region) grid.Set(c, value);
    return static_cast<int>(region.size());
}

}  // namespace mirvane
