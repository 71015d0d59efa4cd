// The text pane as a whole: its colours, the code page its text is shown in,
// and the apply and save commands run on the main window's document.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "models/shell/main_window_model.h"
#include "models/shell/settings_store.h"
#include "models/textpane/text_backups.h"
#include "models/textpane/text_pane.h"
#include "text/listing_text.h"

namespace mirvane {

struct PaneColour {
    std::uint8_t Red = 0, Green = 0, Blue = 0;
    bool operator==(const PaneColour&) const = default;
};

// "\red70\green150\blue70" as a colour. Missing parts are 0; values are cut to 255.
PaneColour ParseRtfColour(std::string_view rtf);

// The colour table entry of a piece: 1 comments, 2 section heads, 3 keys, 0 the rest.
int PieceColourIndex(PieceRole role);

// RtfColour0..RtfColour3 from the settings, the defaults where absent.
RtfColours LoadRtfColours(const SettingsStore& settings);
std::array<PaneColour, 4> PaneColours(const RtfColours& colours);

// The code page the pane's text is decoded with and encoded back to: the
// document's, or 1252 for a listed one this build cannot convert.
int PaneCodePage(const TypIdentity& identity);

// The apply button, the backups and the saving of the pane's text.
class TextPaneSession {
public:
    TextPaneSession(MainWindowModel& model, UserPrompts& prompts) : model_(model), prompts_(prompts) {}

    TextPaneModel& Pane() { return pane_; }
    const TextBackups& Backups() const { return backups_; }
    // The folder of Mirvane.save.
    void SetBackupFolder(std::string folder) { backupFolder_ = std::move(folder); }
    const std::string& BackupFolder() const { return backupFolder_; }

    // cmdAppliquerModif_Click: the pane's text (document bytes, CR LF) is
    // parsed into the scope the model shows, the document is marked, the
    // object is picked again and the text is backed up. Errors of the text
    // open frmErreur. Returns the row to select in the scope's list, or -1.
    int Apply(const std::string& paneBytes, bool autoBackupOn);

    // mnuEnregistrerTxt: asks for a .txt target (and whether to overwrite
    // one) and writes the bytes as they stand. True when written.
    bool SaveText(const std::string& paneBytes);

private:
    MainWindowModel& model_;
    UserPrompts& prompts_;
    TextPaneModel pane_;
    TextBackups backups_;
    std::string backupFolder_;
};

}  // namespace mirvane
