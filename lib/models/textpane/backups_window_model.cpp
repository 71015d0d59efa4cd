#include "models/textpane/backups_window_model.h"

#include "lang/lookup.h"

namespace mirvane {

namespace {
std::string WindowText(std::string_view fallback, std::string_view key) {
    return LookupText("Sauvegardetxt", fallback, key);
}
}  // namespace

BackupsWindowModel::BackupsWindowModel(const TextBackups& backups)
    : backups_(backups), position_(backups.Empty() ? 0 : backups.Count() - 1) {}

std::string BackupsWindowModel::Title() const {
    if (!HasBackups()) return WindowText("Sauvegarde au format texte", "msgSauvegarde");
    const std::size_t total = backups_.Count();
    const std::string title = position_ + 1 == total
                                  ? WindowText("Dernière sauvegarde au format texte", "msgDerniereSauvegarde")
                                  : WindowText("Sauvegarde au format texte", "msgSauvegarde");
    return title + "  ( " + std::to_string(position_ + 1) + "/" + std::to_string(total) + " )";
}

std::string BackupsWindowModel::Text() const {
    return HasBackups() ? backups_.At(position_) : WindowText("Aucune sauvegarde", "msgPasdesauvegarde");
}

void BackupsWindowModel::ShowPrevious() {
    if (CanShowPrevious()) --position_;
}

void BackupsWindowModel::ShowNext() {
    if (CanShowNext()) ++position_;
}

}  // namespace mirvane
