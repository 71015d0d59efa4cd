#include "document/encoding.h"

#include "base/numbers.h"

namespace mirvane {

// Layouts 2 and 4 are known only to some older editors; their count follows
// the same rule.
int ColourCountOf(std::uint8_t flagsByte) {
    const int night = flagsByte & 1, dayClear = (flagsByte >> 1) & 1, nightClear = (flagsByte >> 2) & 1;
    return 2 * (1 + night) - dayClear - nightClear * night;
}

int PaletteByteLength(int colourCount, int colourMode) {
    if (colourMode == 32) return (colourCount * 7 + 1) / 2;  // whole part of n * 3.5 + 0.5
    if (colourMode == 0 || colourMode == 16) return colourCount * 3;
    return 0;  // other modes have no sizes: no palette is read or written for them
}

std::optional<int> BitsPerPixel(int colourMode, int colourCount) {
    if (colourMode != 0 && colourMode != 16 && colourMode != 32) return std::nullopt;
    const bool mode16 = colourMode == 16;
    if (colourCount == 0) return 1;
    if (colourCount == 1) return mode16 ? 2 : 1;
    if (colourCount == 2) return 2;
    if (colourCount == 3) return mode16 ? 4 : 2;
    if (colourCount <= 14) return 4;
    if (colourCount == 15) return mode16 ? 8 : 4;
    return 8;
}

int PaddedRowWidth(int width, int bitsPerPixel) {
    const int perByte = 8 / bitsPerPixel;
    if (width % perByte == 0) return width;
    return (width / perByte + 1) * perByte;
}

int PalettePixelByteLength(int width, int height, int bitsPerPixel) {
    return PaddedRowWidth(width, bitsPerPixel) * height * bitsPerPixel / 8;
}

std::optional<int> TrueColourPixelByteLength(int width, int height, int colourMode) {
    const int pixels = width * height;
    switch (colourMode) {
    case 0: return pixels * 3;
    case 16: return pixels * 3 + 3;
    case 32: return (pixels * 7 + 1) / 2;
    default: return std::nullopt;
    }
}

int PolygonRecordLength(const PolygonRecord& r) {
    int length = 1 + static_cast<int>(r.ColourBytes.size());
    if (r.Flags & 0x08) length += 128;
    if (r.Flags & 0x10) length += static_cast<int>(r.LabelBytes.size());
    if (r.Flags & 0x20) length += static_cast<int>(r.ExtendedLabelBytes.size());
    return length;
}

int PolylineRecordLength(const PolylineRecord& r) {
    int length = 2 + static_cast<int>(r.ColourBytes.size() + r.PatternBytes.size());
    if (r.Flags2 & 0x01) length += static_cast<int>(r.LabelBytes.size());
    if (r.Flags2 & 0x04) length += static_cast<int>(r.ExtendedLabelBytes.size());
    return length;
}

// Every part the reader reads: the day palette of a POI of size 0 too, and
// night pixels in true colour whatever bit 0 says.
int PoiRecordLength(const PoiRecord& r) {
    int length = 5;
    const bool sized = r.Width > 0 && r.Height > 0;
    const PoiBitmap& day = r.Bitmaps[0];
    const PoiBitmap& night = r.Bitmaps[1];
    if (day.ColourCount > 0) length += static_cast<int>(day.PaletteBytes.size());
    if (sized) length += static_cast<int>(day.PixelBytes.size());
    if (r.Flags & 0x02) {
        length += 2;
        if (night.ColourCount > 0) length += static_cast<int>(night.PaletteBytes.size());
        if (sized && HasOwnNightPixels(r)) length += static_cast<int>(night.PixelBytes.size());
    }
    if (r.Flags & 0x04) length += static_cast<int>(r.LabelBytes.size());
    if (r.Flags & 0x08) length += static_cast<int>(r.ExtendedLabelBytes.size());
    return length;
}

bool HasOwnNightPixels(const PoiRecord& record) {
    return (record.Flags & 0x02) && ((record.Flags & 0x01) || record.Bitmaps[1].ColourCount == 0);
}

std::uint32_t LeadingHex(std::string_view text, std::uint32_t limit) {
    std::uint32_t value = 0;
    for (char c : text) {
        int digit;
        if (c >= '0' && c <= '9') digit = c - '0';
        else if (c >= 'a' && c <= 'f') digit = c - 'a' + 10;
        else if (c >= 'A' && c <= 'F') digit = c - 'A' + 10;
        else break;
        if (value > limit) break;
        value = value * 16 + static_cast<std::uint32_t>(digit);
    }
    return value;
}

int HexValue(std::string_view text) { return static_cast<int>(LeadingHex(text, 0x7FFFFFF)); }

std::string TypeText(int typeNumber) { return HexDigits(static_cast<std::uint32_t>(typeNumber), 3); }
std::string SubTypeText(int subTypeNumber) { return HexDigits(static_cast<std::uint32_t>(subTypeNumber), 2); }

std::string ListRowText(const std::string& type, const std::string& subType) {
    return "Type=0x" + type + " - SubType=0x" + subType;
}

int TypeKey(const std::string& type, const std::string& subType) {
    return HexValue(type) * 32 + HexValue(subType);
}

}  // namespace mirvane
