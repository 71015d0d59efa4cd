// frmPalette: the colour choice dialog of every editor and of the preview's
// background button.
#pragma once

#include <QDialog>
#include <cstdint>
#include <functional>
#include <optional>

#include "app/platform/screen_reader.h"
#include "models/colour/palette_dialog_model.h"

class QLabel;
class QPushButton;
class QTimer;

namespace mirvane::app {

class ColourSquare;
class Magnifier;

// Opens the dialog modally on `current` (0x00BBGGRR); `caller` is 1 for the
// preview background, 2 for an editor. The chosen colour on OK, nothing on
// cancel. With caller 1, `preview` gets every choice at once, and the current
// colour again on cancel.
std::optional<std::uint32_t> ChooseGarminColour(QWidget* parent, std::uint32_t current, int caller,
                                                std::function<void(std::uint32_t)> preview = {});

class PaletteDialog : public QDialog {
    Q_OBJECT
public:
    // The platform's dialog for free colours: gives back the colour chosen,
    // or `start` when the user cancelled.
    using FreeColourDialog = std::function<Colour(QWidget* parent, Colour start)>;

    PaletteDialog(Colour current, PaletteCaller caller, PaletteDialogModel::PreviewHandler preview = {},
                  QWidget* parent = nullptr);

    const PaletteDialogModel& Model() const { return model_; }
    // Sets every caption in the current language.
    void RetranslateUi();
    void SetFreeColourDialog(FreeColourDialog dialog) { freeColourDialog_ = std::move(dialog); }
    void SetScreenReader(ScreenReader reader) { screenReader_ = std::move(reader); }

    // One tick of the pipette's timer, at the pointer's place.
    void PipetteTick(const QPoint& pointer);

    void accept() override;
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* BuildGrid();
    QWidget* BuildNeighbours();
    QWidget* BuildPipette();
    // The axis names and "Actuelle" around the cube, placed by their size.
    void PlaceCubeLabels();
    void Refresh();
    void Click(int index);
    void StopPipetteCapture();

    PaletteDialogModel model_;
    FreeColourDialog freeColourDialog_;
    ScreenReader screenReader_;
    std::vector<ColourSquare*> squares_;  // 1..254 and 261..270 by index
    QWidget* frame_ = nullptr;            // Carré2
    QLabel* lblCouleurChoisie_ = nullptr;
    QLabel *label1_ = nullptr, *label2_ = nullptr, *label3_ = nullptr, *label4_ = nullptr, *label5_ = nullptr,
           *label6_ = nullptr, *label7_ = nullptr, *label8_ = nullptr, *label9_ = nullptr, *label10_ = nullptr,
           *label16_ = nullptr;
    QPushButton *cmdAutres_ = nullptr, *cmdOK_ = nullptr, *cmdAnnuler_ = nullptr;
    QLabel* picPicker_ = nullptr;
    Magnifier* picture3_ = nullptr;
    QTimer* timer1_ = nullptr;
};

// The dialog for free colours of the platform, with its custom colours kept
// while the program runs.
Colour PlatformColourDialog(QWidget* parent, Colour start);

}  // namespace mirvane::app
