// The driver of the text parser: line preparation, the outer loop, [_id],
// [_comments], [_drawOrder], the object sections (all, or the one target object), and the
// sorting after the last line.
#include "text/parser.h"

#include <algorithm>

#include "document/sorts.h"
#include "base/file_io.h"
#include "base/numbers.h"
#include "document/draw_order_table.h"
#include "document/encoding.h"
#include "text/parser_context.h"

namespace mirvane {

namespace textparse {

namespace {

constexpr std::size_t kMaxObjectsOfAKind = 32767;  // counts are 16-bit signed

struct IdentityOutOfRange {};

// A comment runs from ';' to the end of a line, except in a quoted line;
// one final comma goes, so C-array style rows ("....",) pass.
void PrepareLine(std::string& line) {
    if (line.empty()) return;
    std::string_view kept = line;
    if (kept.front() != '"') kept = kept.substr(0, kept.find(';'));
    kept = TrimBlanks(kept);
    if (!kept.empty() && kept.back() == ',') kept.remove_suffix(1);
    line = std::string(kept);
}

// CR LF and LF end a line, a tab is a blank. The last piece is left as it
// stands: the outer loop never looks at it.
std::vector<std::string> PrepareLines(std::string_view text) {
    std::vector<std::string> lines;
    std::string current;
    for (std::size_t k = 0; k < text.size(); ++k) {
        const char c = text[k];
        if (c == '\r' && k + 1 < text.size() && text[k + 1] == '\n') continue;
        if (c == '\n') {
            lines.push_back(std::move(current));
            current.clear();
        } else {
            current += c == '\t' ? ' ' : c;
        }
    }
    lines.push_back(std::move(current));
    for (std::size_t k = 0; k + 1 < lines.size(); ++k) PrepareLine(lines[k]);
    return lines;
}

// Runs `eachLine` on every line of a section up to its closing line; a
// section without one stops at the last line and is logged there.
template <typename EachLine>
void ReadSectionLines(ParseContext& ctx, EachLine&& eachLine) {
    for (;;) {
        if (!ctx.HasLine(ctx.I + 1)) {
            ctx.LogFailure();
            return;
        }
        ++ctx.I;
        if (IsEndLine(ctx.Lines[ctx.I])) return;
        ctx.Try([&] { eachLine(ctx.Lines[ctx.I]); });
    }
}

// The value at its fixed place: "0x" and hexadecimal digits, or decimal.
// Empty, it leaves the field not given.
std::optional<std::uint16_t> IdentityValue(std::string_view line, std::size_t valuePosition) {
    const std::string_view value = Mid(line, valuePosition);
    if (value.empty()) return std::nullopt;
    if (Mid(line, valuePosition, 2) != "0x") {
        if (const std::optional<std::uint16_t> number = ParseIdentityNumber(value)) return number;
        throw IdentityOutOfRange{};
    }
    const std::uint32_t hex = TolerantHex(Mid(line, valuePosition + 2));
    if (hex > 0xFFFF) throw IdentityOutOfRange{};
    return static_cast<std::uint16_t>(hex);
}

void ReadCodePage(TypIdentity& identity, std::string_view line) {
    const double number = StrictNumber(Mid(line, 10));
    const bool whole = number >= 1 && number <= 65535 && number == static_cast<int>(number);
    // One the program does not list (65001, say) is reported, and kept for the save.
    if (whole) identity.CodePage = static_cast<int>(number);
    if (!whole || !IsListedCodePage(identity.CodePage)) throw ParseFailure{};
}

void ReadIdentityLine(TypIdentity& identity, std::string_view rawLine) {
    const std::string_view line = TrimBlanks(rawLine);
    if (StartsWithNoCase(line, "productcode")) identity.ProductCode = IdentityValue(line, 13);
    else if (StartsWithNoCase(line, "fid")) identity.Fid = IdentityValue(line, 5);
    else if (StartsWithNoCase(line, "codepage")) ReadCodePage(identity, line);
}

// A value out of range is logged with the range, so that the user knows why
// the save then finds no FID or product code.
void ReadIdentitySection(ParseContext& ctx) {
    ReadSectionLines(ctx, [&](std::string_view line) {
        try {
            ReadIdentityLine(ctx.Doc.Identity, line);
        } catch (const IdentityOutOfRange&) {
            ctx.LogFailure();
            ctx.Doc.ReadErrorLog += " : " + IdentityRangeMessage();
        }
    });
}

void ReadCommentLine(Document& doc, std::string_view line) {
    Bytes& text = doc.HeaderGapBytes;
    if (!text.empty()) text.insert(text.end(), kLineBreak, kLineBreak + 2);
    text.insert(text.end(), line.begin(), line.end());
}

// "Type=0x10e01,3" is type 10e, subtype 01, level 3; a key of any other
// length is a type alone, its last three digits ("Type=0x3,1").
void ReadDrawOrderLine(Document& doc, std::string_view line) {
    if (line.empty()) return;
    const auto fields = SplitAt(line, ',');
    if (fields.size() < 2) throw ParseFailure{};
    const std::string_view key = fields[0];
    DrawOrderEntry entry;
    entry.Level = static_cast<int>(LeadingNumber(fields[1]));
    if (key.size() == 12) {
        entry.Type = HexValue(Mid(key, 8, 3));
        entry.SubType = HexValue(Mid(key, 11));
    } else {
        const std::string digits = "000" + std::string(Mid(key, 8));
        entry.Type = HexValue(std::string_view(digits).substr(digits.size() - 3));
    }
    doc.DrawOrder.push_back(entry);
}

// The record an object section writes to: a new one for a whole document,
// the target emptied (same kind), or the one of the last such step (another
// kind: the trap of a [_polygon] typed while a line is selected).
template <typename Record>
Record* ObjectTarget(ParseContext& ctx, std::vector<Record>& records, ObjectKind kind, int& last) {
    if (!ctx.Target) {
        if (records.size() >= kMaxObjectsOfAKind) return nullptr;
        records.emplace_back();
        last = static_cast<int>(records.size()) - 1;
        return &records.back();
    }
    if (ctx.Target->Kind == kind) {
        if (ctx.Target->Row < 0 || static_cast<std::size_t>(ctx.Target->Row) >= records.size()) return nullptr;
        last = ctx.Target->Row;
        records[static_cast<std::size_t>(last)] = Record{};
        return &records[static_cast<std::size_t>(last)];
    }
    if (last < 0 || static_cast<std::size_t>(last) >= records.size()) return nullptr;
    return &records[static_cast<std::size_t>(last)];
}

// A section whose record cannot be had is logged at its head and read into
// a record that is then dropped, so its lines are still passed over.
template <typename Record, typename ReadBodyFn>
void ReadObjectSection(ParseContext& ctx, std::vector<Record>& records, ObjectKind kind, int& last,
                       ReadBodyFn readBody) {
    const std::size_t countBefore = records.size();
    Record* target = ObjectTarget(ctx, records, kind, last);
    if (!target) {
        ctx.LogFailure();
        Record scratch;
        readBody(ctx, scratch);
        return;
    }
    if (kind == ObjectKind::Polyline && records.size() > countBefore) ++ctx.Doc.PolylineCount;
    readBody(ctx, *target);
}

void ReadSection(ParseContext& ctx, std::string_view head) {
    Document& doc = ctx.Doc;
    if (StartsWithNoCase(head, "[_id]")) {
        ReadIdentitySection(ctx);
    } else if (StartsWithNoCase(head, "[_comments]")) {
        ReadSectionLines(ctx, [&](std::string_view line) { ReadCommentLine(doc, line); });
    } else if (StartsWithNoCase(head, "[_draworder]")) {
        ReadSectionLines(ctx, [&](std::string_view line) { ReadDrawOrderLine(doc, line); });
        SortDrawOrder(doc.DrawOrder);
    } else if (StartsWithNoCase(head, "[_polygon]")) {
        ReadObjectSection(ctx, doc.Polygons, ObjectKind::Polygon, ctx.LastPolygon, ReadPolygonBody);
    } else if (StartsWithNoCase(head, "[_line]")) {
        ReadObjectSection(ctx, doc.Polylines, ObjectKind::Polyline, ctx.LastPolyline, ReadPolylineBody);
    } else if (StartsWithNoCase(head, "[_point]")) {
        ReadObjectSection(ctx, doc.Pois, ObjectKind::Poi, ctx.LastPoi, ReadPoiBody);
    }
}

// Parsed lines are all regular ones; an extra polyline keeps its place
// behind them only while its record is not rebuilt.
void SortPolylinesByType(std::vector<PolylineRecord>& polylines) { SortPolylinesForDisplay(polylines); }

// Sorts one kind when the text touched it; with a target of that kind,
// returns the last record holding the edited object's Type and SubType.
template <typename Record, typename Sort>
int FinishKind(ParseContext& ctx, std::vector<Record>& records, ObjectKind kind, Sort sort) {
    if (ctx.Target && ctx.Target->Kind != kind) return -1;
    const bool selected = ctx.Target && ctx.Target->Row >= 0 && static_cast<std::size_t>(ctx.Target->Row) < records.size();
    std::string type, subType;
    if (selected) {
        type = records[static_cast<std::size_t>(ctx.Target->Row)].Type;
        subType = records[static_cast<std::size_t>(ctx.Target->Row)].SubType;
    }
    if (records.size() > 1) sort(records);
    int selectIndex = -1;
    if (selected)
        for (std::size_t k = 0; k < records.size(); ++k)
            if (records[k].Type == type && records[k].SubType == subType) selectIndex = static_cast<int>(k);
    return selectIndex;
}

void CountPolylines(Document& doc) {
    int regular = 0;
    for (const auto& line : doc.Polylines) regular += line.ExtraIndexBytes[0] == 0 && line.ExtraIndexBytes[1] == 0;
    doc.PolylineCount = regular;
    doc.ExtraPolylineCount = static_cast<int>(doc.Polylines.size()) - regular;
}

ParseResult Finish(ParseContext& ctx) {
    Document& doc = ctx.Doc;
    ParseResult result;
    const int polygon = FinishKind(ctx, doc.Polygons, ObjectKind::Polygon, SortPolygons);
    const int polyline = FinishKind(ctx, doc.Polylines, ObjectKind::Polyline, SortPolylinesByType);
    const int poi = FinishKind(ctx, doc.Pois, ObjectKind::Poi, SortPois);
    if (!ctx.Target || ctx.Target->Kind == ObjectKind::Polyline) CountPolylines(doc);
    if (ctx.Target) result.SelectIndex = std::max({polygon, polyline, poi});
    return result;
}

}  // namespace

}  // namespace textparse

ParseResult ParseTypText(Document& doc, std::string_view textBytes, std::optional<ObjectRef> target) {
    using namespace textparse;
    // A single object's text holds no comment section: applying it keeps the comment.
    if (!target) doc.HeaderGapBytes.clear();
    if (textBytes.substr(0, 3) == "\xEF\xBB\xBF") textBytes.remove_prefix(3);  // UTF-8 byte order mark
    ParseContext ctx{doc, PrepareLines(textBytes)};
    ctx.Target = target;
    for (ctx.I = 0; ctx.I + 1 < ctx.LineCount(); ++ctx.I) {
        const std::string_view head = TrimBlanks(ctx.Lines[ctx.I]);
        if (!head.empty() && head.front() == '[') ReadSection(ctx, head);
    }
    ctx.Log.Finish();
    return Finish(ctx);
}

void LoadTypText(Document& doc, std::string_view textBytes, const std::string& path) {
    doc.Reset();
    doc.State = DocumentState::Loaded;
    doc.FromText = true;
    doc.SetPath(path);
    ParseTypText(doc, textBytes);
}

bool OpenTypText(Document& doc, const std::string& path) {
    std::string bytes;
    if (!ReadWholeFile(path, bytes)) return false;
    LoadTypText(doc, bytes, path);
    return true;
}

}  // namespace mirvane
