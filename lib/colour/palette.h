// The Garmin palette of the eTrex and GPSMAP 60 series and colour arithmetic:
// nearest Garmin colour, distances, thinning of colour lists, conversions,
// and the pure logic behind the colour dialog (its 254 squares, the eight
// neighbours of a colour, the framed square). The documented routine of each
// function is named in its comment.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace mirvane {

// 0x00BBGGRR: red in the low byte. A negative value is a system colour
// reference (high bit set, system colour index in the low bits).
using Colour = std::int32_t;

// Levels of the palette cube per channel, and the grey ramp. Greys 0 and 255
// are the cube's black and white; the ramp keeps all 16 rows because the
// nearest colour search walks it whole.
inline constexpr std::array<std::uint8_t, 5> kGarminRedLevels{0, 57, 123, 189, 255};           // GarminRouge
inline constexpr std::array<std::uint8_t, 6> kGarminGreenLevels{0, 48, 101, 149, 202, 255};    // GarminVert
inline constexpr std::array<std::uint8_t, 8> kGarminBlueLevels{0, 32, 65, 106, 139, 180, 213, 255};  // GarminBleu
inline constexpr std::array<std::uint8_t, 16> kGarminGreyLevels{0,   16,  32,  49,  65,  82,  98,  115,
                                                                131, 148, 164, 180, 197, 213, 230, 255};  // GarminGris

struct RgbChannels {
    std::uint8_t r = 0, g = 0, b = 0;
    bool operator==(const RgbChannels&) const = default;
};

Colour MakeColour(std::uint8_t r, std::uint8_t g, std::uint8_t b);
// Only the low 24 bits are read.
RgbChannels SplitColour(Colour c);  // decomposer_couleur

// Nearest Garmin colour: nearest level per channel (a tie keeps the lower
// level), then a grey that is strictly nearer in plain squared distance wins.
Colour NearestGarminColour(Colour c);  // couleur_garmin
// True when NearestGarminColour leaves the colour as it is.
bool IsGarminColour(Colour c);

// City-block distance |dr| + |dg| + |db|, 0 to 765.
std::int16_t ColourDistance(Colour a, Colour b);  // distance_couleurs

// Index of the entry nearest to c by ColourDistance, the first of equals;
// -1 for an empty list.
std::int16_t NearestColourIndex(Colour c, std::span<const Colour> list);  // indice_couleur_proche

// Lower index of the closest pair, searching only entries 0 to size - 2: the
// last entry is never compared, so thinning never removes it. 0 when nothing
// is closer than 765.
std::int16_t ClosestPairIndex(std::span<const Colour> list);  // paire_proche

// Removes the first member of the closest pair until `target` entries remain
// (none when target is below 1); order is kept.
void ThinColourList(std::vector<Colour>& list, std::int16_t target);  // reduire_liste_couleurs

// Per channel, the index of the lower of the two adjacent levels that enclose
// it: ri 0..3, gi 0..4, bi 0..6. A channel on level k >= 1 gives k - 1.
struct LevelIndices {
    std::int16_t ri = 0, gi = 0, bi = 0;
    bool operator==(const LevelIndices&) const = default;
};
LevelIndices EnclosingLevels(Colour c);  // indices_voisins

// Gives the colour of a system colour index (the GUI owns system colours).
using SystemColourLookup = std::function<Colour(int index)>;
// c itself when c >= 0, else the system colour of index c without its high bit
// (0 when no lookup is given).
Colour PlainColour(Colour c, const SystemColourLookup& systemColour);  // couleur_ole

// The number whose hexadecimal writing is RRGGBB; 0 for a system colour.
std::int32_t RgbNumber(Colour c);  // inverser_rvb
// "#RRGGBB", upper case; a system colour reference prints as "#000000".
std::string ColourText(Colour c);

// Hue in sixths of a circle (-1 to 5 as computed), saturation and lightness 0 to 1.
struct Hsl {
    float h = 0, s = 0, l = 0;
};
Hsl RgbToHsl(std::uint8_t r, std::uint8_t g, std::uint8_t b);  // rvb_vers_tsl
RgbChannels HslToRgb(float h, float s, float l);             // tsl_vers_rvb

// ---- The colour dialog ----

// Squares 1 to 240 are the cube, blue fastest, then green, then red
// (index = ri * 48 + gi * 8 + bi + 1); 241 to 254 the greys 16 to 230.
inline constexpr int kPaletteSquareCount = 254;
inline constexpr int kPaletteColumns = 16;

// Colour of square 1..254; no value for any other index.
std::optional<Colour> PaletteSquareColour(int index);

// The square the dialog frames for a colour (encadrer): the first of 1..254
// with this colour, 0 for none.
int PaletteSquareOf(Colour c);

// Column and row of a square in the dialog's grid of 16 columns.
struct GridPosition {
    int column = 0, row = 0;
    bool operator==(const GridPosition&) const = default;
};
GridPosition PaletteSquarePosition(int index);

// The eight Garmin colours at the corners of the cube cell enclosing a colour,
// in the order of the dialog's squares 261 to 268; `nearestCorner` is the
// corner equal to NearestGarminColour of the colour (0..7), none when a grey
// wins off the corners.
struct NeighbourColours {
    std::array<Colour, 8> corners{};
    std::optional<int> nearestCorner;
};
NeighbourColours NeighbourColoursOf(Colour chosen);  // couleurs_voisines

// ---- The channel mixer of the POI bitmap ----

// A channel moved by a scroll bar value v (0..255, 128 neutral): towards 255
// above 128, towards 0 below.
std::uint8_t MixChannel(std::uint8_t channel, int v);

}  // namespace mirvane
