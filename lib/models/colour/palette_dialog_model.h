// frmPalette: the colour choice dialog every editor opens to pick one colour.
// The caller gives the colour it is editing and says who it is; the dialog
// leaves the chosen colour. Squares 1 to 254 are the Garmin palette, 261 to
// 268 the eight Garmin colours around the chosen colour, 269 the chosen
// colour and 270 the current one.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "colour/palette.h"
#include "graphics/raster.h"

namespace mirvane {

// Who opened the dialog (AppelantPalette).
enum class PaletteCaller : std::int16_t {
    PreviewBackground = 1,  // the main window's background colour button
    Editor = 2,             // the POI, polyline and polygon editors
};

inline constexpr int kPremierVoisin = 261;  // squares 261..268: the corners
inline constexpr int kCarreChoisi = 269;
inline constexpr int kCarreActuel = 270;

// The pipette button's colours: green while it runs, #FACA25 at rest.
inline constexpr Colour kPipetteEnCours = 0x00FF00;
inline constexpr Colour kPipetteAuRepos = 0x25CAFA;

// Tells whether the pointer moved since the last look: the timers of the
// pipette and of the colour identifier read the screen only then.
class SuiviCurseur {
public:
    bool Bouge(int x, int y);

private:
    std::optional<std::pair<int, int>> dernier_;
};

// One of squares 261 to 270.
struct CarreVoisin {
    Colour Couleur = 0;
    bool Bordure = false;
    std::string Tip;
};

class PaletteDialogModel {
public:
    // Applies a colour to the preview panes and redraws the object on display
    // (the main window's `principal` work); called only for PreviewBackground.
    using PreviewHandler = std::function<void(Colour)>;

    // Form_Load: the current colour is also the first chosen one.
    PaletteDialogModel(Colour couleurActuelle, PaletteCaller appelant, PreviewHandler preview = {});

    Colour CouleurActuelle() const { return couleurActuelle_; }
    Colour CouleurChoisie() const { return couleurChoisie_; }
    PaletteCaller AppelantPalette() const { return appelant_; }

    // Where the frame Carré2 stands (0 before any palette colour was chosen);
    // it stays put when the chosen colour is not in the palette.
    int CarreEncadre() const { return carreEncadre_; }
    // The square drawn with a border: the framed one, 0 when the chosen
    // colour is not in the palette.
    int CarreAvecBordure() const { return carreAvecBordure_; }

    // Colour of square 1..254 or 261..270; none for other indices.
    std::optional<Colour> CouleurDuCarre(int index) const;
    // Squares 261 to 270, in order.
    const std::array<CarreVoisin, 10>& Voisins() const { return voisins_; }
    const CarreVoisin& Voisin(int index) const { return voisins_[index - kPremierVoisin]; }

    // "#RRGGBB" of the chosen colour, shown on lblCouleurChoisie.
    std::string lblCouleurChoisie_Caption() const { return texte_couleur(couleurChoisie_); }
    // "La couleur actuelle / choisie ne fait pas partie de la palette Garmin".
    bool Label3Visible() const { return label3Visible_; }
    bool Label9Visible() const { return label9Visible_; }

    // A click on a square 1..254 or 261..270 chooses its colour; false for
    // any other index.
    bool Carre_Click(int index);
    // The colour the platform dialog gave back (its start value when the user
    // cancelled it).
    void cmdAutres_Result(Colour c);
    // The colour to open the platform dialog with.
    Colour cmdAutres_Start() const { return couleurChoisie_; }

    // The screen pipette. Start on the press; on each tick, when the pointer
    // moved (PipetteMoved), the app reads the pixel there (PipettePixel); the
    // release ends it and chooses the last pixel read in this run.
    void PipetteStart();
    bool PipetteMoved(int x, int y);
    void PipettePixel(Colour c);
    void PipetteEnd();
    bool PrelevementEnCours() const { return prelevementEnCours_; }
    Colour CouleurSousCurseur() const { return couleurSousCurseur_; }
    // "#RRGGBB" of the pixel under the pointer, empty before the first read.
    const std::string& Label10_Caption() const { return label10_; }
    Colour picPicker_BackColor() const { return prelevementEnCours_ ? kPipetteEnCours : kPipetteAuRepos; }
    bool Picture3Visible() const { return prelevementEnCours_; }

    // cmdOK leaves the chosen colour; cmdAnnuler sets it back to the current
    // colour (and puts it back on the previews). Both close the dialog.
    void cmdOK_Click();
    void cmdAnnuler_Click();
    bool Closed() const { return closed_; }
    bool Accepted() const { return accepted_; }

private:
    void Choisir(Colour c);
    void encadrer();
    void couleurs_voisines();
    void principal() const;

    Colour couleurActuelle_;
    Colour couleurChoisie_;
    PaletteCaller appelant_;
    PreviewHandler preview_;
    int carreEncadre_ = 0;
    int carreAvecBordure_ = 0;
    std::array<CarreVoisin, 10> voisins_{};
    bool label3Visible_ = false;
    bool label9Visible_ = false;

    bool prelevementEnCours_ = false;
    bool pixelLu_ = false;
    Colour couleurSousCurseur_ = 0;
    SuiviCurseur curseur_;
    std::string label10_;

    bool closed_ = false;
    bool accepted_ = false;
};

// The part of the screen the magnifier shows: a fifth of the picture's size,
// centred on the pointer, enlarged five times into the picture.
inline constexpr int kLoupeZoom = 5;
RasterRect LoupeSource(int cursorX, int cursorY, int pictureWidth, int pictureHeight);

}  // namespace mirvane
