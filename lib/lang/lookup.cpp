// Placeholder until the ini reader lands: every lookup gives its default.
#include "lang/lookup.h"

namespace mirvane {

namespace {
std::string g_folder;
std::string g_name = kBuiltInLanguage;
}  // namespace

void SetLanguageFolder(std::string folder) { g_folder = std::move(folder); }
const std::string& LanguageFolder() { return g_folder; }
void SetLanguageName(std::string name) { g_name = std::move(name); }
const std::string& LanguageName() { return g_name; }

std::string LookupText(std::string_view, std::string_view defaultText, std::string_view) {
    return std::string(defaultText);
}

bool LanguageExists(std::string_view) { return false; }
std::vector<std::string> ListLanguages() { return {}; }

}  // namespace mirvane
