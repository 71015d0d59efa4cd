#include "graphics/line.h"

#include <cstdlib>

namespace mirvane {

std::vector<Cell> LineCells(Cell from, Cell to) {
    const int dx = std::abs(to.x - from.x), stepX = from.x < to.x ? 1 : -1;
    const int dy = -std::abs(to.y - from.y), stepY = from.y < to.y ? 1 : -1;
    std::vector<Cell> cells;
    for (int error = dx + dy;;) {
        cells.push_back(from);
        if (from == to) return cells;
        const int twice = 2 * error;
        if (twice >= dy) {
            error += dy;
            from.x += stepX;
        }
        if (twice <= dx) {
            error += dx;
            from.y += stepY;
        }
    }
}

}  // namespace mirvane
