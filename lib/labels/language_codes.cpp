#include "labels/language_codes.h"

#include <array>
#include <string_view>

#include "lang/lookup.h"

namespace mirvane {

namespace {

constexpr std::array<std::string_view, 35> kDefaultNames = {
    "Autre",     "Français",  "Allemand", "Hollandais", "Anglais",   "Italien",    "Finlandais",
    "Suédois",   "Espagnol",  "Basque",   "Catalan",    "Galican",   "Irlandais",  "Gaëlique",
    "Danois",    "Norvégien", "Portuguais", "Slovaque", "Tchèque",   "Croate",     "Hongrois",
    "Polonais",  "Turc",      "Grec",     "Slovène",    "Russe",     "Estonien",   "Letton",
    "Roumain",   "Albanais",  "Bosniaque", "Lituanien", "Serbe",     "Macédonien", "Bulgare",
};

bool InTable(int code) { return code >= 0 && code < LanguageCodeCount(); }

}  // namespace

int LanguageCodeCount() { return static_cast<int>(kDefaultNames.size()); }

std::string LanguageCodeDefaultName(int code) {
    return InTable(code) ? std::string(kDefaultNames[code]) : std::string();
}

std::string LanguageCodeName(int code) {
    if (!InTable(code)) return {};
    return LookupText("Editer", kDefaultNames[code], "Langue" + std::to_string(code));
}

}  // namespace mirvane
