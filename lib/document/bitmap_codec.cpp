#include "document/bitmap_codec.h"

#include "document/encoding.h"

namespace mirvane {

namespace {

constexpr int kAlphaEntryBits = 28;  // 24 bits of colour, blue lowest, then 4 of alpha

// `count` bits of a stream read from bit 0 of each byte upward; bits past
// the end read as 0.
std::uint32_t ReadBits(const Bytes& bytes, std::size_t bitPosition, int count) {
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i) {
        const std::size_t bit = bitPosition + static_cast<std::size_t>(i);
        if (bit / 8 < bytes.size() && ((bytes[bit / 8] >> (bit % 8)) & 1)) value |= 1u << i;
    }
    return value;
}

// Sets the bits of `value` from `bitPosition` on; the bytes are there and
// start cleared.
void WriteBits(Bytes& bytes, std::size_t bitPosition, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i, ++bitPosition)
        if ((value >> i) & 1u) bytes[bitPosition / 8] |= static_cast<std::uint8_t>(1u << (bitPosition % 8));
}

// 0x00BBGGRR and the stream's 24 bits (blue lowest) are each other's mirror.
std::uint32_t SwapRedAndBlue(std::uint32_t colour) {
    return ((colour >> 16) & 0xFF) | (colour & 0xFF00) | ((colour & 0xFF) << 16);
}

PaletteEntry AlphaEntryAt(const Bytes& bytes, std::size_t k) {
    const std::size_t first = k * kAlphaEntryBits;
    return {SwapRedAndBlue(ReadBits(bytes, first, 24)), static_cast<std::uint8_t>(ReadBits(bytes, first + 24, 4))};
}

void PutAlphaEntry(Bytes& bytes, std::size_t k, const PaletteEntry& entry) {
    const std::uint32_t alpha = entry.Alpha & 0x0F;
    const std::uint32_t bits = SwapRedAndBlue(entry.Colour & 0xFFFFFF) | (alpha << 24);
    WriteBits(bytes, k * kAlphaEntryBits, bits, kAlphaEntryBits);
}

bool PacksAlpha(int colourMode) { return colourMode >= 32; }

std::size_t AlphaStreamLength(std::size_t entries) { return (entries * 7 + 1) / 2; }

// Palette length by the packing rule, which agrees with PaletteByteLength
// for the three modes the format knows.
std::size_t PackedPaletteLength(std::size_t count, int colourMode) {
    return PacksAlpha(colourMode) ? AlphaStreamLength(count) : count * 3;
}

// By the packing rule; the format itself has sizes for modes 0, 16 and 32 only.
std::size_t TrueColourByteLength(std::size_t pixels, int colourMode) {
    if (colourMode == 32) return AlphaStreamLength(pixels);
    if (colourMode == 0) return pixels * 3;
    return pixels * 3 + 3;  // a key colour first
}

bool KnownMode(int colourMode) { return colourMode == 0 || colourMode == 16 || colourMode == 32; }

std::size_t PixelCount(int width, int height) { return static_cast<std::size_t>(width) * height; }

void DecodeTrueColour(const Bytes& bytes, int width, int height, DecodedBitmap& out) {
    out.Colours = ColourGrid(width, height);
    if (out.ColourMode == 32) out.Alpha = AlphaGrid(width, height);
    const bool keyed = out.ColourMode != 0 && out.ColourMode != 32;
    std::size_t next = 0;
    if (keyed) {
        if (bytes.size() >= 3) out.KeyColour = BgrColourAt(bytes, 0);
        next = 1;
    }
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x, ++next) {
            if (out.ColourMode == 32) {
                const PaletteEntry entry = AlphaEntryAt(bytes, next);
                out.Colours.Set({x, y}, entry.Colour);
                out.Alpha.Set({x, y}, entry.Alpha);
            } else if (next * 3 + 3 <= bytes.size()) {
                out.Colours.Set({x, y}, BgrColourAt(bytes, next * 3));
            }
        }
    }
}

