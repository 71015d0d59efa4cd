#include "models/textpane/backups_window_model.h"

#include "lang/lookup.h"

namespace mirvane {

namespace {
std::string WindowText(std::string_view fallback, std::string_view key) {
    return LookupText("Sauvegardetxt", fallback, key);
}
}  // namespace

BackupsWindowModel::BackupsWindowModel(const TextBackups& backups)
    : cmdPrecedent_Caption(WindowText("<<Précédent", "cmdPrecedent")),
      cmdSuivant_Caption(WindowText("Suivant >>", "cmdSuivant")),
      cmdCopier_Caption(WindowText("Copier dans le presse-papier", "cmdCopier")),
      cmdFermer_Caption(WindowText("Fermer", "cmdFermer")),
      backups_(backups) {
    if (backups_.Empty()) {
        Caption = WindowText("Sauvegarde au format texte", "msgSauvegarde");
        Text1 = WindowText("Aucune sauvegarde", "msgPasdesauvegarde");
        return;
    }
    Show(backups_.Count() - 1);
}

void BackupsWindowModel::cmdPrecedent_Click() {
    if (cmdPrecedent_Enabled) Show(position_ - 1);
}

void BackupsWindowModel::cmdSuivant_Click() {
    if (cmdSuivant_Enabled) Show(position_ + 1);
}

void BackupsWindowModel::Show(std::size_t position) {
    position_ = position;
    const std::size_t total = backups_.Count();
    const bool last = position + 1 == total;
    Caption = last ? WindowText("Dernière sauvegarde au format texte", "msgDerniereSauvegarde")
                   : WindowText("Sauvegarde au format texte", "msgSauvegarde");
    Caption += "  ( " + std::to_string(position + 1) + "/" + std::to_string(total) + " )";
    Text1 = backups_.At(position);
    cmdPrecedent_Enabled = position > 0;
    cmdSuivant_Enabled = !last;
}

}  // namespace mirvane
