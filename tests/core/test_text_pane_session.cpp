#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "models/textpane/text_pane_session.h"
#include "scripted_prompts.h"
#include "temp_folder.h"
#include "text/parser.h"

namespace mirvane {
namespace {

TEST(PaneColours, ParsesTheColourTableEntries) {
    EXPECT_EQ(ParseRtfColour("\\red70\\green150\\blue70"), (PaneColour{70, 150, 70}));
    EXPECT_EQ(ParseRtfColour("\\blue255"), (PaneColour{0, 0, 255}));
    EXPECT_EQ(ParseRtfColour("\\red999\\greenx"), (PaneColour{255, 0, 0}));
    EXPECT_EQ(ParseRtfColour(""), PaneColour{});
}

TEST(PaneColours, RolesPickTheirEntry) {
    EXPECT_EQ(PieceColourIndex(PieceRole::Comment), 1);
    EXPECT_EQ(PieceColourIndex(PieceRole::HeadingComment), 1);
    EXPECT_EQ(PieceColourIndex(PieceRole::DrawOrderHead), 2);
    EXPECT_EQ(PieceColourIndex(PieceRole::IdEnd), 2);
    EXPECT_EQ(PieceColourIndex(PieceRole::Key), 3);
    EXPECT_EQ(PieceColourIndex(PieceRole::Text), 0);
}

TEST(PaneColours, SettingsOverrideTheDefaults) {
    MemorySettingsStore settings;
    settings.Set(kSettingsSection, "RtfColour2", "\\red1\\green2\\blue3");
    const auto colours = PaneColours(LoadRtfColours(settings));
    EXPECT_EQ(colours[2], (PaneColour{1, 2, 3}));
    EXPECT_EQ(colours[1], (PaneColour{70, 150, 70}));
    EXPECT_EQ(colours[3], (PaneColour{255, 0, 0}));
}

TEST(PaneCodePage, FollowsTheComboOrTheUnlistedPage) {
    IdentityFields id;
    id.CodePageIndex = 1;
    EXPECT_EQ(PaneCodePage(id), 1251);
    id.CodePageIndex = -1;
    EXPECT_EQ(PaneCodePage(id), 1252);
    id.UnlistedCodePage = 65001;
    EXPECT_EQ(PaneCodePage(id), 65001);
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

TEST_F(TextPaneSessionTest, EmptyWholeTextLeavesAnEmptyDocumentAndMarksIt) {
    ASSERT_EQ(doc_.Polygons.size(), 1u);
    session_.Apply("", false);
    EXPECT_TRUE(doc_.Polygons.empty());
    EXPECT_FALSE(model_.Selection());
    EXPECT_TRUE(doc_.ModifiedFlag);
    EXPECT_EQ(session_.Backups().Count(), 1u);
    EXPECT_FALSE(std::filesystem::exists(folder_.Path() / kBackupFileName));
}

TEST_F(TextPaneSessionTest, BrokenTextOpensTheErrorListOnce) {
    doc_.ReadErrorLog = "old";
    session_.Apply("[_polygon]\r\nType=0x01\r\nXpm=\"0 0 zz 0\"\r\n[end]\r\n", true);
    const auto errors = prompts_.Texts("errors");
    if (doc_.ReadErrorFlag) {
        ASSERT_EQ(errors.size(), 1u);
        EXPECT_EQ(errors[0].find("old"), std::string::npos);
    }
    EXPECT_TRUE(std::filesystem::exists(folder_.Path() / kBackupFileName));
}

TEST_F(TextPaneSessionTest, ApplyingOneObjectRebuildsOnlyItAndSelectsItAtItsNewRow) {
    ParseTypText(doc_, "[_polygon]\r\nType=0x05\r\nXpm=\"0 0 1 0\"\r\n\"1 c #00FF00\"\r\n[end]\r\n");
    ASSERT_EQ(doc_.Polygons.size(), 2u);
    std::vector<ChangeSet> told;
    model_.Changes().Listen([&](ChangeSet what) { told.push_back(what); });
    model_.Select(ObjectRef{ObjectKind::Polygon, 0});
    // Type 0x01 becomes 0x09: it sorts after 0x05.
    session_.Apply("[_polygon]\r\nType=0x09\r\nXpm=\"0 0 1 0\"\r\n\"1 c #0000FF\"\r\n[end]\r\n", false);
    ASSERT_EQ(doc_.Polygons.size(), 2u);
    EXPECT_EQ(doc_.Polygons[0].Type, "005");
    EXPECT_EQ(doc_.Polygons[1].Type, "009");
    EXPECT_TRUE(model_.Selection() == (ObjectRef{ObjectKind::Polygon, 1}));
    ASSERT_FALSE(told.empty());
    EXPECT_TRUE(told.back().Has(Change::Selection));
    EXPECT_TRUE(std::any_of(told.begin(), told.end(), [](ChangeSet c) { return c.Has(Change::Polygons); }));
    EXPECT_FALSE(std::any_of(told.begin(), told.end(), [](ChangeSet c) { return c.Has(Change::Pois); }));
}

TEST_F(TextPaneSessionTest, LeavingThePaneOffersTheApplyButtonOnlyWhenTheFocusGoesElsewhere) {
    session_.FocusLeft(true, true);
    EXPECT_FALSE(session_.ApplyEnabled());
    session_.FocusLeft(false, false);
    EXPECT_FALSE(session_.ApplyEnabled());
    session_.FocusLeft(true, false);
    EXPECT_TRUE(session_.ApplyEnabled() && session_.ApplyVisible());
    EXPECT_EQ(session_.ApplyCaption(), "Cliquer ici pour appliquer les modifications");
}

TEST_F(TextPaneSessionTest, SaveTextAsksBeforeReplacingAFile) {
    const std::string target = (folder_.Path() / "out.txt").string();
    prompts_.Paths.push_back(target);
    ASSERT_TRUE(session_.SaveText("a\r\nb"));
    prompts_.Paths.push_back(target);
    prompts_.Answers.push_back(true);
    ASSERT_TRUE(session_.SaveText("c"));
    EXPECT_EQ(prompts_.Texts("ask").size(), 1u);
    EXPECT_EQ(std::filesystem::file_size(target), 1u);
}

}  // namespace
}  // namespace mirvane
