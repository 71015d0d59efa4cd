// frmMapsets without widgets, over a fake Wine prefix and a fake macOS home:
// the list, associating and dissociating a TYP in the registry and in info
// files with the FID/PID adjustment, opening the TYP, and clearing the caches
// without touching a file outside them.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "base/file_io.h"
#include "fake_garmin_install.h"
#include "mapsets/cache_folders.h"
#include "mapsets/info_file.h"
#include "mapsets/typ_ids.h"
#include "models/mapsets/install_typ_model.h"
#include "scripted_prompts.h"

namespace {

namespace fs = std::filesystem;
using mirvane::testing::FakeGarminInstall;
using mirvane::testing::ReadFileText;
using mirvane::testing::RecordingRegistryWriter;

class InstallTypModelTest : public ::testing::Test {
protected:
    void SetUp() override {
        environment_ = mirvane::WinePrefixEnvironment(install_.Prefix(), "tester", {});
        auto writer = std::make_unique<RecordingRegistryWriter>();
        registry_ = writer.get();
        environment_.RegistryChanges = std::move(writer);
        Start();
    }
    void Start() {
        model_ = std::make_unique<mirvane::InstallTypModel>(environment_, prompts_, [this](const std::string& path) {
            opened_.push_back(path);
            return true;
        });
        model_->List();
    }
    void Select(const std::string& name) {
        for (std::size_t i = 0; i < model_->Rows().size(); ++i)
            if (model_->Rows()[i].Name == name) return model_->SelectRow(static_cast<int>(i));
        FAIL() << "no row " << name;
    }
    const mirvane::MapsetRow& Row() const { return model_->Rows()[static_cast<std::size_t>(model_->SelectedRow())]; }
    std::vector<std::string> Kinds() const {
        std::vector<std::string> kinds;
        for (const auto& shown : prompts_.Log) kinds.push_back(shown.Kind);
        return kinds;
    }
    bool CachesEmpty() const {
        return std::all_of(environment_.CacheFolders.begin(), environment_.CacheFolders.end(),
                           [](const fs::path& folder) { return FakeGarminInstall::FilesBelow(folder).empty(); });
    }

