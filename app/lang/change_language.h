// frmLangues over the main window.
#pragma once

class QWidget;

namespace mirvane::app {

class MainWindow;

// Opens frmLangues over the window (not blocking); on OK the choice is
// stored and the main window follows.
void OpenLanguagesWindow(MainWindow& window);

}  // namespace mirvane::app