DecodeStatus StatusOf(const PoiBitmap& bitmap, const DecodedBitmap& decoded, int width, int height) {
    if (!KnownMode(bitmap.ColourMode)) return DecodeStatus::UnknownColourMode;
    const std::size_t count = decoded.Palette.size();
    if (bitmap.PaletteBytes.size() < PackedPaletteLength(count, bitmap.ColourMode)) return DecodeStatus::MissingColours;
    if (width < 1 || height < 1) return DecodeStatus::Ok;
    std::size_t needed = TrueColourByteLength(PixelCount(width, height), bitmap.ColourMode);
    if (!decoded.IsTrueColour()) {
        const int bits = *BitsPerPixel(bitmap.ColourMode, static_cast<int>(count));
        needed = static_cast<std::size_t>(PalettePixelByteLength(width, height, bits));
    }
    return bitmap.PixelBytes.size() < needed ? DecodeStatus::MissingPixels : DecodeStatus::Ok;
}

}  // namespace

std::vector<PaletteEntry> DecodePalette(const Bytes& paletteBytes, int count, int colourMode) {
    std::vector<PaletteEntry> palette(static_cast<std::size_t>(count));
    for (std::size_t k = 0; k < palette.size(); ++k) {
        if (PacksAlpha(colourMode)) palette[k] = AlphaEntryAt(paletteBytes, k);
        else if (k * 3 + 3 <= paletteBytes.size()) palette[k].Colour = BgrColourAt(paletteBytes, k * 3);
    }
    return palette;
}

Bytes EncodePalette(const std::vector<PaletteEntry>& palette, int colourMode) {
    Bytes bytes;
    if (!PacksAlpha(colourMode)) {
        bytes.reserve(palette.size() * 3);
        for (const PaletteEntry& entry : palette) AppendBgrColour(bytes, entry.Colour);
        return bytes;
    }
    bytes.assign(AlphaStreamLength(palette.size()), 0);
    for (std::size_t k = 0; k < palette.size(); ++k) PutAlphaEntry(bytes, k, palette[k]);
    return bytes;
}

IndexGrid DecodeIndices(const Bytes& pixelBytes, int width, int height, int bitsPerPixel) {
    IndexGrid indices(PaddedRowWidth(width, bitsPerPixel), height);
    const std::size_t stride = static_cast<std::size_t>(indices.Width());
    for (int y = 0; y < height; ++y) {
        auto row = indices.Row(y);
        for (std::size_t x = 0; x < stride; ++x)
            row[x] = static_cast<std::uint8_t>(ReadBits(pixelBytes, (y * stride + x) * bitsPerPixel, bitsPerPixel));
    }
    return indices;
}

Bytes EncodeIndices(const IndexGrid& indices, int width, int height, int bitsPerPixel) {
    const std::size_t stride = static_cast<std::size_t>(PaddedRowWidth(width, bitsPerPixel));
    Bytes bytes(static_cast<std::size_t>(PalettePixelByteLength(width, height, bitsPerPixel)), 0);
    const std::uint32_t mask = (1u << bitsPerPixel) - 1;
    for (int y = 0; y < height && y < indices.Height(); ++y) {
        const auto row = indices.Row(y);
        for (std::size_t x = 0; x < stride && x < row.size(); ++x)
            WriteBits(bytes, (y * stride + x) * bitsPerPixel, row[x] & mask, bitsPerPixel);
    }
    return bytes;
}

Bytes EncodeTrueColour(const DecodedBitmap& bitmap) {
    const int colourMode = bitmap.ColourMode;
    const int width = bitmap.Colours.Width(), height = bitmap.Colours.Height();
    if (colourMode == 32) {
        Bytes bytes(AlphaStreamLength(PixelCount(width, height)), 0);
        std::size_t next = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x, ++next) {
                const std::uint8_t alpha = bitmap.Alpha.Contains({x, y}) ? bitmap.Alpha.At({x, y}) : kOpaqueAlpha;
                PutAlphaEntry(bytes, next, {bitmap.Colours.At({x, y}), alpha});
            }
        return bytes;
    }
    Bytes bytes;
    bytes.reserve(TrueColourByteLength(PixelCount(width, height), colourMode));
    if (colourMode != 0) AppendBgrColour(bytes, bitmap.KeyColour);
    for (int y = 0; y < height; ++y)
        for (std::uint32_t colour : bitmap.Colours.Row(y)) AppendBgrColour(bytes, colour);
    return bytes;
}

