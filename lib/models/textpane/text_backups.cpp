#include "models/textpane/text_backups.h"

#include <filesystem>
#include <system_error>

#include "base/file_io.h"
#include "document/records.h"
#include "lang/lookup.h"

namespace mirvane {

namespace fs = std::filesystem;

namespace {

fs::path BackupPath(const std::string& folder) { return PathFromUtf8(folder) / kBackupFileName; }

}  // namespace

const std::string& TextBackups::At(std::size_t index) const {
    static const std::string none;
    return index < texts_.size() ? texts_[index] : none;
}

std::string BackupFilePath(const std::string& folder) { return Utf8FromPath(BackupPath(folder)); }

void RemoveBackupFile(const std::string& folder) {
    std::error_code ignored;
    fs::remove(BackupPath(folder), ignored);
}

std::string BackupFileEntry(std::string_view fileName, std::size_t number, std::string_view text) {
    const std::string stars(80, '*');
    std::string entry;
    entry.reserve(2 * stars.size() + fileName.size() + text.size() + 40);
    entry += stars;
    entry += kLineBreak;
    entry += fileName;
    entry += ' ';
    entry += LookupText("Main", "Sauvegarde n°", "Sauvegarde");
    entry += std::to_string(number);
    entry += kLineBreak;
    entry += stars;
    entry += kLineBreak;
    entry += text;
    entry += "\r\r\r";
    return entry;
}

bool AppendBackupEntry(const std::string& folder, std::string_view entry) {
    const fs::path path = BackupPath(folder);
    std::string content;
    std::error_code error;
    if (fs::exists(path, error) && !ReadWholeFile(path, content)) return false;
    // Put at the file's length counted from 1: on its last byte.
    if (!content.empty()) content.pop_back();
    content += entry;
    return WriteFileAtomically(path, content).Ok();
}

void sauvegardertexte(TextBackups& backups, std::string paneText, bool autoBackupOn, const std::string& folder,
                      std::string_view fileName) {
    backups.Add(std::move(paneText));
    if (!autoBackupOn) return;
    const std::size_t number = backups.Count();
    AppendBackupEntry(folder, BackupFileEntry(fileName, number, backups.At(number - 1)));
}

}  // namespace mirvane
