// The list of recent files (mnuMRU): newest first, at most seven entries, a
// path already present moves to the top. Stored in section "MRUFiles" as
// keys "1", "2", ... oldest first, so that adding them in key order restores
// the list.
#pragma once

#include <string>
#include <vector>

#include "models/shell/settings_store.h"

namespace mirvane {

class RecentFiles {
public:
    static constexpr std::size_t kCapacity = 7;

    // Newest first.
    const std::vector<std::string>& Items() const { return items_; }

    void Add(const std::string& path);
    void Remove(const std::string& path);

    // Reads keys "1", "2", ... until one is missing.
    void Load(const SettingsStore& store);
    // Writes every item, newest last, and removes keys left over from a longer list.
    void Store(SettingsStore& store) const;

private:
    std::vector<std::string> items_;
};

}  // namespace mirvane
