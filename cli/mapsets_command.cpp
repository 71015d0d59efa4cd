#include <iostream>

#include "commands.h"
#include "mapsets/mapset_catalog.h"
#include "mapsets/mapset_environment.h"

namespace mirvane::cli {

namespace {

const char* const kHelp =
    "Usage: mirvane-cli mapsets\n"
    "Lists the Garmin mapsets Mirvane finds on this machine, one a line, the columns\n"
    "separated by tabs: name, FID, PID, TYP, source, folder. They come from the\n"
    "registry of Windows, or of the Wine prefix of $WINEPREFIX (else ~/.wine) on\n"
    "Linux, and from the installed map folders (on macOS ~/Library/Application\n"
    "Support/Garmin/Maps). What was looked at is said on stderr.\n";

}  // namespace

int MapsetsCommand(const Arguments& args) {
    if (WantsHelp(args)) {
        std::cout << kHelp;
        return kExitOk;
    }
    if (!args.empty()) {
        std::cerr << kHelp;
        return kExitFailure;
    }
    const MapsetEnvironment environment = LocalMapsetEnvironment();
    const std::vector<MapsetRow> rows = ListMapsets(environment);
    std::cerr << "Looked in: " << environment.Place << "\n";
    std::cout << "NAME\tFID\tPID\tTYP\tSOURCE\tFOLDER\n";
    for (const MapsetRow& row : rows)
        std::cout << row.Name << '\t' << row.Fid << '\t' << row.Pid << '\t' << row.Typ << '\t' << row.Source << '\t'
                  << row.Folder << '\n';
    if (rows.empty()) std::cerr << "No mapset found.\n";
    return kExitOk;
}

}  // namespace mirvane::cli
