// Tells whether the pointer moved since the last look: the timers of the
// pipette and of the colour identifier read the screen only then.
#pragma once

#include <optional>
#include <utility>

namespace mirvane {

class PointerTracker {
public:
    // True the first time and whenever (x, y) differs from the last call.
    bool Moved(int x, int y) {
        const std::pair<int, int> position{x, y};
        if (last_ == position) return false;
        last_ = position;
        return true;
    }

private:
    std::optional<std::pair<int, int>> last_;
};

}  // namespace mirvane
