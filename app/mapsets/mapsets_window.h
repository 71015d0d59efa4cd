// frmMapsets: the installed mapsets in lstvMapsets and the buttons that tie a
// TYP to one of them, bound to InstallTypModel.
#pragma once

#include <QDialog>

#include "mapsets/mapset_environment.h"
#include "models/mapsets/install_typ_model.h"

class QPushButton;
class QTreeWidget;

namespace mirvane {
class MainWindowModel;
}

namespace mirvane::app {

class MapsetsWindow : public QDialog {
    Q_OBJECT
public:
    // `openOnly` (from mnuOuvrirTypMapset) hides the buttons that change
    // anything: only opening a mapset's TYP is offered.
    MapsetsWindow(MapsetEnvironment environment, UserPrompts& prompts, InstallTypModel::TypOpener openTyp,
                  bool openOnly, QWidget* parent = nullptr);

    // Sets every caption and tooltip in the current language.
    void RetranslateUi();

private:
    void FillList();
    void FitColumns();
    // Runs a command on the row selected in the list, then shows the rows again.
    void RunOnSelection(void (InstallTypModel::*command)());
    void OpenTyp();

    MapsetEnvironment environment_;
    InstallTypModel model_;
    QTreeWidget* lstvMapsets_;
    QPushButton *cmdOK_, *cmdSupprimer_, *cmdOuvrirTyp_, *cmdEffacerCache_, *cmdAnnuler_;
};

// frmMapsets over this machine's mapsets, opening TYPs in the main window.
void ShowMapsetsWindow(QWidget* parent, MainWindowModel& model, bool openOnly);

// mnuEffacerCache: the caches of this machine's map programs.
void ClearMapCaches(UserPrompts& prompts);

}  // namespace mirvane::app
