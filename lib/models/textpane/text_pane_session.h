// The text pane as a whole: its colours, the code page its text is shown in,
// and the apply and save commands run on the main window's document.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "models/shell/main_window_model.h"
#include "models/shell/settings_store.h"
#include "models/textpane/text_backups.h"
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
// one cbbCodepage shows, or the unlisted one the document holds.
int PaneCodePage(const IdentityFields& identity);

// Before the whole document is read again from the pane: objects and draw
// order are gone, so what the text does not hold is gone too. The
// additional POI and the label sections are not in the text and stay.
void ClearObjectsForWholeText(Document& doc);

// The apply button, the backups and the saving of the pane's text.
class TextPaneSession {
public:
    TextPaneSession(MainWindowModel& model, UserPrompts& prompts);

    // cmdAppliquerModif: its caption, and whether it shows and acts.
    std::string ApplyCaption() const;
    bool ApplyVisible() const { return applyVisible_; }
    bool ApplyEnabled() const { return applyEnabled_; }
    // The user changed the pane's text: the apply button comes on.
    void TextEdited();
    // The pane lost the focus: with the listing shown and the focus gone to
    // another control, the apply button comes on. Nothing is applied.
    void FocusLeft(bool textShown, bool focusStaysInPane);

    const TextBackups& Backups() const { return backups_; }
    // The folder of Mirvane.save.
    void SetBackupFolder(std::string folder) { backupFolder_ = std::move(folder); }
    const std::string& BackupFolder() const { return backupFolder_; }

    // cmdAppliquerModif: the pane's text (document bytes, CR LF) is parsed
    // into the object the model has selected, or into the whole document; the
    // document is marked, the object is selected again at its new row and the
    // text is backed up. Errors of the text open frmErreur.
    void Apply(const std::string& paneBytes, bool autoBackupOn);

    // mnuEnregistrerTxt: asks for a .txt target (and whether to overwrite
    // one) and writes the bytes as they stand. True when written.
    bool SaveText(const std::string& paneBytes);

private:
    MainWindowModel& model_;
    UserPrompts& prompts_;
    TextBackups backups_;
    bool applyVisible_ = false;
    bool applyEnabled_ = false;
    std::string backupFolder_;
};

}  // namespace mirvane
