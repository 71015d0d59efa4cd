#include "document/record_writer.h"

#include <algorithm>

#include "document/encoding.h"
#include "document/object_codec.h"
#include "labels/label_block.h"

namespace mirvane {

namespace {

// `part` cut or padded with zeros to `length` bytes.
void AppendFitted(Bytes& out, const Bytes& part, std::size_t length) {
    const std::size_t held = std::min(part.size(), length);
    out.insert(out.end(), part.begin(), part.begin() + static_cast<std::ptrdiff_t>(held));
    out.resize(out.size() + (length - held), 0);
}

std::uint8_t WritableLayoutByte(std::uint8_t flags) {
    return static_cast<std::uint8_t>((flags & ~0x07) | ColourLayout::Of(flags).Writable().Bits());
}

// A label block as long as its prefix says; a flag without a block is cleared.
void AppendLabel(Bytes& out, std::uint8_t& flags, std::uint8_t bit, const Bytes& block) {
    if (!(flags & bit)) return;
    if (block.empty()) {
        flags = static_cast<std::uint8_t>(flags & ~bit);
        return;
    }
    const std::uint8_t second = block.size() > 1 ? block[1] : 0;
    const int prefix = LabelPrefixIsOneByte(block[0]) ? 1 : 2;
    AppendFitted(out, block, static_cast<std::size_t>(std::max(LabelBlockLength(block[0], second), prefix)));
}

void AppendExtendedLabel(Bytes& out, std::uint8_t& flags, std::uint8_t bit, const Bytes& block) {
    if (!(flags & bit)) return;
    if (block.empty()) {
        flags = static_cast<std::uint8_t>(flags & ~bit);
        return;
    }
    AppendFitted(out, block, static_cast<std::size_t>(ExtendedLabelBlockLength(block[0])));
}

void AppendColours(Bytes& out, std::uint8_t layoutByte, const Bytes& colours) {
    AppendFitted(out, colours, static_cast<std::size_t>(ColourCountOf(layoutByte)) * 3);
}

// Palette and pixels of one bitmap, each as long as the reader takes it.
void AppendPalette(Bytes& out, const PoiBitmap& bitmap) {
    if (bitmap.ColourCount > 0)
        AppendFitted(out, bitmap.PaletteBytes,
                     static_cast<std::size_t>(PaletteByteLength(bitmap.ColourCount, bitmap.ColourMode)));
}

void AppendPixels(Bytes& out, const PoiRecord& record, const PoiBitmap& bitmap) {
    if (record.Width == 0 || record.Height == 0) return;
    std::optional<int> length;
    if (bitmap.ColourCount > 0 || bitmap.ForcePalette) {
        if (const std::optional<int> bpp = BitsPerPixel(bitmap.ColourMode, bitmap.ColourCount))
            length = PalettePixelByteLength(record.Width, record.Height, *bpp);
    } else {
        length = TrueColourPixelByteLength(record.Width, record.Height, bitmap.ColourMode);
    }
    AppendFitted(out, bitmap.PixelBytes, static_cast<std::size_t>(length.value_or(0)));
}

}  // namespace

Bytes EncodePolygonRecord(const PolygonRecord& record) {
    std::uint8_t flags = WritableLayoutByte(record.Flags);
    Bytes out{flags};
    AppendColours(out, flags, record.ColourBytes);
    if (flags & 0x08) AppendFitted(out, record.PatternBytes, static_cast<std::size_t>(kPolygonPatternRows) * 4);
    AppendLabel(out, flags, 0x10, record.LabelBytes);
    AppendExtendedLabel(out, flags, 0x20, record.ExtendedLabelBytes);
    out[0] = flags;
    return out;
}

Bytes EncodePolylineRecord(const PolylineRecord& record) {
    const std::uint8_t flags1 = WritableLayoutByte(record.Flags1);
    std::uint8_t flags2 = record.Flags2;
    Bytes out{flags1, flags2};
    AppendColours(out, flags1, record.ColourBytes);
    const int rows = flags1 >> 3;
    const int widths = (flags1 & 0x02) ? 1 : 2;
    AppendFitted(out, record.PatternBytes, static_cast<std::size_t>(rows > 0 ? rows * 4 : widths));
    AppendLabel(out, flags2, 0x01, record.LabelBytes);
    AppendExtendedLabel(out, flags2, 0x04, record.ExtendedLabelBytes);
    out[1] = flags2;
    return out;
}

Bytes EncodePoiRecord(const PoiRecord& record) {
    const PoiBitmap& day = record.Bitmaps[0];
    const PoiBitmap& night = record.Bitmaps[1];
    std::uint8_t flags = record.Flags;
    Bytes out{flags, record.Width, record.Height, day.ColourCount, day.ColourMode};
    AppendPalette(out, day);
    AppendPixels(out, record, day);
    if (flags & 0x02) {
        out.insert(out.end(), {night.ColourCount, night.ColourMode});
        AppendPalette(out, night);
        if (HasOwnNightPixels(record)) AppendPixels(out, record, night);
    }
    AppendLabel(out, flags, 0x04, record.LabelBytes);
    AppendExtendedLabel(out, flags, 0x08, record.ExtendedLabelBytes);
    out[0] = flags;
    return out;
}

}  // namespace mirvane
