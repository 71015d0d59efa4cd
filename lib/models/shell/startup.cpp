#include "models/shell/startup.h"

#include <filesystem>

#include "models/textpane/text_backups.h"
#include "lang/lookup.h"

namespace mirvane {

std::string AppVersionText(int major, int minor, int revision) {
    return "v" + std::to_string(major) + "." + std::to_string(minor) + "." + std::to_string(revision);
}

namespace {

bool ProgramHasLanguage(const std::string& name) {
    return name == kBuiltInLanguage || (!name.empty() && LanguageExists(name));
}

std::string FirstRunLanguage(const std::vector<std::string>& systemLanguages) {
    for (const std::string& name : systemLanguages)
        if (ProgramHasLanguage(name)) return name;
    return LanguageExists("English") ? "English" : kBuiltInLanguage;
}

}  // namespace

std::string SettleLanguage(SettingsStore& store, const std::vector<std::string>& systemLanguages) {
    std::string language = store.GetOr(kSettingsSection, "Langue", "");
    if (!ProgramHasLanguage(language)) {
        language = FirstRunLanguage(systemLanguages);
        store.Set(kSettingsSection, "Langue", language);
    }
    SetLanguageName(language);
    return language;
}

std::vector<std::string> LanguageFileNames(const std::string& isoCode, const std::string& englishName) {
    // The names language files go by in their own language, without accents.
    static const std::pair<const char*, const char*> kOwnNames[] = {
        {"fr", "Francais"},  {"en", "English"},   {"de", "Deutsch"},  {"es", "Espanol"},   {"it", "Italiano"},
        {"nl", "Nederlands"}, {"pt", "Portugues"}, {"pl", "Polski"},   {"cs", "Cesky"},     {"sk", "Slovensky"},
        {"hu", "Magyar"},    {"da", "Dansk"},     {"sv", "Svenska"},  {"no", "Norsk"},     {"nb", "Norsk"},
        {"fi", "Suomi"},     {"ru", "Russian"},   {"el", "Greek"},    {"tr", "Turkish"},   {"sl", "Slovenski"},
        {"hr", "Hrvatski"},  {"ro", "Romana"},    {"ca", "Catala"},   {"ja", "Japanese"},  {"zh", "Chinese"},
    };
    std::vector<std::string> names;
    for (const auto& [code, name] : kOwnNames)
        if (isoCode == code) names.emplace_back(name);
    if (!englishName.empty()) names.push_back(englishName);
    return names;
}

bool SettleUpdateCheck(SettingsStore& store) {
    if (store.GetOr(kSettingsSection, "MajAuto", "") == "1") return true;
    store.Set(kSettingsSection, "MajAuto", "0");
    return false;
}

std::string UpdateAddress(const SettingsStore& store) { return store.GetOr(kSettingsSection, "MajAdresse", ""); }

std::optional<int> VersionNumber(const std::string& text) {
    int parts[3] = {0, 0, 0};
    std::size_t at = 0;
    for (int i = 0; i < 3; ++i) {
        const std::size_t start = at;
        while (at < text.size() && text[at] >= '0' && text[at] <= '9' && at - start < 4)
            parts[i] = parts[i] * 10 + (text[at++] - '0');
        if (at == start) return std::nullopt;
        if (i < 2 && (at >= text.size() || text[at++] != '.')) return std::nullopt;
    }
    while (at < text.size() && (text[at] == '\r' || text[at] == '\n' || text[at] == ' ')) ++at;
    if (at != text.size()) return std::nullopt;
    return parts[0] * 10000 + parts[1] * 100 + parts[2];
}

UpdateVerdict JudgeUpdate(int major, int minor, int revision, const std::string& fetched) {
    if (fetched.empty()) return UpdateVerdict::ShowUpdateWindow;
    const std::optional<int> remote = VersionNumber(fetched);
    if (remote && *remote > major * 10000 + minor * 100 + revision) return UpdateVerdict::NewerAvailable;
    return UpdateVerdict::UpToDate;
}

bool AutoSaveSetting(const SettingsStore& store) {
    const std::string value = store.GetOr(kSettingsSection, "Sauvegarde automatique", "true");
    return !(value == "false" || value == "False" || value == "0" || value == "Faux");
}

void StoreAutoSaveSetting(SettingsStore& store, bool enabled) {
    store.Set(kSettingsSection, "Sauvegarde automatique", enabled ? "true" : "false");
}

void RemoveLeftOverBackup(const std::string& folder) { RemoveBackupFile(folder); }

std::string CommandLinePath(const std::string& argument) {
    std::string path = argument;
    if (!path.empty() && path.front() == '"') path.erase(0, 1);
    if (!path.empty() && path.back() == '"') path.pop_back();
    return path;
}

}  // namespace mirvane
