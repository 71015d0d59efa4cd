// The Garmin mapsets installed on the machine: those MapSource finds in the
// registry and those installed in folders with an info file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "mapsets/mapset_environment.h"

namespace mirvane {

// One row of lstvMapsets. Paths are written as the map programs write them.
struct MapsetRow {
    std::string Name;    // the map's name from its TDB file, or the folder's name
    std::string Fid;     // sub-item 1: the family
    std::string Pid;     // sub-item 2: the product
    std::string Typ;     // sub-item 3: the associated TYP; relative to Folder for an installed folder
    std::string Source;  // sub-item 4: "Families\" + key, "FamiliesNT\" + key, "Products\" + key or "Installed"
    std::string Folder;  // sub-item 5: where the map is installed
    std::filesystem::path HostFolder;  // the folder on this machine, for an installed folder
};

// What the Source column says a row is. Products keys hold no TYP: only
// families and installed folders take one.
enum class MapsetKind { Other, Family, Installed };
MapsetKind KindOf(const MapsetRow& row);

// The registry key of a family row, under which its TYP value stands.
std::string RegistryKeyOf(const MapsetRow& row);

// The first block of a TDB file: the map's name, its product and its family.
struct TdbHeader {
    std::string Name;
    std::uint16_t ProductId = 0;
    std::uint16_t FamilyId = 0;
};
std::optional<TdbHeader> ReadTdbHeader(const std::filesystem::path& tdb);

// Families, FamiliesNT, Products, then the folders sorted by name. A place
// that cannot be read adds no rows.
std::vector<MapsetRow> ListMapsets(const MapsetEnvironment& environment);

}  // namespace mirvane
