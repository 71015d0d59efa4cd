#include "lang/ini_file.h"

#include "base/file_io.h"
#include "base/codepage.h"
#include "base/ascii.h"

namespace mirvane {

namespace {

constexpr std::string_view kBlanks = " \t\r\f\v";
constexpr std::string_view kUtf8Bom = "\xEF\xBB\xBF";

std::string_view Trim(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    const auto last = text.find_last_not_of(kBlanks);
    return text.substr(first, last - first + 1);
}

std::string_view Unquoted(std::string_view value) {
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
        return value.substr(1, value.size() - 2);
    return value;
}

}  // namespace

IniFile::IniFile(std::string_view text) {
    Keys* current = nullptr;  // null before the first section and inside a repeated one
    while (!text.empty()) {
        const auto end = text.find('\n');
        const std::string_view line = Trim(text.substr(0, end));
        text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
        if (line.empty() || line.front() == ';') continue;
        if (line.front() == '[') {
            const auto close = line.find(']');
            const std::string name = AsciiLower(Trim(line.substr(1, close == std::string_view::npos ? close : close - 1)));
            const auto [it, isNew] = sections_.try_emplace(name);
            current = isNew ? &it->second : nullptr;
            continue;
        }
        const auto equals = line.find('=');
        if (!current || equals == std::string_view::npos) continue;
        const std::string_view key = Trim(line.substr(0, equals));
        if (key.empty()) continue;
        current->try_emplace(AsciiLower(key), Unquoted(Trim(line.substr(equals + 1))));
    }
}

std::optional<std::string> IniFile::Find(std::string_view section, std::string_view key) const {
    const auto foundSection = sections_.find(AsciiLower(Trim(section)));
    if (foundSection == sections_.end()) return std::nullopt;
    const auto foundKey = foundSection->second.find(AsciiLower(Trim(key)));
    if (foundKey == foundSection->second.end()) return std::nullopt;
    return foundKey->second;
}

std::string IniFile::Value(std::string_view section, std::string_view key, std::string_view defaultText) const {
    const auto value = Find(section, key);
    return CutToCharacters(value ? std::string_view(*value) : defaultText, kMaxIniValueLength);
}

std::string TextFileToUtf8(std::string_view bytes) {
    if (bytes.substr(0, kUtf8Bom.size()) == kUtf8Bom) bytes.remove_prefix(kUtf8Bom.size());
    if (IsValidUtf8(bytes)) return std::string(bytes);
    return DecodeCodePage(bytes, 1252);
}

std::optional<IniFile> LoadIniFile(const std::filesystem::path& path) {
    std::string bytes;
    if (!ReadWholeFile(path, bytes)) return std::nullopt;
    return IniFile(TextFileToUtf8(bytes));
}

std::string CutToCharacters(std::string_view utf8, std::size_t maxCharacters) {
    std::size_t characters = 0;
    for (std::size_t pos = 0; pos < utf8.size(); ++pos) {
        const bool startsCharacter = (static_cast<unsigned char>(utf8[pos]) & 0xC0) != 0x80;
        if (startsCharacter && characters++ == maxCharacters) return std::string(utf8.substr(0, pos));
    }
    return std::string(utf8);
}

}  // namespace mirvane
