// Gives the pressed button's colour to the four-way connected region of the
// pressed cell's value.
#pragma once

#include "graphics/flood_fill.h"
#include "models/editing/tool.h"

namespace mirvane {

template <typename T>
class FillTool : public Tool<T> {
public:
    // Writes the grid directly, not through EditTarget::Paint: what an
    // editor draws along with a pen cell is not for fills.
    void Press(EditTarget<T>& target, Cell cell, MouseButton button) override {
        if (const auto colour = target.ColourOf(button); colour && FloodFill(target.grid, cell, *colour) > 0)
            this->strokeChanged_ = true;
    }
};

}  // namespace mirvane
