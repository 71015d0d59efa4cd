#include "shell/texts.h"

#include "labels/codepage.h"

namespace mirvane::app {

QString DecodeDocumentText(const std::string& bytes, int codePage) {
    return QString::fromStdString(DecodeDocumentBytes(bytes, codePage));
}

}  // namespace mirvane::app
