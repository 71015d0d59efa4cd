// frmPolygone: one polygon definition edited on a copy, with its draw order
// level, and written back into the document on OK.
#pragma once

#include <optional>
#include <string>

#include "document/document.h"
#include "models/pattern/pattern_editor_model.h"
#include "models/shell/user_prompts.h"

namespace mirvane {

class PolygonEditorModel : public PatternEditorModel {
public:
    PolygonEditorModel();

    // A new polygon (cmdAddPolygone), or the one at `row` (cmdModifierPolygone).
    void LoadNew(const Document& doc);
    void Load(const Document& doc, int row);
    bool IsNew() const { return !row_; }

    // chkBitmap: a plain polygon has both backgrounds transparent.
    bool Bitmap() const { return bitmap_; }
    void SetBitmap(bool on);
    std::string DrawOrderLevel;  // txtDraworder: empty when not in the draw order

    void CopyToClipboard() const;
    void PasteFromClipboard();

    // The record OK would store, the parts it keeps from the loaded one.
    PolygonRecord BuildRecord() const;
    // cmdOK: the checks, then the record and its draw order entry written
    // and the polygons sorted. The polygon's row afterwards, or no value
    // when a message kept the form open.
    std::optional<int> Commit(Document& doc, UserPrompts& prompts) const;

private:
    std::optional<int> row_;
    PolygonRecord loaded_;
    std::string loadedType_, loadedSubType_, loadedLevel_;
    bool bitmap_ = true;
};

}  // namespace mirvane
