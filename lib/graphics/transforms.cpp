#include "graphics/transforms.h"

namespace mirvane {

Cell TurnSource(Cell target, Turn turn, int side) {
    if (turn == Turn::Clockwise) return {target.y, side - 1 - target.x};
    return {side - 1 - target.y, target.x};
}

void InvertBits(BitGrid& grid) {
    for (int y = 0; y < grid.Height(); ++y)
        for (auto& bit : grid.Row(y)) bit = bit == 0 ? 1 : 0;
}

}  // namespace mirvane
