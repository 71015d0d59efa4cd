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

    // What the window shows.
    std::string Caption;
    std::string Text1;  // read-only, fixed-pitch
    bool cmdPrecedent_Enabled = false;
    bool cmdSuivant_Enabled = false;
    std::string cmdPrecedent_Caption;
    std::string cmdSuivant_Caption;
    std::string cmdCopier_Caption;
    std::string cmdFermer_Caption;

    void cmdPrecedent_Click();
    void cmdSuivant_Click();
    // The text the copy button puts on the clipboard.
    const std::string& cmdCopier_Click() const { return Text1; }

    // Position shown, counted from 0; meaningless with no backups.
    std::size_t Position() const { return position_; }

private:
    void Show(std::size_t position);

    const TextBackups& backups_;
    std::size_t position_ = 0;
};

}  // namespace mirvane
