#include "app/common/texts.h"

#include "base/codepage.h"

namespace mirvane::app {

QString DecodeDocumentText(const std::string& bytes, int codePage) {
    return QString::fromStdString(DecodeDocumentBytes(bytes, codePage));
}

}  // namespace mirvane::app
