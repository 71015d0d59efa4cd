// A reader of files in the form of Windows ini files, with the rules the
// existing language files are written for: section and key found without
// regard to case, the first match wins, blanks around keys and values are
// trimmed, one pair of quotes around a value is removed, and values are cut
// at 254 characters.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace mirvane {

// Longest value a lookup gives, in characters.
inline constexpr std::size_t kMaxIniValueLength = 254;

class IniFile {
public:
    IniFile() = default;
    // `text` is UTF-8; lines end in LF or CR LF.
    explicit IniFile(std::string_view text);

    // The value as stored (trimmed, unquoted, not cut); no value when the
    // section or the key is absent. Only the first section of a name is searched.
    std::optional<std::string> Find(std::string_view section, std::string_view key) const;

    // The value cut at kMaxIniValueLength characters, or `defaultText`.
    std::string Value(std::string_view section, std::string_view key, std::string_view defaultText) const;

private:
    using Keys = std::unordered_map<std::string, std::string>;  // lower-case key -> value
    std::unordered_map<std::string, Keys> sections_;           // lower-case name -> keys
};

// The text of a file as UTF-8: a UTF-8 byte order mark is skipped, and a file
// that is not valid UTF-8 is taken as Windows-1252 (older ANSI files).
std::string TextFileToUtf8(std::string_view bytes);

// Reads and parses a file; no value when it can not be read.
std::optional<IniFile> LoadIniFile(const std::filesystem::path& path);

// Cuts UTF-8 text after `maxCharacters` characters, never inside one.
std::string CutToCharacters(std::string_view utf8, std::size_t maxCharacters);

}  // namespace mirvane
