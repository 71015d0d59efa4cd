// Small helpers shared by the parser tests.
#pragma once

#include <string>

#include "document/document.h"
#include "text/parser.h"

namespace mirvane::test {

// Whole-document parse of `text` into a fresh document.
inline Document ParseDocument(const std::string& text) {
    Document doc;
    ParseTypText(doc, text);
    return doc;
}

inline Bytes B(std::initializer_list<int> values) {
    Bytes bytes;
    for (int v : values) bytes.push_back(static_cast<std::uint8_t>(v));
    return bytes;
}

inline Bytes BytesOf(const std::string& text) { return Bytes(text.begin(), text.end()); }

}  // namespace mirvane::test
