// Body of [_point]: keys, bitmap headers, palettes and pixels, packed into the
// same bytes a binary TYP holds.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <optional>
#include <unordered_map>

#include "colour/palette.h"
#include "document/bitmap_codec.h"
#include "document/encoding.h"
#include "text/parser_context.h"

namespace mirvane::textparse {

namespace {

// Pixel code -> palette index, the later of two equal codes winning. Codes of
// up to two characters go through a flat table, longer ones through a map.
class CodeIndex {
public:
    explicit CodeIndex(const std::vector<std::string>& codes) {
        for (std::size_t k = 0; k < codes.size(); ++k) Set(codes[k], static_cast<int>(k));
    }
    ~CodeIndex() {
        for (std::size_t slot : used_) Table()[slot] = 0;
    }
    CodeIndex(const CodeIndex&) = delete;
    CodeIndex& operator=(const CodeIndex&) = delete;

    // Index of the code; 0 when no code matches.
    int Find(std::string_view code) const {
        if (code.size() <= 2) {
            const int slot = Table()[SlotOf(code)];
            return slot == 0 ? 0 : slot - 1;
        }
        const auto found = long_.find(std::string(code));
        return found == long_.end() ? 0 : found->second;
    }

private:
    // Index + 1 per code, 0 for none. Zeroed by calloc, so only the pages of
    // codes in use are ever touched: filling it would cost more than a
    // large text takes to parse.
    static std::uint16_t* Table() {
        struct Freed {
            void operator()(std::uint16_t* table) const { std::free(table); }
        };
        thread_local std::unique_ptr<std::uint16_t, Freed> table(
            static_cast<std::uint16_t*>(std::calloc(kSlots, sizeof(std::uint16_t))));
        if (!table) throw std::bad_alloc();
        return table.get();
    }
    static constexpr std::size_t kSlots = 1 + 256 + 65536;
    static std::size_t SlotOf(std::string_view code) {
        const auto byte = [&](std::size_t k) { return static_cast<std::size_t>(static_cast<unsigned char>(code[k])); };
        if (code.empty()) return 0;
        if (code.size() == 1) return 1 + byte(0);
        return 257 + byte(0) * 256 + byte(1);
    }
    void Set(const std::string& code, int index) {
        if (code.size() > 2) {
            long_[code] = index;
            return;
        }
        const std::size_t slot = SlotOf(code);
        Table()[slot] = static_cast<std::uint16_t>(index + 1);
        used_.push_back(slot);
    }
    std::vector<std::size_t> used_;
    std::unordered_map<std::string, int> long_;
};

std::string_view FieldAfterEquals(std::string_view text) {
    const auto fields = SplitAt(text, '=');
    if (fields.size() < 2) throw ParseFailure{};
    return fields[1];
}

std::string_view TextBehindSecondQuote(std::string_view line) {
    const auto open = line.find('"');
    const auto close = open == std::string_view::npos ? open : line.find('"', open + 1);
    return close == std::string_view::npos ? std::string_view{} : line.substr(close + 1);
}

// The colour digits are read as one number 0xRRGGBB, as far as they are
// hexadecimal, so that a colour cut short moves towards blue; RgbNumber
// swaps red and blue, which turns that number into 0x00BBGGRR. Then 4 bits
// of alpha.
PaletteEntry Mode32Entry(std::string_view colourDigits, std::string_view alphaField) {
    const auto rgb = static_cast<Colour>(TolerantHex(colourDigits.substr(0, 6)) & 0xFFFFFFu);
    const auto alpha = static_cast<std::uint8_t>(StrictByte(alphaField) & 0x0Fu);
    return {static_cast<std::uint32_t>(RgbNumber(rgb)), alpha};
}

std::uint8_t ColourModeOf(std::string_view headerLine) {
    const std::string_view modePart = TrimBlanks(TextBehindSecondQuote(headerLine));
    if (modePart.empty() || Lower(modePart).find("colormode=") == std::string::npos) return 16;
    return StrictByte(FieldAfterEquals(modePart));
}

// A pixel line "#RRGGBB", read by fixed place.
std::uint32_t PixelLineColour(std::string_view line) { return ColourDigitsAt(line, 3); }

// A bitmap whose lines run past the end of the text fails before its pixel
// bytes are made, so a short text never makes large arrays.
void RequireLines(const ParseContext& ctx, std::size_t first, std::size_t count) {
    if (count > 0 && !ctx.HasLine(first + count - 1)) throw ParseFailure{};
}

// Line `next`, or the first line after it that is not only a comment; `next` moves past it.
std::string_view NextBitmapLine(const ParseContext& ctx, std::size_t& next) {
    next = ctx.SkipComments(next);
    return ctx.Line(next++);
}

// The size a bitmap's header gives: the lines it takes. Its pixels are
// stored at the record's size, which the first bitmap sets; a later bitmap
// of another size is cut or filled to it, as mkgmap does.
struct ListedSize {
    int Width = 0;
    int Height = 0;
};

// Pixel lines of a true colour bitmap, read behind the line that follows the
// header (the listing's ";Couleurs 24 bits" comment). Any mode but 0 and 32
// starts with the key colour of transparent pixels.
void ReadTrueColourPixels(ParseContext& ctx, const PoiRecord& record, ListedSize listed, PoiBitmap& bitmap) {
    ctx.Advance();
    const std::size_t pixels = static_cast<std::size_t>(listed.Width) * listed.Height;
    const bool mode32 = bitmap.ColourMode == 32;
    const bool keyed = !mode32 && bitmap.ColourMode != 0;
    RequireLines(ctx, ctx.I + 1, keyed ? pixels + 1 : pixels);
    DecodedBitmap decoded;
    decoded.ColourMode = bitmap.ColourMode;
    decoded.Colours = ColourGrid(record.Width, record.Height);
    if (mode32) decoded.Alpha = AlphaGrid(record.Width, record.Height);
    std::size_t next = ctx.I + 1;
    if (keyed) decoded.KeyColour = PixelLineColour(NextBitmapLine(ctx, next));
    for (int y = 0; y < listed.Height; ++y) {
        for (int x = 0; x < listed.Width; ++x) {
            const std::string_view line = NextBitmapLine(ctx, next);
            if (x >= record.Width || y >= record.Height) continue;
            if (!mode32) {
                decoded.Colours.Set({x, y}, PixelLineColour(line));
                continue;
            }
            ctx.Try([&] {
                const PaletteEntry entry = Mode32Entry(Mid(line, 3, 6), FieldAfterEquals(line));
                decoded.Colours.Set({x, y}, entry.Colour);
                decoded.Alpha.Set({x, y}, entry.Alpha);
            });
        }
    }
    bitmap.PixelBytes = EncodeTrueColour(decoded);
}

// Mode 32 palette: colour and alpha an entry; a "c none" line has no alpha and fails.
void ReadMode32Palette(ParseContext& ctx, std::size_t& next, std::vector<PaletteEntry>& palette,
                       std::vector<std::string>& codes, std::size_t cpp) {
    palette.assign(codes.size(), PaletteEntry{});
    for (std::size_t k = 0; k < codes.size(); ++k) {
        const std::string_view line = NextBitmapLine(ctx, next);
        codes[k] = std::string(Mid(line, 2, cpp));
        ctx.Try([&] {
            const ColourLine colour = ReadColourLine(line, cpp);
            if (colour.Transparent) throw ParseFailure{};
            const std::uint8_t alpha = StrictByte(FieldAfterEquals(colour.Behind)) & 0x0F;
            palette[k] = {colour.Colour, alpha};
        });
    }
}

// The transparent line may stand anywhere: it takes the index one past the
// last real colour, which is the value the listing looks for.
void ReadTransparentPaletteLine(PoiBitmap& bitmap, int& colours, std::vector<PaletteEntry>& palette,
                                std::vector<std::string>& codes, const ColourLine& line) {
    if (colours == 0) throw ParseFailure{};
    --colours;
    bitmap.ColourCount = static_cast<std::uint8_t>(std::min(colours, 255));
    if (colours > 0) {
        if (palette.empty()) throw ParseFailure{};
        palette.pop_back();
    } else {
        bitmap.ForcePalette = true;
    }
    codes.at(static_cast<std::size_t>(colours)) = line.Code;
}

void ReadColourPalette(ParseContext& ctx, std::size_t& next, PoiBitmap& bitmap, std::vector<PaletteEntry>& palette,
                       std::vector<std::string>& codes, std::size_t cpp) {
    palette.assign(codes.size(), PaletteEntry{});
    int colours = static_cast<int>(codes.size());
    std::size_t skipped = 0;
    for (std::size_t k = 0; k < codes.size(); ++k) {
        next = ctx.SkipComments(next);
        const std::size_t at = next++;
        ctx.Try([&] {
            const ColourLine line = ReadColourLine(ctx.Line(at), cpp);
            if (line.Transparent) {
                ReadTransparentPaletteLine(bitmap, colours, palette, codes, line);
                skipped = 1;
                return;
            }
            const std::size_t entry = k - skipped;
            codes.at(entry) = line.Code;
            if (entry >= palette.size()) throw ParseFailure{};
            palette[entry].Colour = line.Colour;
        });
    }
    // 256 lines hold only 255 colours when one of them is the transparent line.
    if (colours > 255) {
        palette.resize(255);
        throw ParseFailure{};
    }
}

// Rows from the current line on, `cpp` characters a pixel; the line index
// stays on the first row.
void ReadPaletteRows(ParseContext& ctx, const PoiRecord& record, ListedSize listed, PoiBitmap& bitmap,
                     const std::vector<std::string>& codes, std::size_t cpp) {
    const auto bits = BitsPerPixel(bitmap.ColourMode, bitmap.ColourCount);
    if (!bits) throw ParseFailure{};
    IndexGrid indices(PaddedRowWidth(record.Width, *bits), record.Height);
    const int rows = std::min(indices.Height(), listed.Height);
    RequireLines(ctx, ctx.I, static_cast<std::size_t>(rows));
    const CodeIndex index(codes);
    std::size_t next = ctx.I;
    for (int y = 0; y < rows; ++y) {
        const std::string_view line = NextBitmapLine(ctx, next);
        auto row = indices.Row(y);
        const std::size_t narrower = std::min<std::size_t>(row.size(), listed.Width);
        const std::size_t columns = listed.Width == record.Width ? row.size() : narrower;
        for (std::size_t x = 0; x < columns; ++x)
            row[x] = static_cast<std::uint8_t>(index.Find(Mid(line, x * cpp + 2, cpp)));
    }
    bitmap.PixelBytes = EncodeIndices(indices, record.Width, record.Height, *bits);
}

// The palette's entries stand in the record from the first palette line
// on, also when the text ends inside the palette.
void ReadPaletteBitmap(ParseContext& ctx, const PoiRecord& record, ListedSize listed, PoiBitmap& bitmap,
                       std::size_t& cpp, const XpmHeader& header, int listedColours) {
    ctx.Try([&] { cpp = StrictByte(header.Field(3)); });
    std::vector<std::string> codes(static_cast<std::size_t>(listedColours));
    std::optional<std::vector<PaletteEntry>> palette;
    std::size_t next = ctx.I + 1;
    ctx.Try([&] {
        if (bitmap.ColourMode >= 32 && listedColours > 255) throw ParseFailure{};
        if (bitmap.ColourMode >= 32) ReadMode32Palette(ctx, next, palette.emplace(), codes, cpp);
        else ReadColourPalette(ctx, next, bitmap, palette.emplace(), codes, cpp);
    });
    if (palette) bitmap.PaletteBytes = EncodePalette(*palette, bitmap.ColourMode);
    ctx.I = std::min(ctx.SkipComments(next), ctx.LineCount() - 1);
    ctx.Try([&] { ReadPaletteRows(ctx, record, listed, bitmap, codes, cpp); });
}

// 0 to 255 colours, or 256: 255 colours and the transparent line, as a full
// palette with transparent pixels is listed.
int ListedColourCount(std::string_view field) {
    const double rounded = std::nearbyint(StrictNumber(field));
    if (rounded < 0 || rounded > 256) throw ParseFailure{};
    return static_cast<int>(rounded);
}

struct PoiWork {
    std::size_t Cpp = 0;  // characters per code, kept from one bitmap to the next
    bool Sized = false;   // a bitmap has set the record's size
    LabelWork Labels;
};

void ReadPoiBitmap(ParseContext& ctx, PoiRecord& record, PoiBitmap& bitmap, PoiWork& work) {
    const std::string_view line = ctx.Current();
    const XpmHeader header = ReadXpmHeader(line);
    ListedSize listed{record.Width, record.Height};
    ctx.Try([&] { listed.Width = StrictByte(header.Field(0)); });
    ctx.Try([&] { listed.Height = StrictByte(header.Field(1)); });
    int listedColours = bitmap.ColourCount;
    ctx.Try([&] { listedColours = ListedColourCount(header.Field(2)); });
    bitmap.ColourCount = static_cast<std::uint8_t>(std::min(listedColours, 255));
    if (!work.Sized) {
        record.Width = static_cast<std::uint8_t>(listed.Width);
        record.Height = static_cast<std::uint8_t>(listed.Height);
    }
    if (record.Width == 0 && record.Length == 0) {
        bitmap.ColourCount = 0;
        bitmap.ColourMode = 0;
        return;
    }
    work.Sized = true;
    ctx.Try([&] { bitmap.ColourMode = ColourModeOf(line); });
    if (bitmap.ColourCount == 0) ctx.Try([&] { ReadTrueColourPixels(ctx, record, listed, bitmap); });
    else ReadPaletteBitmap(ctx, record, listed, bitmap, work.Cpp, header, listedColours);
}

void ReadPoiKeyLine(ParseContext& ctx, PoiRecord& record, PoiWork& work) {
    if (ReadSharedKey(ctx, record, work.Labels)) return;
    const std::string_view line = ctx.Current();
    if (StartsWithNoCase(line, "xpm=") || StartsWithNoCase(line, "dayxpm=")) {
        record.Flags |= 0x01;
        ReadPoiBitmap(ctx, record, record.Bitmaps[0], work);
    } else if (StartsWithNoCase(line, "nightxpm=")) {
        record.Flags |= 0x02;
        ReadPoiBitmap(ctx, record, record.Bitmaps[1], work);
    }
}

}  // namespace

void ReadPoiBody(ParseContext& ctx, PoiRecord& record) {
    PoiWork work;
    ReadBody(ctx, [&] { ReadPoiKeyLine(ctx, record, work); });
    FinishRecordLabels(ctx, work.Labels, record, record.Flags, 0x04, 0x08);
    ctx.Try([&] { record.Length = PoiRecordLength(record); });
}

}  // namespace mirvane::textparse
