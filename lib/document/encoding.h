// Sizes and small encodings of the object records on disk.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "document/records.h"
#include "labels/label_block.h"

namespace mirvane {

// Colours of a polygon or polyline from the low three bits of its first byte:
// 2 * (1 + b0) - b1 - b2 * b0.
int ColourCountOf(std::uint8_t flagsByte);

// Palette size in bytes; mode 32 packs 28 bits an entry; 0 for unknown modes.
int PaletteByteLength(int colourCount, int colourMode);

// Bits per palette pixel; no value for modes other than 0, 16 and 32.
std::optional<int> BitsPerPixel(int colourMode, int colourCount);

// Width rounded up to whole bytes of pixels.
int PaddedRowWidth(int width, int bitsPerPixel);

// Bytes of a palette-coded bitmap.
int PalettePixelByteLength(int width, int height, int bitsPerPixel);

// Bytes of a true colour bitmap; no value for unknown modes.
std::optional<int> TrueColourPixelByteLength(int width, int height, int colourMode);

int PolygonRecordLength(const PolygonRecord& record);
int PolylineRecordLength(const PolylineRecord& record);
int PoiRecordLength(const PoiRecord& record);
// Whether a POI's night block stores pixels of its own: under bit 0, and in
// true colour always; else the night palette colours the day's pixels.
bool HasOwnNightPixels(const PoiRecord& record);

// Hexadecimal value of a Type or SubType text; what cannot be read counts as 0.
int HexValue(std::string_view text);
// The hexadecimal digits at the start of `text`, up to the first other
// character; reading stops once the value passes `limit`, so that an absurd
// text cannot overflow.
std::uint32_t LeadingHex(std::string_view text, std::uint32_t limit);

// "10f", "01": lowercase, zero padded, cut to the rightmost digits.
std::string TypeText(int typeNumber);
std::string SubTypeText(int subTypeNumber);

// Row of ListPolygone, ListPolyline, ListPOI and ListExtraPOI.
std::string ListRowText(const std::string& type, const std::string& subType);

// Numeric sort key: type * 32 + subtype, as in the index rows.
int TypeKey(const std::string& type, const std::string& subType);

}  // namespace mirvane
