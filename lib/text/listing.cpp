#include "text/listing.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "base/numbers.h"
#include "colour/palette.h"
#include "document/bitmap_codec.h"
#include "document/encoding.h"
#include "document/object_codec.h"
#include "labels/label_block.h"
#include "lang/lookup.h"

namespace mirvane {

namespace {

constexpr std::string_view kPixelAlphabet = "!#%?$*=123456789";
constexpr std::string_view kRuler = ";12345678901234567890123456789012";

// Checked reads: what a broken record lacks takes the object's error route.
template <typename T>
T Need(const std::optional<T>& value) {
    if (!value) throw ListingFault();
    return *value;
}

// "#RRGGBB" of a decoded colour; what lies above its 24 bits is not listed.
std::string ListedColour(std::uint32_t colour) { return ColourText(static_cast<Colour>(colour & 0xFFFFFFu)); }

std::string Quoted(std::string_view inner) {
    std::string line;
    line.reserve(inner.size() + 2);
    line += '"';
    line += inner;
    line += '"';
    return line;
}

void LogError(Document& doc, std::string_view text) {
    doc.ReadErrorLog += text;
    doc.ReadErrorFlag = true;
}

// "03" for a type below 0x100, "10e01" for an extended one.
std::string TypeValue(const std::string& type, const std::string& subType) {
    if (!type.empty() && type[0] != '0') return type + subType;
    return type.size() > 1 ? type.substr(1) : type;
}

void TypeLine(ListingText& text, const std::string& type, const std::string& subType) {
    text.KeyLine("Type=0x", TypeValue(type, subType));
}

void ColourLine(ListingText& text, std::string_view code, std::uint32_t colour) {
    text.TextLine(Quoted(std::string(code) + " c " + ListedColour(colour)));
}

// "! c", "# c" or "  c none", and with night colours "3 c", "4 c" or "4 c
// none". The caller has made sure that the table holds every role.
void PatternColourLines(ListingText& text, const ColourLayout& layout, const ColourRoles& roles) {
    ColourLine(text, "!", *roles.DayForeground);
    if (layout.DayClear) text.TextLine("\"  c none\"");
    else ColourLine(text, "#", *roles.DayBackground);
    if (!layout.Night) return;
    ColourLine(text, "3", *roles.NightForeground);
    if (layout.NightClear) text.TextLine("\"4 c none\"");
    else ColourLine(text, "4", *roles.NightBackground);
}

// Rows of 32 pixels, then the ruler. Rows show the day form only: a set bit
// is "!", a clear one a blank or "#".
void PatternRows(ListingText& text, const BitGrid& pattern, bool dayClear) {
    std::string row(kPatternWidth + 2, '"');
    for (int y = 0; y < pattern.Height(); ++y) {
        const auto cells = pattern.Row(y);
        for (int x = 0; x < kPatternWidth; ++x) row[1 + x] = cells[x] ? '!' : (dayClear ? ' ' : '#');
        text.TextLine(row);
    }
    text.Break();
    text.Comment(kRuler);
}

// The colour lines and rows of a pattern; a pattern is listed whole or not at all.
void PatternBody(ListingText& text, const ColourLayout& layout, const std::vector<std::uint32_t>& colours,
                 const BitGrid& pattern, DecodeStatus status) {
    if (status != DecodeStatus::Ok) throw ListingFault();
    PatternColourLines(text, layout, RolesOf(layout, colours));
    PatternRows(text, pattern, layout.DayClear);
}

void ExtendedLabelsPart(ListingText& text, bool present, const Bytes& extendedLabelBytes) {
    if (present) {
        text.KeyLine("ExtendedLabels=", "Y");
        lecture_ExtendedLabels(extendedLabelBytes, text);
    } else {
        text.KeyLine("ExtendedLabels=", "N");
    }
}

// --- Polygons -------------------------------------------------------------

void ListPolygon(Document& doc, int index, ListingText& text) {
    const PolygonRecord& record = doc.Polygons[index];
    const DecodedPolygon polygon = DecodePolygon(record);
    const ColourLayout& layout = polygon.Layout;
    text.Head("[_polygon]");
    TypeLine(text, record.Type, record.SubType);
    if (record.Flags & 0x10) lecture_Labels(text, record.LabelBytes, doc, index, ObjectKind::Polygon);
    ExtendedLabelsPart(text, record.Flags & 0x20, record.ExtendedLabelBytes);

    if (polygon.Pattern) {
        text.KeyLine("Xpm=", "\"32 32 " + std::to_string(layout.HeaderColours()) + " 1\"");
        PatternBody(text, layout, polygon.Colours, *polygon.Pattern, polygon.Status);
    } else {
        // A solid polygon draws its foregrounds alone, whatever else its
        // layout stores: the day one, and with night colours the night one.
        const ColourRoles roles = polygon.Roles();
        text.KeyLine("Xpm=", std::string("\"0 0 ") + (layout.Night ? "2" : "1") + " 0\"");
        ColourLine(text, "1", Need(roles.DayForeground));
        if (layout.Night) ColourLine(text, "2", Need(roles.NightForeground));
    }
    text.Break();
    text.Head("[end]");
}

// --- Polylines ------------------------------------------------------------

// A whole number of pixels, or half of an odd one: "1.5", "-0.5".
std::string HalfText(int twice) {
    const int whole = (twice < 0 ? -twice : twice) / 2;
    std::string value = (twice < 0 ? "-" : "") + std::to_string(whole);
    if (twice % 2 != 0) value += ".5";
    return value;
}

// A colour line, or "none" for a clear background.
void RoleLine(ListingText& text, std::string_view code, const std::optional<std::uint32_t>& colour, bool clear) {
    if (clear) text.TextLine(Quoted(std::string(code) + " c none"));
    else ColourLine(text, code, Need(colour));
}

// The border width is stored unless the day background is clear. With night
// colours and one clear background, four lines with "none" in its place.
void ListSolidLine(const DecodedPolyline& line, ListingText& text) {
    const ColourLayout& layout = line.Layout;
    const bool bothClear = layout.DayClear && layout.NightClear;
    const int lineWidth = Need(line.LineWidth);
    text.KeyLine("LineWidth=", std::to_string(lineWidth));
    if (!layout.DayClear) text.KeyLine("BorderWidth=", HalfText(Need(line.TotalWidth) - lineWidth));
    const bool fourLines = layout.Night && !bothClear;
    text.KeyLine("Xpm=", "\"0 0 " + std::to_string(fourLines ? 4 : layout.StoredColours()) + " 0\"");

    const ColourRoles roles = line.Roles();
    ColourLine(text, "1", Need(roles.DayForeground));
    if (fourLines) {
        RoleLine(text, "2", roles.DayBackground, layout.DayClear);
        ColourLine(text, "3", Need(roles.NightForeground));
        RoleLine(text, "4", roles.NightBackground, layout.NightClear);
    } else if (layout.Night) {
        ColourLine(text, "2", Need(roles.NightForeground));
    } else if (!layout.DayClear) {
        ColourLine(text, "2", Need(roles.DayBackground));
    }
}

void ListPatternLine(const DecodedPolyline& line, ListingText& text) {
    // Two blanks before the 1: existing texts and tools expect this header.
    text.KeyLine("Xpm=", "\"32 " + std::to_string(line.Pattern->Height()) + " " +
                             std::to_string(line.Layout.HeaderColours()) + "  1\"");
    PatternBody(text, line.Layout, line.Colours, *line.Pattern, line.Status);
}

// An active-routing line's two bytes of the extra index, "ExtraIndex=0x0102".
void ExtraIndexLine(ListingText& text, const std::array<std::uint8_t, 2>& bytes) {
    if (bytes[0] == 0 && bytes[1] == 0) return;
    char value[8];
    std::snprintf(value, sizeof value, "%02x%02x", bytes[0], bytes[1]);
    text.KeyLine("ExtraIndex=0x", value);
}

void ListPolyline(Document& doc, int index, ListingText& text) {
    const PolylineRecord& record = doc.Polylines[index];
    const DecodedPolyline line = DecodePolyline(record);
    if (record.Flags1 == 2) text.Notices.push_back("1er octet d'en-t\xC3\xAAte : 0x02 !!!");
    text.Head("[_line]");
    TypeLine(text, record.Type, record.SubType);
    ExtraIndexLine(text, record.ExtraIndexBytes);
    text.KeyLine("UseOrientation=", (record.Flags2 & 0x02) ? "N" : "Y");
    if (line.Pattern) ListPatternLine(line, text);
    else ListSolidLine(line, text);
    if (record.Flags2 & 0x01) lecture_Labels(text, record.LabelBytes, doc, index, ObjectKind::Polyline);
    ExtendedLabelsPart(text, record.Flags2 & 0x04, record.ExtendedLabelBytes);
    text.Break();
    text.Head("[end]");
}

// --- POIs -----------------------------------------------------------------

// Code of palette index `v`: one character below 17 colours, two from 17.
void AppendCode(std::string& out, unsigned v, bool twoCharacters) {
    if (twoCharacters) {
        out += kPixelAlphabet[(v / 16) % 16];
        out += kPixelAlphabet[v % 16];
    } else if (v < kPixelAlphabet.size()) {
        out += kPixelAlphabet[v];
    }
}

std::string Ruler(int width) { return std::string(kRuler.substr(0, static_cast<std::size_t>(width) + 1)); }

std::string BitmapHeader(int width, int height, int colours, int codeWidth) {
    return std::to_string(width) + " " + std::to_string(height) + " " + std::to_string(colours) + " " +
           std::to_string(codeWidth);
}

void ModeKey(ListingText& text, int mode) {
    text.Text("   ");
    text.Key("Colormode=");
    text.Text(std::to_string(mode));
}

// A mode without sizes has no pixels to list; in the others a pixel short
// makes the object broken.
void TrueColourBitmap(const DecodedBitmap& bitmap, int width, int height, std::string_view key, ListingText& text) {
    text.KeyLine(key, Quoted(BitmapHeader(width, height, 0, 1)));
    ModeKey(text, bitmap.ColourMode);
    text.Break();
    text.Comment(";Couleurs 24 bits : pas de palette ");
    if (bitmap.Status == DecodeStatus::UnknownColourMode) return;
    if (bitmap.Status != DecodeStatus::Ok) throw ListingFault();
    if (bitmap.ColourMode == 16) text.TextLine(Quoted(ListedColour(bitmap.KeyColour)));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            std::string line = Quoted(ListedColour(bitmap.Colours.At({x, y})));
            if (bitmap.ColourMode == 32) line += "  canalalpha=" + std::to_string(bitmap.Alpha.At({x, y}));
            text.TextLine(line);
        }
    }
}

