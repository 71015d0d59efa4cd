// frmPOI without its widgets: the day and night bitmaps of one POI, the
// drawing tools and whole-bitmap commands, the colour mode, colour count and
// palette entries with their questions, pictures brought in and out, one undo
// step per stroke or command, the label controls, and the record that OK
// writes as a POI or as a sub-icon of an additional POI group.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "document/document.h"
#include "models/editing/history.h"
#include "models/editing/tool.h"
#include "models/editing/tools/pen.h"
#include "models/labels/label_strings_model.h"
#include "models/poi/poi_bitmap.h"
#include "models/shell/user_prompts.h"

namespace mirvane {

// The bitmap copied by cmdCopier; it outlives the editor, across POIs.
struct PoiClipboard {
    std::optional<WorkingBitmap> Bitmap;
};
// The one every POI editor and the additional POI browser of the run share.
PoiClipboard& SharedPoiClipboard();

enum class PoiTool { Pen, Fill, Pipette };  // optPinceau, optPot, optPipette

class PoiEditorModel {
public:
    PoiEditorModel(UserPrompts& prompts, PoiClipboard& clipboard);

    // A new POI: 16 x 16, one white entry, colour mode 10.
    void LoadNew();
    void Load(const PoiRecord& record);

    std::string Type;     // txtType, hexadecimal
    std::string SubType;  // txtSubType
    bool HasBitmap = true;   // chkBitmap: unticked saves a POI of size 0
    bool BitmapFlag = true;  // cbbBitmap: bit 0 of the flags
    LabelStringsModel Labels;  // chkString, the language rows, chkExtendedLabel

    struct State {
        WorkingBitmap Day;
        std::optional<WorkingBitmap> Night;  // chkBitmapNuit
        bool operator==(const State&) const = default;
    };
    const State& Current() const { return history_.Current(); }
    const WorkingBitmap& Shown() const;

    // The current colour (lblCouleurCourante).
    PoiPaint Paint;
    PoiTool Tool = PoiTool::Pen;
    void PickEntry(int index);  // a click on lblpalette(index)
    void PickTransparent();     // lblpalette(255)

    // Pointer on the grid; one undo step from press to release.
    void Press(Cell cell, MouseButton button);
    void Move(Cell cell);
    void Release(Cell cell);

    void EraseAll();  // cmdRemplir
    void Invert();    // cmdInverser
    void Rotate(Turn turn);                // cmdRotatD, cmdRotatG
    void Flip(bool horizontal);            // cmdFlipH, cmdFlipV
    void ShiftBy(int dx, int dy);          // cmdDeplaceD/G/H/B
    // cbbLargeur, cbbHauteur: 1 to 64.
    void Resize(int width, int height);

    // Palette entries. Right click on lblpalette(index): its colour, and its
    // alpha in mode 32; an unfilled entry gets its colour without repainting.
    void SetEntry(int index, std::uint32_t colour, std::uint8_t alpha);
    // cmdAjouterCouleur: a new last entry, which becomes the current colour.
    void AddColour(std::uint32_t colour, std::uint8_t alpha);
    // cmdSupprimerCouleur: removes the current entry; its pixels take the
    // nearest remaining colour, or turn transparent when the user says so
    // in mode 16. False when there is nothing to remove.
    bool RemoveColour();
    // cmdCanalAlpha: the alpha of every entry, or of every pixel without palette.
    void SetAlphaOfAll(std::uint8_t alpha);
    // Right click on a pixel of a true colour bitmap in mode 32.
    void SetPixelAlpha(Cell cell, std::uint8_t alpha);
    // lblIsGarmin: whether every colour in use is a Garmin colour, and the
    // click that replaces each by its nearest.
    bool AllGarminColours() const;
    void UseGarminColours();
    // An alpha typed by the user: a whole number of 0 to 15.
    static std::optional<std::uint8_t> AlphaFromText(const std::string& text);

    // cmdImporterBitmap: the bitmap in view becomes the imported one, with
    // its size, colour mode and palette.
    void TakeImport(const ImportedBitmap& imported);
    // A picture pasted from the system clipboard, brought to at most 64 x 64
    // and imported as a file would be. False when it is empty or the user
    // refused the change of its colours; the bitmap is then as it was.
    bool PastePicture(const RgbaPicture& picture);
    // cmdExporterBitmap: the bitmap in view, transparency kept.
    RgbaPicture ExportPicture() const { return PictureOfBitmap(Shown()); }

    void Copy();                           // cmdCopier
    bool CanPaste() const { return clipboard_.Bitmap.has_value(); }
    void Paste();                          // cmdColler
    // optBitmap; which bitmap is in view is not an edit, so it takes no undo step.
    void ShowNight(bool night) { nightShown_ = night; }
    bool NightShown() const { return nightShown_ && Current().Night; }
    void SetNightBitmap(bool different);   // chkBitmapNuit

    // cbbColorMode by list index (0, 1, 2 for modes 0, 16, 32); false when
    // refused or declined, the bitmap then as it was.
    bool SetColourMode(int modeIndex);
    // cbbNombreCouleurs: 0 true colour, 1 to 254 palette entries.
    bool SetColourCount(int count);

    bool CanUndo() const { return history_.CanUndo(); }
    bool CanRedo() const { return history_.CanRedo(); }
    void Undo() { history_.Undo(); }
    void Redo() { history_.Redo(); }
    bool IsModified() const { return !history_.IsClean(); }

    // cmdOK: the checks, then the record; none after a message.
    std::optional<PoiRecord> BuildRecord() const;
    // Stores the record as a new POI, or in place of `replacing`; refuses a
    // Type and SubType another POI has. The index where it stands after sorting.
    std::optional<int> Save(Document& doc, std::optional<int> replacing) const;
    // OK on sub-icon `subIcon` of additional POI group `group`: its bytes
    // rewritten in place, the groups after it moved. False after a message.
    bool SaveSubIcon(Document& doc, int group, int subIcon) const;

private:
    class Canvas;
    void Commit(State state);
    void CommitShown(WorkingBitmap bitmap);
    bool Ask(const std::string& title, std::initializer_list<std::string_view> lines) const;
    bool CheckWritable(const WorkingBitmap& bitmap) const;
    bool CheckPaletteFilled(const WorkingBitmap& bitmap, bool noColourChosen) const;
    bool ReduceColours(WorkingBitmap& b, int count);
    void LoadLabels(const PoiRecord& record);

    UserPrompts& prompts_;
    PoiClipboard& clipboard_;
    PoiRecord loaded_;
    LabelStringsModel loadedLabels_;
    History<State> history_;
    std::optional<WorkingBitmap> stroke_;  // the bitmap being drawn on
    PenTool<PoiPaint> pen_;
    bool nightShown_ = false;
};

}  // namespace mirvane
