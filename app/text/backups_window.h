// frmSauvegardetxt: the backups of the text pane, one at a time, in a
// read-only fixed-pitch box. Shown and copied, never restored from here.
#pragma once

#include <QDialog>

#include "models/textpane/backups_window_model.h"

class QPlainTextEdit;
class QPushButton;

namespace mirvane::app {

class BackupsWindow : public QDialog {
    Q_OBJECT
public:
    // The backups are document bytes, shown in `codePage`.
    BackupsWindow(const TextBackups& backups, int codePage, QWidget* parent = nullptr);

    // Sets every caption in the current language.
    void RetranslateUi();

private:
    void Redraw();

    BackupsWindowModel model_;
    int codePage_;
    QPlainTextEdit* Text1_;
    QPushButton *cmdPrecedent_, *cmdSuivant_, *cmdCopier_, *cmdFermer_;
};

}  // namespace mirvane::app
