// What the program settles once at start, before the main window shows.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "models/shell/settings_store.h"

namespace mirvane {

// "v" and the three version numbers joined by ".": "v0.1.0".
std::string AppVersionText(int major, int minor, int revision);

// The interface language, stored: the stored "Langue" when the program has it
// (the built-in French, or a file in the language folder). Otherwise, on a
// first run or when that file is gone, the first of `systemLanguages` (the
// names the system's locale goes by) that the program has, else English,
// else French.
std::string SettleLanguage(SettingsStore& store, const std::vector<std::string>& systemLanguages = {});

// The names a language file of the locale's language may have: "fr" gives
// "Francais", "de" "Deutsch", then `englishName` ("German"). `isoCode` is the
// two- or three-letter code in front of a locale name such as "de_AT".
std::vector<std::string> LanguageFileNames(const std::string& isoCode, const std::string& englishName);

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
