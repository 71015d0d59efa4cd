// What the program settles once at start, before the main window shows.
#pragma once

#include <string>

#include "editors/settings_store.h"

namespace mirvane {

// "v" and the three version numbers joined by ".": "v0.1.0".
std::string AppVersionText(int major, int minor, int revision);

// The interface language: the stored "Langue" when its file exists in the
// language folder, else the built-in French, which is then stored.
std::string SettleLanguage(SettingsStore& store);

// "MajAuto" is "1" when the user wants the update check; anything else is
// stored back as "0".
bool SettleUpdateCheck(SettingsStore& store);

// "Sauvegarde automatique", true unless stored as a false boolean text.
bool AutoSaveSetting(const SettingsStore& store);
void StoreAutoSaveSetting(SettingsStore& store, bool enabled);

// Removes the backup file of an earlier session (Mirvane.save) from `folder`.
void RemoveLeftOverBackup(const std::string& folder);

// The command line's path with one leading and one trailing double quote removed.
std::string CommandLinePath(const std::string& argument);

}  // namespace mirvane
