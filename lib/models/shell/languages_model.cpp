#include "models/shell/languages_model.h"

#include <filesystem>

#include "base/file_io.h"
#include "lang/ini_file.h"
#include "lang/lookup.h"

namespace mirvane {

LanguagesModel::LanguagesModel(SettingsStore& settings, UserPrompts& prompts)
    : settings_(settings), prompts_(prompts) {}

void LanguagesModel::Load() {
    rows_ = {kFrenchRow};
    SelectedRow = 0;
    for (const std::string& name : ListLanguages()) {
        rows_.push_back(name);
        if (name == LanguageName()) SelectedRow = static_cast<int>(rows_.size()) - 1;
    }
}

LanguageChange LanguagesModel::ApplyChoice() {
    if (SelectedRow < 0 || SelectedRow >= static_cast<int>(rows_.size())) return LanguageChange::Unchanged;
    const std::string oldName = LanguageName();
    std::string chosen = rows_[static_cast<std::size_t>(SelectedRow)];
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
