#include "models/textpane/search_model.h"

#include "document/records.h"
#include "lang/lookup.h"

namespace mirvane {

namespace {
std::string SearchText(std::string_view fallback, std::string_view key) {
    return LookupText("Rechercher", fallback, key);
}
}  // namespace

SearchModel::SearchModel(TextBuffer& pane, UserPrompts& prompts) : pane_(pane), prompts_(prompts) {}

long long SearchModel::SearchStep() {
    const std::size_t start = CurrentPosition();
    pane_.SetSelection(start, 0);
    if (Word.empty()) return -1;
    return pane_.Find(Word, start, Options);
}

bool SearchModel::FindNext() {
    if (SearchStep() >= 0) return true;
    const std::string question = SearchText("Impossible de trouver", "msgImpossible") + "  \"" + Word + "\"" +
                                 kLineBreak + kLineBreak +
                                 SearchText("Reprendre la recherche depuis le début du fichier?", "msgReprendre");
    if (!prompts_.AskYesNo("Mirvane", question, false)) return false;
    // One new start per click: a word missing from the whole pane would
    // otherwise bring the same question back for ever.
    pane_.SetSelection(0, 0);
    return SearchStep() >= 0;
}

void SearchModel::ReplaceSelection() { pane_.ReplaceSelection(Replacement); }

std::size_t SearchModel::ReplaceAll() {
    const std::size_t start = CurrentPosition();
    pane_.SetSelection(start, 0);
    const std::size_t count = Word.empty() ? 0 : pane_.ReplaceAll(Word, Replacement, start, Options);
    prompts_.Inform(SearchText("Terminé", "msgTermine"),
                    std::to_string(count) + "  " + SearchText("remplacements effectués", "msgremplacements"));
    return count;
}

}  // namespace mirvane
