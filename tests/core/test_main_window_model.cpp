#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "temp_folder.h"
#include "corpus.h"
#include "document/binary_reader.h"
#include "models/shell/main_window_model.h"
#include "models/shell/recent_files.h"
#include "models/shell/startup.h"
#include "scripted_prompts.h"

namespace mirvane {
namespace {

namespace fs = std::filesystem;

using mirvane::testing::TempFolder;

void Touch(const std::string& path) { std::ofstream(path) << "x"; }

TEST(RecentFiles, NewestFirstExistingPathMovesToTopAndTheEighthPushesOut) {
    RecentFiles recent;
    for (int i = 1; i <= 8; ++i) recent.Add("f" + std::to_string(i));
    recent.Add("f5");
    ASSERT_EQ(recent.Items().size(), RecentFiles::kCapacity);
    EXPECT_EQ(recent.Items().front(), "f5");
    EXPECT_EQ(recent.Items()[1], "f8");
    EXPECT_EQ(recent.Items().back(), "f2");
}

TEST(RecentFiles, StoreAndLoadRestoreTheOrderAndDropStaleKeys) {
    MemorySettingsStore store;
    RecentFiles recent;
    for (const char* p : {"a", "b", "c"}) recent.Add(p);
    recent.Store(store);
    EXPECT_EQ(store.GetOr(kRecentFilesSection, "1", ""), "a");  // oldest first
    recent.Remove("b");
    recent.Store(store);
    EXPECT_FALSE(store.Get(kRecentFilesSection, "3"));
    RecentFiles again;
    again.Load(store);
    EXPECT_EQ(again.Items(), (std::vector<std::string>{"c", "a"}));
}

TEST(Startup, FirstRunStoresDefaults) {
    MemorySettingsStore store;
    EXPECT_EQ(SettleLanguage(store), "Francais");
    EXPECT_FALSE(SettleUpdateCheck(store));
    EXPECT_EQ(store.GetOr(kSettingsSection, "Langue", ""), "Francais");
    EXPECT_EQ(store.GetOr(kSettingsSection, "MajAuto", ""), "0");
    EXPECT_TRUE(AutoSaveSetting(store));
    store.Set(kSettingsSection, "Langue", "Klingon");  // its file is gone
    EXPECT_EQ(SettleLanguage(store), "Francais");
    EXPECT_EQ(store.GetOr(kSettingsSection, "Langue", ""), "Francais");
}

TEST(Startup, QuotedCommandLinePathAndLeftOverBackup) {
    EXPECT_EQ(CommandLinePath("\"C:\\Cartes\\ma carte.typ\""), "C:\\Cartes\\ma carte.typ");
    EXPECT_EQ(CommandLinePath("plain.typ"), "plain.typ");
    TempFolder folder;
    Touch(folder.File("Mirvane.save"));
    RemoveLeftOverBackup(folder.File(""));
    EXPECT_FALSE(fs::exists(folder.File("Mirvane.save")));
    EXPECT_EQ(AppVersionText(1, 2, 3), "v1.2.3");
}

struct ModelFixture : ::testing::Test {
    Document doc;
    ScriptedPrompts prompts;
    MemorySettingsStore settings;
    MainWindowModel model{doc, prompts, settings, "v0.1.0"};
};

TEST_F(ModelFixture, NewDocumentHasDefaultsAndIsNeverMarked) {
    model.New();
    EXPECT_EQ(model.Title(), "Mirvane v0.1.0 - Nouveau TYP");
    EXPECT_EQ(doc.Identity.CodePageIndex, 2);
    EXPECT_EQ(doc.Identity.HeaderSizeIndex, 0);
    EXPECT_TRUE(model.Enables().CreateTyp);
    model.MarkModified();
    EXPECT_EQ(model.Title(), "Mirvane v0.1.0 - Nouveau TYP");
}

// The window test types digits and an out-of-range value; these are the bounds.
TEST_F(ModelFixture, IdentityValueBounds) {
    EXPECT_TRUE(model.CheckIdentityValue("0"));
    EXPECT_TRUE(model.CheckIdentityValue("65535"));
    EXPECT_FALSE(model.CheckIdentityValue(""));
    EXPECT_EQ(prompts.Texts("inform"),
              std::vector<std::string>{"Erreur de saisie|Il faut rentrer un entier compris entre 1 et 65535"});
}

TEST_F(ModelFixture, DeletingThePickedPolygonSendsThePaneBackToTheDocument) {
    model.New();
    doc.Polygons.push_back(PolygonRecord{});
    doc.Polygons[0].Type = "003";
    doc.Polygons[0].SubType = "00";
    EXPECT_FALSE(model.DeleteObject(ObjectKind::Polygon, -1));  // no selection: no question
    EXPECT_TRUE(prompts.Texts("ask").empty());
    prompts.Answers = {false, true};
    model.Select(ObjectRef{ObjectKind::Polygon, 0});
    EXPECT_FALSE(model.DeleteObject(ObjectKind::Polygon, 0));
    EXPECT_TRUE(model.Selection().has_value());
    std::vector<ChangeSet> told;
    model.Changes().Listen([&](ChangeSet what) { told.push_back(what); });
    EXPECT_TRUE(model.DeleteObject(ObjectKind::Polygon, 0));
    EXPECT_TRUE(doc.Polygons.empty());
    EXPECT_FALSE(model.Selection());  // the pane goes back to the whole document
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0], Change::Polygons | Change::File | Change::Selection);
}

