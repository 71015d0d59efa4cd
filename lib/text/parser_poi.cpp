// Body of [_point]: keys, bitmap headers, palettes and pixels, packed into the
// same bytes a binary TYP holds.
#include <algorithm>
#include <unordered_map>

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
        for (std::size_t slot : used_) Table()[slot] = -1;
    }
    CodeIndex(const CodeIndex&) = delete;
    CodeIndex& operator=(const CodeIndex&) = delete;

    // Index of the code; 0 when no code matches.
    int Find(std::string_view code) const {
        if (code.size() <= 2) {
            const int index = Table()[SlotOf(code)];
            return index < 0 ? 0 : index;
        }
        const auto found = long_.find(std::string(code));
        return found == long_.end() ? 0 : found->second;
    }

private:
    static std::vector<int>& Table() {
        thread_local std::vector<int> table(1 + 256 + 65536, -1);
        return table;
    }
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
        Table()[slot] = index;
        used_.push_back(slot);
    }
    std::vector<std::size_t> used_;
    std::unordered_map<std::string, int> long_;
};

// Writes `bitCount` bits of `value`, lowest first, from bit `offset` of `bytes`.
void PutBits(Bytes& bytes, std::size_t offset, std::uint32_t value, int bitCount) {
    for (int bit = 0; bit < bitCount; ++bit, ++offset)
        if ((value >> bit) & 1u) bytes[offset / 8] |= static_cast<std::uint8_t>(1u << (offset % 8));
}

// 24 bits of colour (#RRGGBB read as one number: blue lowest) and 4 of alpha.
std::uint32_t Mode32Entry(std::string_view colourDigits, std::string_view alphaField) {
    const std::uint32_t colour = TolerantHex(colourDigits.substr(0, 6)) & 0xFFFFFFu;
    const std::uint32_t alpha = StrictByte(alphaField) & 0x0Fu;
    return colour | (alpha << 24);
}

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

std::uint8_t ColourModeOf(std::string_view headerLine) {
    const std::string_view modePart = TrimBlanks(TextBehindSecondQuote(headerLine));
    if (modePart.empty() || Lower(modePart).find("colormode=") == std::string::npos) return 16;
    return StrictByte(FieldAfterEquals(modePart));
}

// A bitmap whose lines run past the end of the text fails before its pixel
// bytes are made, so a short text never makes large arrays.
void RequireLines(const ParseContext& ctx, std::size_t first, std::size_t count) {
    if (count > 0 && !ctx.HasLine(first + count - 1)) throw ParseFailure{};
}

// Pixel lines of a true colour bitmap, read by position behind the line that
// follows the header (the listing's ";Couleurs 24 bits" comment).
void ReadTrueColourPixels(ParseContext& ctx, const PoiRecord& record, PoiBitmap& bitmap) {
    ctx.Advance();
    const std::size_t pixels = static_cast<std::size_t>(record.Width) * record.Height;
    RequireLines(ctx, ctx.I + 1, bitmap.ColourMode == 32 || bitmap.ColourMode == 0 ? pixels : pixels + 1);
    if (bitmap.ColourMode == 32) {
        bitmap.PixelBytes.assign((pixels * 7 + 1) / 2, 0);
        for (std::size_t p = 0; p < pixels; ++p) {
            const std::string& line = ctx.Line(ctx.I + 1 + p);
            ctx.Try([&] { PutBits(bitmap.PixelBytes, p * 28, Mode32Entry(Mid(line, 3, 6), FieldAfterEquals(line)), 28); });
        }
        return;
    }
    // Any mode but 0 starts with the key colour of transparent pixels.
    const std::size_t lines = bitmap.ColourMode == 0 ? pixels : pixels + 1;
    bitmap.PixelBytes.assign(lines * 3, 0);
    for (std::size_t p = 0; p < lines; ++p) {
        const std::string& line = ctx.Line(ctx.I + 1 + p);
        for (std::size_t k = 0; k < 3; ++k)
            bitmap.PixelBytes[p * 3 + k] = static_cast<std::uint8_t>(TolerantHex(Mid(line, 7 - 2 * k, 2)));
    }
}

// Mode 32 palette: 28 bits an entry; a "c none" line has no alpha and fails.
void ReadMode32Palette(ParseContext& ctx, PoiBitmap& bitmap, std::vector<std::string>& codes, std::size_t cpp) {
    bitmap.PaletteBytes.assign(static_cast<std::size_t>(PaletteByteLength(bitmap.ColourCount, 32)), 0);
    for (std::size_t k = 0; k < codes.size(); ++k) {
        const std::string& line = ctx.Line(ctx.I + 1 + k);
        codes[k] = std::string(Mid(line, 2, cpp));
        ctx.Try([&] {
            const std::string_view digits = Mid(line, PositionOf(line, 'c') + 3, 6);
            PutBits(bitmap.PaletteBytes, k * 28, Mode32Entry(digits, FieldAfterEquals(TextBehindSecondQuote(line))), 28);
        });
    }
}

// The transparent line may stand anywhere: it takes the index one past the
// last real colour, which is the value the listing looks for.
void ReadTransparentPaletteLine(PoiBitmap& bitmap, std::vector<std::string>& codes, std::string_view line,
                                std::size_t cpp) {
    if (bitmap.ColourCount == 0) throw ParseFailure{};
    --bitmap.ColourCount;
    if (bitmap.ColourCount > 0) {
        if (bitmap.PaletteBytes.size() < 3) throw ParseFailure{};
        bitmap.PaletteBytes.resize(bitmap.PaletteBytes.size() - 3);
    } else {
        bitmap.ForcePalette = true;
    }
    codes.at(bitmap.ColourCount) = std::string(Mid(line, 2, cpp));
}

