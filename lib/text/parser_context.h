// Shared state and small readers of the text parser. Positions follow the
// program's text functions: 1-based, and a position past the end of a line
// reads as nothing rather than failing.
#pragma once

#include <array>
#include <optional>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "document/document.h"
#include "document/error_log.h"

namespace mirvane::textparse {

// Thrown by a step that cannot be done; caught around each statement and
// logged against the current line.
struct ParseFailure {};

struct ParseContext {
    Document& Doc;
    std::vector<std::string_view> Lines;  // views into the text being read
    std::size_t I = 0;  // the current line, shared by all sections
    std::optional<ObjectRef> Target;  // the object whose text is read; none for a whole document
    // Record written by the last add or reset of each kind (the trap of a
    // section of another kind than the scope's goes there).
    int LastPolygon = 0, LastPolyline = 0, LastPoi = 0;
    // The 8-bit code page that labels of a UTF-8 text are converted to; 0
    // when they are kept as they stand.
    int LabelCodePage = 0;
    CappedErrorLog Log{Doc};

    std::size_t LineCount() const { return Lines.size(); }
    // Line k; reading past the last line fails.
    std::string_view Line(std::size_t k) const;
    std::string_view Current() const { return Line(I); }
    bool HasLine(std::size_t k) const { return k < Lines.size(); }
    // Moves to the next line; fails, without moving, at the last line.
    void Advance();
    // Line k, or the first line after it that is not only a comment.
    std::size_t SkipComments(std::size_t k) const;
    // Moves to the next line that is not only a comment; fails, without moving, when none is left.
    void AdvancePastComments();

    // Appends "Ligne n : "..."" for the current line and sets ReadErrorFlag.
    void LogFailure();

