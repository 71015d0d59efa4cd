// The driver of the text parser: line preparation, the outer loop, [_id],
// [_comments], [_drawOrder], the object sections (all, or the one target object), and the
// sorting after the last line.
#include "text/parser.h"

#include <algorithm>

#include "document/sorts.h"
#include "base/codepage.h"
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

// A label line ("String1=0x04,Café; bar ") keeps all it holds: labels may
// end in blanks or hold a ';', and the binary keeps them.
bool IsLabelLine(std::string_view line) {
    line = TrimBlanks(line);
    return StartsWithNoCase(line, "string") && line.find('=') != std::string_view::npos;
}

// A comment runs from ';' to the end of a line, except in a quoted line or a
// label line; one final comma goes, so C-array style rows ("....",) pass.
void PrepareLine(std::string_view& line) {
    if (line.empty()) return;
    if (IsLabelLine(line)) {
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        return;
    }
    if (line.front() != '"') line = line.substr(0, line.find(';'));
    line = TrimBlanks(line);
    if (!line.empty() && line.back() == ',') line.remove_suffix(1);
}

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// CR LF and LF end a line, a tab is a blank. A UTF-8 byte order mark at the
// start of a line goes (texts joined from several files hold one after their
// first comment lines) and sets `byteOrderMark`. The last piece is left as it
// stands: the outer loop never looks at it. The lines are views into `text`,
// whose tabs become blanks: one copy of the text, not one string a line.
std::vector<std::string_view> PrepareLines(std::string& text, bool& byteOrderMark) {
    std::replace(text.begin(), text.end(), '\t', ' ');
    const std::string_view all = text;
    std::vector<std::string_view> lines;
    lines.reserve(static_cast<std::size_t>(std::count(all.begin(), all.end(), '\n')) + 1);
    for (std::size_t start = 0;;) {
        const std::size_t end = all.find('\n', start);
        std::string_view piece = all.substr(start, end == std::string_view::npos ? all.npos : end - start);
        if (end != std::string_view::npos && piece.ends_with('\r')) piece.remove_suffix(1);
        while (piece.starts_with(kByteOrderMark)) {
            byteOrderMark = true;
            piece.remove_prefix(kByteOrderMark.size());
        }
        lines.push_back(piece);
        if (end == std::string_view::npos) break;
        start = end + 1;
    }
    for (std::size_t k = 0; k + 1 < lines.size(); ++k) PrepareLine(lines[k]);
    return lines;
}

bool IsUtf8WithNonAscii(std::string_view text) {
    const bool nonAscii = std::any_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
    return nonAscii && IsValidUtf8(text);
}

// Labels of a UTF-8 text go to the 8-bit code page the text declares (the
// document's when it declares none), as map makers' texts expect.
int LabelCodePage(const ParseContext& ctx, bool utf8) {
    if (!utf8) return 0;
    int codePage = ctx.Doc.Identity.CodePage;
    for (const std::string_view line : ctx.Lines)
        if (const auto value = KeyValue(line, "codepage")) {
            codePage = static_cast<int>(LeadingNumber(*value));
            break;
        }
    return IsListedCodePage(codePage) ? codePage : 0;
}

