// Pictures brought into a POI bitmap. A decoded picture (a file, the system
// clipboard) is scaled to the bitmap's size, its colours are counted, and when
// a palette cannot hold them they are replaced by their nearest Garmin
// colours; the result goes to the POI editor as an ImportedBitmap. Alpha is
// kept: transparent pixels stay transparent, and partial alpha takes the
// colour mode that stores it.
#pragma once

#include <cstdint>
#include <vector>

#include "colour/palette.h"
#include "graphics/pixel_grid.h"

namespace mirvane {

// A decoded picture: one word 0xAARRGGBB a pixel (alpha 255 opaque, 0 fully
// transparent, colour not premultiplied), row-major, (0, 0) at the top left.
// The words of a 32-bit ARGB image as GUI toolkits hold them.
struct RgbaPicture {
    int Width = 0;
    int Height = 0;
    std::vector<std::uint32_t> Pixels;

    RgbaPicture() = default;
    // Negative sizes give an empty picture.
    RgbaPicture(int width, int height, std::uint32_t fill = 0);

    bool Empty() const { return Width <= 0 || Height <= 0; }
    // Both expect (x, y) inside the picture.
    std::uint32_t Pixel(int x, int y) const { return Pixels[static_cast<std::size_t>(y) * Width + x]; }
    void SetPixel(int x, int y, std::uint32_t argb) { Pixels[static_cast<std::size_t>(y) * Width + x] = argb; }

    bool operator==(const RgbaPicture&) const = default;
};

inline constexpr int kMaxBitmapSide = 64;         // a POI bitmap is at most 64 x 64
inline constexpr int kMaxPaletteColours = 254;    // entries a POI palette can hold
inline constexpr std::uint8_t kTransparentIndex = 255;  // a pixel with no palette entry

// Colour modes as the POI record stores them; the editor's cbbColorMode shows
// them as "10" and "20", its list index being the mode / 16.
inline constexpr std::uint8_t kModeTransparentColour = 16;  // a pixel is opaque or transparent
inline constexpr std::uint8_t kModeAlpha = 32;              // an alpha of 0 to 15 per entry or pixel

// Alpha of the POI bitmaps: 0 opaque to 15 transparent.
inline constexpr std::uint8_t kOpaque = 0;
inline constexpr std::uint8_t kFullyTransparent = 15;

inline std::uint8_t AlphaByte(std::uint32_t argb) { return static_cast<std::uint8_t>(argb >> 24); }
// The colour of a picture word as the documents hold colours (0x00BBGGRR).
Colour ColourOfArgb(std::uint32_t argb);
// A picture word of a colour (0x00BBGGRR) and a 0..255 alpha.
std::uint32_t ArgbOf(Colour colour, std::uint8_t alphaByte = 0xFF);
// A picture's 0..255 alpha on the bitmaps' scale of 16 steps, rounded, and back.
std::uint8_t GarminAlpha(std::uint8_t alphaByte);
std::uint8_t AlphaByteOf(std::uint8_t garminAlpha);

struct PictureSize {
    int Width = 0;
    int Height = 0;
    bool operator==(const PictureSize&) const = default;
};

// A picture's size brought within a square of `side`: unchanged when both
// sides fit; else the long side becomes `side` and the other keeps the ratio,
// cut to a whole number, so a very long picture can get a side of 0.
PictureSize FitWithin(int width, int height, int side);

// `picture` resampled to width x height: each new pixel is the mean of the
// source area it covers, weighted by how much of each source pixel it covers
// and, for the colour, by alpha, so that transparent pixels lend no colour to
// their neighbours. The same size is an exact copy, and an enlargement by a
// whole factor repeats each pixel. A size below 1 gives an empty picture; an
// empty source gives a transparent one.
RgbaPicture ScalePicture(const RgbaPicture& picture, int width, int height);

// One entry of an imported palette.
struct ImportedColour {
    Colour Rgb = 0;                 // 0x00BBGGRR
    std::uint8_t Alpha = kOpaque;   // 0 to 15; other than 0 only in kModeAlpha
    auto operator<=>(const ImportedColour&) const = default;
};

// What an import hands to the POI editor (frmPOI): the bitmap at its new size,
// with what the editor's combos take (cbbLargeur, cbbHauteur,
// cbbNombreCouleurs = Palette.size(), cbbColorMode = ColourMode / 16), its
// palette entries (lblpalette, and AlphaPalette in mode 32) and its pixels
// (Picture1, Pixels, AlphaPixels).
//
// - Without partial alpha: mode 16, a palette of the distinct colours of the
//   visible pixels in ascending order of their 0x00BBGGRR value, and
//   kTransparentIndex for each transparent pixel. A picture with no visible
//   pixel gets the palette {black}; one with a single colour gets {black,
//   colour}: the colour list starts from a black entry, which goes only when
//   a second colour comes.
// - With partial alpha (a pixel neither opaque nor fully transparent on the
//   0..15 scale): mode 32, a palette of the distinct (colour, alpha) pairs in
//   ascending order; fully transparent pixels share the entry (black, 15),
//   as the editor makes one when it turns a mode 16 bitmap into mode 32.
// - More entries than kMaxPaletteColours: true colour, an empty palette.
//   Indices are 0 for every pixel, except kTransparentIndex for transparent
//   pixels in mode 16, where KeyColour is a colour no visible pixel has.
//
// Colours and Alpha always hold every pixel: its colour (0 for a transparent
// pixel in mode 16, black in mode 32) and its alpha (0 or 15 in mode 16).
struct ImportedBitmap {
    int Width = 0;
    int Height = 0;
    std::uint8_t ColourMode = kModeTransparentColour;
    std::vector<ImportedColour> Palette;
    IndexGrid Indices;
    ColourGrid Colours;
    AlphaGrid Alpha;
    Colour KeyColour = 0;
    bool GarminColours = false;  // every colour was replaced by its nearest Garmin colour

    int ColourCount() const { return static_cast<int>(Palette.size()); }
    int ColourModeIndex() const { return ColourMode / 16; }
    bool IsTrueColour() const { return Palette.empty(); }
    bool IsTransparent(Cell cell) const { return Alpha.At(cell) == kFullyTransparent; }

    bool operator==(const ImportedBitmap&) const = default;
};

// How many palette entries `picture` needs as it stands (the black entry in
// front of a single colour not counted): above kMaxPaletteColours the import
// must replace colours to keep a palette.
int CountImportColours(const RgbaPicture& picture);

enum class ImportColours { AsTheyAre, NearestGarmin };

// The picture, already at the bitmap's size (1 to 64 a side), as the editor
// takes it.
ImportedBitmap ImportBitmap(const RgbaPicture& picture, ImportColours colours);

// The bitmap as a picture again: each pixel's colour with its alpha.
RgbaPicture PictureOf(const ImportedBitmap& bitmap);

}  // namespace mirvane