    // Runs one statement; a failure is logged and parsing goes on.
    template <typename Step>
    bool Try(Step&& step) {
        try {
            step();
            return true;
        } catch (...) {
            LogFailure();
            return false;
        }
    }
};

// --- text helpers ---------------------------------------------------------

// Up to `length` bytes from 1-based `position`; empty past the end.
std::string_view Mid(std::string_view text, std::size_t position, std::size_t length = std::string_view::npos);
std::string Lower(std::string_view text);
std::string_view TrimBlanks(std::string_view text);
bool StartsWithNoCase(std::string_view text, std::string_view lowerPrefix);
// A section's closing line: "[end]" in any case at its start.
bool IsEndLine(std::string_view line);
std::string ReplaceAll(std::string text, std::string_view from, std::string_view to);
// Fields at each single blank, empty fields kept.
std::vector<std::string_view> SplitAt(std::string_view text, char separator);
// 1-based position of the first `c`, 0 when none.
std::size_t PositionOf(std::string_view text, char c);

// Tolerant hexadecimal reading: digits up to the first other character, 0 when none.
std::uint32_t TolerantHex(std::string_view text);
// Strict decimal conversion to a byte: blanks around, a fraction rounded half
// to even; fails on anything else or outside 0..255.
std::uint8_t StrictByte(std::string_view text);
// Strict decimal number; fails when the text is no number.
double StrictNumber(std::string_view text);

// --- shared key readers -----------------------------------------------------

// The value of a line "key=value" whose key, in any case and with blanks
// around the separator, is `lowerKey`; no value for another key.
std::optional<std::string_view> KeyValue(std::string_view line, std::string_view lowerKey,
                                         std::string_view separators = "=");

// The header of an Xpm line: the text behind its first double quote, up to
// the next one or the end of the line, and its fields at runs of blanks.
struct XpmHeader {
    std::string_view Text;
    std::vector<std::string_view> Fields;
    std::string_view Field(std::size_t k) const;  // fails when missing
};
XpmHeader ReadXpmHeader(std::string_view line);

// A colour 0x00BBGGRR from two hexadecimal digits each of red (at 1-based
// `position`), green and blue, each read as far as it is hexadecimal.
std::uint32_t ColourDigitsAt(std::string_view line, std::size_t position);

// A palette line: `"`, a code of `cpp` characters, `c`, a colour `#RRGGBB`
// or `none`, `"`, and what follows (the alpha of mode 32). Blanks between
// the parts may be any number; the code may itself be a `c` or blanks.
struct ColourLine {
    std::string Code;
    bool Transparent = false;
    std::uint32_t Colour = 0;  // 0x00BBGGRR
    std::string_view Behind;   // the text behind the closing quote
};
// Fails on a line of another form.
ColourLine ReadColourLine(std::string_view line, std::size_t cpp);
// Moves onto the next line as a colour line; fails, without moving, when it
// is a closing line, so a palette shorter than its header stays in its body.
std::string_view AdvanceToColourLine(ParseContext& ctx);

struct TypeAndSubType {
    std::string Type;                    // three digits
    std::optional<std::string> SubType;  // two digits, when the value holds one
};
// A type value: up to three digits are a type; four are a type and a
// subtype ("0x2f06"), as are five ("0x10e01"). More fail.
TypeAndSubType SplitTypeDigits(std::string_view value);

// "type=": Type and SubType of the record. Up to three digits are a type;
// four are a type and a subtype ("0x2f06"), as are five ("0x10e01").
void ReadTypeKey(std::string_view line, std::string& type, std::string& subType);
// "subtype=".
void ReadSubTypeKey(std::string_view line, std::string& subType);

// Labels and extended label keys of one body. They may stand anywhere in it
// (every label line adds a label; a repeated extended label key replaces the
// earlier) and become the record's blocks when the body ends.
struct LabelWork {
    struct Label {
        std::uint8_t Code = 0;
        std::string Text;
        std::size_t Line = 0;  // for the log
    };
    std::vector<Label> Labels;
    bool Extended = false;
    std::optional<int> Font;
    std::optional<int> CustomColor;  // 0 No .. 3 DayAndNight
    std::optional<std::uint32_t> DayColour, NightColour;
};
// A "string", "extendedlabels", "fontstyle", "customcolor", "daycustomcolor"
// or "nightcustomcolor" line into `work`; false for any other line.
bool ReadLabelKey(ParseContext& ctx, LabelWork& work);
// Packs `work` into the record's blocks. Labels too long for a TYP are left
// out, and so is a label the code page cannot hold, each named in the log.
// Sets `labelFlag` and `extendedFlag` in `flags` for what was given.
void FinishLabels(ParseContext& ctx, const LabelWork& work, Bytes& labelBytes, Bytes& extendedLabelBytes,
                  std::uint8_t& flags, std::uint8_t labelFlag, std::uint8_t extendedFlag,
                  const std::string& type, const std::string& subType);

// The keys every section reads alike: "type=", "subtype=" and the label keys.
// False when the current line is none of them.
template <typename Record>
bool ReadSharedKey(ParseContext& ctx, Record& record, LabelWork& labels) {
    const std::string_view line = ctx.Current();
    if (StartsWithNoCase(line, "type")) ReadTypeKey(line, record.Type, record.SubType);
    else if (StartsWithNoCase(line, "subtype")) ReadSubTypeKey(line, record.SubType);
    else return ReadLabelKey(ctx, labels);
    return true;
}

template <typename Record>
void FinishRecordLabels(ParseContext& ctx, const LabelWork& work, Record& record, std::uint8_t& flags,
                        std::uint8_t labelFlag, std::uint8_t extendedFlag) {
    FinishLabels(ctx, work, record.LabelBytes, record.ExtendedLabelBytes, flags, labelFlag, extendedFlag,
                 record.Type, record.SubType);
}

// Body loop: each line is a key line; the body stops when the line after it
// is a closing line. A body that runs to the last line is logged there.
template <typename KeyLine>
void ReadBody(ParseContext& ctx, KeyLine&& keyLine) {
    for (;;) {
        if (!ctx.HasLine(ctx.I + 1)) { ctx.LogFailure(); return; }
        ++ctx.I;
        ctx.Try([&] { keyLine(); });
        if (!ctx.HasLine(ctx.I + 1)) { ctx.LogFailure(); return; }
        if (IsEndLine(ctx.Lines[ctx.I + 1])) { ++ctx.I; return; }
    }
}

void ReadPolygonBody(ParseContext& ctx, PolygonRecord& record);
void ReadPolylineBody(ParseContext& ctx, PolylineRecord& record);
void ReadPoiBody(ParseContext& ctx, PoiRecord& record);

}  // namespace mirvane::textparse
