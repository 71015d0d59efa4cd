// Texts in the current language. The built-in language is French: every call
// carries its French default, so the program runs without any language file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mirvane {

// The built-in language, which needs no file.
inline constexpr const char* kBuiltInLanguage = "Francais";

// Folder holding the .lng files ("Langues" beside the program). Names and
// folders are UTF-8 throughout.
void SetLanguageFolder(std::string folder);
const std::string& LanguageFolder();

void SetLanguageName(std::string name);
const std::string& LanguageName();

// The value of `key` in `section` of the current language's file, or
// `defaultText` when the file or the key is absent. At most 254 characters.
std::string LookupText(std::string_view section, std::string_view defaultText, std::string_view key);

// LookupText in "Main", the section of the main window and its messages.
inline std::string MainText(std::string_view defaultText, std::string_view key) {
    return LookupText("Main", defaultText, key);
}

// A caption of a form: the built-in French while the language is French (a
// stray Francais.lng changes messages only), else looked up.
std::string FormCaption(std::string_view section, std::string_view defaultText, std::string_view key);

// `value` with its digits in groups of three, parted by the language's
// thousands separator: "14 452" in French, "14,452" in English.
std::string GroupedNumber(std::int64_t value);

bool LanguageExists(std::string_view name);

// Base names of the .lng files of the language folder, sorted by name; empty
// when there is none or no folder.
std::vector<std::string> ListLanguages();

// Where the language folder may stand, in order of preference: "Langues"
// beside the program, the installed share folder
// (programDir/../share/mirvane/Langues), then the user's data folder
// ($XDG_DATA_HOME or ~/.local/share, then mirvane/Langues).
std::vector<std::string> CandidateLanguageFolders(const std::string& programDir);

// The first candidate that exists, else "Langues" beside the program.
std::string ChooseLanguageFolder(const std::string& programDir);

}  // namespace mirvane
