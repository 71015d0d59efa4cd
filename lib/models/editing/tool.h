// The drawing tools of the pixel editors and what they draw on. A stroke runs
// from Press to Release; Release tells whether the stroke changed the grid, so
// that an editor commits one undo step per stroke.
#pragma once

#include <optional>
#include <utility>

#include "graphics/pixel_grid.h"

namespace mirvane {

enum class MouseButton { Left, Right, Other };

// A grid and the colours of the two buttons; T is what a cell holds (a
// palette index, a pattern bit, a colour).
template <typename T>
struct EditTarget {
    Grid<T> grid;
    T primary{};    // drawn by the left button
    T secondary{};  // drawn by the right button, the erasing colour in most editors

    EditTarget() = default;
    EditTarget(Grid<T> grid, T primary, T secondary)
        : grid(std::move(grid)), primary(std::move(primary)), secondary(std::move(secondary)) {}
    virtual ~EditTarget() = default;

    // None for a button that draws nothing.
    std::optional<T> ColourOf(MouseButton button) const {
        if (button == MouseButton::Left) return primary;
        if (button == MouseButton::Right) return secondary;
        return std::nullopt;
    }

    // The pen draws each cell through this; an editor that draws a cell
    // elsewhere too (repeats, an alpha layer) overrides it. Cells outside the
    // grid are skipped. True when something changed.
    virtual bool Paint(Cell cell, const T& value) {
        if (!grid.Contains(cell) || grid.At(cell) == value) return false;
        grid.Set(cell, value);
        return true;
    }
};

template <typename T>
class Tool {
public:
    virtual ~Tool() = default;
    virtual void Press(EditTarget<T>& target, Cell cell, MouseButton button) = 0;
    // The pointer moved to `cell` while a button is held.
    virtual void Move(EditTarget<T>& target, Cell cell) {}
    // Ends the stroke; true when it changed the grid.
    virtual bool Release(EditTarget<T>& target, Cell cell) { return std::exchange(strokeChanged_, false); }

protected:
    bool strokeChanged_ = false;
};

}  // namespace mirvane
