// The language codes of object labels: the code stored in a label block is
// the row of the language combo of the editors.
#pragma once

#include <string>

namespace mirvane {

// Codes run from 0 ("Autre") to LanguageCodeCount() - 1.
int LanguageCodeCount();

// The name in the current language (key "Langue<code>" of section "Editer");
// empty for a code outside the table.
std::string LanguageCodeName(int code);

// The built-in French name; empty for a code outside the table.
std::string LanguageCodeDefaultName(int code);

}  // namespace mirvane
