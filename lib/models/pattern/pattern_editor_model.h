// What frmPolygone and frmPolyline share: type and subtype, the colour
// check boxes and the four colour fields, the labels, and the pattern with
// its tools and undo history. Each editor works on a copy and writes the
// record only on OK.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "colour/palette.h"
#include "document/object_codec.h"
#include "models/editing/history.h"
#include "models/labels/label_strings_model.h"
#include "models/pattern/pattern_tools.h"

namespace mirvane {

// An input error as a message box shows it.
struct EditorMessage {
    std::string Title, Text;
    bool operator==(const EditorMessage&) const = default;
};

std::optional<std::uint32_t> ParseColourText(std::string_view text);

// The checks made on leaving a field; no value when the text is accepted.
std::optional<EditorMessage> CheckTypeText(std::string_view text);     // txtType: 0x000 to 0x1FF
std::optional<EditorMessage> CheckSubTypeText(std::string_view text);  // txtSubType: 0x00 to 0x1F
std::optional<EditorMessage> CheckLevelText(std::string_view text);    // txtDraworder: empty, or above 0
std::optional<EditorMessage> CheckColourText(std::string_view text);   // txtcouleur(i)

// OK with txtType or txtSubType empty: the message naming the first one.
std::optional<EditorMessage> CheckRequiredTypeFields(const std::string& type, const std::string& subType);
// Type and subtype compared as numbers: "1A" and "01a" are one type.
bool SameObjectType(const std::string& type, const std::string& subType, const std::string& otherType,
                    const std::string& otherSubType);
// The duplicate message of OK; `existsDefault`/`existsKey` start it.
EditorMessage DuplicateTypeMessage(const char* existsDefault, const char* existsKey, const std::string& type,
                                   const std::string& subType);
// The critical message of an OK stopped by run-time error `error`, for the
// object word `objectDefault` under `objectKey`.
EditorMessage StoreFailureMessage(const char* objectDefault, const char* objectKey, const std::string& type,
                                  const std::string& subType, int error);

// txtcouleur(0) to (3); the label colours are the labels' own.
enum class ColourField { Day1 = 0, Day2 = 1, Night1 = 2, Night2 = 3 };
inline constexpr int kObjectColourFields = 4;

enum class PatternToolKind { Pen, Fill };  // optPinceau, optPot

// The buttons of the tool box that change the pattern as a whole.
enum class PatternCommand {
    ShiftRight, ShiftLeft, ShiftDown, ShiftUp,  // cmdDeplaceD, G, B, H
    RotateClockwise, RotateCounterClockwise,    // cmdRotatD, cmdRotatG
    FlipHorizontal, FlipVertical,               // cmdFlipH, cmdFlipV
    Invert,                                     // cmdInverser
    FillAll,                                    // cmdRemplir
    RepeatColumns, RepeatRows,                  // cmdRépéterH, cmdRépéterV
};

// The colours of the pattern clipboards, -1 for a transparent or absent one.
inline constexpr std::int32_t kNoClipboardColour = -1;

// cmdCopier / cmdColler. One clipboard serves every polygon editor of the
// run, another every line editor; a clipboard never written pastes black
// colours with night colours on and a pattern of the second colour.
struct PatternClipboard {
    std::array<std::int32_t, kObjectColourFields> Colours{};
    bool HasBitmap = true;
    BitGrid Pattern{kPatternWidth, kPolygonPatternRows, kSecondColourCell};
    int Width = 0, Border = 0;  // a line without a bitmap
};
PatternClipboard& PolygonClipboard();
PatternClipboard& LineClipboard();

class PatternEditorModel {
public:
    explicit PatternEditorModel(int patternRows);
    virtual ~PatternEditorModel() = default;

    std::string Type, SubType;  // txtType, txtSubType, as typed
    LabelStringsModel Labels;

    // chkCouleursNuit, chkTranspJour, chkTranspNuit. Without night colours
    // (and for a line without a bitmap) the night follows the day.
    bool NightColours() const { return layout_.Night; }
    bool DayClear() const { return layout_.DayClear; }
    bool NightClear() const { return layout_.NightClear; }
    void SetNightColours(bool on);
    void SetDayClear(bool on);
    void SetNightClear(bool on);
    const ColourLayout& Layout() const { return layout_; }

    std::uint32_t Colour(ColourField field) const { return colours_[static_cast<int>(field)]; }
    void SetColour(ColourField field, std::uint32_t colour) { colours_[static_cast<int>(field)] = colour; }
    // The fields shown for the check boxes, in order: the stored colours.
    std::vector<ColourField> VisibleColourFields() const;
    int ColourCount() const { return layout_.StoredColours(); }

    // The pattern, and drawing on it with the pointer: one undo step a stroke.
    const BitGrid& Pattern() const { return target_.grid; }
    PatternToolKind Tool() const { return toolKind_; }
    void SetTool(PatternToolKind kind) { toolKind_ = kind; }
    std::uint8_t ChosenColour() const { return target_.primary; }
    void ToggleChosenColour() { target_.SetChosenColour(static_cast<std::uint8_t>(1 - target_.primary)); }
    void Press(Cell cell, MouseButton button);
    // While a button is held the pointer draws as the pen does, whatever the tool.
    void Move(Cell cell);
    void Release(Cell cell);
    void Run(PatternCommand command);

    // cbbPixelsH, cbbPixelsV and chkAuto.
    int RepeatIndexH = 0, RepeatIndexV = 0;
    bool AutoRepeat = false;

    bool CanUndo() const { return history_.CanUndo(); }
    bool CanRedo() const { return history_.CanRedo(); }
    void Undo() { target_.grid = history_.Undo(); }
    void Redo() { target_.grid = history_.Redo(); }

protected:
    // Colour k of a record's table goes to the k-th visible field.
    void LoadColours(const std::vector<std::uint32_t>& colours);
    std::vector<std::uint32_t> StoredColours() const;
    void ResetPattern(BitGrid pattern);
    void CommitPattern(BitGrid pattern);
    void CopyColours(PatternClipboard& clipboard) const;
    void PasteColours(const PatternClipboard& clipboard);
    // Whether the night must follow the day.
    virtual bool NightFollowsDay() const { return !layout_.Night; }
    // After any change of the colour check boxes.
    virtual void LayoutChanged() {}

    ColourLayout layout_;

private:
    std::array<std::uint32_t, kObjectColourFields> colours_{0x000000, 0xFFFFFF, 0x000000, 0xFFFFFF};
    PatternTarget target_;
    History<BitGrid> history_;
    PatternToolKind toolKind_ = PatternToolKind::Pen;
    std::unique_ptr<mirvane::Tool<std::uint8_t>> stroke_;  // the tool of the stroke under way
};

}  // namespace mirvane
