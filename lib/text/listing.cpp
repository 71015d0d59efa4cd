#include "text/listing.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "document/encoding.h"
#include "labels/label_block.h"
#include "lang/lookup.h"

namespace mirvane {

namespace {

constexpr std::string_view kPixelAlphabet = "!#%?$*=123456789";
constexpr std::string_view kRuler = ";12345678901234567890123456789012";

// Checked reads: a broken record takes the object's error route.
std::uint8_t ByteAt(const Bytes& bytes, std::size_t index) {
    if (index >= bytes.size()) throw ListingFault();
    return bytes[index];
}

// Colour `k` of a table stored blue, green, red; as 0x00BBGGRR.
std::int32_t ColourAt(const Bytes& bytes, std::size_t k) {
    const std::uint8_t blue = ByteAt(bytes, k * 3);
    const std::uint8_t green = ByteAt(bytes, k * 3 + 1);
    const std::uint8_t red = ByteAt(bytes, k * 3 + 2);
    return red | (green << 8) | (blue << 16);
}

// `count` bits of a stream read from bit 0 of each byte upward.
std::uint32_t BitsAt(const Bytes& bytes, std::size_t bitPosition, int count) {
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i) {
        const std::size_t bit = bitPosition + i;
        if ((ByteAt(bytes, bit / 8) >> (bit % 8)) & 1) value |= 1u << i;
    }
    return value;
}

struct AlphaColour {
    std::int32_t Colour = 0;  // 0x00BBGGRR
    int Alpha = 0;            // 0 opaque .. 15 transparent
};

// Entry `k` of a 28-bit stream: 24 bits of colour, blue lowest, then 4 of alpha.
AlphaColour AlphaColourAt(const Bytes& bytes, std::size_t k) {
    const std::uint32_t bgr = BitsAt(bytes, k * 28, 24);
    const auto alpha = static_cast<int>(BitsAt(bytes, k * 28 + 24, 4));
    const std::uint32_t blue = bgr & 0xFF, green = (bgr >> 8) & 0xFF, red = (bgr >> 16) & 0xFF;
    return {static_cast<std::int32_t>(red | (green << 8) | (blue << 16)), alpha};
}

std::string Hex2(unsigned value) {
    char buffer[8];
    std::snprintf(buffer, sizeof buffer, "%02X", value & 0xFF);
    return buffer;
}

// "#RRGGBB" of a 0x00BBGGRR colour.
std::string ColourText(std::int32_t colour) {
    return "#" + Hex2(colour & 0xFF) + Hex2((colour >> 8) & 0xFF) + Hex2((colour >> 16) & 0xFF);
}

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

// The colour bits of a polygon's or polyline's first byte.
struct ColourLayout {
    bool Night = false;
    bool DayClear = false;
    bool NightClear = false;

