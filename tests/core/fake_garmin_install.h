// Garmin installations in a temporary folder: a 64-bit Wine prefix with
// families, an escaped family name, a product and installed folders; tile
// caches with links to a folder outside whose files must survive every
// clearing. And a macOS home with a .gmap bundle.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "corpus.h"
#include "mapsets/registry.h"
#include "mapsets/typ_ids.h"
#include "temp_folder.h"

namespace mirvane::testing {

class FakeGarminInstall {
public:
    FakeGarminInstall() {
        namespace fs = std::filesystem;
        Write(Prefix() / "system.reg", kSystemReg);
        Write(Prefix() / "user.reg", "WINE REGISTRY Version 2\n");
        WriteTdb(DriveC() / "Garmin/OSM Topo/osm.tdb", "OSM Topo 2024", 1, 1000);
        WriteTdb(DriveC() / "Garmin/OSM Topo/contours.tdb", "OSM Contours", 2, 1000);
        WriteTdb(DriveC() / "Garmin/Rando/rando.tdb", "Randonn\xe9" "e", 1, 65400);
        WriteTdb(DriveC() / "Garmin/Marine/marine.tdb", "Marine", 7, 300);
        WriteTyp(DriveC() / "Garmin/OSM Topo/osm.typ", 1000, 1);

        // GARMIN in the program paths, Garmin on disk: Wine finds it all the same.
        const fs::path maps = DriveC() / "ProgramData/Garmin/Maps";
        Write(maps / "Alpes.gmap/info_v2.xml", kInfoV2);
        Write(maps / "Pyrenees.gmap/info.xml", kInfoV1);
        WriteTyp(maps / "Pyrenees.gmap/pyr.typ", 5150, 1);
        fs::create_directories(maps / "Vide");

        const fs::path profile = DriveC() / "users/tester/AppData";
        Write(profile / "Roaming/GARMIN/MapSource/TileCache/a.tile", "a");
        Write(profile / "Roaming/GARMIN/MapSource/TileCache/12/b.tile", "b");
        Write(profile / "Local/GARMIN/BaseCamp/TileCache/c.tile", "c");
        fs::create_directories(profile / "Local/GARMIN/BaseCamp/TileCache/empty");
        Write(Outside() / "keep.txt", "keep");
        Write(Outside() / "inner/keep2.txt", "keep");
        fs::create_symlink(Outside() / "keep.txt", profile / "Roaming/GARMIN/MapSource/TileCache/link-to-file");
        fs::create_directory_symlink(Outside(), profile / "Local/GARMIN/BaseCamp/TileCache/link-to-folder");

        const fs::path macMaps = MacHome() / "Library/Application Support/Garmin/Maps";
        Write(macMaps / "Corse.gmap/Info.xml", kMacInfo);

        WriteTyp(Elsewhere() / "style.typ", 1000, 1);
    }

    std::filesystem::path Prefix() const { return root_.Path() / "wine"; }
    std::filesystem::path DriveC() const { return Prefix() / "drive_c"; }
    std::filesystem::path MacHome() const { return root_.Path() / "mac"; }
    // Files that no cache clearing may touch.
    std::filesystem::path Outside() const { return root_.Path() / "outside"; }
    // A TYP outside the prefix: drive Z: for the map programs.
    std::filesystem::path Elsewhere() const { return root_.Path() / "work"; }
    std::filesystem::path InstalledFolder(const std::string& name) const {
        return DriveC() / "ProgramData/Garmin/Maps" / name;
    }

