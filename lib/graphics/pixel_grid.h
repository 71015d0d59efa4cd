// A rectangle of values, one per pixel, as the pixel editors store their
// bitmaps and patterns. Row-major, (0, 0) at the top left.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <utility>
#include <vector>

namespace mirvane {

struct Cell {
    int x = 0;
    int y = 0;
    bool operator==(const Cell&) const = default;
};

template <typename T>
class Grid {
public:
    Grid() = default;
    Grid(int width, int height, T value = T{}) { Resize(width, height, value); }

    int Width() const { return width_; }
    int Height() const { return height_; }
    bool Empty() const { return cells_.empty(); }
    bool Contains(Cell c) const { return c.x >= 0 && c.y >= 0 && c.x < width_ && c.y < height_; }

    // Both throw std::out_of_range for a cell outside the grid.
    const T& At(Cell c) const { return cells_[IndexOf(c)]; }
    void Set(Cell c, T value) { cells_[IndexOf(c)] = std::move(value); }

    void Fill(const T& value) { std::fill(cells_.begin(), cells_.end(), value); }

    // Keeps the overlap with the old size at the top left; new cells take `value`.
    void Resize(int width, int height, T value = T{}) {
        if (width < 0 || height < 0) throw std::invalid_argument("Grid: negative size");
        std::vector<T> cells(static_cast<std::size_t>(width) * height, value);
        for (int y = 0; y < std::min(height, height_); ++y)
            for (int x = 0; x < std::min(width, width_); ++x)
                cells[static_cast<std::size_t>(y) * width + x] = std::move(cells_[Offset(x, y)]);
        width_ = width;
        height_ = height;
        cells_ = std::move(cells);
    }

    std::span<T> Row(int y) { return {cells_.data() + Offset(0, CheckedRow(y)), static_cast<std::size_t>(width_)}; }
    std::span<const T> Row(int y) const {
        return {cells_.data() + Offset(0, CheckedRow(y)), static_cast<std::size_t>(width_)};
    }

    bool operator==(const Grid&) const = default;

private:
    std::size_t Offset(int x, int y) const { return static_cast<std::size_t>(y) * width_ + x; }
    std::size_t IndexOf(Cell c) const {
        if (!Contains(c)) throw std::out_of_range("Grid: cell outside the grid");
        return Offset(c.x, c.y);
    }
    int CheckedRow(int y) const {
        if (y < 0 || y >= height_) throw std::out_of_range("Grid: row outside the grid");
        return y;
    }

    int width_ = 0;
    int height_ = 0;
    std::vector<T> cells_;
};

// What the editors store. A BitGrid holds 0 or 1 per cell (std::vector<bool>
// would hand out proxies instead of references).
using IndexGrid = Grid<std::uint8_t>;    // palette indices
using BitGrid = Grid<std::uint8_t>;      // two-colour patterns, 0 or 1
using AlphaGrid = Grid<std::uint8_t>;    // alpha per pixel
using ColourGrid = Grid<std::uint32_t>;  // 0x00BBGGRR, as a Raster holds it

}  // namespace mirvane
