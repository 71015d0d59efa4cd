// frmPolyline: one line definition, a solid band or a pattern of 1 to 31
// rows, edited on a copy and written back into the document on OK.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "document/document.h"
#include "models/pattern/pattern_editor_model.h"
#include "models/shell/user_prompts.h"

namespace mirvane {

inline constexpr int kMaxLineRows = 31;
inline constexpr int kMaxLineWidth = 31;  // the width with both borders

// cbbActivité1: row 0 is a regular line, the others name the activity of a
// routing line through its two extra index bytes.
inline constexpr int kActivityRows = 7;
std::array<std::uint8_t, 2> ActivityBytes(int row);
// The row of a record's extra index bytes; none for bytes no row has.
std::optional<int> ActivityRow(const std::array<std::uint8_t, 2>& bytes);

enum class WidthField { Width, Border };  // txtLargeur, txtBordure

// What OK did. A failure shows its message and closes the form like a
// success, without storing anything.
struct LineCommit {
    std::optional<int> Row;  // the line's row once stored
    bool Failed = false;
    bool Closes() const { return Row || Failed; }
};

class LineEditorModel : public PatternEditorModel {
public:
    LineEditorModel();

    // A new line (cmdAddPolyline) with `listRow` the row selected in
    // ListPolyline, or the line at `row` (cmdModifierPolyline).
    void LoadNew(const Document& doc, std::optional<int> listRow);
    void Load(const Document& doc, int row);
    bool IsNew() const { return !row_; }

    // cbbHauteur: 0 for a solid line, else the pattern's rows. Rows a new
    // height adds take the second colour; changing it is one undo step.
    int Height() const { return Pattern().Height(); }
    void SetHeight(int rows);

    std::string WidthText, BorderText;  // txtLargeur, txtBordure: digits
    // txtBordure shows "no border" and takes no input: a solid line whose
    // day background is clear stores its width alone.
    bool BorderDisabled() const { return Height() == 0 && DayClear(); }
    // Width and border while both are whole numbers that fit in 31 pixels.
    std::optional<std::pair<int, int>> Widths() const;
    // On leaving txtLargeur or txtBordure: a text that is no number, or a
    // pair wider than 31, gives the message and puts "0" in the field.
    std::optional<EditorMessage> LeaveWidthField(WidthField field);

    bool UseOrientation = false;  // chkUseOrientation
    int Activity = 0;             // cbbActivité1

    void CopyToClipboard() const;
    void PasteFromClipboard();

    // The record OK would store, the parts it keeps from the loaded one.
    PolylineRecord BuildRecord() const;
    // cmdOK: the checks, then the record written and the lines sorted.
    LineCommit Commit(Document& doc, UserPrompts& prompts) const;

protected:
    // A solid line is transparent at night exactly when by day.
    bool NightFollowsDay() const override { return !layout_.Night || Height() == 0; }
    void LayoutChanged() override;

private:
    // The run-time error OK would stop on, if any.
    std::optional<int> BuildFailure() const;

    std::optional<int> row_, listRow_;
    PolylineRecord loaded_;
    bool loadedActivityKnown_ = true;  // the loaded extra bytes are those of a cbbActivité1 row
    BitGrid shelved_;                  // the last pattern, back when a solid line gets rows again
    bool borderWasDisabled_ = false;
};

}  // namespace mirvane
