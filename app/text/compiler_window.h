// frmCompiler: hands a text file to the external compiler, bound to
// CompilerModel. The tool is started and left to run on its own.
#pragma once

#include <QDialog>
#include <functional>

#include "models/shell/settings_store.h"
#include "models/textpane/compiler_model.h"

class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace mirvane::app {

class CompilerWindow : public QDialog {
    Q_OBJECT
public:
    CompilerWindow(SettingsStore& settings, UserPrompts& prompts, QWidget* parent = nullptr);

    // Sets every caption in the current language.
    void RetranslateUi();

    // Starts the command; false when the system could not start it. Tests
    // replace it to see the command without running anything.
    std::function<bool(const CompilerCommand&)> Start;

private:
    // A caption over a path field with its browse button.
    struct PathRow {
        QLabel* Label = nullptr;
        QLineEdit* Field = nullptr;
    };
    PathRow AddPathRow(QGridLayout* grid, int row, const char* labelName, const char* fieldName, const char* buttonName,
                       void (CompilerWindow::*browse)());
    void BrowseTool();
    void BrowseText();
    void BrowseTyp();
    void Run();
    void ShowFields();

    SettingsStore& settings_;
    CompilerModel model_;
    PathRow tool_;  // lblcGPSmapperPath, txtChemincGPSmapper
    PathRow text_;  // lblTxtPath, txtFichiertxt
    PathRow typ_;   // lblTypPath, txtFichierTyp
    QPushButton *Command1_, *cmdAnnuler_;
};

}  // namespace mirvane::app