bool HasTransparentPixel(const DecodedBitmap& bitmap, int width, int height) {
    const std::size_t transparent = bitmap.Palette.size();
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (bitmap.Indices.At({x, y}) == transparent) return true;
    return false;
}

void PaletteBitmap(const DecodedBitmap& bitmap, int width, int height, std::string_view key, ListingText& text) {
    if (bitmap.Status != DecodeStatus::Ok) throw ListingFault();
    const std::size_t count = bitmap.Palette.size();
    const bool transparent = HasTransparentPixel(bitmap, width, height);
    const bool twoCharacters = count >= 17;
    const int headerCount = static_cast<int>(count) + (transparent ? 1 : 0);
    text.KeyLine(key, Quoted(BitmapHeader(width, height, headerCount, twoCharacters ? 2 : 1)));
    ModeKey(text, bitmap.ColourMode);
    for (std::size_t k = 0; k < count; ++k) {
        std::string line = "\"";
        AppendCode(line, static_cast<unsigned>(k), twoCharacters);
        line += "\tc " + ListedColour(bitmap.Palette[k].Colour) + "\"";
        if (bitmap.ColourMode == 32) {
            text.TextLine(line + "  ");
            text.Key("canalalpha=");
            text.Text(std::to_string(bitmap.Palette[k].Alpha));
        } else {
            text.TextLine(line);
        }
    }
    // Two blanks even where codes are one character long.
    if (transparent) text.TextLine("\"  \tc none\"");

    std::string row;
    for (int y = 0; y < height; ++y) {
        row.assign(1, '"');
        for (int x = 0; x < width; ++x) {
            const unsigned v = bitmap.Indices.At({x, y});
            if (v == count) row.append(twoCharacters ? 2 : 1, ' ');
            else AppendCode(row, v, twoCharacters);
        }
        row += '"';
        text.TextLine(row);
    }
}

