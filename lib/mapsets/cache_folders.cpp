#include "mapsets/cache_folders.h"

namespace mirvane {

namespace fs = std::filesystem;

namespace {

bool IsRealFolder(const fs::path& path) {
    std::error_code error;
    return fs::symlink_status(path, error).type() == fs::file_type::directory;
}

// Deletes the files below `folder`; false on the first failure.
bool DeleteBelow(const fs::path& folder, CacheClearing& result) {
    std::error_code error;
    // Only a real folder is entered: a link, even one put in place of a
    // folder since it was listed, is never followed.
    if (!IsRealFolder(folder)) return true;
    // The entries are listed before anything goes, so that deleting does not
    // disturb the listing.
    std::vector<fs::directory_entry> entries;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        entries.push_back(*it);
    for (const fs::directory_entry& entry : entries) {
        // A link is seen as a link, whatever it points to.
        if (IsRealFolder(entry.path())) {
            if (!DeleteBelow(entry.path(), result)) return false;
            continue;
        }
        fs::remove(entry.path(), error);
        if (error) {
            result.Failed = entry.path();
            return false;
        }
        ++result.FilesDeleted;
    }
    return true;
}

}  // namespace

CacheClearing DeleteFolderContents(const fs::path& folder) {
    CacheClearing result;
    DeleteBelow(folder.lexically_normal(), result);
    return result;
}

CacheClearing ClearCacheFolders(const std::vector<fs::path>& folders) {
    CacheClearing total;
    for (const fs::path& folder : folders) {
        const CacheClearing one = DeleteFolderContents(folder);
        total.FilesDeleted += one.FilesDeleted;
        total.Failed = one.Failed;
        if (!one.Complete()) break;
    }
    return total;
}

}  // namespace mirvane
