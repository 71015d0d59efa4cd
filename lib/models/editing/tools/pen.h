// Draws the pressed button's colour into every cell the pointer crosses.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "graphics/line.h"
#include "models/editing/tool.h"

namespace mirvane {

// Line joins the cells of a fast drag; CellsOnly draws just the cells the
// pointer reports, leaving gaps between them.
enum class PenTrail { Line, CellsOnly };

template <typename T>
class PenTool : public Tool<T> {
public:
    explicit PenTool(PenTrail trail = PenTrail::Line) : trail_(trail) {}

    void Press(EditTarget<T>& target, Cell cell, MouseButton button) override {
        colour_ = target.ColourOf(button);
        last_ = cell;
        Draw(target, {&cell, 1});
    }

    void Move(EditTarget<T>& target, Cell cell) override {
        if (!colour_ || cell == last_) return;
        if (trail_ == PenTrail::Line) {
            const std::vector<Cell> line = LineCells(last_, cell);
            Draw(target, std::span(line).subspan(1));  // its first cell is drawn already
        } else {
            Draw(target, {&cell, 1});
        }
        last_ = cell;
    }

    bool Release(EditTarget<T>& target, Cell cell) override {
        Move(target, cell);
        colour_.reset();
        return Tool<T>::Release(target, cell);
    }

private:
    void Draw(EditTarget<T>& target, std::span<const Cell> cells) {
        if (!colour_) return;
        for (const Cell& c : cells)
            if (target.Paint(c, *colour_)) this->strokeChanged_ = true;
    }

    PenTrail trail_;
    std::optional<T> colour_;  // none outside a stroke and for a button that draws nothing
    Cell last_;
};

}  // namespace mirvane
