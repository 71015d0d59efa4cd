#include "mapsets/mapset_environment.h"

#include <cstdlib>

#include "base/file_io.h"
#include "mapsets/wine_registry.h"

namespace mirvane {

namespace fs = std::filesystem;

namespace {

std::string EnvironmentValue(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

[[maybe_unused]] fs::path HomeFolder() { return PathFromUtf8(EnvironmentValue("HOME")); }

}  // namespace

MapsetEnvironment WinePrefixEnvironment(const fs::path& prefix, const std::string& user, ProgramRunner runner) {
    MapsetEnvironment environment;
    auto registry = std::make_unique<WineRegistry>(WineRegistry::FromFile(prefix / "system.reg"));
    environment.RegistryChanges = std::make_unique<WineRegistryWriter>(*registry, std::move(runner));
    environment.Registry = std::move(registry);
    environment.Paths = ProgramPaths::Wine(prefix);
    // %ALLUSERSPROFILE%, %APPDATA% and %LOCALAPPDATA% of a Wine prefix.
    environment.MapsFolder = environment.Paths.ToHost("C:\\ProgramData\\GARMIN\\Maps");
    const std::string profile = "C:\\users\\" + user + "\\AppData\\";
    for (const char* cache : {"Roaming\\GARMIN\\MapSource\\TileCache", "Local\\GARMIN\\BaseCamp\\TileCache",
                              "Local\\GARMIN\\MapInstall\\TileCache"})
        environment.CacheFolders.push_back(environment.Paths.ToHost(profile + cache));
    environment.Place = "Wine prefix " + Utf8FromPath(prefix);
    return environment;
}

MapsetEnvironment MacMapsEnvironment(const fs::path& home) {
    MapsetEnvironment environment;
    const fs::path support = home / "Library" / "Application Support" / "Garmin";
    environment.MapsFolder = support / "Maps";
    environment.CacheFolders = {support / "BaseCamp" / "TileCache", home / "Library" / "Caches" / "com.garmin.BaseCamp"};
    environment.Place = "Garmin maps " + Utf8FromPath(environment.MapsFolder);
    return environment;
}

MapsetEnvironment LocalMapsetEnvironment() {
#if defined(_WIN32)
    return WindowsMapsetEnvironment();
#elif defined(__APPLE__)
    return MacMapsEnvironment(HomeFolder());
#else
    const std::string chosen = EnvironmentValue("WINEPREFIX");
    const fs::path prefix = chosen.empty() ? HomeFolder() / ".wine" : PathFromUtf8(chosen);
    ProgramRunner runner;
    if (ProgramOnPath("wine")) {
        runner = [prefix](const std::vector<std::string>& arguments) {
            return RunProgram(arguments, {{"WINEPREFIX", Utf8FromPath(prefix)}, {"WINEDEBUG", "-all"}});
        };
    }
    // Wine names the profile folder after the login name.
    std::string user = EnvironmentValue("USER");
    if (user.empty()) user = EnvironmentValue("LOGNAME");
    return WinePrefixEnvironment(prefix, user, std::move(runner));
#endif
}

}  // namespace mirvane
