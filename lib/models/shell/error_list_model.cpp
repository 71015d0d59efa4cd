#include "models/shell/error_list_model.h"

#include "document/records.h"
#include "lang/lookup.h"

namespace mirvane {

std::string ErrorWindowText(const std::string& filePath, const std::string& readErrorLog) {
    return LookupText("Erreurs", "Erreurs rencontrées dans le fichier", "msgErreur") + "  : " + filePath +
           kLineBreak + std::string(150, '*') + kLineBreak + kLineBreak + readErrorLog;
}

}  // namespace mirvane
