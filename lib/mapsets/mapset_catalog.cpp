#include "mapsets/mapset_catalog.h"

#include <algorithm>

#include "base/codepage.h"
#include "base/file_io.h"
#include "document/record_reader.h"
#include "mapsets/info_file.h"

namespace mirvane {

namespace fs = std::filesystem;

namespace {

constexpr const char* kInstalled = "Installed";

// The TDB block header: type, length, then product and family; the name
// follows at byte 9, in the Windows code page of the map programs.
constexpr std::size_t kTdbIdsOffset = 3;
constexpr std::size_t kTdbNameOffset = 9;
constexpr std::size_t kTdbNameLength = 255;

// LireTdbLoc: the name and identifiers of the key's TDB file, and its LOC folder.
void ReadTdbAndLocation(const MapsetEnvironment& environment, const std::string& key, MapsetRow& row) {
    if (const auto tdb = environment.Registry->Text(key, "TDB")) {
        if (const auto header = ReadTdbHeader(environment.Paths.ToHost(*tdb))) {
            row.Name = header->Name;
            row.Pid = std::to_string(header->ProductId);
            row.Fid = std::to_string(header->FamilyId);
        }
    }
    if (const auto location = environment.Registry->Text(key, "LOC")) row.Folder = *location;
}

// Families or FamiliesNT: a row a product of each family; a family without
// products keeps one row with its ID and TYP.
void AddFamilies(const MapsetEnvironment& environment, const std::string& group, std::vector<MapsetRow>& rows) {
    const RegistryReader& registry = *environment.Registry;
    const std::string groupKey = std::string(kMapSourceKey) + "\\" + group;
    for (const std::string& family : registry.SubKeys(groupKey)) {
        const std::string key = groupKey + "\\" + family;
        MapsetRow row;
        row.Source = group + "\\" + family;
        if (const auto id = registry.Number(key, "ID")) row.Fid = std::to_string(*id);
        if (const auto typ = registry.Text(key, "TYP")) row.Typ = *typ;
        rows.push_back(row);
        bool first = true;
        for (const std::string& product : registry.SubKeys(key)) {
            if (!first) {
                const MapsetRow& previous = rows.back();
                MapsetRow next;
                next.Fid = previous.Fid;
                next.Typ = previous.Typ;
                next.Source = previous.Source;
                rows.push_back(next);
            }
            first = false;
            ReadTdbAndLocation(environment, key + "\\" + product, rows.back());
        }
    }
}

void AddProducts(const MapsetEnvironment& environment, std::vector<MapsetRow>& rows) {
    const std::string groupKey = std::string(kMapSourceKey) + "\\Products";
    for (const std::string& product : environment.Registry->SubKeys(groupKey)) {
        MapsetRow row;
        row.Source = "Products\\" + product;
        ReadTdbAndLocation(environment, groupKey + "\\" + product, row);
        rows.push_back(row);
    }
}

MapsetRow InstalledRow(const MapsetEnvironment& environment, const fs::path& folder) {
    MapsetRow row;
    row.Name = Utf8FromPath(folder.filename());
    row.Folder = environment.Paths.FromHost(folder);
    row.HostFolder = folder;
    row.Source = kInstalled;
    std::string text;
    if (const auto info = FindInfoFile(folder); info && ReadWholeFile(info->Path, text)) {
        row.Typ = InfoTypEntry(text, info->Format);
        row.Fid = InfoFamilyId(text);
    }
    return row;
}

void AddInstalled(const MapsetEnvironment& environment, std::vector<MapsetRow>& rows) {
    std::vector<fs::path> folders;
    std::error_code error;
    for (fs::directory_iterator it(environment.MapsFolder, error), end; !error && it != end; it.increment(error))
        if (it->is_directory(error)) folders.push_back(it->path());
    std::sort(folders.begin(), folders.end());
    for (const fs::path& folder : folders) rows.push_back(InstalledRow(environment, folder));
}

}  // namespace

MapsetKind KindOf(const MapsetRow& row) {
    if (row.Source.starts_with("Families")) return MapsetKind::Family;
    if (row.Source.starts_with(kInstalled)) return MapsetKind::Installed;
    return MapsetKind::Other;
}

std::string RegistryKeyOf(const MapsetRow& row) { return std::string(kMapSourceKey) + "\\" + row.Source; }

std::optional<TdbHeader> ReadTdbHeader(const fs::path& tdb) {
    Bytes file;
    if (!ReadWholeFile(tdb, file) || file.size() < kTdbIdsOffset + 4) return std::nullopt;
    TdbHeader header;
    FieldReader in(file, kTdbIdsOffset, [](int) {});
    header.ProductId = in.U16();
    header.FamilyId = in.U16();
    if (file.size() > kTdbNameOffset) {
        const auto name = file.begin() + static_cast<std::ptrdiff_t>(kTdbNameOffset);
        const auto end = name + static_cast<std::ptrdiff_t>(std::min(kTdbNameLength, file.size() - kTdbNameOffset));
        header.Name = DecodeCodePage(std::string(name, std::find(name, end, 0)), 1252);
    }
    return header;
}

std::vector<MapsetRow> ListMapsets(const MapsetEnvironment& environment) {
    std::vector<MapsetRow> rows;
    if (environment.Registry) {
        AddFamilies(environment, "Families", rows);
        AddFamilies(environment, "FamiliesNT", rows);
        AddProducts(environment, rows);
    }
    AddInstalled(environment, rows);
    return rows;
}

}  // namespace mirvane
