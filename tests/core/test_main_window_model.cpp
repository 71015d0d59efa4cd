#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "corpus.h"
#include "document/binary_reader.h"
#include "models/shell/main_window_model.h"
#include "models/shell/recent_files.h"
#include "models/shell/startup.h"
#include "scripted_prompts.h"
#include "temp_folder.h"

namespace mirvane {
namespace {

namespace fs = std::filesystem;
using mirvane::testing::TempFolder;

TEST(RecentFiles, NewestFirstTheEighthPushesOutAndStoringDropsStaleKeys) {
    RecentFiles recent;
    for (int i = 1; i <= 8; ++i) recent.Add("f" + std::to_string(i));
    recent.Add("f5");  // already there: moves to the top
    ASSERT_EQ(recent.Items().size(), RecentFiles::kCapacity);
    EXPECT_EQ(recent.Items().front() + recent.Items()[1] + recent.Items().back(), "f5f8f2");

    MemorySettingsStore store;
    RecentFiles few;
    for (const char* p : {"a", "b", "c"}) few.Add(p);
    few.Store(store);
    few.Remove("b");
    few.Store(store);
    EXPECT_FALSE(store.Get(kRecentFilesSection, "3"));
}

TEST(Startup, FirstRunStoresDefaultsAndAGoneLanguageFallsBackToFrench) {
    MemorySettingsStore store;
    EXPECT_EQ(SettleLanguage(store), "Francais");
    EXPECT_FALSE(SettleUpdateCheck(store));
    EXPECT_EQ(store.GetOr(kSettingsSection, "Langue", "") + store.GetOr(kSettingsSection, "MajAuto", ""), "Francais0");
    EXPECT_TRUE(AutoSaveSetting(store));
    store.Set(kSettingsSection, "Langue", "Klingon");  // its file is gone
    EXPECT_EQ(SettleLanguage(store), "Francais");
    EXPECT_EQ(store.GetOr(kSettingsSection, "Langue", ""), "Francais");
}

TEST(Startup, QuotedCommandLinePathAndLeftOverBackup) {
    EXPECT_EQ(CommandLinePath("\"C:\\Cartes\\ma carte.typ\""), "C:\\Cartes\\ma carte.typ");
    TempFolder folder;
    std::ofstream(folder.File("Mirvane.save")) << "x";
    RemoveLeftOverBackup(folder.File(""));
    EXPECT_FALSE(fs::exists(folder.File("Mirvane.save")));
}

TEST(Startup, UpdateCheckComparesWeightedVersions) {
    EXPECT_EQ(VersionNumber("0.10.0\r\n"), 1000);
    EXPECT_EQ(JudgeUpdate(0, 1, 0, "0.1.1"), UpdateVerdict::NewerAvailable);
    EXPECT_EQ(JudgeUpdate(1, 0, 0, "0.9.9"), UpdateVerdict::UpToDate);
    EXPECT_EQ(JudgeUpdate(0, 1, 0, "<html>"), UpdateVerdict::UpToDate);
    EXPECT_EQ(JudgeUpdate(0, 1, 0, ""), UpdateVerdict::ShowUpdateWindow);
}

struct ModelFixture : ::testing::Test {
    Document doc;
    ScriptedPrompts prompts;
    MemorySettingsStore settings;
    MainWindowModel model{doc, prompts, settings, "v0.1.0"};
};

TEST_F(ModelFixture, NewDocumentHasDefaultsAndIsNeverMarked) {
    doc.State = DocumentState::Loaded;
    doc.Identity = {7, 8, 1250, 174};
    model.New();
    EXPECT_EQ(model.CodePageIndex(), 2);  // 1252
    EXPECT_EQ(model.HeaderSizeIndex(), 0);  // 91
    EXPECT_EQ(model.FidText(), "");
    EXPECT_TRUE(model.Enables().CreateTyp);
    model.MarkModified();
    EXPECT_EQ(model.Title(), "Mirvane v0.1.0 - Nouveau TYP");
    // Saving is refused, before any dialog, until FID and product code are given.
    EXPECT_FALSE(model.SaveTyp());
    EXPECT_EQ(prompts.Texts("inform").size(), 1u);
    EXPECT_TRUE(prompts.Texts("save").empty());
}

// The window test types digits and an out-of-range value; these are the bounds.
TEST_F(ModelFixture, IdentityValueBounds) {
    EXPECT_EQ(model.CheckIdentityValue("0"), 0);
    EXPECT_EQ(model.CheckIdentityValue("65535"), 65535);
    EXPECT_FALSE(model.CheckIdentityValue("65536") || model.CheckIdentityValue(""));
    EXPECT_EQ(prompts.Texts("inform").size(), 2u);
}

// What the code page and header size combos show for a document's values,
// and what picking an item sets.
TEST_F(ModelFixture, CombosFollowTheDocumentsCodePageAndHeaderSize) {
    struct Case {
        int codePage, headerSize, codePageIndex;
        const char* unlistedCodePage;
        int headerSizeIndex;
        std::size_t headerSizeItems;  // an unknown size gets an item of its own
    };
    const Case cases[] = {
        {1250, 91, 0, "", 0, 5},
        {1300, 110, -1, "1300", 1, 5},
        {65001, 168, 9, "", 5, 6},
    };
    model.New();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.headerSize);
        doc.Identity.CodePage = c.codePage;
        doc.Identity.HeaderSize = c.headerSize;
        EXPECT_EQ(model.CodePageIndex(), c.codePageIndex);
        EXPECT_EQ(model.UnlistedCodePageText(), c.unlistedCodePage);
        EXPECT_EQ(model.HeaderSizeIndex(), c.headerSizeIndex);
        EXPECT_EQ(model.HeaderSizeItems().size(), c.headerSizeItems);
    }
    model.SetHeaderSizeIndex(5);  // the document's own item: nothing to change
    EXPECT_EQ(doc.Identity.HeaderSize, 168);
    model.SetHeaderSizeIndex(2);
    model.SetCodePageIndex(3);
    EXPECT_EQ(doc.Identity.HeaderSize, 156);
    EXPECT_EQ(doc.Identity.CodePage, 1253);
}