// One bitmap block; `key` is "DayXpm=" or "NightXpm=".
ListingText ListBitmap(const DecodedPoi& poi, const DecodedBitmap& bitmap, std::string_view key) {
    ListingText text;
    const int width = poi.Width, height = poi.Height;
    if (width < 1 || height < 1) {
        text.KeyLine(key, "\"0 0 0 0\"");
        return text;
    }
    if (bitmap.IsTrueColour()) TrueColourBitmap(bitmap, width, height, key, text);
    else PaletteBitmap(bitmap, width, height, key, text);
    text.Break();
    text.Comment(Ruler(width));
    return text;
}

void AppendPieces(ListingText& text, const ListingText& part) {
    for (const ListingPiece& piece : part.Pieces()) text.Add(piece.Role, part.BytesOf(piece));
}

void ListPoi(Document& doc, int index, ListingText& text) {
    const PoiRecord& record = doc.Pois[index];
    const DecodedPoi poi = DecodePoi(record);
    // Both bitmaps are listed before anything is printed: a broken one
    // drops the object before its labels are read.
    const ListingText day = ListBitmap(poi, poi.Day, "DayXpm=");
    ListingText night;
    if (poi.Night) night = ListBitmap(poi, *poi.Night, "NightXpm=");

    text.Head("[_point]");
    text.KeyLine("Type=0x", record.Type);
    text.KeyLine("SubType=0x", record.SubType);
    if (record.Flags & 0x04) lecture_Labels(text, record.LabelBytes, doc, index, ObjectKind::Poi);
    ExtendedLabelsPart(text, record.Flags & 0x08, record.ExtendedLabelBytes);
    AppendPieces(text, day);
    if (poi.Night) AppendPieces(text, night);
    text.Break();
    text.Head("[end]");
}

