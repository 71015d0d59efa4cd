// frmErreur: the errors met while reading or parsing, shown when the work ends.
#pragma once

#include <string>

namespace mirvane {

// The text of the error list: "Erreurs rencontrées dans le fichier", "  : ",
// the path, a line end, 150 '*', two line ends and the log.
std::string ErrorWindowText(const std::string& filePath, const std::string& readErrorLog);

}  // namespace mirvane
