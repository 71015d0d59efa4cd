// frmLangues: the list, the choice, the stored setting and the restart
// message in the words of the language left.
#include <gtest/gtest.h>

#include <algorithm>

#include "lang/lookup.h"
#include "language_folder_test.h"
#include "models/shell/languages_model.h"
#include "scripted_prompts.h"

namespace mirvane {
namespace {

class LanguagesModelTest : public LanguageFolderTest {
protected:
    void SetUp() override {
        LanguageFolderTest::SetUp();
        WriteLanguage("English", "[Langues]\nRedemarrer=Please restart\n[Main]\nfraPOI=POIs\n");
        WriteLanguage("Deutsch", "[Main]\nfraPOI=POIs\n");
    }
    MemorySettingsStore settings_;
    ScriptedPrompts prompts_;
    LanguagesModel model_{settings_, prompts_};
};

TEST_F(LanguagesModelTest, FrenchComesFirstAndTheCurrentLanguageIsSelected) {
    SetLanguageName(kBuiltInLanguage);
    model_.Load();
    EXPECT_EQ(model_.Rows(), (std::vector<std::string>{"Français", "Deutsch", "English"}));
    EXPECT_EQ(model_.SelectedRow, 0);
    SetLanguageName("English");
    model_.Load();
    EXPECT_EQ(model_.SelectedRow, 2);
}

TEST_F(LanguagesModelTest, TheChoiceIsStoredAndFrenchAgainAsksForARestartInTheLanguageLeft) {
    struct Case {
        const char *Current, *Chosen;
        LanguageChange Change;
        std::optional<std::string> Stored;
        std::vector<std::string> Informed;
    };
    const Case cases[] = {
        {"English", "English", LanguageChange::Unchanged, std::nullopt, {}},
        {kBuiltInLanguage, "Deutsch", LanguageChange::Translated, "Deutsch", {}},
        {"English", kFrenchRow, LanguageChange::BackToFrench, "Francais", {"Mirvane|Please restart"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.Current) + " -> " + c.Chosen);
        MemorySettingsStore settings;
        ScriptedPrompts prompts;
        LanguagesModel model(settings, prompts);
        SetLanguageName(c.Current);
        model.Load();
        const auto chosen = std::find(model.Rows().begin(), model.Rows().end(), c.Chosen);
        ASSERT_NE(chosen, model.Rows().end());
        model.SelectedRow = static_cast<int>(chosen - model.Rows().begin());
        EXPECT_EQ(model.ApplyChoice(), c.Change);
        EXPECT_EQ(LanguageName(), c.Stored.value_or(c.Current));
        EXPECT_EQ(settings.Get("Paramètres", "Langue"), c.Stored);
        EXPECT_EQ(prompts.Texts("inform"), c.Informed);
    }
}

TEST_F(LanguagesModelTest, AMissingFolderListsOnlyFrench) {
    SetLanguageFolder((folder_ / "absent").string());
    model_.Load();
    EXPECT_EQ(model_.Rows(), std::vector<std::string>{"Français"});
    EXPECT_EQ(LookupTextIn("English", "Langues", "x", "Redemarrer"), "x");
}

}  // namespace
}  // namespace mirvane
