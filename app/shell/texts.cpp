#include "shell/texts.h"

namespace mirvane::app {

QString DecodeDocumentText(const std::string& bytes, int /*codePage*/) {
    return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

}  // namespace mirvane::app
