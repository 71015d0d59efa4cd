// What the main window does to the document, without any widget: the title
// with its modified mark, New/Open/Close/Save/Quit, recent files, header
// field checks, object deletion and the enable rules. The window binds its
// widgets to this and redraws after every command.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/file_io.h"
#include "document/document.h"
#include "models/shell/document_changes.h"
#include "models/shell/recent_files.h"
#include "models/shell/settings_store.h"
#include "models/shell/user_prompts.h"

namespace mirvane {


// Which controls act. With no document only New, Open, Open text, Quit and
// the settings menus do.
struct EnableState {
    bool ObjectCommands = false;  // add, edit, delete of the three kinds
    bool IdentityFields = false;  // txtFID, txtProductCode
    bool Combos = false;          // cbbCodepage, cbbHeadersize
    bool CreateTyp = false;       // cmdCreerTYP, mnuEnregistrerTyp
    bool SaveText = false;        // cmdEnregistrer, mnuEnregistrerTxt
    bool ViewText = false;        // cmdvoirtxt
    bool DrawOrder = false;       // cmdDraworder
    bool Close = false;           // mnufermer
    bool OpenText = false;        // mnuouvrirtxt
};

class MainWindowModel {
public:
    // Reads a text TYP into the document; true when it could be read.
    using DocumentReader = std::function<bool(Document&, const std::string& path)>;
    using TextOpener = DocumentReader;

    MainWindowModel(Document& doc, UserPrompts& prompts, SettingsStore& settings, std::string versionText);

    Document& Doc() { return doc_; }
    const Document& Doc() const { return doc_; }
    const RecentFiles& Recent() const { return recent_; }
    UserPrompts& Prompts() { return prompts_; }
    SettingsStore& Settings() { return settings_; }

    // Every view that shows the document listens here and redraws what changed.
    DocumentChanges& Changes() { return changes_; }
    // The text route, when the parser is built in.
    void SetTextOpener(TextOpener opener) { textOpener_ = std::move(opener); }
    bool HasTextRoute() const { return static_cast<bool>(textOpener_); }

    // --- what the window shows
    std::string Title() const;
    std::string BaseTitle() const { return "Mirvane " + versionText_; }
    std::string NameCaption() const;    // lblNomTyp: folder, line break, name
    std::string LengthText() const;     // lblLongueur
    std::string DateText() const;       // lblDateCreation
    std::string PolygonCaption() const;
    std::string PolylineCaption() const;
    std::string PoiCaption() const;
    std::string ExtraPoiCaption() const;
    std::string DrawOrderCaptionText() const;
    std::vector<std::string> DrawOrderRows() const;  // ListDraworder
    std::string ErrorListText() const;  // the text of frmErreur
    EnableState Enables() const;
    bool IsModified() const { return doc_.ModifiedFlag; }
    bool IsNewDocument() const { return newDocumentFlag_; }
    bool HasDocument() const { return doc_.State != DocumentState::None; }
    // The object the text pane and the preview show; none for the whole document.
    const std::optional<ObjectRef>& Selection() const { return selection_; }
    // A row picked in a list or an icon, or none for the whole document's text.
    // A row the document does not hold selects nothing.
    void Select(std::optional<ObjectRef> object);

    // --- commands
    void New();
    // Opens a binary TYP; an empty path asks for one. False when nothing was opened.
    bool OpenTyp(const std::string& path = {});
    bool OpenText(const std::string& path = {});
    // Opens by extension: ".typ" as binary, anything else as text.
    bool OpenAny(const std::string& path);
    void Close();
    // Checks the identity fields, asks for the target and writes it. True when written.
    bool SaveTyp();
    // True when the program may end.
    bool RequestQuit(bool autoSaveChecked);
    void OpenRecent(std::size_t index);
    // Deletes row `row` of the kind's list after a question. True when deleted.
    bool DeleteObject(ObjectKind kind, int row);
    // Modifié: the document differs from the file; `what` says which part changed.
    void MarkModified(ChangeSet what = ChangeSet::Everything());
    // Asks whether the existing file at `path` may be replaced.
    bool ConfirmOverwrite(const std::string& path);
    // The save dialog until the user cancels or picks a file that may be
    // written: an existing file only when the user agrees to replace it, a
    // read-only one only after a second question; a folder or a device is
    // refused with a message and the dialog shown again.
    struct SaveTarget {
        std::string Path;
        ReadOnlyTarget ReadOnly = ReadOnlyTarget::Refuse;
    };
    std::optional<SaveTarget> ChooseSaveTarget(std::string suggested, const std::string& filter);

    // --- header fields, as the window shows them; with no document the
    // fields are empty and the combos have no selection.
    std::string FidText() const;
    std::string ProductCodeText() const;
    int CodePageIndex() const;  // row of cbbCodepage (kListedCodePages), -1 for a page it does not list
    std::string UnlistedCodePageText() const;  // "1300" for a page cbbCodepage does not list
    // cbbHeadersize: the five known sizes, and the document's own size when it is none of them.
    std::vector<std::string> HeaderSizeItems() const;
    int HeaderSizeIndex() const;
    std::string HeaderSizeTip() const;

    static bool IdentityKeyAccepted(char key);  // digits and backspace
    // On leaving txtFID or txtProductCode: the value, or nothing after the
    // input error box.
    std::optional<std::uint16_t> CheckIdentityValue(const std::string& text);
    void SetFid(std::uint16_t fid);
    void SetProductCode(std::uint16_t productCode);
    void SetCodePageIndex(int index);
    void SetHeaderSizeIndex(int index);

private:
    // Drops a selection the document no longer holds, then tells the listeners.
    void Changed(ChangeSet what);
    // The box of a save refused for a missing FID or product code; false when shown.
    bool InformOfMissingIdentity();
    void AddRecent(const std::string& path);
    // False when the open dialog is cancelled; `chosen` is left alone then.
    bool AskOpenPath(std::string& chosen, const std::string& title, const std::string& filter);
    bool ConfirmReadOnlyReplace(const std::string& path);
    // Closes the current document, then reads `path` into a fresh one; warns when it cannot be read.
    bool LoadDocument(const std::string& path, const DocumentReader& reader, bool fromText);

    Document& doc_;
    UserPrompts& prompts_;
    SettingsStore& settings_;
    std::string versionText_;
    RecentFiles recent_;
    TextOpener textOpener_;
    DocumentChanges changes_;
    bool newDocumentFlag_ = false;
    std::optional<ObjectRef> selection_;
};

// "le polygone", "la polyligne", "le POI".
std::string ObjectWord(ObjectKind kind);

}  // namespace mirvane
