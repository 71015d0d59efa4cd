// frmCouleurs: the channel mixer over the POI editor's bitmap.
#pragma once

#include <QWidget>
#include <functional>

#include "models/colour/colours_dialog_model.h"

class QLabel;
class QScrollBar;

namespace mirvane::app {

class ColoursDialog : public QWidget {
    Q_OBJECT
public:
    // `write` puts the mixed bitmap back into the editor and repaints it.
    using BitmapWriter = std::function<void(const Raster&)>;

    // Opens beside `editor` when one is given.
    ColoursDialog(const Raster& bitmap, BitmapWriter write, QWidget* editor = nullptr);

    const ColoursDialogModel& Model() const { return model_; }

    // Sets every caption in the current language.
    void RetranslateUi();

private:
    QScrollBar* MakeBar(const char* name, ColourChannel channel);

    ColoursDialogModel model_;
    BitmapWriter write_;
    QLabel *lblRouge_, *lblVert_, *lblBleu_, *lblFermer_;
};

}  // namespace mirvane::app
