// The Garmin palette of the eTrex and GPSMAP 60 series and colour arithmetic:
// nearest Garmin colour, distances, thinning of colour lists, conversions,
// and the pure logic behind the colour dialog (its 254 squares, the eight
// neighbours of a colour, the framed square).
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
inline constexpr std::array<std::uint8_t, 5> GarminRouge{0, 57, 123, 189, 255};
inline constexpr std::array<std::uint8_t, 6> GarminVert{0, 48, 101, 149, 202, 255};
inline constexpr std::array<std::uint8_t, 8> GarminBleu{0, 32, 65, 106, 139, 180, 213, 255};
inline constexpr std::array<std::uint8_t, 16> GarminGris{0,   16,  32,  49,  65,  82,  98,  115,
                                                         131, 148, 164, 180, 197, 213, 230, 255};

struct Rvb {
    std::uint8_t r = 0, g = 0, b = 0;
    bool operator==(const Rvb&) const = default;
};

Colour composer_couleur(std::uint8_t r, std::uint8_t g, std::uint8_t b);
// Only the low 24 bits are read.
Rvb decomposer_couleur(Colour c);

// Nearest Garmin colour: nearest level per channel (a tie keeps the lower
// level), then a grey that is strictly nearer in plain squared distance wins.
Colour couleur_garmin(Colour c);
// True when couleur_garmin leaves the colour as it is.
bool est_couleur_garmin(Colour c);

// City-block distance |dr| + |dg| + |db|, 0 to 765.
std::int16_t distance_couleurs(Colour a, Colour b);

// Index of the entry nearest to c by distance_couleurs, the first of equals;
// -1 for an empty list.
std::int16_t indice_couleur_proche(Colour c, std::span<const Colour> list);

// Lower index of the closest pair, searching only entries 0 to size - 2: the
// last entry is never compared, so thinning never removes it. 0 when nothing
// is closer than 765.
std::int16_t paire_proche(std::span<const Colour> list);

// Removes the first member of the closest pair until `target` entries remain
// (none when target is below 1); order is kept.
void reduire_liste_couleurs(std::vector<Colour>& list, std::int16_t target);

// Per channel, the index of the lower of the two adjacent levels that enclose
// it: ri 0..3, gi 0..4, bi 0..6. A channel on level k >= 1 gives k - 1.
struct IndicesVoisins {
    std::int16_t ri = 0, gi = 0, bi = 0;
    bool operator==(const IndicesVoisins&) const = default;
};
IndicesVoisins indices_voisins(Colour c);

// Gives the colour of a system colour index (the GUI owns system colours).
using SystemColourLookup = std::function<Colour(int index)>;
// c itself when c >= 0, else the system colour of index c without its high bit
// (0 when no lookup is given).
Colour couleur_ole(Colour c, const SystemColourLookup& systemColour);

// The number whose hexadecimal writing is RRGGBB; 0 for a system colour.
std::int32_t inverser_rvb(Colour c);
// "#RRGGBB", upper case; a system colour reference prints as "#000000".
std::string texte_couleur(Colour c);

// Hue in sixths of a circle (-1 to 5 as computed), saturation and lightness 0 to 1.
struct Tsl {
    float h = 0, s = 0, l = 0;
};
Tsl rvb_vers_tsl(std::uint8_t r, std::uint8_t g, std::uint8_t b);
Rvb tsl_vers_rvb(float h, float s, float l);

// ---- The colour dialog ----

// Squares 1 to 240 are the cube, blue fastest, then green, then red
// (index = ri * 48 + gi * 8 + bi + 1); 241 to 254 the greys 16 to 230.
inline constexpr int kNombreCarres = 254;
inline constexpr int kColonnesCarres = 16;

// Colour of square 1..254; no value for any other index.
std::optional<Colour> couleur_carre(int index);

// The square that `encadrer` frames: the first of 1..254 with this colour, 0 for none.
int carre_a_encadrer(Colour c);

// Row and column of a square in the dialog's grid of 16 columns.
struct PositionCarre {
    int colonne = 0, ligne = 0;
    bool operator==(const PositionCarre&) const = default;
};
PositionCarre position_carre(int index);

// The eight Garmin colours at the corners of the cube cell enclosing a colour,
// in the order of the dialog's squares 261 to 268; `coinGarmin` is the corner
// equal to couleur_garmin of the colour (0..7), none when a grey wins off the corners.
struct CouleursVoisines {
    std::array<Colour, 8> coins{};
    std::optional<int> coinGarmin;
};
CouleursVoisines couleurs_voisines(Colour choisie);

// ---- The channel mixer of the POI bitmap ----

// A channel moved by a scroll bar value v (0..255, 128 neutral): towards 255
// above 128, towards 0 below.
std::uint8_t ajuster_canal(std::uint8_t canal, int v);

}  // namespace mirvane