    explicit ColourLayout(std::uint8_t flags)
        : Night(flags & 1), DayClear(flags & 2), NightClear(flags & 4) {}
    int HeaderColours() const { return (Night + 1) * 2; }
    int RealColours() const { return HeaderColours() - DayClear - NightClear * Night; }
};

// The four colours a pattern pixel can take; transparent where a clear bit says so.
struct PatternColours {
    std::int32_t DayFore = 0, DayBack = kTransparentPixel;
    std::int32_t NightFore = 0, NightBack = kTransparentPixel;
};

void ColourLine(ListingText& text, std::string_view code, std::int32_t colour) {
    text.TextLine(Quoted(std::string(code) + " c " + ColourText(colour)));
}

// "! c", "# c" or "  c none", and with night colours "3 c", "4 c" or "4 c none".
PatternColours PatternColourLines(ListingText& text, const Bytes& colours, const ColourLayout& layout) {
    PatternColours result;
    std::size_t next = 0;
    result.DayFore = ColourAt(colours, next++);
    ColourLine(text, "!", result.DayFore);
    if (layout.DayClear) {
        text.TextLine("\"  c none\"");
    } else {
        result.DayBack = ColourAt(colours, next++);
        ColourLine(text, "#", result.DayBack);
    }
    if (layout.Night) {
        result.NightFore = ColourAt(colours, next++);
        ColourLine(text, "3", result.NightFore);
        if (layout.NightClear) {
            text.TextLine("\"4 c none\"");
        } else {
            result.NightBack = ColourAt(colours, next++);
            ColourLine(text, "4", result.NightBack);
        }
    }
    return result;
}

// Rows of 32 pixels, bit 0 of each byte leftmost, then the ruler. Rows show
// the day form only: a set bit is "!", a clear one a blank or "#".
void PatternRows(ListingText& text, const Bytes& pattern, int rows, bool dayClear, std::uint8_t* pixels) {
    std::string row(34, '"');
    for (int r = 0; r < rows; ++r) {
        for (int b = 0; b < 4; ++b) {
            const std::uint8_t byte = ByteAt(pattern, static_cast<std::size_t>(r) * 4 + b);
            for (int k = 0; k < 8; ++k) {
                const bool set = (byte >> k) & 1;
                row[1 + b * 8 + k] = set ? '!' : (dayClear ? ' ' : '#');
                if (pixels) pixels[r * 32 + b * 8 + k] = set;
            }
        }
        text.TextLine(row);
    }
    text.Break();
    text.Comment(kRuler);
}

void PaintPattern(PixelPicture& picture, const std::uint8_t* pixels, int rows, const PatternColours& colours,
                  bool night) {
    picture.Width = 32;
    picture.Height = rows;
    const std::size_t count = static_cast<std::size_t>(rows) * 32;
    picture.Day.resize(count);
    for (std::size_t i = 0; i < count; ++i) picture.Day[i] = pixels[i] ? colours.DayFore : colours.DayBack;
    if (!night) return;
    picture.Night.resize(count);
    for (std::size_t i = 0; i < count; ++i) picture.Night[i] = pixels[i] ? colours.NightFore : colours.NightBack;
}

void PaintSolid(PixelPicture& picture, int height, std::int32_t day, std::optional<std::int32_t> night) {
    picture.Width = 32;
    picture.Height = height;
    picture.Day.assign(static_cast<std::size_t>(height) * 32, day);
    if (night) picture.Night.assign(static_cast<std::size_t>(height) * 32, *night);
}

void ExtendedLabelsPart(ListingText& text, bool present, const Bytes& extendedLabelBytes, ObjectPreview* preview) {
    if (present) {
        text.KeyLine("ExtendedLabels=", "Y");
        lecture_ExtendedLabels(extendedLabelBytes, text, preview);
    } else {
        text.KeyLine("ExtendedLabels=", "N");
    }
}

std::string CustomColourValue(const Bytes& block, std::size_t firstByte) {
    return "#" + Hex2(ByteAt(block, firstByte + 2)) + Hex2(ByteAt(block, firstByte + 1)) +
           Hex2(ByteAt(block, firstByte));
}

std::int32_t CustomColour(const Bytes& block, std::size_t firstByte) {
    return ByteAt(block, firstByte + 2) | (ByteAt(block, firstByte + 1) << 8) | (ByteAt(block, firstByte) << 16);
}

// --- Polygons -------------------------------------------------------------

void ListPolygon(Document& doc, int index, ListingText& text, ObjectPreview* preview) {
    const PolygonRecord& record = doc.Polygons[index];
    const ColourLayout layout(record.Flags);
    const bool hasPattern = record.Flags & 0x08;
    text.Head("[_polygon]");
    TypeLine(text, record.Type, record.SubType);
    if (record.Flags & 0x10) lecture_Labels(text, record.LabelBytes, doc, index, ObjectKind::Polygon);
    ExtendedLabelsPart(text, record.Flags & 0x20, record.ExtendedLabelBytes, preview);

    if (hasPattern) {
        text.KeyLine("Xpm=", "\"32 32 " + std::to_string(layout.HeaderColours()) + " 1\"");
        const PatternColours colours = PatternColourLines(text, record.ColourBytes, layout);
        std::array<std::uint8_t, 1024> pixels{};
        PatternRows(text, record.PatternBytes, 32, layout.DayClear, pixels.data());
        if (preview) {
            preview->IsPattern = true;
            preview->PatternPixels = pixels;
            PaintPattern(preview->Picture, pixels.data(), 32, colours, layout.Night);
        }
    } else {
        text.KeyLine("Xpm=", "\"0 0 " + std::to_string(layout.RealColours()) + " 0\"");
        const std::int32_t day = ColourAt(record.ColourBytes, 0);
        ColourLine(text, "1", day);
        std::optional<std::int32_t> night;
        if (layout.Night) {
            night = ColourAt(record.ColourBytes, 1);
            ColourLine(text, "2", *night);
        }
        if (preview) PaintSolid(preview->Picture, 32, day, night);
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

// Rows of the solid line's thumbnail: the border around the line itself.
void PaintSolidLine(PixelPicture& picture, int lineWidth, int totalWidth, std::int32_t line,
                    std::int32_t border, std::optional<std::pair<std::int32_t, std::int32_t>> night) {
    const int height = std::max(lineWidth, totalWidth);
    const int top = (height - lineWidth) / 2;
    picture.Width = 32;
    picture.Height = height;
    auto paint = [&](std::vector<std::int32_t>& pixels, std::int32_t inner, std::int32_t outer) {
        pixels.resize(static_cast<std::size_t>(height) * 32);
        for (int y = 0; y < height; ++y) {
            const bool inside = y >= top && y < top + lineWidth;
            std::fill_n(pixels.begin() + y * 32, 32, inside ? inner : outer);
        }
    };
    paint(picture.Day, line, border);
    if (night) paint(picture.Night, night->first, night->second);
}

void ListSolidLine(const PolylineRecord& record, const ColourLayout& layout, ListingText& text,
                   ObjectPreview* preview) {
    const bool bothClear = layout.DayClear && layout.NightClear;
    const int lineWidth = ByteAt(record.PatternBytes, 0);
    int totalWidth = lineWidth;
    text.KeyLine("LineWidth=", std::to_string(lineWidth));
    if (!bothClear) {
        totalWidth = ByteAt(record.PatternBytes, 1);
        text.KeyLine("BorderWidth=", HalfText(totalWidth - lineWidth));
    }
    text.KeyLine("Xpm=", "\"0 0 " + std::to_string(layout.RealColours()) + " 0\"");

    const std::int32_t c1 = ColourAt(record.ColourBytes, 0);
    ColourLine(text, "1", c1);
    std::int32_t border = kTransparentPixel;
    if (!bothClear) {
        border = ColourAt(record.ColourBytes, 1);
        ColourLine(text, "2", border);
    }
    std::optional<std::pair<std::int32_t, std::int32_t>> night;
    if (layout.Night) {
        if (bothClear) {
            const std::int32_t c2 = ColourAt(record.ColourBytes, 1);
            ColourLine(text, "2", c2);
            night.emplace(c2, kTransparentPixel);
        } else {
            // With one clear bit there are fewer colours than lines: the read
            // past them takes the error route, as it always has.
            const std::int32_t c3 = ColourAt(record.ColourBytes, 2);
            ColourLine(text, "3", c3);
            const std::int32_t c4 = ColourAt(record.ColourBytes, 3);
            ColourLine(text, "4", c4);
            night.emplace(c3, c4);
        }
    }
    if (preview) PaintSolidLine(preview->Picture, lineWidth, totalWidth, c1, border, night);
}

void ListPatternLine(const PolylineRecord& record, const ColourLayout& layout, ListingText& text,
                     ObjectPreview* preview) {
    const int rows = record.Flags1 >> 3;
    // Two blanks before the 1: the program has always written it so.
    text.KeyLine("Xpm=", "\"32 " + std::to_string(rows) + " " + std::to_string(layout.HeaderColours()) + "  1\"");
    const PatternColours colours = PatternColourLines(text, record.ColourBytes, layout);
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(rows) * 32);
    PatternRows(text, record.PatternBytes, rows, layout.DayClear, pixels.data());
    if (preview) PaintPattern(preview->Picture, pixels.data(), rows, colours, layout.Night);
}

void ListPolyline(Document& doc, int index, ListingText& text, ObjectPreview* preview) {
    const PolylineRecord& record = doc.Polylines[index];
    const ColourLayout layout(record.Flags1);
    if (record.Flags1 == 2) text.Notices.push_back("1er octet d'en-t\xC3\xAAte : 0x02 !!!");
    text.Head("[_line]");
    TypeLine(text, record.Type, record.SubType);
    text.KeyLine("UseOrientation=", (record.Flags2 & 0x02) ? "N" : "Y");
    if ((record.Flags1 >> 3) == 0) ListSolidLine(record, layout, text, preview);
    else ListPatternLine(record, layout, text, preview);
    if (record.Flags2 & 0x01) lecture_Labels(text, record.LabelBytes, doc, index, ObjectKind::Polyline);
    ExtendedLabelsPart(text, record.Flags2 & 0x04, record.ExtendedLabelBytes, preview);
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

struct BitmapText {
    ListingText Text;
    std::vector<std::int32_t> Pixels;  // Width * Height
};

std::string BitmapHeader(int width, int height, int colours, int codeWidth) {
    return std::to_string(width) + " " + std::to_string(height) + " " + std::to_string(colours) + " " +
           std::to_string(codeWidth);
}

void ModeKey(ListingText& text, int mode) {
    text.Text("   ");
    text.Key("Colormode=");
    text.Text(std::to_string(mode));
}

void TrueColourBitmap(const PoiBitmap& bitmap, int width, int height, std::string_view key, BitmapText& out) {
    ListingText& text = out.Text;
    text.KeyLine(key, Quoted(BitmapHeader(width, height, 0, 1)));
    ModeKey(text, bitmap.ColourMode);
    text.Break();
    text.Comment(";Couleurs 24 bits : pas de palette ");
    const std::size_t pixels = static_cast<std::size_t>(width) * height;
    const Bytes& bytes = bitmap.PixelBytes;
    switch (bitmap.ColourMode) {
    case 0:
        for (std::size_t i = 0; i < pixels; ++i) {
            out.Pixels[i] = ColourAt(bytes, i);
            text.TextLine(Quoted(ColourText(out.Pixels[i])));
        }
        break;
    case 16: {
        const std::int32_t key16 = ColourAt(bytes, 0);
        text.TextLine(Quoted(ColourText(key16)));
        for (std::size_t i = 0; i < pixels; ++i) {
            const std::int32_t colour = ColourAt(bytes, i + 1);
            text.TextLine(Quoted(ColourText(colour)));
            out.Pixels[i] = colour == key16 ? kTransparentPixel : colour;
        }
        break;
    }
    case 32:
        for (std::size_t i = 0; i < pixels; ++i) {
            const AlphaColour entry = AlphaColourAt(bytes, i);
            text.TextLine(Quoted(ColourText(entry.Colour)) + "  canalalpha=" + std::to_string(entry.Alpha));
            out.Pixels[i] = entry.Alpha == 15 ? kTransparentPixel : entry.Colour;
        }
        break;
    default: break;  // no sizes for other modes: no pixels were read
    }
}

void PaletteBitmap(const PoiBitmap& bitmap, int width, int height, std::string_view key, BitmapText& out) {
    const int count = bitmap.ColourCount;
    const int mode = bitmap.ColourMode;
    const std::optional<int> bitsPerPixel = BitsPerPixel(mode, count);
    if (!bitsPerPixel) throw ListingFault();
    const int bpp = *bitsPerPixel;
    const int stride = PaddedRowWidth(width, bpp);
    const auto mask = static_cast<unsigned>((1 << bpp) - 1);

    std::vector<unsigned> indices(static_cast<std::size_t>(width) * height);
    bool transparent = false;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::size_t bit = (static_cast<std::size_t>(y) * stride + x) * bpp;
            const unsigned v = (ByteAt(bitmap.PixelBytes, bit / 8) >> (bit % 8)) & mask;
            indices[static_cast<std::size_t>(y) * width + x] = v;
            transparent |= v == static_cast<unsigned>(count);
        }
    }

    std::vector<std::int32_t> palette(count);
    ListingText& text = out.Text;
    const bool twoCharacters = count >= 17;
    text.KeyLine(key, Quoted(BitmapHeader(width, height, count + transparent, twoCharacters ? 2 : 1)));
    ModeKey(text, mode);
    for (int k = 0; k < count; ++k) {
        std::string line = "\"";
        AppendCode(line, static_cast<unsigned>(k), twoCharacters);
        if (mode == 32) {
            const AlphaColour entry = AlphaColourAt(bitmap.PaletteBytes, k);
            palette[k] = entry.Alpha == 15 ? kTransparentPixel : entry.Colour;
            text.TextLine(line + "\tc " + ColourText(entry.Colour) + "\"  ");
            text.Key("canalalpha=");
            text.Text(std::to_string(entry.Alpha));
        } else {
            palette[k] = ColourAt(bitmap.PaletteBytes, k);
            text.TextLine(line + "\tc " + ColourText(palette[k]) + "\"");
        }
    }
    // Two blanks even where codes are one character long.
    if (transparent) text.TextLine("\"  \tc none\"");

    std::string row;
    for (int y = 0; y < height; ++y) {
        row.assign(1, '"');
        for (int x = 0; x < width; ++x) {
            const unsigned v = indices[static_cast<std::size_t>(y) * width + x];
            if (v == static_cast<unsigned>(count)) row.append(twoCharacters ? 2 : 1, ' ');
            else AppendCode(row, v, twoCharacters);
            out.Pixels[static_cast<std::size_t>(y) * width + x] =
                v < static_cast<unsigned>(count) ? palette[v] : kTransparentPixel;
        }
        row += '"';
        text.TextLine(row);
    }
}

// One bitmap block; `key` is "DayXpm=" or "NightXpm=".
BitmapText ListBitmap(const PoiRecord& record, int slot, std::string_view key) {
    BitmapText out;
    const int width = record.Width, height = record.Height;
    if (width < 1 || height < 1) {
        out.Text.KeyLine(key, "\"0 0 0 0\"");
        return out;
    }
    out.Pixels.assign(static_cast<std::size_t>(width) * height, kTransparentPixel);
    const PoiBitmap& bitmap = record.Bitmaps[slot];
    if (bitmap.ColourCount == 0 && !bitmap.ForcePalette) TrueColourBitmap(bitmap, width, height, key, out);
    else PaletteBitmap(bitmap, width, height, key, out);
    out.Text.Break();
    out.Text.Comment(Ruler(width));
    return out;
}

void AppendPieces(ListingText& text, const ListingText& part) {
    for (const ListingPiece& piece : part.Pieces()) text.Add(piece.Role, part.BytesOf(piece));
}

void ListPoi(Document& doc, int index, ListingText& text, ObjectPreview* preview) {
    const PoiRecord& record = doc.Pois[index];
    const bool night = record.Flags & 0x02;
    // Both bitmaps are built before anything is printed.
    BitmapText day = ListBitmap(record, 0, "DayXpm=");
    BitmapText nightBitmap;
    if (night) nightBitmap = ListBitmap(record, 1, "NightXpm=");

    text.Head("[_point]");
    text.KeyLine("Type=0x", record.Type);
    text.KeyLine("SubType=0x", record.SubType);
    if (record.Flags & 0x04) lecture_Labels(text, record.LabelBytes, doc, index, ObjectKind::Poi);
    ExtendedLabelsPart(text, record.Flags & 0x08, record.ExtendedLabelBytes, preview);
    AppendPieces(text, day.Text);
    if (night) AppendPieces(text, nightBitmap.Text);
    text.Break();
    text.Head("[end]");

    if (preview && !day.Pixels.empty()) {
        preview->Picture.Width = record.Width;
        preview->Picture.Height = record.Height;
        preview->Picture.Day = std::move(day.Pixels);
        if (night) preview->Picture.Night = std::move(nightBitmap.Pixels);
    }
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
    // The POI route has always put a rich text break into the log.
    const bool poi = kind == ObjectKind::Poi;
    std::string line = poi ? "\\par " : kLineBreak;
    line += LookupText("Main", messages.Default, messages.Key);
    line += (poi ? "  Type=0x" : " Type=0x") + type + "   SubType=0x" + subType;
    LogError(doc, line);
}

using ObjectLister = void (*)(Document&, int, ListingText&, ObjectPreview*);

// Runs one object's listing under the error trap: a broken object costs its
// own text and nothing else.
void ListUnderTrap(ObjectLister lister, ObjectKind kind, std::size_t count, Document& doc, int index,
                   ListingText& text, ObjectPreview* preview) {
    if (index < 0 || static_cast<std::size_t>(index) >= count) return;
    const ListingText::Mark mark = text.Here();
    auto clearPreview = [&] {
        if (!preview) return;
        *preview = ObjectPreview();
        preview->Kind = kind;
    };
    clearPreview();
    try {
        lister(doc, index, text, preview);
    } catch (const ListingFault&) {
        text.RollBack(mark);
        clearPreview();
        LogBrokenObject(doc, kind, index);
    }
}

std::size_t RegularPolylineCount(const Document& doc) {
    return std::min(static_cast<std::size_t>(std::max(doc.PolylineCount, 0)), doc.Polylines.size());
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
    // Windows-1252, as the program has always written these words.
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
        ListUnderTrap(lister, kind, count, doc, static_cast<int>(i), text, nullptr);
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
        text.Text("0x" + Hex2(label.LanguageCode) + "," + label.Text);
    }
}

