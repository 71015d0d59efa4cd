// EffacerCache: empties the tile caches of the map programs, from the main
// window's menu, from frmMapsets and after a TYP was tied to a mapset. It asks
// nothing and says nothing when done; only a file it cannot delete is told.
#pragma once

#include <filesystem>
#include <vector>

#include "models/shell/user_prompts.h"

namespace mirvane {

class ClearCacheModel {
public:
    ClearCacheModel(std::vector<std::filesystem::path> folders, UserPrompts& prompts);

    // True when every cache was emptied.
    bool Run();

private:
    std::vector<std::filesystem::path> folders_;
    UserPrompts& prompts_;
};

}  // namespace mirvane
