// frmLangues: the list, the choice, the stored setting and the restart
// message in the words of the language left.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "models/shell/languages_model.h"
#include "lang/lookup.h"
#include "language_folder_test.h"
#include "scripted_prompts.h"

namespace {

namespace fs = std::filesystem;

class LanguagesModelTest : public LanguageFolderTest {
protected:
    void SetUp() override {
        LanguageFolderTest::SetUp();
        WriteLanguage("English", "[Langues]\nRedemarrer=Please restart\n[Main]\nfraPOI=POIs\n");
        WriteLanguage("Deutsch", "[Main]\nfraPOI=POIs\n");
    }
    int RowOf(const mirvane::LanguagesModel& model, const std::string& name) {
        for (std::size_t i = 0; i < model.Rows().size(); ++i)
            if (model.Rows()[i] == name) return static_cast<int>(i);
        return -1;
    }

    mirvane::MemorySettingsStore settings_;
    ScriptedPrompts prompts_;
};

TEST_F(LanguagesModelTest, FrenchComesFirstAndTheCurrentLanguageIsSelected) {
    mirvane::SetLanguageName(mirvane::kBuiltInLanguage);
    mirvane::LanguagesModel model(settings_, prompts_);
    model.Load();
    ASSERT_EQ(model.Rows().size(), 3u);
    EXPECT_EQ(model.Rows()[0], "Français");
    EXPECT_EQ(model.SelectedRow, 0);

    mirvane::SetLanguageName("English");
    model.Load();
    EXPECT_EQ(model.SelectedRow, RowOf(model, "English"));
}

TEST_F(LanguagesModelTest, SameLanguageChangesNothing) {
    mirvane::SetLanguageName("English");
    mirvane::LanguagesModel model(settings_, prompts_);
    model.Load();
    EXPECT_EQ(model.ApplyChoice(), mirvane::LanguageChange::Unchanged);
    EXPECT_FALSE(settings_.Get("Paramètres", "Langue"));
    EXPECT_TRUE(prompts_.Log.empty());
}

TEST_F(LanguagesModelTest, AnotherLanguageIsStoredAndTranslatesAtOnce) {
    mirvane::SetLanguageName(mirvane::kBuiltInLanguage);
    mirvane::LanguagesModel model(settings_, prompts_);
    model.Load();
    model.SelectedRow = RowOf(model, "Deutsch");
    EXPECT_EQ(model.ApplyChoice(), mirvane::LanguageChange::Translated);
    EXPECT_EQ(mirvane::LanguageName(), "Deutsch");
    EXPECT_EQ(settings_.Get("Paramètres", "Langue"), "Deutsch");
    EXPECT_TRUE(prompts_.Log.empty());
}

TEST_F(LanguagesModelTest, BackToFrenchStoresFrancaisAndAsksForARestartInTheOldLanguage) {
    mirvane::SetLanguageName("English");
    mirvane::LanguagesModel model(settings_, prompts_);
    model.Load();
    model.SelectedRow = 0;
    EXPECT_EQ(model.ApplyChoice(), mirvane::LanguageChange::BackToFrench);
    EXPECT_EQ(mirvane::LanguageName(), "Francais");
    EXPECT_EQ(settings_.Get("Paramètres", "Langue"), "Francais");
    EXPECT_EQ(prompts_.Texts("inform"), std::vector<std::string>{"Mirvane|Please restart"});

    // A language file without the key gives the English default.
    prompts_.Log.clear();
    mirvane::SetLanguageName("Deutsch");
    model.Load();
    model.SelectedRow = 0;
    model.ApplyChoice();
    EXPECT_EQ(prompts_.Texts("inform"),
              std::vector<std::string>{"Mirvane|Restart Mirvane to apply changes to Main Window"});
}

TEST_F(LanguagesModelTest, AStrayFrancaisFileChangesMessagesButNotCaptions) {
    WriteLanguage("Francais", "[Langues]\nfrmLangues=Langues\ncmdOK=D'accord\n");
    mirvane::SetLanguageName(mirvane::kBuiltInLanguage);
    EXPECT_EQ(mirvane::FormCaption("Langues", "Langues disponibles", "frmLangues"), "Langues disponibles");
    EXPECT_EQ(mirvane::FormCaption("Langues", "OK", "cmdOK"), "OK");
    EXPECT_EQ(mirvane::LookupText("Langues", "OK", "cmdOK"), "D'accord");

    mirvane::SetLanguageName("English");
    WriteLanguage("English", "[Langues]\nfrmLangues=Available languages\n");
    EXPECT_EQ(mirvane::FormCaption("Langues", "Langues disponibles", "frmLangues"), "Available languages");
}

TEST_F(LanguagesModelTest, AMissingFolderListsOnlyFrench) {
    mirvane::SetLanguageFolder((folder_ / "absent").string());
    mirvane::LanguagesModel model(settings_, prompts_);
    model.Load();
    EXPECT_EQ(model.Rows(), std::vector<std::string>{"Français"});
    EXPECT_EQ(mirvane::LookupTextIn("English", "Langues", "x", "Redemarrer"), "x");
}

}  // namespace