// --- Error route ----------------------------------------------------------

struct KindMessages {
    const char* Key;
    const char* Default;
    const char* LabelProblem;
};

KindMessages MessagesOf(ObjectKind kind) {
    switch (kind) {
    case ObjectKind::Polygon:
        return {"msgProblemePolygone", "Probl\xC3\xA8me avec le polygone",
                "Probl\xC3\xA8me de lecture des strings du polygone "};
    case ObjectKind::Polyline:
        return {"msgProblemePolyligne", "Probl\xC3\xA8me avec la polyligne",
                "Probl\xC3\xA8me de lecture des strings de la polyline "};
    case ObjectKind::Poi: break;
    }
    return {"msgProblemePOI", "Probl\xC3\xA8me avec le POI", "Probl\xC3\xA8me de lecture des strings du POI "};
}

std::pair<std::string, std::string> TypeOf(const Document& doc, ObjectKind kind, int index) {
    switch (kind) {
    case ObjectKind::Polygon: return {doc.Polygons[index].Type, doc.Polygons[index].SubType};
    case ObjectKind::Polyline: return {doc.Polylines[index].Type, doc.Polylines[index].SubType};
    case ObjectKind::Poi: break;
    }
    return {doc.Pois[index].Type, doc.Pois[index].SubType};
}

void LogBrokenObject(Document& doc, ObjectKind kind, int index) {
    const KindMessages messages = MessagesOf(kind);
    const auto [type, subType] = TypeOf(doc, kind, index);
    // A broken POI's log line starts with a rich text break; the error window
    // shows the log as it stands, and language files word it the same way.
    const bool poi = kind == ObjectKind::Poi;
    std::string line = poi ? "\\par " : kLineBreak;
    line += LookupText("Main", messages.Default, messages.Key);
    line += (poi ? "  Type=0x" : " Type=0x") + type + "   SubType=0x" + subType;
    LogError(doc, line);
}

