// Finding installed mapsets: a Wine prefix's registry file, the paths of the
// map programs, the info files and their rewriting, TDB and TYP headers, and
// the whole listing over a fake Wine prefix and a fake macOS home.
#include <gtest/gtest.h>

#include <filesystem>

#include "base/ascii.h"
#include "base/file_io.h"
#include "fake_garmin_install.h"
#include "mapsets/info_file.h"
#include "mapsets/mapset_catalog.h"
#include "mapsets/program_paths.h"
#include "mapsets/typ_ids.h"
#include "mapsets/wine_registry.h"

namespace {

namespace fs = std::filesystem;
using mirvane::testing::FakeGarminInstall;

// --- Wine's registry file

TEST(WineRegistryTest, ReadsTheValuesAsWineWritesThem) {
    const mirvane::WineRegistry registry(
        "WINE REGISTRY Version 2\r\n"
        "[Software\\\\Maps\\\\Key] 1700000000\r\n"
        "#time=1d9a\r\n"
        "\"Path\"=\"C:\\\\Garmin\\\\Maps\\\\x.typ\"\r\n"
        "\"Word\"=dword:0000ff78\r\n"
        "\"Long\"=hex:01,02,\\\r\n"
        "  03,04,05\r\n"
        "\"After\"=\"still read\"\r\n");
    const std::string key = "SOFTWARE\\maps\\KEY";  // without regard to case
    EXPECT_EQ(registry.Text(key, "path"), "C:\\Garmin\\Maps\\x.typ");
    EXPECT_EQ(registry.Number(key, "Word"), 65400u);
    EXPECT_EQ(registry.Number(key, "Long"), 0x04030201u);
    EXPECT_EQ(registry.Text(key, "After"), "still read");
}

TEST(WineRegistryTest, SubkeysShowThroughWow6432Node) {
    // A 64-bit prefix shows its Wow6432Node keys to Garmin's 32-bit programs.
    const std::string keys =
        "[Software\\\\Garmin\\\\MapSource\\\\Families\\\\Native]\n\"ID\"=dword:00000001\n"
        "[Software\\\\Wow6432Node\\\\Garmin\\\\MapSource\\\\Families\\\\Redirected]\n\"ID\"=dword:00000002\n";
    const mirvane::WineRegistry win64("#arch=win64\n" + keys);
    EXPECT_EQ(win64.SubKeys("SOFTWARE\\Garmin\\Mapsource\\Families"), std::vector<std::string>{"Redirected"});
    // A 64-bit prefix where nothing is installed for 32-bit programs reads the plain keys.
    const mirvane::WineRegistry plain("#arch=win64\n[Software\\\\Other]\n\"A\"=\"b\"\n");
    EXPECT_EQ(plain.Text("SOFTWARE\\Other", "A"), "b");
}

TEST(WineRegistryWriterTest, ChangesGoThroughWineRegAndAreSeenAtOnce) {
    mirvane::WineRegistry registry("#arch=win64\n[Software\\\\Wow6432Node\\\\Garmin\\\\Mapsource\\\\Families\\\\F]\n"
                                   "\"TYP\"=\"C:\\\\old.typ\"\n");
    std::vector<std::vector<std::string>> runs;
    int status = 0;
    mirvane::WineRegistryWriter writer(registry, [&](const std::vector<std::string>& arguments) {
        runs.push_back(arguments);
        return status;
    });
    const std::string key = "SOFTWARE\\Garmin\\Mapsource\\Families\\F";

    EXPECT_FALSE(writer.SetText(key, "TYP", "Z:\\home\\me\\my style.typ"));
    EXPECT_EQ(registry.Text(key, "TYP"), "Z:\\home\\me\\my style.typ");
    EXPECT_FALSE(writer.DeleteValue(key, "TYP"));
    EXPECT_FALSE(registry.Text(key, "TYP"));
    EXPECT_EQ(runs, (std::vector<std::vector<std::string>>{
                        {"wine", "reg", "add", "HKLM\\" + key, "/v", "TYP", "/t", "REG_SZ", "/d",
                         "Z:\\home\\me\\my style.typ", "/f", "/reg:32"},
                        {"wine", "reg", "delete", "HKLM\\" + key, "/v", "TYP", "/f", "/reg:32"}}));

    // A failed run changes nothing and says so.
    status = 1;
    EXPECT_TRUE(writer.SetText(key, "TYP", "C:\\new.typ"));
    EXPECT_FALSE(registry.Text(key, "TYP"));
}

// --- paths of the map programs

TEST(ProgramPathsTest, AWinePrefixMapsDrivesBothWaysAndFindsNamesWithoutCase) {
    FakeGarminInstall install;
    const auto paths = mirvane::ProgramPaths::Wine(install.Prefix());
    EXPECT_EQ(paths.ToHost("c:/Garmin/OSM Topo/../Rando/./rando.tdb"), install.DriveC() / "Garmin/Rando/rando.tdb");
    EXPECT_EQ(paths.FromHost(install.DriveC()), "C:\\");
    // Outside drive_c the whole machine is Z:.
    const std::string elsewhere = paths.FromHost(install.Elsewhere() / "style.typ");
    EXPECT_EQ(paths.ToHost(elsewhere), fs::weakly_canonical(install.Elsewhere() / "style.typ")) << elsewhere;

    // The links of dosdevices are the drives when there are some.
    fs::create_directories(install.Prefix() / "dosdevices");
    fs::create_directory_symlink("../drive_c", install.Prefix() / "dosdevices/c:");
    fs::create_directory_symlink(install.Elsewhere(), install.Prefix() / "dosdevices/d:");
    const auto linked = mirvane::ProgramPaths::Wine(install.Prefix());
    EXPECT_EQ(linked.FromHost(install.Elsewhere() / "style.typ"), "D:\\style.typ");
    EXPECT_TRUE(fs::exists(linked.ToHost("D:\\STYLE.typ")));
    EXPECT_EQ(linked.FromHost(install.DriveC() / "Garmin"), "C:\\Garmin");
}

TEST(ProgramPathsTest, RelativeAndAbsolutePathsOfInfoFiles) {
    struct Case {
        const char *Target, *Base;
        char Separator;
        const char* Relative;
    };
    const Case cases[] = {
        {"C:\\Maps\\X\\style.typ", "C:\\Maps\\X", '\\', "style.typ"},
        {"C:\\Maps\\Xa\\style.typ", "C:\\Maps\\X", '\\', "..\\Xa\\style.typ"},
        {"D:\\style.typ", "C:\\Maps\\X", '\\', ""},
        {"/Users/me/style.typ", "/Users/me/Library/Maps/X.gmap", '/', "../../../style.typ"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Target);
        const std::string relative = mirvane::RelativePath(c.Target, c.Base, c.Separator);
        EXPECT_EQ(relative, c.Relative);
        if (relative.empty()) continue;
        // Back again, up to the case of the letters.
        EXPECT_EQ(mirvane::AsciiLower(mirvane::AbsolutePath(relative, c.Base, c.Separator)),
                  mirvane::AsciiLower(c.Target));
    }
    EXPECT_EQ(mirvane::AbsolutePath("D:\\style.typ", "C:\\Maps", '\\'), "D:\\style.typ");
}

// --- info files

TEST(InfoFileTest, TheTypEntryIsSetAfterItsAnchorOrReplacedAndRemovedWithItsLine) {
    using mirvane::InfoFormat;
    struct Case {
        const char* Name;
        InfoFormat Format;
        const char *Before, *After;  // After nullptr: refused
    };
    const Case cases[] = {
        {"existing entry", InfoFormat::V1, "<ID>1</ID>\n  <TYP>old.typ</TYP>\n", "<ID>1</ID>\n  <TYP>new.typ</TYP>\n"},
        {"MDR before IDX", InfoFormat::V1, "<IDX>a</IDX>\n<MDR>b</MDR>\n",
         "<IDX>a</IDX>\n<MDR>b</MDR>\n\n  <TYP>new.typ</TYP>\n"},
        {"no anchor", InfoFormat::V1, "<Name>x</Name>\n", nullptr},
        {"unclosed entry", InfoFormat::V1, "<ID>1</ID><TYP>old", nullptr},
        {"v2 after mdr", InfoFormat::V2, "<File id=\"MDR\">a.mdr</File>\r\n</S>",
         "<File id=\"MDR\">a.mdr</File>\r\n    <File id=\"TYP\">new.typ</File>\r\n</S>"},
        {"v2 traffic", InfoFormat::V2, "<File id=\"T\">a.trf.trf</File><File id=\"M\">a.mdr</File>",
         "<File id=\"T\">a.trf.trf</File>\n    <File id=\"TYP\">new.typ</File><File id=\"M\">a.mdr</File>"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        const auto changed = mirvane::WithTypEntry(c.Before, c.Format, "new.typ");
        if (!c.After) {
            EXPECT_FALSE(changed);
            continue;
        }
        ASSERT_TRUE(changed);
        EXPECT_EQ(*changed, c.After);
        EXPECT_EQ(mirvane::InfoTypEntry(*changed, c.Format), "new.typ");
        EXPECT_TRUE(mirvane::InfoTypEntry(mirvane::WithoutTypEntry(*changed, c.Format), c.Format).empty());
    }
    // Set and removed again, a CR LF file is what it was.
    const std::string v2 = FakeGarminInstall::kInfoV2;
    EXPECT_EQ(mirvane::WithoutTypEntry(*mirvane::WithTypEntry(v2, InfoFormat::V2, "a.typ"), InfoFormat::V2), v2);
}

// --- TDB and TYP headers

// A TDB's name and identifiers are read in the listing below; files too short to hold them are not.
TEST(TypIdsTest, ShortHeadersAreRefusedAndMapsetIdentifiersAreComparedAsTheHeaderHoldsThem) {
    mirvane::testing::TempFolder folder;
    FakeGarminInstall::Write(folder.Path() / "short.tdb", std::string("\x50\x01\x00\x01\x00", 5));
    FakeGarminInstall::Write(folder.Path() / "short.typ", "GARMIN TYP");
    EXPECT_FALSE(mirvane::ReadTdbHeader(folder.Path() / "short.tdb"));
    EXPECT_FALSE(mirvane::ReadTypIds(folder.Path() / "short.typ"));
    EXPECT_FALSE(mirvane::WriteTypIds(folder.Path() / "short.typ", {1, 1}));

    EXPECT_EQ(mirvane::MapsetIdsForTyp(1000, 1), (mirvane::TypIds{1000, 1}));
    EXPECT_EQ(mirvane::MapsetIdsForTyp(65355, 1), (mirvane::TypIds{65355, 1}));  // not folded: never a header's
    EXPECT_EQ(mirvane::MapsetIdsForTyp(65356, 65536), (mirvane::TypIds{-180, 0}));
}

TEST(TypIdsTest, WritingTheIdentifiersChangesThoseFourBytesOnly) {
    mirvane::testing::TempFolder folder;
    const fs::path typ = folder.Path() / "a.typ";
    FakeGarminInstall::WriteTyp(typ, 1000, 1);
    mirvane::Bytes expected, after;
    ASSERT_TRUE(mirvane::ReadWholeFile(typ, expected));
    EXPECT_EQ(mirvane::ReadTypIds(typ), (mirvane::TypIds{1000, 1}));
    ASSERT_TRUE(mirvane::WriteTypIds(typ, mirvane::MapsetIdsForTyp(65400, 3)));
    EXPECT_EQ(mirvane::ReadTypIds(typ), (mirvane::TypIds{-136, 3}));
    ASSERT_TRUE(mirvane::ReadWholeFile(typ, after));
    ASSERT_GT(expected.size(), 50u);
    std::copy_n(mirvane::Bytes{0x78, 0xFF, 3, 0}.begin(), 4, expected.begin() + 47);
    EXPECT_EQ(after, expected);
}

// --- the listing

std::vector<std::string> RowTexts(const std::vector<mirvane::MapsetRow>& rows) {
    std::vector<std::string> texts;
    for (const auto& row : rows)
        texts.push_back(row.Name + "|" + row.Fid + "|" + row.Pid + "|" + row.Typ + "|" + row.Source + "|" + row.Folder);
    return texts;
}

TEST(MapsetCatalogTest, AWinePrefixListsFamiliesProductsAndInstalledFolders) {
    FakeGarminInstall install;
    const auto environment = mirvane::WinePrefixEnvironment(install.Prefix(), "tester", {});
    const std::string maps = "C:\\ProgramData\\Garmin\\Maps\\";
    EXPECT_EQ(RowTexts(mirvane::ListMapsets(environment)),
              (std::vector<std::string>{
                  "OSM Topo 2024|1000|1|C:\\Garmin\\OSM Topo\\osm.typ|Families\\OSM Topo|C:\\Garmin\\OSM Topo",
                  "OSM Contours|1000|2|C:\\Garmin\\OSM Topo\\osm.typ|Families\\OSM Topo|C:\\Garmin\\OSM Topo\\Contours",
                  "Randonnée|65400|1||FamiliesNT\\Randonnée|C:\\Garmin\\Rando",
                  "Marine|300|7||Products\\Marine|C:\\Garmin\\Marine",
                  "Alpes.gmap|4242|||Installed|" + maps + "Alpes.gmap",
                  "Pyrenees.gmap|5150||pyr.typ|Installed|" + maps + "Pyrenees.gmap",
                  "Vide||||Installed|" + maps + "Vide",
              }));
    EXPECT_EQ(environment.CacheFolders.front(),
              install.DriveC() / "users/tester/AppData/Roaming/GARMIN/MapSource/TileCache");
}

}  // namespace
