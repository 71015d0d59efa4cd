#include "models/draworder/draw_order_model.h"

#include <map>

#include "base/numbers.h"
#include "document/encoding.h"
#include "lang/lookup.h"

namespace mirvane {

namespace {

std::string EditText(const char* defaultText, const char* key) { return LookupText("Editer", defaultText, key); }

// Empty is accepted in the grid; the message names the field as the grid does.
std::optional<EditorMessage> InGrid(std::string_view text, std::optional<EditorMessage> message, const char* title) {
    if (text.empty() || !message) return std::nullopt;
    message->Title = EditText("Erreur de saisie dans le champ", "ErreurSaisie1") + title;
    return message;
}

int LevelOf(const DrawOrderRow& row) { return static_cast<int>(LeadingNumber(row.Level)); }

}  // namespace

std::optional<EditorMessage> CheckDrawOrderType(std::string_view text) {
    return InGrid(text, CheckTypeText(text), " \"Type\"\"");
}

std::optional<EditorMessage> CheckDrawOrderSubType(std::string_view text) {
    return InGrid(text, CheckSubTypeText(text), " \"SubType\" ");
}

std::optional<EditorMessage> CheckDrawOrderLevel(std::string_view text) {
    return InGrid(text, CheckLevelText(text), " \"Niveau\"");
}

DrawOrderModel::DrawOrderModel(const std::vector<DrawOrderEntry>& entries) {
    for (const DrawOrderEntry& e : entries)
        rows_.push_back({std::to_string(e.Level), TypeText(e.Type), SubTypeText(e.SubType), true});
    if (rows_.empty()) AddRow();
}

void DrawOrderModel::SetAllKept(bool kept) {
    for (DrawOrderRow& row : rows_) row.Kept = kept;
}

std::vector<DrawOrderLevel> DrawOrderModel::Levels() const {
    std::map<int, std::vector<int>> byLevel;
    for (int i = 0; i < static_cast<int>(rows_.size()); ++i)
        if (LevelOf(rows_[i]) > 0) byLevel[LevelOf(rows_[i])].push_back(i);
    std::vector<DrawOrderLevel> levels;
    for (auto& [level, rows] : byLevel) levels.push_back({level, std::move(rows)});
    return levels;
}

void DrawOrderModel::MoveToLevel(int row, int level) {
    rows_.at(row).Level = std::to_string(level);
    RenumberLevels();
}

void DrawOrderModel::MoveToNewLevel(int row, int newLevelBefore) {
    rows_.at(row);  // a row that is not there moves nothing
    for (DrawOrderRow& r : rows_)
        if (LevelOf(r) >= newLevelBefore) r.Level = std::to_string(LevelOf(r) + 1);
    MoveToLevel(row, newLevelBefore);
}

void DrawOrderModel::RenumberLevels() {
    const std::vector<DrawOrderLevel> levels = Levels();
    for (int rank = 0; rank < static_cast<int>(levels.size()); ++rank)
        for (int row : levels[rank].Rows) rows_[row].Level = std::to_string(rank + 1);
}

std::vector<DrawOrderEntry> DrawOrderModel::Entries() const {
    std::vector<DrawOrderEntry> entries;
    for (const DrawOrderRow& row : rows_) {
        if (!row.Kept || row.Level.empty()) continue;
        const DrawOrderEntry entry{LevelOf(row), HexValue(row.Type), HexValue(row.SubType)};
        if (entry == DrawOrderEntry{}) continue;
        entries.push_back(entry);
    }
    SortDrawOrder(entries);
    return entries;
}

}  // namespace mirvane
