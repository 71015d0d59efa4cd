#include "models/shell/document_changes.h"

#include <algorithm>

namespace mirvane {

ChangeSet ChangeSet::Records(ObjectKind kind) {
    switch (kind) {
        case ObjectKind::Polygon: return Change::Polygons;
        case ObjectKind::Polyline: return Change::Polylines;
        case ObjectKind::Poi: break;
    }
    return Change::Pois;
}

int DocumentChanges::Listen(Listener listener) {
    listeners_.emplace_back(nextId_, std::move(listener));
    return nextId_++;
}

void DocumentChanges::StopListening(int id) {
    const auto it = std::find_if(listeners_.begin(), listeners_.end(), [id](const auto& l) { return l.first == id; });
    if (it != listeners_.end()) it->second = nullptr;  // erased after the current Tell, if any
}

void DocumentChanges::Tell(ChangeSet changes) {
    if (changes.Empty()) return;
    // A listener may add or remove listeners: walk by index over those present now.
    ++telling_;
    const std::size_t count = listeners_.size();
    for (std::size_t i = 0; i < count && i < listeners_.size(); ++i) {
        if (listeners_[i].second) {
            const Listener listener = listeners_[i].second;  // a copy: the vector may grow meanwhile
            listener(changes);
        }
    }
    // Erasing under a Tell further up the stack would move the listeners it walks.
    if (--telling_ == 0) std::erase_if(listeners_, [](const auto& l) { return !l.second; });
}

}  // namespace mirvane
