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

#include "colour/palette.h"
#include "graphics/raster.h"
#include "models/colour/pointer_tracker.h"

namespace mirvane {

// Who opened the dialog (AppelantPalette).
enum class PaletteCaller : std::int16_t {
    PreviewBackground = 1,  // the main window's background colour button
    Editor = 2,             // the POI, polyline and polygon editors
};

inline constexpr int kFirstNeighbourSquare = 261;  // squares 261..268: the corners
inline constexpr int kChosenSquare = 269;
inline constexpr int kCurrentSquare = 270;

// The pipette button's colours: green while it runs, #FACA25 at rest.
inline constexpr Colour kPipetteRunningColour = 0x00FF00;
inline constexpr Colour kPipetteIdleColour = 0x25CAFA;

// One of squares 261 to 270.
struct NeighbourSquare {
    Colour Fill = 0;
    bool Border = false;
    std::string Tip;
};

class PaletteDialogModel {
public:
    // Applies a colour to the preview panes and redraws the object on display;
    // called only for PreviewBackground.
    using PreviewHandler = std::function<void(Colour)>;

    // Form_Load: the current colour is also the first chosen one.
    PaletteDialogModel(Colour current, PaletteCaller caller, PreviewHandler preview = {});

    Colour CurrentColour() const { return current_; }  // CouleurActuelle
    Colour ChosenColour() const { return chosen_; }    // CouleurChoisie
    PaletteCaller Caller() const { return caller_; }   // AppelantPalette

    // Where the frame Carré2 stands (CarreEncadre: 0 before any palette colour
    // was chosen); it stays put when the chosen colour is not in the palette.
    int FramedSquare() const { return framedSquare_; }
    // The square drawn with a border: the framed one, 0 when the chosen
    // colour is not in the palette.
    int BorderedSquare() const { return borderedSquare_; }

    // Colour of square 1..254 or 261..270; none for other indices.
    std::optional<Colour> SquareColour(int index) const;
    // One of squares 261 to 270.
    const NeighbourSquare& Neighbour(int index) const { return neighbours_[index - kFirstNeighbourSquare]; }

    // "#RRGGBB" of the chosen colour.
    std::string ChosenColourText() const { return ColourText(chosen_); }  // lblCouleurChoisie
    // "La couleur actuelle / choisie ne fait pas partie de la palette Garmin".
    bool CurrentColourOutsidePalette() const { return currentOutside_; }  // Label3
    bool ChosenColourOutsidePalette() const { return chosenOutside_; }    // Label9

    // A click on a square 1..254 or 261..270 chooses its colour; false for
    // any other index.
    bool ChooseSquare(int index);  // Carré(index)
    // The colour the platform dialog gave back, opened on ChosenColour() (its
    // start value when the user cancelled it).
    void ChooseFreeColour(Colour c);  // cmdAutres

    // The screen pipette (picPicker). Start on the press; on each tick, when
    // the pointer moved (PipetteMoved), the app reads the pixel there
    // (PipettePixel); the release ends it and chooses the last pixel read in
    // this run.
    void PipetteStart();
    bool PipetteMoved(int x, int y);
    void PipettePixel(Colour c);
    void PipetteEnd();
    // While it runs the magnifier Picture3 shows.
    bool PipetteRunning() const { return pipetteRunning_; }            // PrelevementEnCours
    Colour ColourUnderPointer() const { return colourUnderPointer_; }  // CouleurSousCurseur
    // "#RRGGBB" of the pixel under the pointer, empty before the first read.
    const std::string& PipetteColourText() const { return pipetteText_; }  // Label10
    Colour PipetteButtonColour() const {                                   // picPicker
        return pipetteRunning_ ? kPipetteRunningColour : kPipetteIdleColour;
    }

    // Accept leaves the chosen colour; Cancel sets it back to the current
    // colour (and puts it back on the previews). Both close the dialog.
    void Accept();  // cmdOK
    void Cancel();  // cmdAnnuler
    bool Closed() const { return closed_; }
    bool Accepted() const { return accepted_; }

private:
    void Choose(Colour c);
    void FrameChosenSquare();          // encadrer
    void UpdateNeighbours();           // couleurs_voisines
    void PreviewChosenColour() const;  // principal

    Colour current_;
    Colour chosen_;
    PaletteCaller caller_;
    PreviewHandler preview_;
    int framedSquare_ = 0;
    int borderedSquare_ = 0;
    std::array<NeighbourSquare, 10> neighbours_{};
    bool currentOutside_ = false;
    bool chosenOutside_ = false;

    bool pipetteRunning_ = false;
    bool pixelRead_ = false;
    Colour colourUnderPointer_ = 0;
    PointerTracker pointer_;
    std::string pipetteText_;

    bool closed_ = false;
    bool accepted_ = false;
};

// The part of the screen the magnifier shows: a fifth of the picture's size,
// centred on the pointer, enlarged five times into the picture.
inline constexpr int kMagnifierZoom = 5;
RasterRect MagnifierSource(int cursorX, int cursorY, int pictureWidth, int pictureHeight);

}  // namespace mirvane
