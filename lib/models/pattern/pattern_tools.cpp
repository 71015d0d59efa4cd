#include "models/pattern/pattern_tools.h"

#include <algorithm>

namespace mirvane {

int RepeatSpan(int comboIndex) { return 1 << (std::clamp(comboIndex, 0, kRepeatItems - 1) + 1); }

void RepeatColumns(BitGrid& pattern, int span) {
    for (int y = 0; y < pattern.Height(); ++y)
        for (int x = span; x < pattern.Width(); ++x) pattern.Set({x, y}, pattern.At({x % span, y}));
}

void RepeatRows(BitGrid& pattern, int span) {
    for (int y = span; y < pattern.Height(); ++y)
        for (int x = 0; x < pattern.Width(); ++x) pattern.Set({x, y}, pattern.At({x, y % span}));
}

bool PatternTarget::Paint(Cell cell, const std::uint8_t& value) {
    if (!autoRepeat_) return EditTarget::Paint(cell, value);
    if (!grid.Contains(cell)) return false;
    const int spanX = autoRepeat_->x, spanY = autoRepeat_->y;
    bool changed = false;
    for (int y = cell.y % spanY; y < grid.Height(); y += spanY)
        for (int x = cell.x % spanX; x < grid.Width(); x += spanX) changed |= EditTarget::Paint({x, y}, value);
    return changed;
}

}  // namespace mirvane