// Comment text has no place to report a missing character: it gets a '?'.
void ConvertComments(Bytes& comments, int codePage) {
    const std::string text = EncodeCodePage(std::string(comments.begin(), comments.end()), codePage);
    comments.assign(text.begin(), text.end());
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

// "0x" and hexadecimal digits, or decimal. Empty, it leaves the field not given.
std::optional<std::uint16_t> IdentityValue(std::string_view value) {
    if (value.empty()) return std::nullopt;
    if (!StartsWithNoCase(value, "0x")) {
        if (const std::optional<std::uint16_t> number = ParseIdentityNumber(value)) return number;
        throw IdentityOutOfRange{};
    }
    const std::uint32_t hex = TolerantHex(value.substr(2));
    if (hex > 0xFFFF) throw IdentityOutOfRange{};
    return static_cast<std::uint16_t>(hex);
}

// 65001 is kept like the listed ones; any other is reported and left out.
void ReadCodePage(TypIdentity& identity, std::string_view value) {
    const double number = StrictNumber(value);
    const bool whole = number >= 1 && number <= 65535 && number == static_cast<int>(number);
    if (!whole || !(IsListedCodePage(static_cast<int>(number)) || number == kUtf8CodePage)) throw ParseFailure{};
    identity.CodePage = static_cast<int>(number);
}

void ReadIdentityLine(TypIdentity& identity, std::string_view line) {
    if (const auto productCode = KeyValue(line, "productcode")) identity.ProductCode = IdentityValue(*productCode);
    else if (const auto fid = KeyValue(line, "fid")) identity.Fid = IdentityValue(*fid);
    else if (const auto codePage = KeyValue(line, "codepage")) ReadCodePage(identity, *codePage);
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

// "Type=0x10e01,3" is type 10e, subtype 01, level 3; "Type=0x2f06,1" type
// 02f, subtype 06; up to three digits are a type alone ("Type=0x3,1").
void ReadDrawOrderLine(Document& doc, std::string_view line) {
    if (line.empty()) return;
    const auto fields = SplitAt(line, ',');
    const auto key = KeyValue(fields[0], "type");
    if (fields.size() < 2 || !key) throw ParseFailure{};
    const TypeAndSubType code = SplitTypeDigits(*key);
    DrawOrderEntry entry;
    entry.Level = static_cast<int>(LeadingNumber(fields[1]));
    entry.Type = HexValue(code.Type);
    if (code.SubType) entry.SubType = HexValue(*code.SubType);
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

// Room for the objects the sections announce, so that the records are not
// moved again and again as a large text is read.
void ReserveObjects(ParseContext& ctx) {
    std::size_t polygons = 0, lines = 0, points = 0;
    for (const std::string_view line : ctx.Lines) {
        const std::string_view head = TrimBlanks(line);
        if (head.empty() || head.front() != '[') continue;
        polygons += StartsWithNoCase(head, "[_polygon]");
        lines += StartsWithNoCase(head, "[_line]");
        points += StartsWithNoCase(head, "[_point]");
    }
    ctx.Doc.Polygons.reserve(ctx.Doc.Polygons.size() + polygons);
    ctx.Doc.Polylines.reserve(ctx.Doc.Polylines.size() + lines);
    ctx.Doc.Pois.reserve(ctx.Doc.Pois.size() + points);
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

// A header of 174 bytes has room for the index of active-routing lines.
constexpr int kRoutingHeaderSize = 174;

// A document born of a text has no header yet: one with active-routing lines
// gets one that holds their index, or the first save would drop them.
void CountPolylines(Document& doc) {
    int regular = 0;
    for (const auto& line : doc.Polylines) regular += line.ExtraIndexBytes[0] == 0 && line.ExtraIndexBytes[1] == 0;
    doc.PolylineCount = regular;
    doc.ExtraPolylineCount = static_cast<int>(doc.Polylines.size()) - regular;
    if (doc.ExtraPolylineCount == 0 || doc.Header.HeaderSize != 0) return;
    doc.Identity.HeaderSize = std::max(doc.Identity.HeaderSize, kRoutingHeaderSize);
    doc.Header.HeaderSize = static_cast<std::uint16_t>(doc.Identity.HeaderSize);
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

namespace {

// Parses `text`, which it changes: the lines are views into it.
ParseResult ParseTypTextInPlace(Document& doc, std::string& text, std::optional<ObjectRef> target) {
    using namespace textparse;
    // A single object's text holds no comment section: applying it keeps the comment.
    if (!target) doc.HeaderGapBytes.clear();
    bool byteOrderMark = false;
    ParseContext ctx{doc, PrepareLines(text, byteOrderMark)};
    ctx.Target = target;
    ctx.LabelCodePage = LabelCodePage(ctx, byteOrderMark || IsUtf8WithNonAscii(text));
    if (!target) ReserveObjects(ctx);
    for (ctx.I = 0; ctx.I + 1 < ctx.LineCount(); ++ctx.I) {
        const std::string_view head = TrimBlanks(ctx.Lines[ctx.I]);
        if (!head.empty() && head.front() == '[') ReadSection(ctx, head);
    }
    ctx.Log.Finish();
    if (ctx.LabelCodePage != 0 && !target)
        ConvertComments(doc.HeaderGapBytes, ctx.LabelCodePage);
    return Finish(ctx);
}

void StartTextDocument(Document& doc, const std::string& path) {
    doc.Reset();
    doc.State = DocumentState::Loaded;
    doc.FromText = true;
    doc.SetPath(path);
}

}  // namespace

ParseResult ParseTypText(Document& doc, std::string_view textBytes, std::optional<ObjectRef> target) {
    std::string text(textBytes);
    return ParseTypTextInPlace(doc, text, target);
}

void LoadTypText(Document& doc, std::string_view textBytes, const std::string& path) {
    StartTextDocument(doc, path);
    ParseTypText(doc, textBytes);
}

// The file's bytes are parsed where they were read: a large text is not copied.
bool OpenTypText(Document& doc, const std::string& path) {
    std::string bytes;
    if (!ReadWholeFile(path, bytes)) return false;
    StartTextDocument(doc, path);
    ParseTypTextInPlace(doc, bytes, std::nullopt);
    return true;
}

}  // namespace mirvane
