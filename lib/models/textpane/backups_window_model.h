// frmSauvegardetxt: steps through the backups of the text pane. Backups are
// shown and copied, never restored from here.
#pragma once

#include <cstddef>
#include <string>

#include "models/textpane/text_backups.h"

namespace mirvane {

class BackupsWindowModel {
public:
    // Opens on the newest backup.
    explicit BackupsWindowModel(const TextBackups& backups);

    // "Dernière sauvegarde au format texte" on the newest backup, "Sauvegarde
    // au format texte" on the others, then "  ( position/total )"; without
    // backups the second alone.
    std::string Title() const;  // Caption
    // The backup shown, or "Aucune sauvegarde".
    std::string Text() const;  // Text1
    bool HasBackups() const { return !backups_.Empty(); }

    bool CanShowPrevious() const { return HasBackups() && position_ > 0; }                 // cmdPrécédent
    bool CanShowNext() const { return HasBackups() && position_ + 1 < backups_.Count(); }  // cmdSuivant
    // Each does nothing at its end of the list.
    void ShowPrevious();
    void ShowNext();

    // Position shown, counted from 0; meaningless with no backups.
    std::size_t Position() const { return position_; }

private:
    const TextBackups& backups_;
    std::size_t position_ = 0;
};

}  // namespace mirvane
