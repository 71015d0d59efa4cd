#include "models/textpane/search_model.h"

#include "document/records.h"
#include "lang/lookup.h"

namespace mirvane {

namespace {
std::string SearchText(std::string_view fallback, std::string_view key) {
    return LookupText("Rechercher", fallback, key);
}
}  // namespace

SearchModel::SearchModel(TextBuffer& pane, UserPrompts& prompts)
    : Caption(SearchText("Rechercher", "Caption")),
      lblRechercher_Caption(SearchText("Rechercher :", "lblRechercher")),
      lblRemplacer_Caption(SearchText("Remplacer par :", "lblRemplacer")),
      chkCasse_Caption(SearchText("Respecter la casse", "chkCasse")),
      chkMotEntier_Caption(SearchText("Mot entier uniquement", "chkMotEntier")),
      cmdSuivant_Caption(SearchText("Suivant", "cmdSuivant")),
      cmdRemplacer_Caption(SearchText("Remplacer", "cmdRemplacer")),
      cmdRemplacerTout_Caption(SearchText("Remplacer tout", "cmdRemplacerTout")),
      cmdAnnuler_Caption(SearchText("Annuler", "cmdAnnuler")),
      pane_(pane),
      prompts_(prompts) {}

long long SearchModel::SearchStep() {
    const std::size_t start = CurrentPosition();
    pane_.SetSelection(start, 0);
    if (Text1.empty()) return -1;
    return pane_.Find(Text1, start, Options());
}

bool SearchModel::cmdSuivant_Click() {
    if (SearchStep() >= 0) return true;
    const std::string question = SearchText("Impossible de trouver", "msgImpossible") + "  \"" + Text1 + "\"" +
                                 kLineBreak + kLineBreak +
                                 SearchText("Reprendre la recherche depuis le début du fichier?", "msgReprendre");
    if (!prompts_.AskYesNo("Mirvane", question, false)) return false;
    // One new start per click: a word missing from the whole pane would
    // otherwise bring the same question back for ever.
    pane_.SetSelection(0, 0);
    return SearchStep() >= 0;
}

void SearchModel::cmdRemplacer_Click() { pane_.ReplaceSelection(txtRemplacer); }

std::size_t SearchModel::cmdRemplacerTout_Click() {
    const std::size_t start = CurrentPosition();
    pane_.SetSelection(start, 0);
    const std::size_t count = Text1.empty() ? 0 : pane_.ReplaceAll(Text1, txtRemplacer, start, Options());
    prompts_.Inform(SearchText("Terminé", "msgTermine"),
                    std::to_string(count) + "  " + SearchText("remplacements effectués", "msgremplacements"));
    return count;
}

}  // namespace mirvane
