// Emptying the tile caches of MapSource, BaseCamp and MapInstall, so that
// they draw a map again with its new TYP (EffacerCache).
#pragma once

#include <filesystem>
#include <vector>

namespace mirvane {

struct CacheClearing {
    int FilesDeleted = 0;
    // The first entry that could not be deleted; clearing stops there.
    std::filesystem::path Failed;
    bool Complete() const { return Failed.empty(); }
};

// DeleteFolderContents: deletes every file below `folder` and keeps every
// folder. Nothing outside is touched: a link is deleted as a link and never
// followed, and a `folder` that is itself a link, or no folder, is left
// alone. A missing folder is empty.
CacheClearing DeleteFolderContents(const std::filesystem::path& folder);

// The folders in order, up to the first failure.
CacheClearing ClearCacheFolders(const std::vector<std::filesystem::path>& folders);

}  // namespace mirvane