using ObjectLister = void (*)(Document&, int, ListingText&);

// Runs one object's listing under the error trap: a broken object costs its
// own text and nothing else.
void ListUnderTrap(ObjectLister lister, ObjectKind kind, std::size_t count, Document& doc, int index,
                   ListingText& text) {
    if (index < 0 || static_cast<std::size_t>(index) >= count) return;
    const ListingText::Mark mark = text.Here();
    try {
        lister(doc, index, text);
    } catch (const ListingFault&) {
        text.RollBack(mark);
        LogBrokenObject(doc, kind, index);
    }
}

// --- Whole document -------------------------------------------------------

void Headings(const Document& doc, const ListingContext& context, ListingText& text) {
    if (!context.WithHeadings || doc.State != DocumentState::Loaded || doc.FromText) return;
    bool first = true;
    auto heading = [&](const std::string& line) {
        if (!first) text.Break();
        first = false;
        text.Add(PieceRole::HeadingComment, line);
    };
    if (!doc.FileName.empty()) heading("; " + doc.FileName);
    heading("; Longueur: " + doc.FileLengthText + " octets");
    // Windows-1252: the heading of the listings found in map projects' texts.
    heading("; Fichier TYP compil\xE9 " + context.DateCreation);
    heading("; D\xE9" "compil\xE9 le " + ShortDateText(context.Now) + " \xE0 " + LongTimeText(context.Now));
}

void IdSection(const Document& doc, ListingText& text) {
    text.Break(2);
    text.Add(PieceRole::IdHead, "[_id]");
    text.KeyLine("ProductCode=", IdentityNumberText(doc.Identity.ProductCode));
    text.KeyLine("FID=", IdentityNumberText(doc.Identity.Fid));
    text.KeyLine("CodePage=", std::to_string(doc.Identity.CodePage));
    text.Break();
    text.Add(PieceRole::IdEnd, "[End]");
}

// The comment text with its CR LF (or bare LF) line ends as line breaks.
void CommentText(const Bytes& comment, ListingText& text) {
    if (comment.empty()) return;
    const std::string_view all(reinterpret_cast<const char*>(comment.data()), comment.size());
    text.Break();
    std::size_t start = 0;
    while (start <= all.size()) {
        const std::size_t end = std::min(all.find('\n', start), all.size());
        std::size_t lineEnd = end;
        if (lineEnd > start && end < all.size() && all[lineEnd - 1] == '\r') --lineEnd;
        text.Text(all.substr(start, lineEnd - start));
        if (end == all.size()) break;
        text.Break();
        start = end + 1;
    }
}

void CommentsSection(const Document& doc, ListingText& text) {
    text.Break(2);
    text.Comment(";=========== COMMENTAIRES ======");
    text.Break();
    text.Head("[_comments]");
    CommentText(doc.HeaderGapBytes, text);
    text.Break();
    text.Head("[End]");
}

// Characters from `start` (0-based), as many as there are up to `count`.
std::string_view Mid(std::string_view text, std::size_t start, std::size_t count = std::string_view::npos) {
    return start < text.size() ? text.substr(start, count) : std::string_view();
}

// The row "Type=0x10e,SubType=0x01,3" prints as "Type=0x10e01,3"; a row
// without a subtype as it stands.
std::string DrawOrderLine(const std::string& row) {
    if (Mid(row, 11, 7) != "SubType") return row;
    std::string line(Mid(row, 0, 10));
    line += Mid(row, 21, 2);
    line += ',';
    line += Mid(row, 24);
    return line;
}

void DrawOrderSection(const Document& doc, ListingText& text) {
    text.Break(5);
    text.Comment(";=========== POLYGONES : PRIORITE DANS L'AFFICHAGE ======");
    text.Break();
    text.Add(PieceRole::DrawOrderHead, "[_drawOrder]");
    for (const DrawOrderEntry& entry : doc.DrawOrder) text.TextLine(DrawOrderLine(DrawOrderRowText(entry)));
    text.Break();
    text.Head("[End]");
}