TEST_F(ModelFixture, DeletingThePickedPolygonSendsThePaneBackToTheDocument) {
    model.New();
    doc.Polygons.resize(1);
    EXPECT_FALSE(model.DeleteObject(ObjectKind::Polygon, -1));  // no selection: no question
    prompts.Answers = {false, true};
    model.Select(ObjectRef{ObjectKind::Polygon, 0});
    EXPECT_FALSE(model.DeleteObject(ObjectKind::Polygon, 0));
    EXPECT_TRUE(model.Selection().has_value());
    std::vector<ChangeSet> told;
    model.Changes().Listen([&](ChangeSet what) { told.push_back(what); });
    EXPECT_TRUE(model.DeleteObject(ObjectKind::Polygon, 0));
    EXPECT_TRUE(doc.Polygons.empty());
    EXPECT_FALSE(model.Selection());  // the pane goes back to the whole document
    EXPECT_EQ(told, std::vector<ChangeSet>{Change::Polygons | Change::File | Change::Selection});
}

TEST_F(ModelFixture, AnUpperCaseTypEndingOpensAsBinary) {
    TempFolder folder;
    const std::string upper = folder.File("SAMPLE.TYP");
    fs::copy_file(fs::path(MIRVANE_SOURCE_DIR) / "samples" / "sample.typ", upper);
    ASSERT_TRUE(model.OpenAny(upper));
    EXPECT_FALSE(doc.FromText);
    EXPECT_EQ(doc.PolygonCount(), 16);
}

TEST_F(ModelFixture, SaveAsksBeforeOverwritingAndWritesAReadableFile) {
    MIRVANE_REQUIRE_CORPUS();
    TempFolder folder;
    const std::string target = folder.File("copie.typ");
    std::ofstream(target) << "x";
    ASSERT_TRUE(model.OpenTyp((testing::CorpusDir() / "binary" / "jbm-osm.typ").string()));
    const Document opened = doc;  // this file's code page is not one of the combo's
    // First answer No to overwriting: the dialog comes again; then Yes.
    prompts.Paths = {target, target};
    prompts.Answers = {false, true};
    ASSERT_TRUE(model.SaveTyp());
    EXPECT_EQ(prompts.Texts("ask").size(), 2u);
    Document again;
    ASSERT_TRUE(OpenBinaryTyp(again, target));
    EXPECT_EQ(again.PolygonCount(), opened.PolygonCount());
    EXPECT_EQ(again.ReadErrorLog, opened.ReadErrorLog);
}

}  // namespace
}  // namespace mirvane
