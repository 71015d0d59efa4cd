// frmDraworder: the draw order edited as rows of level, type, subtype and a
// keep box, shown also as levels holding their polygons; OK writes the
// document's entries.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "document/draw_order_table.h"
#include "models/pattern/pattern_editor_model.h"

namespace mirvane {

struct DrawOrderRow {
    std::string Level, Type, SubType;  // txtNiveau(i), txtTypes(i), txtSubTypes(i)
    bool Kept = true;                  // Check1(i)
    bool operator==(const DrawOrderRow&) const = default;
};

// One level of the tree view: its number and the rows on it, in row order.
struct DrawOrderLevel {
    int Level = 0;
    std::vector<int> Rows;
};

std::optional<EditorMessage> CheckDrawOrderType(std::string_view text);     // txtTypes(i)
std::optional<EditorMessage> CheckDrawOrderSubType(std::string_view text);  // txtSubTypes(i)
std::optional<EditorMessage> CheckDrawOrderLevel(std::string_view text);    // txtNiveau(i)

class DrawOrderModel {
public:
    explicit DrawOrderModel(const std::vector<DrawOrderEntry>& entries);

    std::vector<DrawOrderRow>& Rows() { return rows_; }
    const std::vector<DrawOrderRow>& Rows() const { return rows_; }
    void AddRow() { rows_.push_back({}); }  // cmdAjouter
    void SetAllKept(bool kept);             // chkAll

    // The rows with a level, kept or not, by level.
    std::vector<DrawOrderLevel> Levels() const;
    // Drops `row` onto an existing level, or, with `newLevelBefore`, into the
    // gap before that level (one past the last level: after it), the levels
    // from there on moving up by one. Either way the levels are then numbered
    // 1, 2, 3... again, so that a level emptied by the move leaves no hole;
    // the file keeps only the order of the levels, not their numbers.
    void MoveToLevel(int row, int level);
    void MoveToNewLevel(int row, int newLevelBefore);

    // cmdOK: the rows kept, sorted by level, type and subtype. Rows unchecked,
    // all empty or all zero are dropped.
    std::vector<DrawOrderEntry> Entries() const;

private:
    void RenumberLevels();

    std::vector<DrawOrderRow> rows_;
};

}  // namespace mirvane
