#include "models/pattern/pattern_editor_model.h"

#include <algorithm>
#include <cstdio>

#include "base/numbers.h"
#include "document/encoding.h"
#include "document/run_time_errors.h"
#include "graphics/transforms.h"
#include "lang/lookup.h"
#include "models/editing/tools/fill.h"
#include "models/editing/tools/pen.h"

namespace mirvane {

namespace {

std::string EditText(const char* defaultText, const char* key) { return LookupText("Editer", defaultText, key); }

std::optional<int> HexNumber(std::string_view text) {
    if (text.empty() || text.size() > 6) return std::nullopt;
    int value = 0;
    for (const char c : text) {
        int digit = 0;
        if (c >= '0' && c <= '9') digit = c - '0';
        else if (c >= 'a' && c <= 'f') digit = c - 'a' + 10;
        else if (c >= 'A' && c <= 'F') digit = c - 'A' + 10;
        else return std::nullopt;
        value = value * 16 + digit;
    }
    return value;
}

EditorMessage FieldError(const std::string& prompt, const char* fieldDefault, const char* fieldKey) {
    return {EditText("Erreur de saisie dans le champ", "ErreurSaisie1") + "  \"" + EditText(fieldDefault, fieldKey) + "\"",
            prompt};
}

std::optional<EditorMessage> CheckHexRange(std::string_view text, int limit, const char* low, const char* high,
                                           const char* fieldDefault, const char* fieldKey) {
    if (const auto value = HexNumber(text); value && *value <= limit) return std::nullopt;
    return FieldError(EditText("Il faut rentrer une valeur héxadécimale  comprise entre", "msgHexa") + low +
                          EditText("et", "et") + high,
                      fieldDefault, fieldKey);
}

}  // namespace

std::optional<std::uint32_t> ParseColourText(std::string_view text) {
    if (text.size() != 7 || text[0] != '#') return std::nullopt;
    const auto rgb = HexNumber(text.substr(1));
    if (!rgb) return std::nullopt;
    const auto value = static_cast<std::uint32_t>(*rgb);
    return ((value & 0xFF) << 16) | (value & 0xFF00) | ((value >> 16) & 0xFF);
}

std::optional<EditorMessage> CheckTypeText(std::string_view text) {
    return CheckHexRange(text, 0x1FF, " 0x000 ", " 0x1FF", "Type", "Type");
}

std::optional<EditorMessage> CheckSubTypeText(std::string_view text) {
    return CheckHexRange(text, 0x1F, " 0x00 ", " 0x1F", "SubType", "SubType");
}

std::optional<EditorMessage> CheckLevelText(std::string_view text) {
    if (text.empty()) return std::nullopt;
    const bool digits = text.size() <= 9 && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
    if (digits && LeadingNumber(text) > 0) return std::nullopt;
    return FieldError(EditText("Il faut rentrer un nombre entier supérieur à 0", "msgEntier"), "Draworder", "Draworder");
}

std::optional<EditorMessage> CheckColourText(std::string_view text) {
    if (ParseColourText(text)) return std::nullopt;
    return EditorMessage{"", EditText("Il faut rentrer une valeur html du type #RRGGBB", "msgCouleur")};
}

std::optional<EditorMessage> CheckRequiredTypeFields(const std::string& type, const std::string& subType) {
    for (const auto& [text, key] : {std::pair{type, "Type"}, std::pair{subType, "SubType"}}) {
        if (!text.empty()) continue;
        const std::string name = EditText(key, key);
        return EditorMessage{name + " " + EditText("absent", "msgAbsent"),
                             EditText("Il faut indiquer le ", "msgEntrer") + " " + name + "."};
    }
    return std::nullopt;
}

bool SameObjectType(const std::string& type, const std::string& subType, const std::string& otherType,
                    const std::string& otherSubType) {
    return HexValue(type) == HexValue(otherType) && HexValue(subType) == HexValue(otherSubType);
}

EditorMessage DuplicateTypeMessage(const char* existsDefault, const char* existsKey, const std::string& type,
                                   const std::string& subType) {
    return {EditText("Erreur de choix du Type et/ou du SubType", "msgErreurchoixType"),
            EditText(existsDefault, existsKey) + TypeText(HexValue(type)) + " " +
                EditText("et de subtype 0x", "msgPolygoneExiste2") + SubTypeText(HexValue(subType))};
}

EditorMessage StoreFailureMessage(const char* objectDefault, const char* objectKey, const std::string& type,
                                  const std::string& subType, int error) {
    std::string details = RunTimeErrorDetails(error);
    details.erase(0, details.find_first_not_of(' '));
    return {"Mirvane", EditText("Une erreur s'est produite.", "msgEnregistrement1") + "\n" +
                           EditText(objectDefault, objectKey) + " " + EditText("Type", "Type") + ":0x" + type + "  " +
                           EditText("SubType", "SubType") + ":0x" + subType + "  " +
                           EditText("n'a pas pu être enregistré.", "msgEnregistrement2") + "\n\n" + details};
}

PatternClipboard& PolygonClipboard() {
    static PatternClipboard clipboard;
    return clipboard;
}

PatternClipboard& LineClipboard() {
    static PatternClipboard clipboard{.HasBitmap = false};
    return clipboard;
}

PatternEditorModel::PatternEditorModel(int patternRows)
    : target_(BitGrid(kPatternWidth, patternRows, kSecondColourCell)), history_(target_.grid) {}

void PatternEditorModel::SetNightColours(bool on) {
    layout_.Night = on;
    if (NightFollowsDay()) layout_.NightClear = layout_.DayClear;
    LayoutChanged();
}

void PatternEditorModel::SetDayClear(bool on) {
    layout_.DayClear = on;
    if (NightFollowsDay()) layout_.NightClear = on;
    LayoutChanged();
}

void PatternEditorModel::SetNightClear(bool on) {
    layout_.NightClear = NightFollowsDay() ? layout_.DayClear : on;
    LayoutChanged();
}

std::vector<ColourField> PatternEditorModel::VisibleColourFields() const {
    std::vector<ColourField> fields{ColourField::Day1};
    if (!layout_.DayClear) fields.push_back(ColourField::Day2);
    if (layout_.Night) {
        fields.push_back(ColourField::Night1);
        if (!layout_.NightClear) fields.push_back(ColourField::Night2);
    }
    return fields;
}

void PatternEditorModel::LoadColours(const std::vector<std::uint32_t>& colours) {
    const std::vector<ColourField> fields = VisibleColourFields();
    for (std::size_t k = 0; k < fields.size() && k < colours.size(); ++k) SetColour(fields[k], colours[k]);
}

std::vector<std::uint32_t> PatternEditorModel::StoredColours() const {
    std::vector<std::uint32_t> colours;
    for (const ColourField field : VisibleColourFields()) colours.push_back(Colour(field));
    return colours;
}

void PatternEditorModel::ResetPattern(BitGrid pattern) {
    target_.grid = std::move(pattern);
    history_.Reset(target_.grid);
}

void PatternEditorModel::CommitPattern(BitGrid pattern) {
    if (pattern == history_.Current()) return;
    target_.grid = std::move(pattern);
    history_.Commit(target_.grid);
}

void PatternEditorModel::Press(Cell cell, MouseButton button) {
    if (!target_.grid.Contains(cell)) return;
    target_.SetAutoRepeat(AutoRepeat ? std::optional<Cell>(Cell{RepeatSpan(RepeatIndexH), RepeatSpan(RepeatIndexV)})
                                     : std::nullopt);
    if (toolKind_ == PatternToolKind::Fill) {
        // The fill ignores auto repeat; a drag that follows draws as the pen.
        const auto repeat = target_.AutoRepeat();
        target_.SetAutoRepeat(std::nullopt);
        FillTool<std::uint8_t> fill;
        fill.Press(target_, cell, button);
        fill.Release(target_, cell);
        target_.SetAutoRepeat(repeat);
    }
    stroke_ = std::make_unique<PenTool<std::uint8_t>>();
    stroke_->Press(target_, cell, button);
}

void PatternEditorModel::Move(Cell cell) {
    if (stroke_) stroke_->Move(target_, cell);
}

void PatternEditorModel::Release(Cell cell) {
    if (!stroke_) return;
    stroke_->Release(target_, cell);
    stroke_.reset();
    if (target_.grid != history_.Current()) history_.Commit(target_.grid);
}

void PatternEditorModel::Run(PatternCommand command) {
    if (target_.grid.Height() == 0) return;  // a solid line has no pattern
    BitGrid pattern = target_.grid;
    switch (command) {
        case PatternCommand::ShiftRight: Shift(pattern, 1, 0); break;
        case PatternCommand::ShiftLeft: Shift(pattern, -1, 0); break;
        case PatternCommand::ShiftDown: Shift(pattern, 0, 1); break;
        case PatternCommand::ShiftUp: Shift(pattern, 0, -1); break;
        case PatternCommand::RotateClockwise: RotateKeepingSize(pattern, Turn::Clockwise, kSecondColourCell); break;
        case PatternCommand::RotateCounterClockwise:
            RotateKeepingSize(pattern, Turn::CounterClockwise, kSecondColourCell);
            break;
        case PatternCommand::FlipHorizontal: FlipHorizontal(pattern); break;
        case PatternCommand::FlipVertical: FlipVertical(pattern); break;
        case PatternCommand::Invert: InvertBits(pattern); break;
        case PatternCommand::FillAll: pattern.Fill(target_.primary); break;
        case PatternCommand::RepeatColumns: RepeatColumns(pattern, RepeatSpan(RepeatIndexH)); break;
        case PatternCommand::RepeatRows: RepeatRows(pattern, RepeatSpan(RepeatIndexV)); break;
    }
    CommitPattern(std::move(pattern));
}

void PatternEditorModel::CopyColours(PatternClipboard& clipboard) const {
    const auto slot = [&](ColourField field, bool absent) {
        return absent ? kNoClipboardColour : static_cast<std::int32_t>(Colour(field));
    };
    clipboard.Colours = {slot(ColourField::Day1, false), slot(ColourField::Day2, layout_.DayClear),
                         slot(ColourField::Night1, !layout_.Night),
                         slot(ColourField::Night2, !layout_.Night || layout_.NightClear)};
}

void PatternEditorModel::PasteColours(const PatternClipboard& clipboard) {
    const auto& c = clipboard.Colours;
    SetColour(ColourField::Day1, static_cast<std::uint32_t>(c[0]) & 0xFFFFFF);
    layout_.DayClear = c[1] == kNoClipboardColour;
    if (!layout_.DayClear) SetColour(ColourField::Day2, static_cast<std::uint32_t>(c[1]) & 0xFFFFFF);
    layout_.Night = c[2] != kNoClipboardColour;
    if (layout_.Night) SetColour(ColourField::Night1, static_cast<std::uint32_t>(c[2]) & 0xFFFFFF);
    layout_.NightClear = c[3] == kNoClipboardColour;
    if (!layout_.NightClear) SetColour(ColourField::Night2, static_cast<std::uint32_t>(c[3]) & 0xFFFFFF);
    if (NightFollowsDay()) layout_.NightClear = layout_.DayClear;
    LayoutChanged();
}

}  // namespace mirvane