void lecture_ExtendedLabels(const Bytes& extendedLabelBytes, ListingText& text, ObjectPreview* preview) {
    const std::uint8_t first = ByteAt(extendedLabelBytes, 0);
    const int customColour = (first >> 3) & 3;
    text.KeyLine("FontStyle=", FontStyleText(first & 7));
    text.KeyLine("CustomColor=", CustomColorText(customColour));
    if (customColour & 1) text.KeyLine("DaycustomColor:", CustomColourValue(extendedLabelBytes, 1));
    if (customColour & 2)
        text.KeyLine("NightcustomColor:", CustomColourValue(extendedLabelBytes, customColour == 3 ? 4 : 1));
    if (!preview) return;
    preview->LabelDayColour.reset();
    preview->LabelNightColour.reset();
    if (customColour & 1) preview->LabelDayColour = CustomColour(extendedLabelBytes, 1);
    if (customColour & 2) preview->LabelNightColour = CustomColour(extendedLabelBytes, customColour == 3 ? 4 : 1);
}

void AffichePolygone(Document& doc, int index, ListingText& text, ObjectPreview* preview) {
    ListUnderTrap(ListPolygon, ObjectKind::Polygon, doc.Polygons.size(), doc, index, text, preview);
}

void AffichePolyline(Document& doc, int index, ListingText& text, ObjectPreview* preview) {
    ListUnderTrap(ListPolyline, ObjectKind::Polyline, doc.Polylines.size(), doc, index, text, preview);
}

