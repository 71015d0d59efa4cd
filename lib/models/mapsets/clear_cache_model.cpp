#include "models/mapsets/clear_cache_model.h"

#include "base/file_io.h"
#include "document/records.h"
#include "lang/lookup.h"
#include "mapsets/cache_folders.h"

namespace mirvane {

ClearCacheModel::ClearCacheModel(std::vector<std::filesystem::path> folders, UserPrompts& prompts)
    : folders_(std::move(folders)), prompts_(prompts) {}

bool ClearCacheModel::Run() {
    const CacheClearing result = ClearCacheFolders(folders_);
    if (result.Complete()) return true;
    // Mostly a tile the map program still holds open.
    prompts_.Warn("Mirvane", LookupText("Mapsets", "Ce fichier du cache n'a pas pu être effacé :", "msgCacheEchec") +
                                 kLineBreak + Utf8FromPath(result.Failed));
    return false;
}

}  // namespace mirvane
