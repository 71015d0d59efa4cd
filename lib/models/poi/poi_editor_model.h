// frmPOI without its widgets: the day and night bitmaps of one POI, the
// drawing tools and whole-bitmap commands, the colour mode and colour count
// with their questions, one undo step per stroke or command, and the record
// that OK writes. Labels and the extended label style of the record are kept
// as they were loaded.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "document/document.h"
#include "models/editing/history.h"
#include "models/editing/tool.h"
#include "models/editing/tools/pen.h"
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

private:
    class Canvas;
    void Commit(State state);
    void CommitShown(WorkingBitmap bitmap);
    bool Ask(const std::string& title, std::initializer_list<std::string_view> lines) const;
    bool CheckWritable(const WorkingBitmap& bitmap) const;

    UserPrompts& prompts_;
    PoiClipboard& clipboard_;
    PoiRecord loaded_;
    History<State> history_;
    std::optional<WorkingBitmap> stroke_;  // the bitmap being drawn on
    PenTool<PoiPaint> pen_;
    bool nightShown_ = false;
};

}  // namespace mirvane
