#include "document/file_messages.h"

#include "lang/lookup.h"

namespace mirvane {

namespace {

std::string NotAFileText() {
    return MainText("ce n'est pas un fichier ordinaire (dossier, périphérique...)", "msgPasUnFichier");
}

}  // namespace

std::string ReadFailureText(const ReadResult& result) {
    switch (result.Status) {
    case ReadStatus::NotRegularFile: return NotAFileText();
    case ReadStatus::TooLarge:
        return MainText("le fichier dépasse 256 Mo, bien plus que ne peut en compter un TYP", "msgFichierTropGrand");
    case ReadStatus::Read:
    case ReadStatus::Missing:
    case ReadStatus::Failed: break;
    }
    return result.Reason;
}

std::string WriteFailureText(WriteStatus status, const std::string& reason) {
    switch (status) {
    case WriteStatus::NotRegularFile: return NotAFileText();
    case WriteStatus::ReadOnly: return MainText("le fichier est en lecture seule", "msgLectureSeule");
    case WriteStatus::Failed:
    case WriteStatus::Written: break;
    }
    return reason;
}

}  // namespace mirvane
