#include "document/record_reader.h"

#include <algorithm>

#include "document/encoding.h"
#include "document/run_time_errors.h"

namespace mirvane {

bool FieldReader::Available(std::int64_t length) const {
    return position_ >= 0 && length >= 0 && position_ + length <= static_cast<std::int64_t>(file_->size());
}

void FieldReader::Fail(int errorNumber) {
    if (suspect_) throw SuspectBitmapFailure{};
    if (errorNumber == kErrPastEndOfFile) {
        if (reportedPastEnd_) return;
        reportedPastEnd_ = true;
    }
    if (onFailure_) onFailure_(errorNumber);
}

// Past the end the position still moves and the field reads as 0.
std::uint32_t FieldReader::LittleEndian(int count) {
    if (!Available(count)) {
        position_ += count;
        Fail(kErrPastEndOfFile);
        return 0;
    }
    const std::size_t p = static_cast<std::size_t>(position_);
    position_ += count;
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i) value |= static_cast<std::uint32_t>((*file_)[p + i]) << (8 * i);
    return value;
}

std::uint8_t FieldReader::U8() { return static_cast<std::uint8_t>(LittleEndian(1)); }

std::uint16_t FieldReader::U16() { return static_cast<std::uint16_t>(LittleEndian(2)); }

std::int32_t FieldReader::I32() { return static_cast<std::int32_t>(LittleEndian(4)); }

// A block that runs past the end keeps the bytes that are there.
Bytes FieldReader::Block(std::int64_t length) {
    if (length <= 0) return {};
    const std::int64_t size = static_cast<std::int64_t>(file_->size());
    const std::int64_t start = std::clamp<std::int64_t>(position_, 0, size);
    const std::int64_t end = std::clamp<std::int64_t>(position_ + length, 0, size);
    Bytes block(file_->begin() + start, file_->begin() + end);
    const bool complete = Available(length);
    position_ += length;
    if (!complete) Fail(kErrPastEndOfFile);
    return block;
}

Bytes ReadLabelBlock(FieldReader& in) {
    Bytes block{in.U8()};
    if (!LabelPrefixIsOneByte(block[0])) block.push_back(in.U8());
    const int length = LabelBlockLength(block[0], block.size() > 1 ? block[1] : 0);
    Bytes payload = in.Block(length - static_cast<int>(block.size()));
    block.insert(block.end(), payload.begin(), payload.end());
    return block;
}

Bytes ReadExtendedLabelBlock(FieldReader& in) {
    Bytes block{in.U8()};
    Bytes rest = in.Block(ExtendedLabelBlockLength(block[0]) - 1);
    block.insert(block.end(), rest.begin(), rest.end());
    return block;
}

void ReadPolygonRecord(FieldReader& in, PolygonRecord& r) {
    r.Flags = in.U8();
    r.ColourBytes = in.Block(ColourCountOf(r.Flags) * 3);
    if (r.Flags & 0x08) r.PatternBytes = in.Block(128);
    if (r.Flags & 0x10) r.LabelBytes = ReadLabelBlock(in);
    if (r.Flags & 0x20) r.ExtendedLabelBytes = ReadExtendedLabelBlock(in);
}

void ReadPolylineRecord(FieldReader& in, PolylineRecord& r) {
    r.Flags1 = in.U8();
    r.Flags2 = in.U8();
    r.ColourBytes = in.Block(ColourCountOf(r.Flags1) * 3);
    if (r.Flags1 < 8) r.PatternBytes = in.Block((r.Flags1 & 0x02) ? 1 : 2);
    else r.PatternBytes = in.Block(4 * (r.Flags1 >> 3));
    if (r.Flags2 & 0x01) r.LabelBytes = ReadLabelBlock(in);
    if (r.Flags2 & 0x04) r.ExtendedLabelBytes = ReadExtendedLabelBlock(in);
}

// Pixels of a palette-coded bitmap; an unknown mode has no pixel size, which
// is reported and reads nothing.
static Bytes ReadPalettePixels(FieldReader& in, int width, int height, const PoiBitmap& bitmap) {
    const std::optional<int> bpp = BitsPerPixel(bitmap.ColourMode, bitmap.ColourCount);
    if (!bpp) {
        in.Fail(kErrDivisionByZero);
        return {};
    }
    return in.Block(PalettePixelByteLength(width, height, *bpp));
}

// Pixels of a true colour bitmap; an unknown mode reads nothing.
static Bytes ReadTrueColourPixels(FieldReader& in, int width, int height, const PoiBitmap& bitmap) {
    const std::optional<int> length = TrueColourPixelByteLength(width, height, bitmap.ColourMode);
    return length ? in.Block(*length) : Bytes{};
}

void ReadPoiRecord(FieldReader& in, PoiRecord& r) {
    PoiBitmap& day = r.Bitmaps[0];
    PoiBitmap& night = r.Bitmaps[1];
    r.Flags = in.U8();
    r.Width = in.U8();
    r.Height = in.U8();
    day.ColourCount = in.U8();
    day.ColourMode = in.U8();
    in.SetSuspect(day.ColourCount == 0 && !day.ForcePalette);
    const bool sized = r.Width > 0 && r.Height > 0;
    if (day.ColourCount > 0) day.PaletteBytes = in.Block(PaletteByteLength(day.ColourCount, day.ColourMode));
    if (sized) {
        day.PixelBytes = (day.ColourCount > 0 || day.ForcePalette)
                             ? ReadPalettePixels(in, r.Width, r.Height, day)
                             : ReadTrueColourPixels(in, r.Width, r.Height, day);
    }
    if (r.Flags & 0x02) {
        night.ColourCount = in.U8();
        night.ColourMode = in.U8();
        if (night.ColourCount > 0) night.PaletteBytes = in.Block(PaletteByteLength(night.ColourCount, night.ColourMode));
        if (sized) {
            if (night.ColourCount == 0) night.PixelBytes = ReadTrueColourPixels(in, r.Width, r.Height, night);
            else if (r.Flags & 0x01) night.PixelBytes = ReadPalettePixels(in, r.Width, r.Height, night);
            else night.PixelBytes = day.PixelBytes;  // a night palette over the day's pixels
        }
    }
    if (r.Flags & 0x04) r.LabelBytes = ReadLabelBlock(in);
    if (r.Flags & 0x08) r.ExtendedLabelBytes = ReadExtendedLabelBlock(in);
    in.SetSuspect(false);
}

}  // namespace mirvane
