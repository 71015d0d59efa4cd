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
    std::vector<std::string> Lines;
    std::size_t I = 0;  // the current line, shared by all sections
    std::optional<ObjectRef> Target;  // the object whose text is read; none for a whole document
    // Record written by the last add or reset of each kind (the trap of a
    // section of another kind than the scope's goes there).
    int LastPolygon = 0, LastPolyline = 0, LastPoi = 0;
    CappedErrorLog Log{Doc};

    std::size_t LineCount() const { return Lines.size(); }
    // Line k; reading past the last line fails.
    const std::string& Line(std::size_t k) const;
    const std::string& Current() const { return Line(I); }
    bool HasLine(std::size_t k) const { return k < Lines.size(); }
    // Moves to the next line; fails, without moving, at the last line.
    void Advance();

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

// The text between the first two double quotes of an Xpm line and its fields.
struct XpmHeader {
    std::string_view Text;
    std::vector<std::string_view> Fields;
    std::string_view Field(std::size_t k) const;  // fails when missing
};
XpmHeader ReadXpmHeader(std::string_view line);

// A colour 0x00BBGGRR from two hexadecimal digits each of red (at 1-based
// `position`), green and blue, each read as far as it is hexadecimal.
std::uint32_t ColourDigitsAt(std::string_view line, std::size_t position);
// The colour of a colour line, by the position of its first lower-case `c`.
std::uint32_t LineColour(std::string_view line);
// "none" two places after the first lower-case `c`, in any case.
bool PassesCTest(std::string_view line);
// "none" at position 6 of the line as given.
bool PassesFixedTest(std::string_view line);

// "type=": Type and SubType of the record.
void ReadTypeKey(std::string_view line, std::string& type, std::string& subType);
// "subtype=".
void ReadSubTypeKey(std::string_view line, std::string& subType);
// A run of "string" lines from the current one into a label block; the
// current line ends on the last line of the run. False, with the object
// named in the log, when the labels are too long for a TYP and left out.
bool ReadLabelRun(ParseContext& ctx, Bytes& labelBytes, const std::string& type, const std::string& subType);
// "ExtendedLabels=Y": FontStyle and CustomColor from the following lines,
// read by position; the current line does not move.
void ReadExtendedLabels(ParseContext& ctx, Bytes& extendedLabelBytes);

// The keys every section reads alike: "type=", "subtype=", "string..." and
// "extendedlabels=y". The last two set `labelFlag` or `extendedFlag` in
// `flags`. False when the current line is none of them.
template <typename Record>
bool ReadSharedKey(ParseContext& ctx, Record& record, std::uint8_t& flags, std::uint8_t labelFlag,
                   std::uint8_t extendedFlag) {
    const std::string& line = ctx.Current();
    if (StartsWithNoCase(line, "type=")) {
        ReadTypeKey(line, record.Type, record.SubType);
    } else if (StartsWithNoCase(line, "subtype=")) {
        ReadSubTypeKey(line, record.SubType);
    } else if (StartsWithNoCase(line, "string")) {
        if (ReadLabelRun(ctx, record.LabelBytes, record.Type, record.SubType)) flags |= labelFlag;
    } else if (StartsWithNoCase(line, "extendedlabels=y")) {
        flags |= extendedFlag;
        ReadExtendedLabels(ctx, record.ExtendedLabelBytes);
    } else {
        return false;
    }
    return true;
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
