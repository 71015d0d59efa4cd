// The text pane's apply button: the user edits the listing, then applies it,
// and the text parser writes the records of the scope shown.
#pragma once

#include <functional>
#include <string>

#include "document/document.h"

namespace mirvane {

// Before the whole document is read again from the pane: objects and draw
// order are gone, so what the text does not hold is gone too. The
// additional POI and the label sections are not in the text and stay.
void ClearObjectsForWholeText(Document& doc);

class TextPaneModel {
public:
    TextPaneModel();

    std::string cmdAppliquerModif_Caption;
    bool cmdAppliquerModif_Enabled = false;
    bool cmdAppliquerModif_Visible = false;

    // The user changed the pane's text.
    void BoxVisualisation_Change();
    // The pane lost the focus: with the listing shown and the focus gone to
    // another control, the apply button comes on. Nothing is applied.
    void BoxVisualisation_LostFocus(bool textShown, bool focusStaysInPane);

    struct ApplySteps {
        std::function<void()> MarkModified;                      // Modifié
        std::function<void(const std::string& text)> ouvrirtxt;  // parses into the document
    };
    // editScope 0 replaces the whole document; 1, 2 and 3 only the object
    // selected in its list, which the parser rebuilds.
    void cmdAppliquerModif_Click(Document& doc, int editScope, const std::string& paneText, const ApplySteps& steps);
};

}  // namespace mirvane
