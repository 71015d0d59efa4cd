#include "models/shell/languages_model.h"

#include <filesystem>

#include "base/file_io.h"
#include "lang/ini_file.h"
#include "lang/lookup.h"

namespace mirvane {

namespace {

std::string LanguagesCaption(std::string_view fallback, std::string_view key) {
    return FormCaption("Langues", fallback, key);
}

}  // namespace

LanguagesModel::LanguagesModel(SettingsStore& settings, UserPrompts& prompts)
    : settings_(settings), prompts_(prompts) {}

void LanguagesModel::Form_Load() {
    Caption = LanguagesCaption("Langues disponibles", "frmLangues");
    lblLangues_Caption = LanguagesCaption("Choisissez la langue de Mirvane :", "lblLangues");
    cmdOK_Caption = LanguagesCaption("OK", "cmdOK");
    lstLang = {kFrenchRow};
    SelectedRow = 0;
    for (const std::string& name : ListLanguages()) {
        lstLang.push_back(name);
        if (name == LanguageName()) SelectedRow = static_cast<int>(lstLang.size()) - 1;
    }
    Visible = true;
}

LanguageChange LanguagesModel::cmdOK_Click() {
    Visible = false;
    if (SelectedRow < 0 || SelectedRow >= static_cast<int>(lstLang.size())) return LanguageChange::Unchanged;
    const std::string oldName = LanguageName();
    std::string chosen = lstLang[static_cast<std::size_t>(SelectedRow)];
    if (chosen == kFrenchRow) chosen = kBuiltInLanguage;
    if (chosen == oldName) return LanguageChange::Unchanged;

    SetLanguageName(chosen);
    settings_.Set(kSettingsSection, "Langue", chosen);
    if (chosen != kBuiltInLanguage) return LanguageChange::Translated;
    // The French captions of the main window were overwritten: only a restart
    // brings them back.
    prompts_.Inform("Mirvane", LookupTextIn(oldName, "Langues", "Restart Mirvane to apply changes to Main Window",
                                            "Redemarrer"));
    return LanguageChange::BackToFrench;
}

std::string LookupTextIn(const std::string& name, const std::string& section, const std::string& defaultText,
                         const std::string& key) {
    if (!LanguageFolder().empty() && !name.empty()) {
        if (auto file = LoadIniFile(PathFromUtf8(LanguageFolder()) / PathFromUtf8(name + ".lng")))
            return file->Value(section, key, defaultText);
    }
    return CutToCharacters(defaultText, kMaxIniValueLength);
}

}  // namespace mirvane
