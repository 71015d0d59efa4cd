// Texts of the program as QString: the lookups and the label bytes.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "lang/lookup.h"

namespace mirvane::app {

inline QString Tr(std::string_view section, std::string_view defaultText, std::string_view key) {
    return QString::fromStdString(LookupText(section, defaultText, key));
}

inline QString MainTr(std::string_view defaultText, std::string_view key) { return Tr("Main", defaultText, key); }

// A caption of the main window (section "Main"): built in under French, else
// from the language file, so that a stray Francais.lng leaves captions alone.
inline QString MainCaption(std::string_view defaultText, std::string_view key) {
    return QString::fromStdString(FormCaption("Main", defaultText, key));
}

// Texts of the object editors (section "Editer"): a message or tip, looked up.
inline QString EditTr(std::string_view defaultText, std::string_view key) { return Tr("Editer", defaultText, key); }

// A caption of the object editors: built in under French, like MainCaption.
inline QString EditCaption(std::string_view defaultText, std::string_view key) {
    return QString::fromStdString(FormCaption("Editer", defaultText, key));
}

inline QString Q(const std::string& utf8) { return QString::fromStdString(utf8); }

// Text bytes of the document (labels, the listing) in its code page, for the
// widgets. Unknown code pages are read as 1252.
QString DecodeDocumentText(const std::string& bytes, int codePage);

}  // namespace mirvane::app