    FakeGarminInstall install_;
    const fs::path style_ = install_.Elsewhere() / "style.typ";  // FID 1000, PID 1
    mirvane::MapsetEnvironment environment_;
    RecordingRegistryWriter* registry_ = nullptr;
    ScriptedPrompts prompts_;
    std::vector<std::string> opened_;
    std::unique_ptr<mirvane::InstallTypModel> model_;
};

TEST_F(InstallTypModelTest, SelectsTheFirstMapsetAndOpensItsTypFromThePrefix) {
    EXPECT_EQ(Row().Name, "OSM Topo 2024");
    EXPECT_TRUE(model_->OpenAssociatedTyp());
    EXPECT_EQ(opened_, std::vector<std::string>{(install_.DriveC() / "Garmin/OSM Topo/osm.typ").string()});
    Select("Marine");
    EXPECT_FALSE(model_->OpenAssociatedTyp());
}

TEST_F(InstallTypModelTest, AFamilyTakesAnyTypAsARegistryValueAndTheFidPidOnlyOnYes) {
    Select("OSM Contours");  // FID 1000, PID 2
    const std::string value = environment_.Paths.FromHost(style_);
    prompts_.Paths = {style_.string(), style_.string()};
    model_->Associate();  // No to the FID/PID and to the caches
    EXPECT_EQ(mirvane::ReadTypIds(style_), (mirvane::TypIds{1000, 1}));

    prompts_.Log.clear();
    prompts_.Answers = {true, true};
    model_->Associate();
    EXPECT_EQ(registry_->Changes,
              std::vector<std::string>(2, "SOFTWARE\\Garmin\\Mapsource\\Families\\OSM Topo TYP=" + value));
    EXPECT_EQ(Row().Typ, value);
    EXPECT_EQ(Kinds(), (std::vector<std::string>{"open", "ask", "ask"}));
    EXPECT_EQ(mirvane::ReadTypIds(style_), (mirvane::TypIds{1000, 2}));
    EXPECT_TRUE(CachesEmpty());

    // Dissociating deletes the value.
    model_->Dissociate();
    EXPECT_EQ(registry_->Changes.back(), "SOFTWARE\\Garmin\\Mapsource\\Families\\OSM Topo TYP deleted");
    EXPECT_TRUE(Row().Typ.empty());
}

TEST_F(InstallTypModelTest, HighFamilyIdentifiersAreComparedAsTheHeaderHoldsThem) {
    Select("Randonnée");  // FID 65400, PID 1: the header holds -136
    FakeGarminInstall::WriteTyp(style_, 65400, 1);
    prompts_.Paths = {style_.string()};
    model_->Associate();
    EXPECT_EQ(prompts_.Texts("ask").size(), 1u);  // only the cache question
}

TEST_F(InstallTypModelTest, AnInstalledFolderTakesARelativeEntryAndLosesItAgain) {
    Select("Pyrenees.gmap");
    const fs::path folder = install_.InstalledFolder("Pyrenees.gmap");
    const fs::path typ = install_.DriveC() / "Garmin/OSM Topo/osm.typ";  // FID 1000, PID 1
    prompts_.Paths = {typ.string()};
    prompts_.Answers = {true, false};
    model_->Associate();

    EXPECT_EQ(Row().Typ, "..\\..\\..\\..\\Garmin\\OSM Topo\\osm.typ");
    EXPECT_EQ(mirvane::InfoTypEntry(ReadFileText(folder / "info.xml"), mirvane::InfoFormat::V1), Row().Typ);
    // The mapset's FID, and no PID: the product is the info file's business.
    EXPECT_EQ(mirvane::ReadTypIds(typ), (mirvane::TypIds{5150, 0}));
    EXPECT_TRUE(registry_->Changes.empty());

    model_->Dissociate();
    EXPECT_EQ(ReadFileText(folder / "info.xml"),
              "<MapProduct>\n  <Name>Pyrenees</Name>\n  <ID>5150</ID>\n  <IDX>pyr.mdx</IDX>\n</MapProduct>\n");
    EXPECT_TRUE(Row().Typ.empty());
}

TEST_F(InstallTypModelTest, ATypOnAnotherDriveIsCopiedToTheMapsetsDriveOnlyWhenTheUserSaysSo) {
    Select("Alpes.gmap");
    const fs::path folder = install_.InstalledFolder("Alpes.gmap");
    prompts_.Paths = {style_.string()};
    prompts_.Answers = {false};
    model_->Associate();
    EXPECT_EQ(ReadFileText(folder / "info_v2.xml"), FakeGarminInstall::kInfoV2);

    prompts_.Log.clear();
    const fs::path copy = folder / "alpes.typ";
    prompts_.Paths = {style_.string(), copy.string()};
    prompts_.Answers = {true, true, false};  // copy, adjust, keep the caches
    model_->Associate();
    EXPECT_EQ(Kinds(), (std::vector<std::string>{"open", "ask", "save", "ask", "ask"}));
    EXPECT_EQ(mirvane::InfoTypEntry(ReadFileText(folder / "info_v2.xml"), mirvane::InfoFormat::V2), Row().Typ);
    EXPECT_EQ(mirvane::ReadTypIds(copy), (mirvane::TypIds{4242, 0}));
    EXPECT_EQ(mirvane::ReadTypIds(style_), (mirvane::TypIds{1000, 1}));  // the original stays as it was
}

TEST_F(InstallTypModelTest, RowsThatCannotTakeATypAreRefused) {
    Select("Vide");  // no info file
    model_->Associate();
    EXPECT_EQ(prompts_.Texts("warn").size(), 1u);

    // A registry that cannot be changed (no Wine) says why and changes nothing.
    prompts_.Log.clear();
    environment_ = mirvane::WinePrefixEnvironment(install_.Prefix(), "tester", {});
    Start();
    prompts_.Paths = {style_.string()};
    model_->Associate();
    EXPECT_EQ(prompts_.Texts("warn").size(), 1u);
    EXPECT_EQ(Row().Typ, "C:\\Garmin\\OSM Topo\\osm.typ");
}

TEST_F(InstallTypModelTest, AMacBundleTakesARelativeTypEntry) {
    environment_ = mirvane::MacMapsEnvironment(install_.MacHome());
    Start();
    const fs::path typ = install_.MacHome() / "styles/corse.typ";
    FakeGarminInstall::WriteTyp(typ, 77, 0);
    prompts_.Paths = {typ.string()};
    model_->Associate();
    EXPECT_EQ(Row().Typ, "../../../../../styles/corse.typ");
    const fs::path info = install_.MacHome() / "Library/Application Support/Garmin/Maps/Corse.gmap/Info.xml";
    EXPECT_EQ(mirvane::InfoTypEntry(ReadFileText(info), mirvane::InfoFormat::V1), Row().Typ);
    EXPECT_EQ(prompts_.Texts("ask").size(), 1u);  // same FID and PID: only the cache question
    EXPECT_TRUE(model_->OpenAssociatedTyp());
    EXPECT_EQ(fs::weakly_canonical(opened_.back()), fs::weakly_canonical(typ));
}

// --- the caches

TEST_F(InstallTypModelTest, ClearingTheCachesKeepsFoldersAndEverythingOutside) {
    const fs::path mapSource = environment_.CacheFolders[0];
    const fs::path baseCamp = environment_.CacheFolders[1];
    EXPECT_FALSE(fs::exists(environment_.CacheFolders[2]));  // MapInstall: missing, so empty
    model_->ClearCaches();
    EXPECT_TRUE(prompts_.Log.empty());
    EXPECT_TRUE(CachesEmpty());
    EXPECT_TRUE(fs::is_directory(mapSource / "12"));
    EXPECT_FALSE(fs::exists(fs::symlink_status(mapSource / "link-to-file")));
    EXPECT_FALSE(fs::exists(fs::symlink_status(baseCamp / "link-to-folder")));
    EXPECT_EQ(install_.OutsideFiles(), (std::vector<std::string>{"keep.txt=keep", "keep2.txt=keep"}));
}

TEST(CacheFoldersTest, DotsInThePathStayInsideAndACacheFolderThatIsALinkIsNotEntered) {
    FakeGarminInstall install;
    const fs::path local = install.DriveC() / "users/tester/AppData/Local";
    // The dots stay inside: the BaseCamp cache itself is cleared.
    EXPECT_EQ(mirvane::DeleteFolderContents(local / "GARMIN/../GARMIN/BaseCamp/./TileCache").FilesDeleted, 2);

    // A cache folder that is a link to a folder outside is not entered.
    const fs::path linked = local / "GARMIN/MapInstall/TileCache";
    fs::create_directories(linked.parent_path());
    fs::create_directory_symlink(install.Outside(), linked);
    const auto result = mirvane::DeleteFolderContents(linked);
    EXPECT_TRUE(result.Complete());
    EXPECT_EQ(result.FilesDeleted, 0);
    EXPECT_EQ(install.OutsideFiles(), (std::vector<std::string>{"keep.txt=keep", "keep2.txt=keep"}));
}

}  // namespace
