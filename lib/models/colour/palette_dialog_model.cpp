#include "models/colour/palette_dialog_model.h"

#include "lang/lookup.h"

namespace mirvane {

namespace {

std::string PaletteText(std::string_view defaultText, std::string_view key) {
    return LookupText("Palette", defaultText, key);
}

}  // namespace

PaletteDialogModel::PaletteDialogModel(Colour current, PaletteCaller caller, PreviewHandler preview)
    : current_(current), chosen_(current), caller_(caller), preview_(std::move(preview)) {
    currentOutside_ = chosenOutside_ = !IsGarminColour(current);
    FrameChosenSquare();
    UpdateNeighbours();
}

std::optional<Colour> PaletteDialogModel::SquareColour(int index) const {
    if (index >= kFirstNeighbourSquare && index <= kCurrentSquare) return Neighbour(index).Fill;
    return PaletteSquareColour(index);
}

bool PaletteDialogModel::ChooseSquare(int index) {
    const auto colour = SquareColour(index);
    if (!colour) return false;
    Choose(*colour);
    return true;
}

void PaletteDialogModel::ChooseFreeColour(Colour c) { Choose(c); }

void PaletteDialogModel::PipetteStart() {
    pipetteRunning_ = true;
    pixelRead_ = false;
}

bool PaletteDialogModel::PipetteMoved(int x, int y) { return pipetteRunning_ && pointer_.Moved(x, y); }

void PaletteDialogModel::PipettePixel(Colour c) {
    if (!pipetteRunning_) return;
    colourUnderPointer_ = c;
    pixelRead_ = true;
    pipetteText_ = ColourText(c);
}

void PaletteDialogModel::PipetteEnd() {
    if (!pipetteRunning_) return;
    pipetteRunning_ = false;
    // Where the screen cannot be read nothing was picked, and nothing is chosen.
    if (pixelRead_) Choose(colourUnderPointer_);
}

void PaletteDialogModel::Accept() {
    closed_ = true;
    accepted_ = true;
}

void PaletteDialogModel::Cancel() {
    chosen_ = current_;
    PreviewChosenColour();
    closed_ = true;
    accepted_ = false;
}

void PaletteDialogModel::Choose(Colour c) {
    chosen_ = c;
    FrameChosenSquare();
    UpdateNeighbours();
    chosenOutside_ = !IsGarminColour(c);
    PreviewChosenColour();
}

void PaletteDialogModel::FrameChosenSquare() {
    borderedSquare_ = PaletteSquareOf(chosen_);
    if (borderedSquare_ != 0) framedSquare_ = borderedSquare_;
}

void PaletteDialogModel::UpdateNeighbours() {
    const NeighbourColours around = NeighbourColoursOf(chosen_);
    for (int i = 0; i < 8; ++i) {
        NeighbourSquare& square = neighbours_[i];
        square.Fill = around.corners[i];
        square.Border = around.nearestCorner == i;
        square.Tip = square.Border
                         ? PaletteText("Couleur Garmin la plus proche", "TipProche") + " : " + ColourText(square.Fill)
                         : ColourText(square.Fill);
    }
    neighbours_[kChosenSquare - kFirstNeighbourSquare] = {
        chosen_, false, PaletteText("Couleur Choisie ", "Tipchoisie") + ColourText(chosen_)};
    neighbours_[kCurrentSquare - kFirstNeighbourSquare] = {current_, false, ColourText(current_)};
}

void PaletteDialogModel::PreviewChosenColour() const {
    if (caller_ == PaletteCaller::PreviewBackground && preview_) preview_(chosen_);
}

RasterRect MagnifierSource(int cursorX, int cursorY, int pictureWidth, int pictureHeight) {
    const int width = pictureWidth / kMagnifierZoom, height = pictureHeight / kMagnifierZoom;
    return {cursorX - width / 2, cursorY - height / 2, width, height};
}

}  // namespace mirvane
