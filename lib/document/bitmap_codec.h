// POI bitmaps decoded from their records and encoded back: palette or true
// colour, colour modes 0, 16 and 32, alpha in the palette or per pixel. As
// with polygons and lines, decoding never fails and logs nothing; the status
// tells what the bytes lack.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "document/object_codec.h"
#include "document/records.h"
#include "graphics/pixel_grid.h"

namespace mirvane {

inline constexpr std::uint8_t kOpaqueAlpha = 0;
inline constexpr std::uint8_t kTransparentAlpha = 15;

struct PaletteEntry {
    std::uint32_t Colour = 0;  // 0x00BBGGRR
    std::uint8_t Alpha = 0;    // 0 opaque to 15 transparent; stored in mode 32 only
    bool operator==(const PaletteEntry&) const = default;
};

struct DecodedBitmap {
    std::uint8_t ColourMode = 0;  // 0, 16 or 32; another value is kept as it is
    bool ForcePalette = false;    // palette coded although it declares no colour
    std::vector<PaletteEntry> Palette;  // ColourCount entries; none for true colour
    // Palette coding: an index a pixel. The rows keep their padding up to
    // PaddedRowWidth, so that a record comes back byte for byte; the index
    // equal to the palette's size is a transparent pixel.
    IndexGrid Indices;
    // True colour: a colour a pixel, and in mode 32 an alpha a pixel. In the
    // other modes KeyColour comes first on disk and marks transparent pixels.
    ColourGrid Colours;
    AlphaGrid Alpha;
    std::uint32_t KeyColour = 0;
    DecodeStatus Status = DecodeStatus::Ok;

    bool IsTrueColour() const { return Palette.empty() && !ForcePalette; }
    // The colour the pixel shows; no value for a transparent pixel, or for
    // one the bytes did not hold.
    std::optional<std::uint32_t> PixelColour(Cell cell) const;
    bool operator==(const DecodedBitmap&) const = default;
};

// Both bitmaps of a POI share its size; the night one is there when Flags bit 1 is.
struct DecodedPoi {
    int Width = 0;
    int Height = 0;
    DecodedBitmap Day;
    std::optional<DecodedBitmap> Night;

    DecodeStatus Status() const;
    bool operator==(const DecodedPoi&) const = default;
};

// The parts, for those who build records piece by piece. A mode the format
// does not know is packed as the parser packs it: from 32 up as mode 32,
// below as three bytes a colour, with a key colour for true colour.
std::vector<PaletteEntry> DecodePalette(const Bytes& paletteBytes, int count, int colourMode);
Bytes EncodePalette(const std::vector<PaletteEntry>& palette, int colourMode);
// Rows of PaddedRowWidth(width) indices; bytes missing at the end read as 0.
IndexGrid DecodeIndices(const Bytes& pixelBytes, int width, int height, int bitsPerPixel);
// Each index in `bitsPerPixel` bits, the leftmost pixel lowest in its byte;
// padding the grid does not hold is 0.
Bytes EncodeIndices(const IndexGrid& indices, int width, int height, int bitsPerPixel);
// The pixel bytes of a true colour bitmap, Colours giving the size.
Bytes EncodeTrueColour(const DecodedBitmap& bitmap);

DecodedBitmap DecodeBitmap(const PoiBitmap& bitmap, int width, int height);
PoiBitmap EncodeBitmap(const DecodedBitmap& bitmap, int width, int height);

DecodedPoi DecodePoi(const PoiRecord& record);
// Width, Height, both bitmaps and Flags bit 1; the other flags and the labels
// are left as they are.
void EncodePoi(const DecodedPoi& poi, PoiRecord& record);

}  // namespace mirvane
