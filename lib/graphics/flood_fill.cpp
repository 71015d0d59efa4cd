#include "graphics/flood_fill.h"

namespace mirvane {

std::vector<Cell> ConnectedCells(const BitGrid& candidates, Cell start) {
    if (!candidates.Contains(start) || candidates.At(start) == 0) return {};
    BitGrid reached(candidates.Width(), candidates.Height());
    std::vector<Cell> pending{start};
    reached.Set(start, 1);
    while (!pending.empty()) {
        const Cell c = pending.back();
        pending.pop_back();
        for (const Cell next : {Cell{c.x + 1, c.y}, Cell{c.x, c.y - 1}, Cell{c.x - 1, c.y}, Cell{c.x, c.y + 1}}) {
            if (!candidates.Contains(next) || candidates.At(next) == 0 || reached.At(next) != 0) continue;
            reached.Set(next, 1);
            pending.push_back(next);
        }
    }
    std::vector<Cell> region;
    for (int y = 0; y < reached.Height(); ++y)
        for (int x = 0; x < reached.Width(); ++x)
            if (reached.At({x, y}) != 0) region.push_back({x, y});
    return region;
}

}  // namespace mirvane
