// The text pane without widgets: applying its text, the backups in memory and
// in Mirvane.save, and the backups window.
#include <gtest/gtest.h>

#include <filesystem>

#include "corpus.h"
#include "models/textpane/backups_window_model.h"
#include "models/textpane/text_backups.h"
#include "models/textpane/text_pane_session.h"
#include "scripted_prompts.h"
#include "temp_folder.h"
#include "text/parser.h"

namespace mirvane {
namespace {

namespace fs = std::filesystem;

class BackupFolder : public ::testing::Test {
protected:
    std::string Folder() const { return folder_.Path().string(); }
    std::string FileBytes() const { return testing::ReadFileText(folder_.Path() / kBackupFileName); }

    testing::TempFolder folder_;
};

TEST_F(BackupFolder, EntriesCountEveryBackupAndOverwriteTheLastByteOfTheOneBefore) {
    const std::string stars(80, '*');
    EXPECT_EQ(BackupFileEntry("a.typ", 2, "[_id]\r\n"),
              stars + "\r\na.typ Sauvegarde n°2\r\n" + stars + "\r\n[_id]\r\n\r\r\r");

    TextBackups backups;
    sauvegardertexte(backups, "zero", false, Folder(), "f.typ");  // counted, not written
    sauvegardertexte(backups, "one", true, Folder(), "f.typ");
    sauvegardertexte(backups, "two", true, Folder(), "f.typ");
    std::string first = BackupFileEntry("f.typ", 2, "one");
    first.pop_back();  // the last carriage return gives way to the next entry
    EXPECT_EQ(FileBytes(), first + BackupFileEntry("f.typ", 3, "two"));
    EXPECT_EQ(backups.Count(), 3u);
}

TEST_F(BackupFolder, AFailedWriteKeepsTheMemoryBackupAndTheLastSessionsFileGoes) {
    TextBackups backups;
    const std::string missing = (folder_.Path() / "no" / "such" / "folder").string();
    sauvegardertexte(backups, "text", true, missing, "f.typ");
    EXPECT_EQ(backups.Count(), 1u);
    EXPECT_FALSE(AppendBackupEntry(missing, "x"));

    ASSERT_TRUE(AppendBackupEntry(Folder(), "old"));
    RemoveBackupFile(Folder());
    RemoveBackupFile(Folder());  // none left: no harm
    ASSERT_TRUE(AppendBackupEntry(Folder(), "new"));
    EXPECT_EQ(FileBytes(), "new");
}

TEST(BackupsWindow, OpensOnTheNewestAndStepsInsideTheList) {
    TextBackups backups;
    for (const char* text : {"a", "b", "c"}) backups.Add(text);
    BackupsWindowModel window(backups);
    EXPECT_EQ(window.Text(), "c");
    EXPECT_TRUE(window.CanShowPrevious() && !window.CanShowNext());
    for (int i = 0; i < 3; ++i) window.ShowPrevious();  // the third is disabled: stays on the first
    EXPECT_EQ(window.Title(), "Sauvegarde au format texte  ( 1/3 )");
    EXPECT_TRUE(!window.CanShowPrevious() && window.CanShowNext());
}

class TextPaneSessionTest : public ::testing::Test {
protected:
    void SetUp() override {
        doc_.State = DocumentState::Loaded;
        doc_.SetPath(folder_.File("a.typ"));
        ParseTypText(doc_, "[_polygon]\r\nType=0x01\r\nXpm=\"0 0 1 0\"\r\n\"1 c #FF0000\"\r\n[end]\r\n");
        session_.SetBackupFolder(folder_.Path().string());
    }
    testing::TempFolder folder_;
    Document doc_;
    ScriptedPrompts prompts_;
    MemorySettingsStore settings_;
    MainWindowModel model_{doc_, prompts_, settings_, "v"};
    TextPaneSession session_{model_, prompts_};
};

// The additional POI and the label sections are not in the text and stay.
TEST_F(TextPaneSessionTest, EmptyWholeTextLeavesAnEmptyDocumentAndMarksIt) {
    ASSERT_EQ(doc_.Polygons.size(), 1u);
    doc_.ExtraPois.resize(4);
    doc_.LabelTextBytes = {1, 2};
    session_.Apply("", false);
    EXPECT_TRUE(doc_.Polygons.empty());
    EXPECT_EQ(doc_.ExtraPois.size(), 4u);
    EXPECT_EQ(doc_.LabelTextBytes.size(), 2u);
    EXPECT_TRUE(doc_.ModifiedFlag);
    EXPECT_EQ(session_.Backups().Count(), 1u);
    EXPECT_FALSE(fs::exists(folder_.Path() / kBackupFileName));
}

TEST_F(TextPaneSessionTest, BrokenTextOpensTheErrorListOnce) {
    doc_.ReadErrorLog = "old";
    session_.Apply("[_polygon]\r\nType=0x01\r\nXpm=\"0 0 zz 0\"\r\n[end]\r\n", true);
    const auto errors = prompts_.Texts("errors");
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].find("old"), std::string::npos);
    EXPECT_TRUE(fs::exists(folder_.Path() / kBackupFileName));
}

TEST_F(TextPaneSessionTest, ApplyingOneObjectRebuildsOnlyItAndSelectsItAtItsNewRow) {
    ParseTypText(doc_, "[_polygon]\r\nType=0x05\r\nXpm=\"0 0 1 0\"\r\n\"1 c #00FF00\"\r\n[end]\r\n");
    ASSERT_EQ(doc_.Polygons.size(), 2u);
    model_.Select(ObjectRef{ObjectKind::Polygon, 0});
    // Type 0x01 becomes 0x09: it sorts after 0x05.
    session_.Apply("[_polygon]\r\nType=0x09\r\nXpm=\"0 0 1 0\"\r\n\"1 c #0000FF\"\r\n[end]\r\n", false);
    ASSERT_EQ(doc_.Polygons.size(), 2u);
    EXPECT_EQ(doc_.Polygons[0].Type, "005");
    EXPECT_EQ(doc_.Polygons[1].Type, "009");
    EXPECT_TRUE(model_.Selection() == (ObjectRef{ObjectKind::Polygon, 1}));
}

TEST_F(TextPaneSessionTest, SaveTextAsksBeforeReplacingAFile) {
    const std::string target = folder_.File("out.txt");
    prompts_.Paths = {target, target};
    prompts_.Answers = {true};
    ASSERT_TRUE(session_.SaveText("a\r\nb"));
    ASSERT_TRUE(session_.SaveText("c"));
    EXPECT_EQ(prompts_.Texts("ask").size(), 1u);
    EXPECT_EQ(testing::ReadFileText(target), "c");
}

}  // namespace
}  // namespace mirvane
