// frmCompiler: hands a text file to the external compiler, bound to
// CompilerModel. The tool is started and left to run on its own.
#pragma once

#include <QDialog>
#include <functional>

#include "models/textpane/compiler_route.h"
#include "models/shell/settings_store.h"

class QGridLayout;
class QLineEdit;

namespace mirvane::app {

class CompilerWindow : public QDialog {
    Q_OBJECT
public:
    CompilerWindow(SettingsStore& settings, UserPrompts& prompts, QWidget* parent = nullptr);

    // Starts the command; false when the system could not start it. Tests
    // replace it to see the command without running anything.
    std::function<bool(const CompilerCommand&)> Start;

private:
    QLineEdit* AddPathRow(QGridLayout* grid, int row, const std::string& caption, const char* fieldName,
                          const char* buttonName, void (CompilerWindow::*browse)());
    void BrowseTool();
    void BrowseText();
    void BrowseTyp();
    void Run();
    void ShowFields();

    SettingsStore& settings_;
    CompilerModel model_;
    QLineEdit *txtChemincGPSmapper_, *txtFichiertxt_, *txtFichierTyp_;
};

}  // namespace mirvane::app
