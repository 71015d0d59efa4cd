// frmCouleurs: a small channel mixer over the POI editor's bitmap. Three
// bars (red, green, blue, 0 to 255, neutral at 128) each move one channel of
// a copy taken when the window opens; every move starts again from that copy,
// so moving a second bar undoes what the first did.
#pragma once

#include "graphics/raster.h"

namespace mirvane {

enum class CanalCouleur { Rouge, Vert, Bleu };

class ColoursDialogModel {
public:
    static constexpr int kNeutre = 128;
    static constexpr int kMaximum = 255;

    // Picture0: the copy of the bitmap at real size.
    explicit ColoursDialogModel(Raster bitmap);

    const Raster& Picture0() const { return picture0_; }
    int Valeur(CanalCouleur canal) const { return valeurs_[static_cast<int>(canal)]; }

    // A bar moved (while dragging and on release): the bitmap to write back
    // into the editor, the moved channel changed on every pixel of the copy.
    Raster Scroll_Change(CanalCouleur canal, int valeur);

private:
    Raster picture0_;
    int valeurs_[3] = {kNeutre, kNeutre, kNeutre};
};

// Where the window opens beside the POI editor: 300 twips to the right of its
// right edge, 400 twips below its top, at 15 twips to the pixel.
struct PositionFenetre {
    int X = 0, Y = 0;
    bool operator==(const PositionFenetre&) const = default;
};
PositionFenetre PositionCouleurs(int editorLeft, int editorTop, int editorWidth);

}  // namespace mirvane
