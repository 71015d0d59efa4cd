// Where Garmin's map programs keep their mapsets and caches on this machine:
// the registry and folders of Windows, those of a Wine prefix on Linux, the
// user's Library on macOS. Everything else sees them only through this.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "mapsets/program_paths.h"
#include "mapsets/program_runner.h"
#include "mapsets/registry.h"

namespace mirvane {

struct MapsetEnvironment {
    std::unique_ptr<RegistryReader> Registry;         // none on macOS
    std::unique_ptr<RegistryWriter> RegistryChanges;  // with Registry
    ProgramPaths Paths = ProgramPaths::Native();
    std::filesystem::path MapsFolder;                 // one folder a mapset
    std::vector<std::filesystem::path> CacheFolders;  // the tile caches, in the order they are cleared
    std::string Place;                                // what was looked at, for the user
};

// This machine's: Windows; on macOS the user's Library; elsewhere the Wine
// prefix of $WINEPREFIX, else ~/.wine.
MapsetEnvironment LocalMapsetEnvironment();

// A Wine prefix. `runner` starts wine for registry changes; without one
// (Wine not installed) the registry can be read but not changed.
MapsetEnvironment WinePrefixEnvironment(const std::filesystem::path& prefix, const std::string& user,
                                        ProgramRunner runner);

// The maps of BaseCamp for Mac below `home`: .gmap bundles with an Info.xml.
MapsetEnvironment MacMapsEnvironment(const std::filesystem::path& home);

#ifdef _WIN32
// HKEY_LOCAL_MACHINE as 32-bit programs see it, and the folders of the
// environment variables.
MapsetEnvironment WindowsMapsetEnvironment();
#endif

}  // namespace mirvane
