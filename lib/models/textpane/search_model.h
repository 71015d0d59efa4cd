// frmRecherche: the non-modal search and replace window on the text pane.
// Replacing changes the pane only; the records change when the user applies.
#pragma once

#include <cstddef>
#include <string>

#include "models/shell/user_prompts.h"
#include "models/textpane/text_buffer.h"

namespace mirvane {

class SearchModel {
public:
    SearchModel(TextBuffer& pane, UserPrompts& prompts);

    // What the window's fields hold when a button is pressed.
    std::string Word;         // Text1
    std::string Replacement;  // txtRemplacer
    FindOptions Options;      // chkCasse, chkMotEntier

    // Finds the next match. When there is none, asks whether to start again
    // from the top of the pane and, on Yes, searches once more from there.
    // True when a match is selected.
    bool FindNext();  // cmdSuivant
    // Replaces the pane's selection, whatever it holds.
    void ReplaceSelection();  // cmdRemplacer
    // Replaces every match behind the selection, then tells how many. Returns the count.
    std::size_t ReplaceAll();  // cmdRemplacerTout

private:
    std::size_t CurrentPosition() const { return pane_.SelStart() + pane_.SelLength(); }
    // One search step from the end of the selection; the position found, or -1.
    long long SearchStep();

    TextBuffer& pane_;
    UserPrompts& prompts_;
};

}  // namespace mirvane