std::optional<std::uint32_t> DecodedBitmap::PixelColour(Cell cell) const {
    if (!IsTrueColour()) {
        if (!Indices.Contains(cell)) return std::nullopt;
        const std::size_t index = Indices.At(cell);
        if (index >= Palette.size()) return std::nullopt;
        const PaletteEntry& entry = Palette[index];
        if (ColourMode == 32 && entry.Alpha == kTransparentAlpha) return std::nullopt;
        return entry.Colour;
    }
    if (!Colours.Contains(cell)) return std::nullopt;
    const std::uint32_t colour = Colours.At(cell);
    switch (ColourMode) {
    case 0: return colour;
    case 16: return colour == KeyColour ? std::nullopt : std::optional(colour);
    case 32: return Alpha.At(cell) == kTransparentAlpha ? std::nullopt : std::optional(colour);
    default: return std::nullopt;  // no sizes, so no pixels, in an unknown mode
    }
}

DecodedBitmap DecodeBitmap(const PoiBitmap& bitmap, int width, int height) {
    DecodedBitmap decoded;
    decoded.ColourMode = bitmap.ColourMode;
    decoded.ForcePalette = bitmap.ForcePalette;
    decoded.Palette = DecodePalette(bitmap.PaletteBytes, bitmap.ColourCount, bitmap.ColourMode);
    if (width > 0 && height > 0) {
        if (decoded.IsTrueColour()) {
            DecodeTrueColour(bitmap.PixelBytes, width, height, decoded);
        } else if (const auto bits = BitsPerPixel(bitmap.ColourMode, bitmap.ColourCount)) {
            decoded.Indices = DecodeIndices(bitmap.PixelBytes, width, height, *bits);
        }
    }
    decoded.Status = StatusOf(bitmap, decoded, width, height);
    return decoded;
}

PoiBitmap EncodeBitmap(const DecodedBitmap& decoded, int width, int height) {
    PoiBitmap bitmap;
    bitmap.ColourCount = static_cast<std::uint8_t>(decoded.Palette.size());
    bitmap.ColourMode = decoded.ColourMode;
    bitmap.ForcePalette = decoded.ForcePalette;
    bitmap.PaletteBytes = EncodePalette(decoded.Palette, decoded.ColourMode);
    if (width < 1 || height < 1) return bitmap;
    if (decoded.IsTrueColour()) {
        bitmap.PixelBytes = EncodeTrueColour(decoded);
    } else if (const auto bits = BitsPerPixel(decoded.ColourMode, bitmap.ColourCount)) {
        bitmap.PixelBytes = EncodeIndices(decoded.Indices, width, height, *bits);
    }
    return bitmap;
}

DecodeStatus DecodedPoi::Status() const {
    if (Day.Status != DecodeStatus::Ok || !Night) return Day.Status;
    return Night->Status;
}

DecodedPoi DecodePoi(const PoiRecord& record) {
    DecodedPoi poi;
    poi.Width = record.Width;
    poi.Height = record.Height;
    poi.Day = DecodeBitmap(record.Bitmaps[0], record.Width, record.Height);
    if (record.Flags & 0x02) poi.Night = DecodeBitmap(record.Bitmaps[1], record.Width, record.Height);
    return poi;
}

void EncodePoi(const DecodedPoi& poi, PoiRecord& record) {
    record.Width = static_cast<std::uint8_t>(poi.Width);
    record.Height = static_cast<std::uint8_t>(poi.Height);
    record.Bitmaps[0] = EncodeBitmap(poi.Day, poi.Width, poi.Height);
    if (poi.Night) {
        record.Bitmaps[1] = EncodeBitmap(*poi.Night, poi.Width, poi.Height);
        record.Flags |= 0x02;
    } else {
        record.Bitmaps[1] = PoiBitmap();
        record.Flags &= static_cast<std::uint8_t>(~0x02);
    }
}

}  // namespace mirvane
