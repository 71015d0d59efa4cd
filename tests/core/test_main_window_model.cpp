#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "temp_folder.h"
#include "corpus.h"
#include "document/binary_reader.h"
#include "editors/main_window_model.h"
#include "editors/recent_files.h"
#include "editors/startup.h"
#include "scripted_prompts.h"

namespace mirvane {
namespace {

namespace fs = std::filesystem;

using mirvane::testing::TempFolder;

void Touch(const std::string& path) { std::ofstream(path) << "x"; }

TEST(RecentFiles, NewestFirstAndExistingPathMovesToTop) {
    RecentFiles recent;
    recent.Add("a.typ");
    recent.Add("b.typ");
    recent.Add("a.typ");
    EXPECT_EQ(recent.Items(), (std::vector<std::string>{"a.typ", "b.typ"}));
}

TEST(RecentFiles, EighthPushesOutTheOldest) {
    RecentFiles recent;
    for (int i = 1; i <= 8; ++i) recent.Add("f" + std::to_string(i));
    ASSERT_EQ(recent.Items().size(), RecentFiles::kCapacity);
    EXPECT_EQ(recent.Items().front(), "f8");
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

TEST_F(ModelFixture, NoDocumentEnablesOnlyTheAlwaysCommands) {
    EXPECT_EQ(model.Title(), "Mirvane v0.1.0");
    EnableState state = model.Enables();
    EXPECT_FALSE(state.Close || state.CreateTyp || state.ObjectCommands || state.IdentityFields);
    EXPECT_EQ(model.PolygonCaption(), "Liste des polygones");
}

TEST_F(ModelFixture, NewDocumentIsNeverMarkedButQuitAsks) {
    model.New();
    EXPECT_EQ(model.Title(), "Mirvane v0.1.0 - Nouveau TYP");
    EXPECT_EQ(doc.Identity.CodePageIndex, 2);
    EXPECT_EQ(doc.Identity.HeaderSizeIndex, 0);
    EXPECT_TRUE(model.Enables().CreateTyp);
    model.MarkModified();
    EXPECT_EQ(model.Title(), "Mirvane v0.1.0 - Nouveau TYP");
    // Yes to saving, but no FID: the quit is abandoned with the message.
    prompts.Answers = {true};
    EXPECT_FALSE(model.RequestQuit(true));
    ASSERT_EQ(prompts.Texts("inform").size(), 1u);
    EXPECT_EQ(prompts.Texts("inform")[0], "FID absent|Il faut indiquer le FID.");
    EXPECT_EQ(settings.GetOr(kSettingsSection, "Sauvegarde automatique", ""), "true");
}

TEST_F(ModelFixture, IdentityValueChecks) {
    EXPECT_TRUE(MainWindowModel::IdentityKeyAccepted('7'));
    EXPECT_TRUE(MainWindowModel::IdentityKeyAccepted('\b'));
    EXPECT_FALSE(MainWindowModel::IdentityKeyAccepted('a'));
    EXPECT_TRUE(model.CheckIdentityValue("0"));
    EXPECT_TRUE(model.CheckIdentityValue("65535"));
    EXPECT_TRUE(prompts.Texts("inform").empty());
    EXPECT_FALSE(model.CheckIdentityValue("65536"));
    EXPECT_FALSE(model.CheckIdentityValue(""));
    ASSERT_EQ(prompts.Texts("inform").size(), 2u);
    EXPECT_EQ(prompts.Texts("inform")[0], "Erreur de saisie|Il faut rentrer un entier compris entre 1 et 65535");
}

TEST_F(ModelFixture, MissingRecentFileIsRemovedFromMenuAndStore) {
    TempFolder folder;
    const std::string gone = folder.File("gone.typ");
    settings.Set(kRecentFilesSection, "1", gone);
    MainWindowModel fresh(doc, prompts, settings, "v0.1.0");
    ASSERT_EQ(fresh.Recent().Items().size(), 1u);
    fresh.OpenRecent(0);
    EXPECT_TRUE(fresh.Recent().Items().empty());
    EXPECT_FALSE(settings.Get(kRecentFilesSection, "1"));
    EXPECT_EQ(prompts.Texts("inform").at(0), "Mirvane|Fichier introuvable");
}

TEST_F(ModelFixture, DeletingTheOnlyPolygonAsksAndLeavesCountZero) {
    model.New();
    doc.Polygons.push_back(PolygonRecord{});
    doc.Polygons[0].Type = "003";
    doc.Polygons[0].SubType = "00";
    EXPECT_FALSE(model.DeleteObject(ObjectKind::Polygon, -1));  // no selection: no question
    EXPECT_TRUE(prompts.Texts("ask").empty());
    prompts.Answers = {false, true};
    model.SetEditScope(1, 0);
    EXPECT_FALSE(model.DeleteObject(ObjectKind::Polygon, 0));
    EXPECT_EQ(model.EditScope(), 1);
    EXPECT_TRUE(model.DeleteObject(ObjectKind::Polygon, 0));
    EXPECT_TRUE(doc.Polygons.empty());
    EXPECT_EQ(model.EditScope(), 0);  // the pane goes back to the whole document
    EXPECT_EQ(model.PolygonCaption(), "Liste des polygones  (0)");
    EXPECT_EQ(prompts.Texts("ask")[0],
              "Voulez-vous réellement supprimer le polygone ?|"
              "Supprimer définitivement le polygone Type:0x003  SubType:0x00 ?");
}

TEST_F(ModelFixture, OpenModifyCloseWithNoLosesChangesWithoutFurtherQuestion) {
    MIRVANE_REQUIRE_CORPUS();
    const std::string path = (testing::CorpusDir() / "binary" / "jbm-osm.typ").string();
    ASSERT_TRUE(model.OpenTyp(path));
    EXPECT_EQ(model.Title(), "Mirvane v0.1.0 - [jbm-osm.typ]");
    const int polygons = doc.PolygonCount();
    ASSERT_GT(polygons, 0);
    prompts.Answers = {true};
    ASSERT_TRUE(model.DeleteObject(ObjectKind::Polygon, 0));
    EXPECT_EQ(model.Title(), "Mirvane v0.1.0 - [jbm-osm.typ] modifié");
    EXPECT_EQ(model.LengthText(), "modifié");
    prompts.Answers = {false};
    model.Close();
    EXPECT_EQ(prompts.Texts("ask").size(), 2u);
    EXPECT_FALSE(model.HasDocument());
    EXPECT_EQ(model.Title(), "Mirvane v0.1.0");
    EXPECT_EQ(model.Recent().Items().front(), path);
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
