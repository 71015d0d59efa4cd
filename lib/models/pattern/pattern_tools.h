// The two-colour pattern of the polygon and line editors and the tools that
// change it. A cell is 1 for the first colour (drawn black) and 0 for the
// second (drawn white).
#pragma once

#include <cstdint>
#include <optional>

#include "graphics/pixel_grid.h"
#include "models/editing/tool.h"

namespace mirvane {

inline constexpr std::uint8_t kFirstColourCell = 1;
inline constexpr std::uint8_t kSecondColourCell = 0;

// cbbPixelsH, cbbPixelsV: items "2 pixels" to "16 pixels", then "no repeat";
// the span of item i is 2^(i + 1), and the last item spans the whole width of
// 32, so that it repeats nothing.
inline constexpr int kRepeatItems = 5;
int RepeatSpan(int comboIndex);

// cmdRépéterH, cmdRépéterV: the first `span` columns (rows) copied over the rest.
void RepeatColumns(BitGrid& pattern, int span);
void RepeatRows(BitGrid& pattern, int span);

// The pattern as the pen and the paint pot draw on it. With auto repeat on
// (chkAuto) a painted cell is painted again every spanX columns and spanY
// rows, before and after it.
class PatternTarget : public EditTarget<std::uint8_t> {
public:
    explicit PatternTarget(BitGrid pattern) : EditTarget(std::move(pattern), kFirstColourCell, kSecondColourCell) {}

    void SetAutoRepeat(std::optional<Cell> spans) { autoRepeat_ = spans; }
    const std::optional<Cell>& AutoRepeat() const { return autoRepeat_; }
    // lblCouleurChoisie: the left button's colour; the right button draws the other.
    void SetChosenColour(std::uint8_t cell) {
        primary = cell;
        secondary = static_cast<std::uint8_t>(1 - cell);
    }

    bool Paint(Cell cell, const std::uint8_t& value) override;

private:
    std::optional<Cell> autoRepeat_;
};

}  // namespace mirvane
