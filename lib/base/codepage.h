// Conversions between the bytes of a document code page and UTF-8, for the
// text pane and the label editors. Label bytes stay bytes in the document;
// these are only for showing and entering text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mirvane {

inline constexpr int kUtf8CodePage = 65001;

// True for 1250..1258 and 65001. Every other code page is read as 1252, the
// code page of a new document.
bool IsSupportedCodePage(int codePage);

// Bytes in `codePage` -> UTF-8. Bytes the code page leaves undefined become the
// code point of the same value (U+0080..U+00FF), so nothing is lost.
// 65001 gives the bytes as they stand.
std::string DecodeCodePage(std::string_view bytes, int codePage);

// Text bytes of a document for showing. An unsupported code page reads as
// 1252. A 65001 document still holds the program's own words in 1252: each
// line (up to and with its '\n') is read as UTF-8 where it is valid, else as 1252.
std::string DecodeDocumentBytes(std::string_view bytes, int codePage);

// UTF-8 -> bytes in `codePage`. A character the code page lacks, or a byte that
// is not valid UTF-8, becomes '?' and sets *lossless to false (else true).
// 65001 gives the text as it stands.
std::string EncodeCodePage(std::string_view utf8, int codePage, bool* lossless = nullptr);

// UTF-8 -> bytes in `codePage`, all or nothing: no value when a character is
// missing from the code page (or a byte is not valid UTF-8); `missing` then
// holds that character as it stands in `utf8`.
std::optional<std::string> EncodeCodePageExactly(std::string_view utf8, int codePage, std::string& missing);

bool IsValidUtf8(std::string_view text);

// Appends the UTF-8 form of a code point (U+0000..U+10FFFF).
void AppendUtf8(std::string& out, char32_t codePoint);

}  // namespace mirvane
