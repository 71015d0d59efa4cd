#include "editors/startup.h"

#include <filesystem>

#include "lang/lookup.h"

namespace mirvane {

std::string AppVersionText(int major, int minor, int revision) {
    return "v" + std::to_string(major) + "." + std::to_string(minor) + "." + std::to_string(revision);
}

std::string SettleLanguage(SettingsStore& store) {
    std::string language = store.GetOr(kSettingsSection, "Langue", "");
    if (language.empty() || !LanguageExists(language)) {
        language = kBuiltInLanguage;
        store.Set(kSettingsSection, "Langue", language);
    }
    SetLanguageName(language);
    return language;
}

bool SettleUpdateCheck(SettingsStore& store) {
    if (store.GetOr(kSettingsSection, "MajAuto", "") == "1") return true;
    store.Set(kSettingsSection, "MajAuto", "0");
    return false;
}

bool AutoSaveSetting(const SettingsStore& store) {
    const std::string value = store.GetOr(kSettingsSection, "Sauvegarde automatique", "true");
    return !(value == "false" || value == "False" || value == "0" || value == "Faux");
}

void StoreAutoSaveSetting(SettingsStore& store, bool enabled) {
    store.Set(kSettingsSection, "Sauvegarde automatique", enabled ? "true" : "false");
}

void RemoveLeftOverBackup(const std::string& folder) {
    std::error_code ignored;
    std::filesystem::remove(std::filesystem::path(folder) / "Mirvane.save", ignored);
}

std::string CommandLinePath(const std::string& argument) {
    std::string path = argument;
    if (!path.empty() && path.front() == '"') path.erase(0, 1);
    if (!path.empty() && path.back() == '"') path.pop_back();
    return path;
}

}  // namespace mirvane
