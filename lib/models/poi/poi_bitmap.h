// The POI editor's working copy of one bitmap: its size and the decoded
// pixels, palette and alpha, kept as the codec decodes them so that a bitmap
// nobody touched encodes back to the bytes it came from. The operations keep
// the palette indices padded to the row width their bits per pixel give.
#pragma once

#include <cstdint>
#include <optional>

#include "colour/bitmap_import.h"
#include "document/bitmap_codec.h"
#include "graphics/transforms.h"

namespace mirvane {

inline constexpr int kMaxPoiSide = 64;

// What the pen draws: a palette entry, a colour (with its alpha in mode 32),
// or a transparent pixel.
struct PoiPaint {
    bool Transparent = false;
    std::uint8_t Index = 0;       // with a palette
    std::uint32_t Colour = 0xFFFFFF;  // without a palette, 0x00BBGGRR
    std::uint8_t Alpha = kOpaqueAlpha;
    bool operator==(const PoiPaint&) const = default;
};

struct WorkingBitmap {
    int Width = 0;
    int Height = 0;
    DecodedBitmap Bitmap;
    // Per palette entry: no colour chosen yet (the entries a removal leaves
    // behind). Empty when every entry has its colour.
    std::vector<bool> Unfilled;

    static WorkingBitmap FromRecord(const PoiBitmap& bitmap, int width, int height);
    // A blank bitmap of one white palette entry in mode 16, every pixel white.
    static WorkingBitmap Blank(int width, int height);
    PoiBitmap ToRecord() const { return EncodeBitmap(Bitmap, Width, Height); }

    bool HasPalette() const { return !Bitmap.IsTrueColour(); }
    int ColourCount() const { return static_cast<int>(Bitmap.Palette.size()); }
    // The palette index that marks a transparent pixel in modes 0 and 16.
    std::uint8_t TransparentIndex() const { return static_cast<std::uint8_t>(ColourCount()); }
    bool Contains(Cell cell) const { return cell.x >= 0 && cell.y >= 0 && cell.x < Width && cell.y < Height; }
    // The colour shown, none for a transparent pixel.
    std::optional<std::uint32_t> ShownColour(Cell cell) const { return Bitmap.PixelColour(cell); }
    bool HasTransparentPixel() const;
    bool EntryFilled(int index) const;
    // No unfilled entry below the colour count.
    bool PaletteComplete() const;

    // True when the pixel changed.
    bool Paint(Cell cell, const PoiPaint& paint);
    // The paint that draws the pixel as it is.
    PoiPaint PaintAt(Cell cell) const;
    bool operator==(const WorkingBitmap&) const = default;
};

// Whole-bitmap commands; each keeps transparency and alpha where they are.
void FillAll(WorkingBitmap& bitmap, const PoiPaint& paint);
void InvertColours(WorkingBitmap& bitmap);
void Turn90(WorkingBitmap& bitmap, Turn turn);
void Mirror(WorkingBitmap& bitmap, bool horizontal);
void ShiftByOne(WorkingBitmap& bitmap, int dx, int dy);

// Width and height 1 to 64; pixels outside the old size come in transparent
// (white in colour mode 0, which has no transparency).
void ResizeBitmap(WorkingBitmap& bitmap, int width, int height);

// An imported picture as the editor holds it: its size, mode, palette with
// alpha, and pixels.
WorkingBitmap BitmapOfImport(const ImportedBitmap& imported);
// The bitmap as a picture with its transparency, for a picture file.
RgbaPicture PictureOfBitmap(const WorkingBitmap& bitmap);

// A key colour that no visible pixel of a true colour bitmap shows.
std::uint32_t UnusedKeyColour(const WorkingBitmap& bitmap);
// Indices padded again for the bits per pixel of the present count and mode;
// transparent pixels keep pointing one past the palette.
void RepadIndices(WorkingBitmap& bitmap, int oldTransparentIndex);

}  // namespace mirvane
