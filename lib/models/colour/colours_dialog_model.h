// frmCouleurs: a small channel mixer over the POI editor's bitmap. Three
// bars (red, green, blue, 0 to 255, neutral at 128) each move one channel of
// a copy taken when the window opens; every move starts again from that copy,
// so moving a second bar undoes what the first did.
#pragma once

#include "graphics/raster.h"

namespace mirvane {

// The bars ScrollRouge, ScrollVert and ScrollBleu.
enum class ColourChannel { Red, Green, Blue };

class ColoursDialogModel {
public:
    static constexpr int kNeutral = 128;
    static constexpr int kMaximum = 255;

    explicit ColoursDialogModel(Raster bitmap);

    // The copy of the bitmap at real size.
    const Raster& Original() const { return original_; }  // Picture0
    int BarValue(ColourChannel channel) const { return values_[static_cast<int>(channel)]; }

    // A bar moved (while dragging and on release): the bitmap to write back
    // into the editor, the moved channel changed on every pixel of the copy.
    Raster MoveBar(ColourChannel channel, int value);  // Scroll*_Change

private:
    Raster original_;
    int values_[3] = {kNeutral, kNeutral, kNeutral};
};

// Where the window opens beside the POI editor: 300 twips to the right of its
// right edge, 400 twips below its top, at 15 twips to the pixel.
struct WindowPosition {
    int X = 0, Y = 0;
    bool operator==(const WindowPosition&) const = default;
};
WindowPosition ColoursWindowPosition(int editorLeft, int editorTop, int editorWidth);

}  // namespace mirvane
