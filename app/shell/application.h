// Start-up of the desktop program: settings, language, the main window, the
// command line.
#pragma once

#include <QStringList>
#include <optional>
#include <string>
#include <vector>

#include "models/shell/main_window_model.h"

namespace mirvane::app {

class MainWindow;

// "v0.1.0": the version behind the word Mirvane in the title.
std::string ProgramVersionText();

// The "Langues" folder beside the program, else the installed data folder.
QString FindLanguageFolder();

// Connects the text listing of BoxVisualisation and the opening of .txt files
// to a window and its model.
void ConnectTextRoute(MainWindow& window, MainWindowModel& model);

// The text that --help or --version (-h, -v) asks for, or nothing when the
// arguments ask for neither; the program prints it and ends without opening
// a window, so it needs no window system.
std::optional<std::string> InformationText(const std::vector<std::string>& arguments);

// Runs the program on the arguments (without the program name):
//   [FILE]                       opens FILE
//   --screenshot OUT.png [FILE]  draws the main window offscreen into OUT.png and ends
//       [--window frmImporterBitmap --picture PICTURE]  draws that window instead, with the picture open
//       [--language NAME]             in that language
// Needs a QApplication.
int RunMirvane(const QStringList& arguments);

}  // namespace mirvane::app