TEST_F(ModelFixture, AnUpperCaseTypEndingOpensAsBinary) {
    TempFolder folder;
    const std::string upper = folder.File("SAMPLE.TYP");
    std::filesystem::copy_file(std::filesystem::path(MIRVANE_SOURCE_DIR) / "samples" / "sample.typ", upper);
    ASSERT_TRUE(model.OpenAny(upper));
    EXPECT_FALSE(doc.FromText);
    EXPECT_EQ(doc.PolygonCount(), 16);
}

TEST_F(ModelFixture, SaveAsksBeforeOverwritingAndWritesAReadableFile) {
    MIRVANE_REQUIRE_CORPUS();
    TempFolder folder;
    const std::string target = folder.File("copie.typ");
    Touch(target);
    ASSERT_TRUE(model.OpenTyp((testing::CorpusDir() / "binary" / "jbm-osm.typ").string()));
    const int polygons = doc.PolygonCount();
    const std::string readLog = doc.ReadErrorLog;  // this file's code page is not one of the combo's
    // First answer No to overwriting: the dialog comes again; then Yes.
    prompts.Paths = {target, target};
    prompts.Answers = {false, true};
    ASSERT_TRUE(model.SaveTyp());
    EXPECT_EQ(prompts.Texts("ask").size(), 2u);
    EXPECT_EQ(model.Title(), "Mirvane v0.1.0 - [copie.typ]");
    Document again;
    ASSERT_TRUE(OpenBinaryTyp(again, target));
    EXPECT_EQ(again.PolygonCount(), polygons);
    EXPECT_EQ(again.ReadErrorLog, readLog);
}

TEST(Startup, UpdateCheckComparesWeightedVersions) {
    EXPECT_EQ(VersionNumber("1.2.3"), 10203);
    EXPECT_EQ(VersionNumber("0.10.0\r\n"), 1000);
    EXPECT_FALSE(VersionNumber("1.2").has_value());
    EXPECT_FALSE(VersionNumber("<html>").has_value());
    EXPECT_EQ(JudgeUpdate(0, 1, 0, "0.1.1"), UpdateVerdict::NewerAvailable);
    EXPECT_EQ(JudgeUpdate(0, 1, 0, "0.1.0"), UpdateVerdict::UpToDate);
    EXPECT_EQ(JudgeUpdate(1, 0, 0, "0.9.9"), UpdateVerdict::UpToDate);
    EXPECT_EQ(JudgeUpdate(0, 1, 0, "not a version"), UpdateVerdict::UpToDate);
    EXPECT_EQ(JudgeUpdate(0, 1, 0, ""), UpdateVerdict::ShowUpdateWindow);
}

}  // namespace
}  // namespace mirvane