void ObjectSection(Document& doc, ListingText& text, std::string_view banner, ObjectLister lister,
                   ObjectKind kind, std::size_t count) {
    text.Comment(banner);
    for (std::size_t i = 0; i < count; ++i) {
        text.Break(3);
        ListUnderTrap(lister, kind, count, doc, static_cast<int>(i), text);
    }
}

}  // namespace

void lecture_Labels(ListingText& text, const Bytes& labelBytes, Document& doc, int index, ObjectKind kind) {
    const std::optional<std::vector<LabelText>> labels = DecodeLabelBlock(labelBytes);
    if (!labels) {
        const auto [type, subType] = TypeOf(doc, kind, index);
        LogError(doc, std::string(kLineBreak) + MessagesOf(kind).LabelProblem + "Type=0x" + type +
                          "  SubTypes = 0x" + subType);
        return;
    }
    int n = 0;
    for (const LabelText& label : *labels) {
        text.LabelBreak();
        text.Key("String" + std::to_string(++n) + "=");
        text.Text("0x" + HexDigits(label.LanguageCode, 2, HexCase::Upper) + "," + label.Text);
    }
}

void lecture_ExtendedLabels(const Bytes& extendedLabelBytes, ListingText& text) {
    const ExtendedLabelStyle style = Need(DecodeExtendedLabelBlock(extendedLabelBytes));
    text.KeyLine("FontStyle=", FontStyleText(style.FontStyle));
    text.KeyLine("CustomColor=", CustomColorText(style.CustomColor));
    if (style.CustomColor & 1) text.KeyLine("DaycustomColor:", ListedColour(style.DayColour));
    if (style.CustomColor & 2) text.KeyLine("NightcustomColor:", ListedColour(style.NightColour));
}

void AffichePolygone(Document& doc, int index, ListingText& text) {
    ListUnderTrap(ListPolygon, ObjectKind::Polygon, doc.Polygons.size(), doc, index, text);
}

void AffichePolyline(Document& doc, int index, ListingText& text) {
    ListUnderTrap(ListPolyline, ObjectKind::Polyline, doc.Polylines.size(), doc, index, text);
}

void AffichePOI(Document& doc, int index, ListingText& text) {
    ListUnderTrap(ListPoi, ObjectKind::Poi, doc.Pois.size(), doc, index, text);
}

// More than the text of the records can take: a pixel of a bit grows to a
// character, three bytes of true colour to a line of eleven.
std::size_t ListingSizeBound(const Document& doc) {
    std::size_t recordBytes = 0;
    const auto add = [&recordBytes](const auto& records) {
        for (const auto& r : records) recordBytes += static_cast<std::size_t>(std::max(r.Length, 0));
    };
    add(doc.Polygons);
    add(doc.Polylines);
    add(doc.Pois);
    return 64 * 1024 + 12 * recordBytes;
}

ListingText ListWholeDocument(Document& doc, const ListingContext& context, ListingForm form) {
    ListingText text(form);
    text.Reserve(ListingSizeBound(doc));
    Headings(doc, context, text);
    IdSection(doc, text);
    CommentsSection(doc, text);
    DrawOrderSection(doc, text);
    text.Break(6);
    ObjectSection(doc, text, ";===================== POLYGONES ========================", ListPolygon,
                  ObjectKind::Polygon, doc.Polygons.size());
    text.Break(3);
    ObjectSection(doc, text, ";====================== LINES ===========================", ListPolyline,
                  ObjectKind::Polyline, doc.Polylines.size());
    text.Break(3);
    ObjectSection(doc, text, ";====================== POINTS ==========================", ListPoi, ObjectKind::Poi,
                  doc.Pois.size());
    return text;
}

ListingText ListOneObject(Document& doc, ObjectRef object) {
    ListingText text;
    switch (object.Kind) {
    case ObjectKind::Polygon: AffichePolygone(doc, object.Row, text); break;
    case ObjectKind::Polyline: AffichePolyline(doc, object.Row, text); break;
    case ObjectKind::Poi: AffichePOI(doc, object.Row, text); break;
    }
    return text;
}

}  // namespace mirvane
