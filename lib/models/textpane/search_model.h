// frmRecherche: the non-modal search and replace window on the text pane.
// Replacing changes the pane only; the records change when the user applies.
#pragma once

#include <cstddef>
#include <string>

#include "models/textpane/text_buffer.h"
#include "models/shell/user_prompts.h"

namespace mirvane {

class SearchModel {
public:
    SearchModel(TextBuffer& pane, UserPrompts& prompts);

    // Controls.
    std::string Text1;         // the word searched
    std::string txtRemplacer;  // its replacement
    bool chkCasse = false;
    bool chkMotEntier = false;
    bool Visible = true;

    // Captions.
    std::string Caption;
    std::string lblRechercher_Caption;
    std::string lblRemplacer_Caption;
    std::string chkCasse_Caption;
    std::string chkMotEntier_Caption;
    std::string cmdSuivant_Caption;
    std::string cmdRemplacer_Caption;
    std::string cmdRemplacerTout_Caption;
    std::string cmdAnnuler_Caption;

    // Finds the next match. When there is none, asks whether to start again
    // from the top of the pane and, on Yes, searches once more from there.
    // True when a match is selected.
    bool cmdSuivant_Click();
    // Replaces the pane's selection, whatever it holds.
    void cmdRemplacer_Click();
    // Replaces every match behind the selection, then tells how many. Returns the count.
    std::size_t cmdRemplacerTout_Click();
    void cmdAnnuler_Click() { Visible = false; }

private:
    FindOptions Options() const { return {chkCasse, chkMotEntier}; }
    std::size_t CurrentPosition() const { return pane_.SelStart() + pane_.SelLength(); }
    // One search step from the end of the selection; the position found, or -1.
    long long SearchStep();

    TextBuffer& pane_;
    UserPrompts& prompts_;
};

}  // namespace mirvane
