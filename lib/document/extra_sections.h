// What the browser of additional labels (frmLabels) shows: the sections are
// carried verbatim and only shown, since the meaning of their tables is unknown.
#pragma once

#include <string>

#include "document/document.h"

namespace mirvane {

struct LabelsBrowserContent {
    std::string Caption;       // "Liste des POIs supplémentaires  (n)"
    std::string CloseCaption;  // "Fermer"
    std::string Text;          // label bytes stay in the document's code page
    int RowCount = 0;
};

// One line a string: the first table's row in hexadecimal, a tab, the second
// table's row, two tabs, the string.
LabelsBrowserContent LabelsBrowserText(const Document& doc);

}  // namespace mirvane
