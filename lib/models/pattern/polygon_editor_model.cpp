#include "models/pattern/polygon_editor_model.h"

#include <algorithm>

#include "base/numbers.h"
#include "document/encoding.h"
#include "document/sorts.h"

namespace mirvane {

PolygonEditorModel::PolygonEditorModel() : PatternEditorModel(kPolygonPatternRows) {
    layout_ = ColourLayout{.Night = true};
    Labels.SetEnabled(true);
}

void PolygonEditorModel::LoadNew(const Document&) { row_.reset(); }

void PolygonEditorModel::Load(const Document& doc, int row) {
    row_ = row;
    loaded_ = doc.Polygons.at(row);
    const DecodedPolygon decoded = DecodePolygon(loaded_);
    layout_ = decoded.Layout;
    bitmap_ = decoded.Pattern.has_value();
    LoadColours(decoded.Colours);
    ResetPattern(decoded.Pattern.value_or(BitGrid(kPatternWidth, kPolygonPatternRows, kSecondColourCell)));
    Labels = LabelStringsModel{};
    if (loaded_.Flags & 0x10) Labels.LoadLabels(loaded_.LabelBytes);
    if (loaded_.Flags & 0x20) Labels.LoadExtended(loaded_.ExtendedLabelBytes);
    Type = loaded_.Type;
    SubType = loaded_.SubType;
    DrawOrderLevel.clear();
    // The last entry of the type wins, should the table hold it twice.
    for (const DrawOrderEntry& entry : doc.DrawOrder)
        if (entry.Type == HexValue(Type) && entry.SubType == HexValue(SubType)) DrawOrderLevel = std::to_string(entry.Level);
    loadedType_ = Type;
    loadedSubType_ = SubType;
    loadedLevel_ = DrawOrderLevel;
}

void PolygonEditorModel::SetBitmap(bool on) {
    bitmap_ = on;
    if (!on) layout_.DayClear = layout_.NightClear = true;
}

PolygonRecord PolygonEditorModel::BuildRecord() const {
    PolygonRecord record = loaded_;
    record.Type = Type;
    record.SubType = SubType;
    DecodedPolygon polygon{.Layout = layout_, .Colours = StoredColours()};
    if (bitmap_) polygon.Pattern = Pattern();
    record.Flags = 0;
    EncodePolygon(polygon, record);
    record.LabelBytes = Labels.LabelBytes();
    record.ExtendedLabelBytes = Labels.ExtendedLabelBytes();
    record.Flags |= (Labels.Enabled() ? 0x10 : 0) | (Labels.ExtendedEnabled() ? 0x20 : 0);
    record.Length = PolygonRecordLength(record);
    return record;
}

std::optional<int> PolygonEditorModel::Commit(Document& doc, UserPrompts& prompts) const {
    if (const auto missing = CheckRequiredTypeFields(Type, SubType)) {
        prompts.Inform(missing->Title, missing->Text);
        return std::nullopt;
    }
    for (int i = 0; i < doc.PolygonCount(); ++i) {
        if (row_ == i || !SameObjectType(Type, SubType, doc.Polygons[i].Type, doc.Polygons[i].SubType)) continue;
        const EditorMessage duplicate =
            DuplicateTypeMessage("Il existe déjà un polygone de type 0x", "msgPolygoneExiste1", Type, SubType);
        prompts.Inform(duplicate.Title, duplicate.Text);
        return std::nullopt;
    }
    const PolygonRecord record = BuildRecord();
    if (row_) doc.Polygons[*row_] = record;
    else doc.Polygons.push_back(record);

    const bool levelChanged = IsNew() || HexValue(Type) != HexValue(loadedType_) ||
                              HexValue(SubType) != HexValue(loadedSubType_) ||
                              LeadingNumber(DrawOrderLevel) != LeadingNumber(loadedLevel_);
    if (levelChanged) {
        // A changed type leaves the old type's entry; the draw order editor removes it.
        const DrawOrderEntry entry{static_cast<int>(LeadingNumber(DrawOrderLevel)), HexValue(Type), HexValue(SubType)};
        auto& order = doc.DrawOrder;
        const auto found = IsNew() ? order.end() : std::ranges::find_if(order, [&](const DrawOrderEntry& e) {
            return e.Type == entry.Type && e.SubType == entry.SubType;
        });
        if (found != order.end()) {
            if (DrawOrderLevel.empty()) order.erase(found);
            else *found = entry;
        } else if (!DrawOrderLevel.empty()) {
            order.push_back(entry);
        }
        SortDrawOrder(order);
    }
    SortPolygons(doc.Polygons);
    const auto placed = std::ranges::find_if(doc.Polygons, [&](const PolygonRecord& r) {
        return r.Type == record.Type && r.SubType == record.SubType;
    });
    return static_cast<int>(placed - doc.Polygons.begin());
}

void PolygonEditorModel::CopyToClipboard() const {
    PatternClipboard& clipboard = PolygonClipboard();
    CopyColours(clipboard);
    clipboard.HasBitmap = bitmap_;
    if (bitmap_) clipboard.Pattern = Pattern();
}

void PolygonEditorModel::PasteFromClipboard() {
    const PatternClipboard& clipboard = PolygonClipboard();
    PasteColours(clipboard);
    bitmap_ = clipboard.HasBitmap;
    if (bitmap_) CommitPattern(clipboard.Pattern);
}

}  // namespace mirvane
