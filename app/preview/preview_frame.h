// fraApercu: the day and night previews of the picked object, the three ways
// of composing them, the zoom, the background colour and the custom label
// colours, bound to ObjectPreviewModel.
#pragma once

#include <QGroupBox>
#include <functional>
#include <optional>

#include "document/document.h"
#include "models/preview/preview_model.h"

class QLabel;
class QPushButton;
class QRadioButton;
class QSlider;

namespace mirvane::app {

class RasterPicture;

class PreviewFrame : public QGroupBox {
    Q_OBJECT
public:
    // cmdCouleurfond: the colour chosen from `current`, none when cancelled.
    using ColourChooser = std::function<std::optional<RasterColour>(RasterColour current)>;

    explicit PreviewFrame(QWidget* parent = nullptr);

    void SetColourChooser(ColourChooser chooser) { chooseColour_ = std::move(chooser); }
    // An object was picked in its list (scope 1 polygon, 2 polyline, 3 POI).
    void ShowObject(Document& doc, ObjectRef object);
    // The document was closed or replaced: nothing is picked any more.
    void Reset();
    // cmdvoirtxt: the whole text is shown, the label colours go.
    void HideLabelColours();
    void RetranslateUi();

    const ObjectPreviewModel& Model() const { return model_; }
    RasterColour Background() const { return model_.Background(); }

signals:
    void VisualisationClicked();  // cmdVisualisation
    void BackgroundChanged();

private:
    QWidget* BuildControls();
    void ChooseBackground();
    void Redraw();
    void ShowLabelColour(QLabel* label, const std::optional<std::uint32_t>& colour);

    ObjectPreviewModel model_;
    ColourChooser chooseColour_;
    RasterPicture* apercus_[2];
    QLabel *lblJour_, *lblNuit_, *Label4_, *Label5_, *lblZoom_;
    QRadioButton *optSeul_, *optMosaique_, *optSuperposition_;
    QSlider* sldZoom_;
    QPushButton *cmdCouleurfond_, *cmdVisualisation_;
};

// The colour dialog behind cmdCouleurfond until the Garmin palette takes its place.
std::optional<RasterColour> ChooseColourWithDialog(RasterColour current, QWidget* parent);

}  // namespace mirvane::app