void ReadColourPalette(ParseContext& ctx, PoiBitmap& bitmap, std::vector<std::string>& codes, std::size_t cpp) {
    bitmap.PaletteBytes.assign(codes.size() * 3, 0);
    std::size_t skipped = 0;
    for (std::size_t k = 0; k < codes.size(); ++k) {
        const std::string& line = ctx.Line(ctx.I + 1 + k);
        ctx.Try([&] {
            if (PassesCTest(line)) {
                ReadTransparentPaletteLine(bitmap, codes, line, cpp);
                skipped = 1;
                return;
            }
            const std::size_t entry = k - skipped;
            codes.at(entry) = std::string(Mid(line, 2, cpp));
            if (entry * 3 + 3 > bitmap.PaletteBytes.size()) throw ParseFailure{};
            const auto colour = LineColour(line);
            std::copy(colour.begin(), colour.end(), bitmap.PaletteBytes.begin() + static_cast<std::ptrdiff_t>(entry * 3));
        });
    }
}

// Rows from the current line on, `cpp` characters a pixel; the line index
// stays on the first row.
void ReadPaletteRows(ParseContext& ctx, const PoiRecord& record, PoiBitmap& bitmap,
                     const std::vector<std::string>& codes, std::size_t cpp) {
    const auto bits = BitsPerPixel(bitmap.ColourMode, bitmap.ColourCount);
    if (!bits) throw ParseFailure{};
    const std::size_t bpp = static_cast<std::size_t>(*bits);
    const std::size_t stride = static_cast<std::size_t>(PaddedRowWidth(record.Width, *bits));
    RequireLines(ctx, ctx.I, record.Height);
    bitmap.PixelBytes.assign(stride * record.Height * bpp / 8, 0);
    const CodeIndex index(codes);
    const std::uint32_t mask = (1u << bpp) - 1;
    for (std::size_t r = 0; r < record.Height; ++r) {
        const std::string& row = ctx.Line(ctx.I + r);
        for (std::size_t x = 0; x < stride; ++x) {
            const auto value = static_cast<std::uint32_t>(index.Find(Mid(row, x * cpp + 2, cpp)));
            PutBits(bitmap.PixelBytes, (r * stride + x) * bpp, value & mask, static_cast<int>(bpp));
        }
    }
}

void ReadPaletteBitmap(ParseContext& ctx, const PoiRecord& record, PoiBitmap& bitmap, std::size_t& cpp,
                       const XpmHeader& header) {
    ctx.Try([&] { cpp = StrictByte(header.Field(3)); });
    std::vector<std::string> codes(bitmap.ColourCount);
    const std::size_t headerLine = ctx.I;
    ctx.Try([&] {
        if (bitmap.ColourMode >= 32) ReadMode32Palette(ctx, bitmap, codes, cpp);
        else ReadColourPalette(ctx, bitmap, codes, cpp);
    });
    ctx.I = std::min(headerLine + codes.size() + 1, ctx.LineCount() - 1);
    ctx.Try([&] { ReadPaletteRows(ctx, record, bitmap, codes, cpp); });
}

void ReadPoiBitmap(ParseContext& ctx, PoiRecord& record, PoiBitmap& bitmap, std::size_t& cpp) {
    const std::string& line = ctx.Current();
    const XpmHeader header = ReadXpmHeader(line);
    ctx.Try([&] { record.Width = StrictByte(header.Field(0)); });
    ctx.Try([&] { record.Height = StrictByte(header.Field(1)); });
    ctx.Try([&] { bitmap.ColourCount = StrictByte(header.Field(2)); });
    if (record.Width == 0 && record.Length == 0) {
        bitmap.ColourCount = 0;
        bitmap.ColourMode = 0;
        return;
    }
    ctx.Try([&] { bitmap.ColourMode = ColourModeOf(line); });
    if (bitmap.ColourCount == 0) ctx.Try([&] { ReadTrueColourPixels(ctx, record, bitmap); });
    else ReadPaletteBitmap(ctx, record, bitmap, cpp, header);
}

void ReadPoiKeyLine(ParseContext& ctx, PoiRecord& record, std::size_t& cpp) {
    if (ReadSharedKey(ctx, record, record.Flags, 0x04, 0x08)) return;
    const std::string& line = ctx.Current();
    if (StartsWithNoCase(line, "xpm=") || StartsWithNoCase(line, "dayxpm=")) {
        record.Flags |= 0x01;
        ReadPoiBitmap(ctx, record, record.Bitmaps[0], cpp);
    } else if (StartsWithNoCase(line, "nightxpm=")) {
        record.Flags |= 0x02;
        ReadPoiBitmap(ctx, record, record.Bitmaps[1], cpp);
    }
}

}  // namespace

void ReadPoiBody(ParseContext& ctx, PoiRecord& record) {
    std::size_t cpp = 0;  // characters per code, kept from one bitmap to the next
    ReadBody(ctx, [&] { ReadPoiKeyLine(ctx, record, cpp); });
    ctx.Try([&] { record.Length = PoiRecordLength(record); });
}

}  // namespace mirvane::textparse
