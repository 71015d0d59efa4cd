#include "models/colour/colours_dialog_model.h"

#include <algorithm>

#include "colour/palette.h"

namespace mirvane {

namespace {

constexpr int kTwipsParPixel = 15;

RasterColour AjusterPixel(RasterColour pixel, CanalCouleur canal, int valeur) {
    const int shift = 8 * static_cast<int>(canal);  // red in the low byte
    const auto moved = ajuster_canal(static_cast<std::uint8_t>(pixel >> shift), valeur);
    return (pixel & ~(0xFFu << shift)) | (RasterColour{moved} << shift);
}

}  // namespace

ColoursDialogModel::ColoursDialogModel(Raster bitmap) : picture0_(std::move(bitmap)) {}

Raster ColoursDialogModel::Scroll_Change(CanalCouleur canal, int valeur) {
    valeur = std::clamp(valeur, 0, kMaximum);
    valeurs_[static_cast<int>(canal)] = valeur;
    Raster result = picture0_;
    for (int y = 0; y < result.Height(); ++y) {
        RasterColour* row = result.Row(y);
        std::transform(row, row + result.Width(), row,
                       [&](RasterColour pixel) { return AjusterPixel(pixel, canal, valeur); });
    }
    return result;
}

PositionFenetre PositionCouleurs(int editorLeft, int editorTop, int editorWidth) {
    return {editorLeft + editorWidth + 300 / kTwipsParPixel, editorTop + 400 / kTwipsParPixel};
}

}  // namespace mirvane
