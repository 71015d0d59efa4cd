// Whole-grid commands of the pixel editors: quarter turns, mirrors, shifts
// with wrap-around, and the inversion of a two-colour pattern.
#pragma once

#include <algorithm>

#include "graphics/pixel_grid.h"

namespace mirvane {

enum class Turn { Clockwise, CounterClockwise };

// The cell that a quarter turn inside a square of `side` cells brings to `target`.
Cell TurnSource(Cell target, Turn turn, int side);

namespace grid_detail {

// A width x height grid whose cell c holds the cell sourceOf(c) of `grid`,
// or `outside` where that lies off the grid.
template <typename T, typename SourceOf>
Grid<T> Remapped(const Grid<T>& grid, int width, int height, SourceOf sourceOf, const T& outside = T{}) {
    Grid<T> result(width, height, outside);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (const Cell from = sourceOf(Cell{x, y}); grid.Contains(from)) result.Set({x, y}, grid.At(from));
    return result;
}

inline int Wrap(int value, int size) { return ((value % size) + size) % size; }

}  // namespace grid_detail

// A quarter turn; width and height change places.
template <typename T>
void Rotate(Grid<T>& grid, Turn turn) {
    const int side = turn == Turn::Clockwise ? grid.Height() : grid.Width();
    grid = grid_detail::Remapped(grid, grid.Height(), grid.Width(), [&](Cell c) { return TurnSource(c, turn, side); });
}

// A quarter turn for a buffer of fixed size: the grid turns inside the square
// of its longer side and is cropped back to its size. Cells that come from
// outside the grid take `outside`. On a square grid this is Rotate.
template <typename T>
void RotateKeepingSize(Grid<T>& grid, Turn turn, const T& outside) {
    const int side = std::max(grid.Width(), grid.Height());
    grid = grid_detail::Remapped(
        grid, grid.Width(), grid.Height(), [&](Cell c) { return TurnSource(c, turn, side); }, outside);
}

// Left and right change places.
template <typename T>
void FlipHorizontal(Grid<T>& grid) {
    for (int y = 0; y < grid.Height(); ++y) std::ranges::reverse(grid.Row(y));
}

// Top and bottom change places.
template <typename T>
void FlipVertical(Grid<T>& grid) {
    for (int top = 0, bottom = grid.Height() - 1; top < bottom; ++top, --bottom)
        std::ranges::swap_ranges(grid.Row(top), grid.Row(bottom));
}

// Moves every cell by dx to the right and dy down; what leaves on one side
// comes back on the other.
template <typename T>
void Shift(Grid<T>& grid, int dx, int dy) {
    if (grid.Empty()) return;
    using grid_detail::Wrap;
    grid = grid_detail::Remapped(grid, grid.Width(), grid.Height(), [&](Cell c) {
        return Cell{Wrap(c.x - dx, grid.Width()), Wrap(c.y - dy, grid.Height())};
    });
}

// 0 and 1 change places.
void InvertBits(BitGrid& grid);

}  // namespace mirvane
