// ChangerLangue1: sets every text of the main window again from section
// "Main" of the current language.
#pragma once

class QWidget;

namespace mirvane::app {

class MainWindow;

// Captions, menu titles, field labels and tooltips by the table of the main
// window's texts; the lists and their counted frame captions are redrawn.
// A key the language file lacks gives an empty text: a language file is
// expected to hold every caption key, and the existing ones do.
void ChangerLangue1(MainWindow& window);

// Opens frmLangues over the window (not blocking); on OK the choice is
// stored and the main window follows.
void OpenLanguagesWindow(MainWindow& window);

}  // namespace mirvane::app
