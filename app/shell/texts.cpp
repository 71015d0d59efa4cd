#include "shell/texts.h"

#include "labels/codepage.h"

namespace mirvane::app {

QString DecodeDocumentText(const std::string& bytes, int codePage) {
    if (codePage != kUtf8CodePage)
        return QString::fromStdString(DecodeCodePage(bytes, IsSupportedCodePage(codePage) ? codePage : 1252));
    // A UTF-8 document still has the program's own words in 1252: each line
    // is shown in whichever of the two it is valid in.
    std::string text;
    text.reserve(bytes.size());
    std::size_t start = 0;
    while (start < bytes.size()) {
        std::size_t end = bytes.find('\n', start);
        end = end == std::string::npos ? bytes.size() : end + 1;
        const std::string_view line(bytes.data() + start, end - start);
        text += IsValidUtf8(line) ? std::string(line) : DecodeCodePage(line, 1252);
        start = end;
    }
    return QString::fromStdString(text);
}

}  // namespace mirvane::app
