// The cells of a straight line between two cells, as a pen draws it.
#pragma once

#include <vector>

#include "graphics/pixel_grid.h"

namespace mirvane {

// Bresenham's line from `from` to `to`, both included: one cell per step
// along the longer axis, each touching the previous one at an edge or a corner.
std::vector<Cell> LineCells(Cell from, Cell to);

}  // namespace mirvane
