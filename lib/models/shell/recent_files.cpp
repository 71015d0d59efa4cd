#include "models/shell/recent_files.h"

#include <algorithm>

namespace mirvane {

void RecentFiles::Add(const std::string& path) {
    if (path.empty()) return;
    Remove(path);
    items_.insert(items_.begin(), path);
    if (items_.size() > kCapacity) items_.resize(kCapacity);
}

void RecentFiles::Remove(const std::string& path) {
    items_.erase(std::remove(items_.begin(), items_.end(), path), items_.end());
}

void RecentFiles::Load(const SettingsStore& store) {
    items_.clear();
    // Bounded: a store can never hold more keys than it has entries, but a
    // damaged one must not make start-up crawl.
    for (int key = 1; key <= 1000; ++key) {
        auto path = store.Get(kRecentFilesSection, std::to_string(key));
        if (!path) break;
        Add(*path);
    }
}

void RecentFiles::Store(SettingsStore& store) const {
    int key = 1;
    for (auto it = items_.rbegin(); it != items_.rend(); ++it, ++key)
        store.Set(kRecentFilesSection, std::to_string(key), *it);
    for (; store.Get(kRecentFilesSection, std::to_string(key)); ++key)
        store.Remove(kRecentFilesSection, std::to_string(key));
}

}  // namespace mirvane
