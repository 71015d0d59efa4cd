// frmLangues: the choice of the interface language. French is built in and
// needs no file; every other language is a .lng file of the language folder.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "models/shell/settings_store.h"
#include "models/shell/user_prompts.h"

namespace mirvane {

// The row that stands for the built-in language, and the name it is stored as.
inline constexpr const char* kFrenchRow = "Français";

// What choosing a row did.
enum class LanguageChange {
    Unchanged,     // same language: nothing to do
    Translated,    // another language: the main window takes its texts now
    BackToFrench,  // French again: the user was told to restart
};

class LanguagesModel {
public:
    LanguagesModel(SettingsStore& settings, UserPrompts& prompts);

    // Fills the list and selects the current language.
    void Load();  // Form_Load
    // "Français" first, then the language files.
    const std::vector<std::string>& Rows() const { return rows_; }  // lstLang
    int SelectedRow = 0;

    // Takes the selected row as the language: stores it, and going back to
    // French tells the user, in the words of the language left, to restart.
    LanguageChange ApplyChoice();  // cmdOK

private:
    SettingsStore& settings_;
    UserPrompts& prompts_;
    std::vector<std::string> rows_;
};

// The text of `key` in the file of language `name`, or the default: the
// restart message is read from the language being left.
std::string LookupTextIn(const std::string& name, const std::string& section, const std::string& defaultText,
                         const std::string& key);

}  // namespace mirvane
