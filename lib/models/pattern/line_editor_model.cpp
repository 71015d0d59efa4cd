#include "models/pattern/line_editor_model.h"

#include <algorithm>

#include "document/encoding.h"
#include "document/run_time_errors.h"
#include "document/sorts.h"
#include "lang/lookup.h"

namespace mirvane {

namespace {

constexpr std::array<std::array<std::uint8_t, 2>, kActivityRows> kActivityBytes{{
    {0, 0}, {4, 0}, {4, 1}, {4, 2}, {5, 0}, {5, 1}, {5, 2},
}};

// A field of digits only; none for anything else, the empty text included.
std::optional<int> WholeNumber(const std::string& text) {
    if (text.empty() || text.size() > 6 || !std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    return std::stoi(text);
}

bool IsRoutingLine(const PolylineRecord& record) { return record.ExtraIndexBytes != std::array<std::uint8_t, 2>{}; }

int& CountOf(Document& doc, const PolylineRecord& record) {
    return IsRoutingLine(record) ? doc.ExtraPolylineCount : doc.PolylineCount;
}

}  // namespace

std::array<std::uint8_t, 2> ActivityBytes(int row) { return kActivityBytes.at(static_cast<std::size_t>(row)); }

std::optional<int> ActivityRow(const std::array<std::uint8_t, 2>& bytes) {
    const auto found = std::ranges::find(kActivityBytes, bytes);
    if (found == kActivityBytes.end()) return std::nullopt;
    return static_cast<int>(found - kActivityBytes.begin());
}

LineEditorModel::LineEditorModel() : PatternEditorModel(0), WidthText("2"), BorderText("1") {
    layout_ = ColourLayout{.Night = true};
    Labels.SetEnabled(true);
}

void LineEditorModel::LoadNew(const Document&, std::optional<int> listRow) {
    row_.reset();
    listRow_ = listRow;
}

void LineEditorModel::Load(const Document& doc, int row) {
    row_ = listRow_ = row;
    loaded_ = doc.Polylines.at(row);
    const DecodedPolyline decoded = DecodePolyline(loaded_);
    layout_ = decoded.Layout;
    LoadColours(decoded.Colours);
    ResetPattern(decoded.Pattern.value_or(BitGrid(kPatternWidth, 0, kSecondColourCell)));
    shelved_ = Pattern();
    if (!decoded.Pattern) {
        const int width = decoded.LineWidth.value_or(0);
        WidthText = std::to_string(width);
        borderWasDisabled_ = layout_.DayClear;
        BorderText = layout_.DayClear ? std::string() : std::to_string((decoded.TotalWidth.value_or(width) - width) / 2);
    }
    Labels = LabelStringsModel{};
    if (loaded_.Flags2 & 0x01) Labels.LoadLabels(loaded_.LabelBytes);
    if (loaded_.Flags2 & 0x04) Labels.LoadExtended(loaded_.ExtendedLabelBytes);
    UseOrientation = !(loaded_.Flags2 & 0x02);
    const auto activity = ActivityRow(loaded_.ExtraIndexBytes);
    loadedActivityKnown_ = activity.has_value();
    Activity = activity.value_or(Activity);
    Type = loaded_.Type;
    SubType = loaded_.SubType;
}

void LineEditorModel::SetHeight(int rows) {
    rows = std::clamp(rows, 0, kMaxLineRows);
    if (rows == Height()) return;
    if (Height() > 0) shelved_ = Pattern();
    BitGrid pattern(kPatternWidth, rows, kSecondColourCell);
    for (int y = 0; y < std::min(rows, shelved_.Height()); ++y)
        for (int x = 0; x < kPatternWidth; ++x) pattern.Set({x, y}, shelved_.At({x, y}));
    CommitPattern(std::move(pattern));
    if (rows == 0) layout_.NightClear = layout_.DayClear;
    LayoutChanged();
}

void LineEditorModel::LayoutChanged() {
    // A border field that said "no border" offers one pixel once it may have one.
    if (BorderDisabled()) {
        borderWasDisabled_ = true;
    } else if (Height() == 0 && borderWasDisabled_) {
        BorderText = "1";
        borderWasDisabled_ = false;
    }
}

std::optional<std::pair<int, int>> LineEditorModel::Widths() const {
    const auto width = WholeNumber(WidthText);
    const auto border = BorderDisabled() ? std::optional<int>(0) : WholeNumber(BorderText);
    if (!width || !border || *width + 2 * *border > kMaxLineWidth) return std::nullopt;
    return std::pair{*width, *border};
}

std::optional<EditorMessage> LineEditorModel::LeaveWidthField(WidthField field) {
    const bool border = field == WidthField::Border;
    if (border && BorderDisabled()) return std::nullopt;
    std::string& text = border ? BorderText : WidthText;
    const auto value = WholeNumber(text);
    const auto other = border ? WholeNumber(WidthText) : (BorderDisabled() ? 0 : WholeNumber(BorderText));
    const int width = border ? other.value_or(0) : value.value_or(0);
    const int borders = border ? value.value_or(0) : other.value_or(0);
    if (value && width + 2 * borders <= kMaxLineWidth) return std::nullopt;
    text = "0";
    const char* name = border ? "Bordure" : "Largeur";
    return EditorMessage{LookupText("Editer", "Erreur de saisie dans le champ", "ErreurSaisie1") + "  \"" +
                             LookupText("Editer", name, border ? "lblBordure" : "lblLargeur") + "\"",
                         LookupText("Editer", "La largeur augmentée de 2 fois la bordure ne doit pas excéder 31.",
                                    "msgLargeur")};
}

std::optional<int> LineEditorModel::BuildFailure() const {
    // The length of a line's label text is held in one byte.
    std::size_t labelLength = 0;
    for (const LabelText& row : Labels.Rows()) labelLength += row.Text.size() + 2;
    if (Labels.Enabled() && labelLength > 255) return kErrOverflow;
    if (Height() > 0) return std::nullopt;
    const auto width = WholeNumber(WidthText);
    const auto border = BorderDisabled() ? std::optional<int>(0) : WholeNumber(BorderText);
    if (!width || !border) return kErrTypeMismatch;
    if (*width + 2 * *border > 255) return kErrOverflow;
    return std::nullopt;
}

PolylineRecord LineEditorModel::BuildRecord() const {
    PolylineRecord record = loaded_;
    record.Type = Type;
    record.SubType = SubType;
    DecodedPolyline line;
    line.Layout = layout_;
    line.Colours = StoredColours();
    if (Height() > 0) {
        line.Pattern = Pattern();
    } else {
        const int width = WholeNumber(WidthText).value_or(0);
        const int border = BorderDisabled() ? 0 : WholeNumber(BorderText).value_or(0);
        line.LineWidth = static_cast<std::uint8_t>(width);
        line.TotalWidth = static_cast<std::uint8_t>(width + 2 * border);
    }
    EncodePolyline(line, record);
    record.Flags2 = static_cast<std::uint8_t>((Labels.Enabled() ? 0x01 : 0) | (UseOrientation ? 0 : 0x02) |
                                              (Labels.ExtendedEnabled() ? 0x04 : 0));
    record.LabelBytes = Labels.LabelBytes();
    record.ExtendedLabelBytes = Labels.ExtendedLabelBytes();
    // Extra bytes of no known activity stay until another activity is chosen.
    if (loadedActivityKnown_ || Activity != 0) record.ExtraIndexBytes = ActivityBytes(Activity);
    record.Length = PolylineRecordLength(record);
    return record;
}

LineCommit LineEditorModel::Commit(Document& doc, UserPrompts& prompts) const {
    if (const auto missing = CheckRequiredTypeFields(Type, SubType)) {
        prompts.Inform(missing->Title, missing->Text);
        return {};
    }
    const auto fail = [&](int error) {
        const EditorMessage message = StoreFailureMessage("La ligne", "msgLaLigne", Type, SubType, error);
        prompts.Warn(message.Title, message.Text);
        return LineCommit{std::nullopt, true};
    };
    if (const auto error = BuildFailure()) return fail(*error);
    const PolylineRecord record = BuildRecord();

    // One type may exist once per activity. Existing texts rely on comparing
    // the activity of the row selected in the list, not that of the new entry.
    const int count = static_cast<int>(doc.Polylines.size());
    for (int i = 0; i < count; ++i) {
        if (row_ == i) continue;
        if (!listRow_ || *listRow_ < 0 || *listRow_ >= count) return fail(kErrOutOfRange);
        const PolylineRecord& other = doc.Polylines[i];
        if (!SameObjectType(Type, SubType, other.Type, other.SubType) ||
            other.ExtraIndexBytes != doc.Polylines[*listRow_].ExtraIndexBytes)
            continue;
        const EditorMessage duplicate =
            DuplicateTypeMessage("Il existe déjà une ligne de type 0x", "msgPolylineExiste1", Type, SubType);
        prompts.Inform(duplicate.Title, duplicate.Text);
        return {};
    }

    if (row_) {
        --CountOf(doc, doc.Polylines[*row_]);
        doc.Polylines[*row_] = record;
    } else {
        doc.Polylines.push_back(record);
    }
    ++CountOf(doc, record);
    // Regular lines stay ahead of the routing ones, as the writer expects.
    SortPolylinesForDisplay(doc.Polylines);
    const auto placed = std::ranges::find_if(doc.Polylines, [&](const PolylineRecord& r) {
        return r.Type == record.Type && r.SubType == record.SubType && r.ExtraIndexBytes == record.ExtraIndexBytes;
    });
    return {static_cast<int>(placed - doc.Polylines.begin()), false};
}

void LineEditorModel::CopyToClipboard() const {
    PatternClipboard& clipboard = LineClipboard();
    CopyColours(clipboard);
    clipboard.HasBitmap = Height() > 0;
    clipboard.Pattern = Pattern();
    const auto widths = Widths();
    clipboard.Width = widths ? widths->first : 0;
    clipboard.Border = widths ? widths->second : 0;
}

void LineEditorModel::PasteFromClipboard() {
    const PatternClipboard& clipboard = LineClipboard();
    if (clipboard.HasBitmap) {
        CommitPattern(clipboard.Pattern);
    } else {
        SetHeight(0);
        WidthText = std::to_string(clipboard.Width);
        if (clipboard.Colours[1] != kNoClipboardColour) BorderText = std::to_string(clipboard.Border);
    }
    PasteColours(clipboard);
}

}  // namespace mirvane