void AffichePOI(Document& doc, int index, ListingText& text, ObjectPreview* preview) {
    ListUnderTrap(ListPoi, ObjectKind::Poi, doc.Pois.size(), doc, index, text, preview);
}

ListingText ListWholeDocument(Document& doc, const ListingContext& context) {
    ListingText text;
    Headings(doc, context, text);
    IdSection(doc, text);
    CommentsSection(doc, text);
    DrawOrderSection(doc, text);
    text.Break(6);
    ObjectSection(doc, text, ";===================== POLYGONES ========================", ListPolygon,
                  ObjectKind::Polygon, doc.Polygons.size());
    text.Break(3);
    ObjectSection(doc, text, ";====================== LINES ===========================", ListPolyline,
                  ObjectKind::Polyline, RegularPolylineCount(doc));
    text.Break(3);
    ObjectSection(doc, text, ";====================== POINTS ==========================", ListPoi, ObjectKind::Poi,
                  doc.Pois.size());
    return text;
}

ObjectListing ListOneObject(Document& doc, int editScope, int index, bool withPreview) {
    ObjectListing listing;
    ObjectPreview* preview = withPreview ? &listing.Preview : nullptr;
    switch (editScope) {
    case 1: AffichePolygone(doc, index, listing.Text, preview); break;
    case 2: AffichePolyline(doc, index, listing.Text, preview); break;
    case 3: AffichePOI(doc, index, listing.Text, preview); break;
    default: break;
    }
    return listing;
}

}  // namespace mirvane
