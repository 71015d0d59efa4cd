// Case folding of ASCII letters only: keys, section names and file endings
// compare this way; other bytes (a label's code page) stay as they are.
#pragma once

#include <string>
#include <string_view>

namespace mirvane {

inline char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

inline std::string AsciiLower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) c = AsciiLower(c);
    return lower;
}

}  // namespace mirvane
