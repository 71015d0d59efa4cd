#include "lang/lookup.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <optional>

#include "base/file_io.h"
#include "lang/ini_file.h"
#include "base/ascii.h"

namespace mirvane {

namespace fs = std::filesystem;

namespace {

std::string g_folder;
std::string g_name = kBuiltInLanguage;

std::optional<fs::path> LanguageFilePath(std::string_view name) {
    if (g_folder.empty() || name.empty()) return std::nullopt;
    return PathFromUtf8(g_folder) / PathFromUtf8(std::string(name) + ".lng");
}

// The parsed file of the last lookup, read again only when the path, the size
// or the modification time changes.
struct CachedFile {
    fs::path Path;
    std::uintmax_t Size = 0;
    fs::file_time_type ModificationTime{};
    IniFile Contents;
};

std::mutex g_cacheMutex;
std::optional<CachedFile> g_cache;

// The parsed language file, or null when there is none. Call with the mutex held.
const IniFile* ParsedFile(const fs::path& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return nullptr;
    const auto size = fs::file_size(path, error);
    if (error) return nullptr;
    const auto modified = fs::last_write_time(path, error);
    if (error) return nullptr;
    if (g_cache && g_cache->Path == path && g_cache->Size == size && g_cache->ModificationTime == modified)
        return &g_cache->Contents;
    auto contents = LoadIniFile(path);
    if (!contents) {
        g_cache.reset();
        return nullptr;
    }
    g_cache = CachedFile{path, size, modified, std::move(*contents)};
    return &g_cache->Contents;
}

bool HasLanguageExtension(const fs::path& file) {
    return AsciiLower(Utf8FromPath(file.extension())) == ".lng";
}

fs::path UserDataFolder() {
    const char* dataHome = std::getenv("XDG_DATA_HOME");
    if (dataHome && fs::path(dataHome).is_absolute()) return fs::path(dataHome);
    const char* home = std::getenv("HOME");
    if (home && *home) return fs::path(home) / ".local" / "share";
    return {};
}

}  // namespace

void SetLanguageFolder(std::string folder) { g_folder = std::move(folder); }
const std::string& LanguageFolder() { return g_folder; }
void SetLanguageName(std::string name) { g_name = std::move(name); }
const std::string& LanguageName() { return g_name; }

// The built-in language is not special here: a stray Francais.lng is read too.
std::string LookupText(std::string_view section, std::string_view defaultText, std::string_view key) {
    const auto path = LanguageFilePath(g_name);
    if (path) {
        const std::lock_guard lock(g_cacheMutex);
        if (const IniFile* file = ParsedFile(*path)) return file->Value(section, key, defaultText);
    }
    return CutToCharacters(defaultText, kMaxIniValueLength);
}

std::string GroupedNumber(std::int64_t value) {
    const std::string separator = LookupText("Main", " ", "separateurMilliers");
    const std::string digits = std::to_string(value < 0 ? -static_cast<std::uint64_t>(value) : value);
    std::string grouped = value < 0 ? "-" : "";
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) grouped += separator;
        grouped += digits[i];
    }
    return grouped;
}

bool LanguageExists(std::string_view name) {
    const auto path = LanguageFilePath(name);
    std::error_code error;
    return path && fs::is_regular_file(*path, error);
}

std::vector<std::string> ListLanguages() {
    std::vector<std::string> names;
    if (g_folder.empty()) return names;
    std::error_code error;
    for (fs::directory_iterator it(PathFromUtf8(g_folder), error), end; !error && it != end; it.increment(error)) {
        std::error_code typeError;
        const fs::path file = it->path().filename();
        if (it->is_regular_file(typeError) && HasLanguageExtension(file))
            names.push_back(Utf8FromPath(file.stem()));
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> CandidateLanguageFolders(const std::string& programDir) {
    const fs::path program = PathFromUtf8(programDir);
    std::vector<std::string> folders{
        Utf8FromPath(program / "Langues"),
        Utf8FromPath((program / ".." / "share" / "mirvane" / "Langues").lexically_normal()),
    };
    const fs::path dataFolder = UserDataFolder();
    if (!dataFolder.empty()) folders.push_back(Utf8FromPath(dataFolder / "mirvane" / "Langues"));
    return folders;
}

std::string ChooseLanguageFolder(const std::string& programDir) {
    const auto folders = CandidateLanguageFolders(programDir);
    for (const auto& folder : folders) {
        std::error_code error;
        if (fs::is_directory(PathFromUtf8(folder), error)) return folder;
    }
    return folders.front();
}

std::string FormCaption(std::string_view section, std::string_view defaultText, std::string_view key) {
    if (LanguageName() == kBuiltInLanguage) return std::string(defaultText);
    return LookupText(section, defaultText, key);
}

}  // namespace mirvane
