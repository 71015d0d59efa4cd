// Small grids written as text, one character a cell, row by row: '0' is the
// value 0, '1' is 1, and so on up the character table.
#pragma once

#include <string>
#include <vector>

#include "graphics/pixel_grid.h"

namespace mirvane::testing {

using GridRows = std::vector<std::string>;

inline IndexGrid GridOf(const GridRows& rows) {
    IndexGrid grid(rows.empty() ? 0 : static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
    for (int y = 0; y < grid.Height(); ++y)
        for (int x = 0; x < grid.Width(); ++x) grid.Set({x, y}, static_cast<std::uint8_t>(rows[y].at(x) - '0'));
    return grid;
}

inline GridRows RowsOf(const IndexGrid& grid) {
    GridRows rows;
    for (int y = 0; y < grid.Height(); ++y) {
        std::string& row = rows.emplace_back();
        for (const auto value : grid.Row(y)) row += static_cast<char>('0' + value);
    }
    return rows;
}

}  // namespace mirvane::testing
