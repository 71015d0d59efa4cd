#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "corpus.h"
#include "document/document.h"
#include "temp_folder.h"
#include "models/textpane/backups_window_model.h"
#include "models/textpane/text_backups.h"
#include "models/textpane/text_pane_session.h"

using namespace mirvane;
namespace fs = std::filesystem;

namespace {

class BackupFolder : public ::testing::Test {
protected:
    std::string Folder() const { return folder_.Path().string(); }
    std::string FileBytes() const { return mirvane::testing::ReadFileText(folder_.Path() / kBackupFileName); }

    mirvane::testing::TempFolder folder_;
};

std::string Stars() { return std::string(80, '*'); }

}  // namespace

TEST(BackupEntry, HasBannerNameNumberTextAndThreeCarriageReturns) {
    const std::string expected = Stars() + "\r\n" + "a.typ Sauvegarde n°2\r\n" + Stars() + "\r\n" + "[_id]\r\n" + "\r\r\r";
    EXPECT_EQ(BackupFileEntry("a.typ", 2, "[_id]\r\n"), expected);
}

TEST_F(BackupFolder, EachEntryOverwritesTheLastByteOfTheOneBefore) {
    TextBackups backups;
    sauvegardertexte(backups, "one", true, Folder(), "f.typ");
    sauvegardertexte(backups, "two", true, Folder(), "f.typ");
    std::string first = BackupFileEntry("f.typ", 1, "one");
    first.pop_back();  // the last carriage return gives way to the next entry
    EXPECT_EQ(FileBytes(), first + BackupFileEntry("f.typ", 2, "two"));
    EXPECT_EQ(FileBytes().substr(first.size() - 2, 3), "\r\r*");
}

TEST_F(BackupFolder, NumberCountsEveryBackupEvenThoseNotWritten) {
    TextBackups backups;
    sauvegardertexte(backups, "one", false, Folder(), "f.typ");
    sauvegardertexte(backups, "two", true, Folder(), "f.typ");
    EXPECT_EQ(FileBytes(), BackupFileEntry("f.typ", 2, "two"));
}

TEST_F(BackupFolder, FailedWriteIsPassedOverAndTheMemoryBackupStays) {
    TextBackups backups;
    const std::string missing = (folder_.Path() / "no" / "such" / "folder").string();
    sauvegardertexte(backups, "text", true, missing, "f.typ");
    EXPECT_EQ(backups.Count(), 1u);
    EXPECT_FALSE(AppendBackupEntry(missing, "x"));
}

TEST_F(BackupFolder, RemoveBackupFileClearsTheLastSessionAndToleratesNone) {
    ASSERT_TRUE(AppendBackupEntry(Folder(), "old"));
    RemoveBackupFile(Folder());
    EXPECT_FALSE(fs::exists(folder_.Path() / kBackupFileName));
    RemoveBackupFile(Folder());
    ASSERT_TRUE(AppendBackupEntry(Folder(), "new"));
    EXPECT_EQ(FileBytes(), "new");
}

TEST(BackupsWindow, OpensOnTheLastOfThreeAndStepsBack) {
    TextBackups backups;
    for (const char* text : {"a", "b", "c"}) backups.Add(text);
    BackupsWindowModel window(backups);
    EXPECT_EQ(window.Title(), "Dernière sauvegarde au format texte  ( 3/3 )");
    EXPECT_EQ(window.Text(), "c");
    EXPECT_TRUE(window.CanShowPrevious());
    EXPECT_FALSE(window.CanShowNext());

    window.ShowPrevious();
    window.ShowPrevious();
    EXPECT_EQ(window.Title(), "Sauvegarde au format texte  ( 1/3 )");
    EXPECT_EQ(window.Text(), "a");
    EXPECT_FALSE(window.CanShowPrevious());
    EXPECT_TRUE(window.CanShowNext());
    window.ShowPrevious();  // disabled: stays on the first
    EXPECT_EQ(window.Position(), 0u);

    window.ShowNext();
    EXPECT_EQ(window.Title(), "Sauvegarde au format texte  ( 2/3 )");
    EXPECT_TRUE(window.CanShowPrevious() && window.CanShowNext());
}

TEST(BackupsWindow, WithoutBackupsSaysSoAndCannotStep) {
    TextBackups backups;
    BackupsWindowModel window(backups);
    EXPECT_EQ(window.Title(), "Sauvegarde au format texte");
    EXPECT_EQ(window.Text(), "Aucune sauvegarde");
    EXPECT_FALSE(window.CanShowPrevious() || window.CanShowNext());
    window.ShowNext();
    window.ShowPrevious();
    EXPECT_EQ(window.Text(), "Aucune sauvegarde");
}

TEST(TextPane, ApplyingTheWholeTextEmptiesObjectsButKeepsOtherSections) {
    Document doc;
    doc.Polygons.resize(2);
    doc.Polylines.resize(3);
    doc.PolylineCount = 2;
    doc.ExtraPolylineCount = 1;
    doc.Pois.resize(1);
    doc.ExtraPois.resize(4);
    doc.DrawOrderRows = {"Type=0x003,1"};
    doc.LabelTextBytes = {1, 2};

    ClearObjectsForWholeText(doc);
    EXPECT_TRUE(doc.Polygons.empty() && doc.Polylines.empty() && doc.Pois.empty() && doc.DrawOrderRows.empty());
    EXPECT_EQ(doc.PolylineCount + doc.ExtraPolylineCount, 0);
    EXPECT_EQ(doc.ExtraPois.size(), 4u);
    EXPECT_EQ(doc.LabelTextBytes.size(), 2u);
}
