// Takes the pressed cell's value as the current (left button) colour. Either
// button picks; the grid never changes.
#pragma once

#include "models/editing/tool.h"

namespace mirvane {

template <typename T>
class PipetteTool : public Tool<T> {
public:
    void Press(EditTarget<T>& target, Cell cell, MouseButton) override {
        if (target.grid.Contains(cell)) target.primary = target.grid.At(cell);
    }
};

}  // namespace mirvane
