// Undo history of an editor as whole snapshots: each edit commits the state
// it produced, and undo and redo hand back the state to show.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <utility>

namespace mirvane {

template <typename State>
class History {
public:
    static constexpr std::size_t kDefaultUndoSteps = 100;

    // Keeps at most `maxUndoSteps` states before the current one; the oldest go first.
    explicit History(State initial = State{}, std::size_t maxUndoSteps = kDefaultUndoSteps)
        : maxUndoSteps_(maxUndoSteps) {
        Reset(std::move(initial));
    }

    // `initial` becomes the only state, and the clean one.
    void Reset(State initial) {
        states_.clear();
        states_.push_back(std::move(initial));
        current_ = 0;
        clean_ = 0;
    }

    // The state after an edit. What could have been redone is gone.
    void Commit(State state) {
        states_.erase(states_.begin() + static_cast<std::ptrdiff_t>(current_) + 1, states_.end());
        if (clean_ > current_) clean_.reset();
        states_.push_back(std::move(state));
        ++current_;
        while (current_ > maxUndoSteps_) DropOldest();
    }

    bool CanUndo() const { return current_ > 0; }
    bool CanRedo() const { return current_ + 1 < states_.size(); }

    // Both return the state to show, the current one when there is no step to take.
    const State& Undo() {
        if (CanUndo()) --current_;
        return Current();
    }
    const State& Redo() {
        if (CanRedo()) ++current_;
        return Current();
    }
    const State& Current() const { return states_[current_]; }

    // Clean: the current state is the one last marked, when it was loaded or saved.
    bool IsClean() const { return clean_ == current_; }
    void MarkClean() { clean_ = current_; }

private:
    void DropOldest() {
        states_.pop_front();
        --current_;
        if (clean_ == 0u)
            clean_.reset();  // the marked state is gone: nothing is clean until the next mark
        else if (clean_)
            --*clean_;
    }

    std::deque<State> states_;
    std::size_t current_ = 0;
    std::optional<std::size_t> clean_;
    std::size_t maxUndoSteps_;
};

}  // namespace mirvane
