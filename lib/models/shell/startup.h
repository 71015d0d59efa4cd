// What the program settles once at start, before the main window shows.
#pragma once

#include <optional>
#include <string>

#include "models/shell/settings_store.h"

namespace mirvane {

// "v" and the three version numbers joined by ".": "v0.1.0".
std::string AppVersionText(int major, int minor, int revision);

// The interface language: the stored "Langue" when its file exists in the
// language folder, else the built-in French, which is then stored.
std::string SettleLanguage(SettingsStore& store);

// "MajAuto" is "1" when the user wants the update check; anything else is
// stored back as "0".
bool SettleUpdateCheck(SettingsStore& store);

// Where the update check reads the latest version: a plain text resource of
// three numbers joined by points ("Paramètres", "MajAdresse"); empty means none.
std::string UpdateAddress(const SettingsStore& store);

// major * 10000 + minor * 100 + revision of "1.2.3"; no value when the text is
// not three numbers joined by points.
std::optional<int> VersionNumber(const std::string& text);

enum class UpdateVerdict { UpToDate, NewerAvailable, ShowUpdateWindow };

// What the fetched text means for this version: a greater version, and an
// empty text, open the update window; anything else, or an unreadable text,
// leaves the program as it is.
UpdateVerdict JudgeUpdate(int major, int minor, int revision, const std::string& fetched);

// "Sauvegarde automatique", true unless stored as a false boolean text.
bool AutoSaveSetting(const SettingsStore& store);
void StoreAutoSaveSetting(SettingsStore& store, bool enabled);

// Removes the backup file of an earlier session (Mirvane.save) from `folder`.
void RemoveLeftOverBackup(const std::string& folder);

// The command line's path with one leading and one trailing double quote removed.
std::string CommandLinePath(const std::string& argument);

}  // namespace mirvane
