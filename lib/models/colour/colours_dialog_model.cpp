#include "models/colour/colours_dialog_model.h"

#include <algorithm>

#include "colour/palette.h"

namespace mirvane {

namespace {

constexpr int kTwipsPerPixel = 15;

RasterColour MixPixel(RasterColour pixel, ColourChannel channel, int value) {
    const int shift = 8 * static_cast<int>(channel);  // red in the low byte
    const auto moved = MixChannel(static_cast<std::uint8_t>(pixel >> shift), value);
    return (pixel & ~(0xFFu << shift)) | (RasterColour{moved} << shift);
}

}  // namespace

ColoursDialogModel::ColoursDialogModel(Raster bitmap) : original_(std::move(bitmap)) {}

Raster ColoursDialogModel::MoveBar(ColourChannel channel, int value) {
    value = std::clamp(value, 0, kMaximum);
    values_[static_cast<int>(channel)] = value;
    Raster result = original_;
    for (int y = 0; y < result.Height(); ++y) {
        RasterColour* row = result.Row(y);
        std::transform(row, row + result.Width(), row,
                       [&](RasterColour pixel) { return MixPixel(pixel, channel, value); });
    }
    return result;
}

WindowPosition ColoursWindowPosition(int editorLeft, int editorTop, int editorWidth) {
    return {editorLeft + editorWidth + 300 / kTwipsPerPixel, editorTop + 400 / kTwipsPerPixel};
}

}  // namespace mirvane
