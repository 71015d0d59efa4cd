// Backups of the text pane: every apply keeps the pane's text in memory, and,
// with the automatic backup on, appends it to the file Mirvane.save. The file
// lives for one session: the program removes it at start.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mirvane {

inline constexpr const char* kBackupFileName = "Mirvane.save";

// The in-memory backups, newest last.
class TextBackups {
public:
    void Add(std::string text) { texts_.push_back(std::move(text)); }
    std::size_t Count() const { return texts_.size(); }
    bool Empty() const { return texts_.empty(); }
    // Element `index`, counted from 0; empty text when out of range.
    const std::string& At(std::size_t index) const;
    void Clear() { texts_.clear(); }

private:
    std::vector<std::string> texts_;
};

// The path of the backup file in `folder`.
std::string BackupFilePath(const std::string& folder);

// Removes the backup file of an earlier session; a missing file is no error.
void RemoveBackupFile(const std::string& folder);

// One entry of the backup file: 80 '*', CR LF, the document's file name, a
// blank, "Sauvegarde n°" and the backup's number, CR LF, 80 '*', CR LF, the
// text and three lone carriage returns.
std::string BackupFileEntry(std::string_view fileName, std::size_t number, std::string_view text);

// Writes `entry` at the end of the backup file in `folder`. The entry starts
// on the last byte of the file, so it overwrites the last carriage return of
// the entry before: existing Mirvane.save files have this layout, every entry
// but the last ending in two carriage returns. Failures are passed over;
// returns whether the entry was written.
bool AppendBackupEntry(const std::string& folder, std::string_view entry);

// sauvegardertexte: keeps `paneText` as one more backup and, when
// `autoBackupOn` (the check mark of mnuSauvegardeAuto) is set, writes its
// entry to the backup file in `folder`. A failed write leaves the memory
// backup in place.
void sauvegardertexte(TextBackups& backups, std::string paneText, bool autoBackupOn, const std::string& folder,
                      std::string_view fileName);

}  // namespace mirvane