    static void Write(const std::filesystem::path& path, const std::string& bytes) {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
    }
    // The first block of a TDB file: type, length, product, family, version, name.
    static void WriteTdb(const std::filesystem::path& path, const std::string& name, int pid, int fid) {
        std::string bytes = {'\x50', '\x20', '\x00'};
        for (int value : {pid, fid, 100}) bytes += {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
        Write(path, bytes + name + std::string(1, '\0') + "rest of the block");
    }
    // The bundled sample TYP with the given FID and PID.
    static void WriteTyp(const std::filesystem::path& path, int fid, int pid) {
        std::filesystem::create_directories(path.parent_path());
        std::filesystem::copy_file(MIRVANE_SOURCE_DIR "/samples/sample.typ", path,
                                   std::filesystem::copy_options::overwrite_existing);
        mirvane::WriteTypIds(path, {fid, pid});
    }
    // "name=content" of every file below `folder`, links not followed, sorted; none when it is missing.
    static std::vector<std::string> FilesBelow(const std::filesystem::path& folder) {
        std::vector<std::string> files;
        std::error_code ignored;
        for (std::filesystem::recursive_directory_iterator it(folder, ignored), end; it != end; it.increment(ignored))
            if (!it->is_directory()) files.push_back(it->path().filename().string() + "=" + ReadFileText(it->path()));
        std::sort(files.begin(), files.end());
        return files;
    }
    std::vector<std::string> OutsideFiles() const { return FilesBelow(Outside()); }

    static constexpr const char* kInfoV2 =
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n"
        "<MapProduct>\r\n"
        "  <ID>4242</ID>\r\n"
        "  <SubProduct>\r\n"
        "    <File id=\"IDX\">alpes.mdx</File>\r\n"
        "    <File id=\"MDR\">alpes_mdr.mdr</File>\r\n"
        "  </SubProduct>\r\n"
        "</MapProduct>\r\n";
    static constexpr const char* kInfoV1 =
        "<MapProduct>\n"
        "  <Name>Pyrenees</Name>\n"
        "  <ID>5150</ID>\n"
        "  <IDX>pyr.mdx</IDX>\n"
        "  <TYP>pyr.typ</TYP>\n"
        "</MapProduct>\n";
    static constexpr const char* kMacInfo =
        "<MapProduct>\n"
        "  <ID>77</ID>\n"
        "  <IDX>corse.mdx</IDX>\n"
        "  <MDR>corse_mdr.img</MDR>\n"
        "</MapProduct>\n";

private:
    // 32-bit programs see SOFTWARE of this 64-bit prefix under Wow6432Node;
    // the family under the plain key is the 64-bit view's and is not listed.
    static constexpr const char* kSystemReg =
        "WINE REGISTRY Version 2\n"
        ";; All keys relative to \\\\Machine\n\n"
        "#arch=win64\n\n"
        "[Software\\\\Garmin\\\\MapSource\\\\Families\\\\Only64] 1700000000\n"
        "\"ID\"=dword:00000001\n\n"
        "[Software\\\\Wow6432Node\\\\Garmin\\\\MapSource\\\\Families\\\\OSM Topo] 1700000000\n"
        "\"ID\"=hex:e8,03\n"
        "\"TYP\"=\"C:\\\\Garmin\\\\OSM Topo\\\\osm.typ\"\n\n"
        "[Software\\\\Wow6432Node\\\\Garmin\\\\MapSource\\\\Families\\\\OSM Topo\\\\1] 1700000000\n"
        "\"LOC\"=\"C:\\\\Garmin\\\\OSM Topo\"\n"
        "\"TDB\"=\"C:\\\\garmin\\\\osm topo\\\\osm.tdb\"\n\n"
        "[Software\\\\Wow6432Node\\\\Garmin\\\\MapSource\\\\Families\\\\OSM Topo\\\\2] 1700000000\n"
        "\"LOC\"=\"C:\\\\Garmin\\\\OSM Topo\\\\Contours\"\n"
        "\"TDB\"=\"C:\\\\Garmin\\\\OSM Topo\\\\contours.tdb\"\n\n"
        "[Software\\\\Wow6432Node\\\\Garmin\\\\MapSource\\\\FamiliesNT\\\\Randonn\\x00e9e\\\\1] 1700000000\n"
        "\"LOC\"=\"C:\\\\Garmin\\\\Rando\"\n"
        "\"TDB\"=\"C:\\\\Garmin\\\\Rando\\\\rando.tdb\"\n\n"
        "[Software\\\\Wow6432Node\\\\Garmin\\\\MapSource\\\\Products\\\\Marine] 1700000000\n"
        "\"LOC\"=\"C:\\\\Garmin\\\\Marine\"\n"
        "\"TDB\"=\"C:\\\\Garmin\\\\Marine\\\\marine.tdb\"\n";

    TempFolder root_;
};

// A registry writer that records the changes instead of making them.
struct RecordingRegistryWriter : mirvane::RegistryWriter {
    std::vector<std::string> Changes;
    mirvane::RegistryFailure SetText(const std::string& key, const std::string& name,
                                     const std::string& value) override {
        Changes.push_back(key + " " + name + "=" + value);
        return std::nullopt;
    }
    mirvane::RegistryFailure DeleteValue(const std::string& key, const std::string& name) override {
        Changes.push_back(key + " " + name + " deleted");
        return std::nullopt;
    }
};

}  // namespace mirvane::testing
