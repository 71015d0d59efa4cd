#include "app/preview/preview_frame.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

#include "app/colour/palette_dialog.h"
#include "models/colour/palette_dialog_model.h"
#include "models/preview/preview_pane.h"
#include "app/preview/raster_image.h"
#include "app/common/texts.h"

namespace mirvane::app {

namespace {

template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
    widget->setObjectName(name);
    return widget;
}

}  // namespace

// The background comes from the Garmin palette dialog, as every colour of the program does.
std::optional<RasterColour> ChooseColourWithDialog(RasterColour current, QWidget* parent) {
    const auto chosen =
        ChooseGarminColour(parent, current, static_cast<int>(PaletteCaller::PreviewBackground));
    if (!chosen) return std::nullopt;
    return static_cast<RasterColour>(*chosen);
}

PreviewFrame::PreviewFrame(QWidget* parent) : QGroupBox(parent) {
    setObjectName("fraApercu");
    chooseColour_ = [this](RasterColour current) { return ChooseColourWithDialog(current, this); };

    auto* grid = new QGridLayout(this);
    lblJour_ = Named(new QLabel, "lblJour");
    lblNuit_ = Named(new QLabel, "lblNuit");
    Label4_ = Named(new QLabel, "Label4");
    Label5_ = Named(new QLabel, "Label5");
    for (int i = 0; i < 2; ++i) {
        apercus_[i] = new RasterPicture(kPreviewSide, kPreviewSide, this);
        apercus_[i]->setObjectName(QString("Apercus(%1)").arg(i));
    }
    for (QLabel* label : {Label4_, Label5_}) {
        label->setAutoFillBackground(true);
        label->setAlignment(Qt::AlignCenter);
        label->hide();
    }
    grid->addWidget(lblJour_, 0, 0, Qt::AlignHCenter);
    grid->addWidget(lblNuit_, 0, 1, Qt::AlignHCenter);
    grid->addWidget(apercus_[0], 1, 0);
    grid->addWidget(apercus_[1], 1, 1);
    grid->addWidget(Label4_, 2, 0);
    grid->addWidget(Label5_, 2, 1);
    grid->addWidget(BuildControls(), 0, 2, 3, 1);
    grid->setRowStretch(3, 1);
    grid->setColumnStretch(3, 1);
    RetranslateUi();
    Reset();
}

void PreviewFrame::RetranslateUi() {
    setTitle(MainCaption("Aperçu", "fraApercu"));
    lblJour_->setText(MainCaption("Jour", "lblJour"));
    lblNuit_->setText(MainCaption("Nuit", "lblNuit"));
    for (QLabel* label : {Label4_, Label5_}) {
        label->setText(MainCaption("Labels personnalisés visibles", "Label"));
        label->setToolTip(MainTr("Couleurs personnalisées des labels (jour, nuit)", "lblExtendedLabelsTip"));
    }
    optSeul_->setText(MainCaption("Seul", "optSeul"));
    optMosaique_->setText(MainCaption("Mosaïque", "optMosaique"));
    optSuperposition_->setText(MainCaption("Superposition", "optSuperposition"));
    cmdCouleurfond_->setText(MainCaption("Couleur de fond", "cmdCouleurfond"));
    cmdCouleurfond_->setToolTip(MainTr("Couleur du fond de l'aperçu", "cmdCouleurFondTip"));
    cmdVisualisation_->setText(MainCaption("Visualisation", "cmdVisualisation"));
    cmdVisualisation_->setToolTip(MainTr("Voir tous les objets sous forme d'icônes", "cmdVisualisationTip"));
    Redraw();  // lblZoom
}

QWidget* PreviewFrame::BuildControls() {
    auto* panel = new QWidget(this);
    optSeul_ = Named(new QRadioButton, "optSeul");
    optMosaique_ = Named(new QRadioButton, "optMosaique");
    optSuperposition_ = Named(new QRadioButton, "optSuperposition");
    optSeul_->setChecked(true);
    auto* modes = new QButtonGroup(panel);
    modes->addButton(optSeul_, static_cast<int>(PreviewMode::Seul));
    modes->addButton(optMosaique_, static_cast<int>(PreviewMode::Mosaique));
    modes->addButton(optSuperposition_, static_cast<int>(PreviewMode::Superposition));

    lblZoom_ = Named(new QLabel, "lblZoom");
    sldZoom_ = Named(new QSlider(Qt::Horizontal), "sldZoom");
    sldZoom_->setRange(kZoomSliderMinimum, kZoomSliderMaximum);
    sldZoom_->setSingleStep(100);
    sldZoom_->setPageStep(100);
    sldZoom_->setTickInterval(100);
    sldZoom_->setTickPosition(QSlider::TicksBelow);
    sldZoom_->setValue(model_.ZoomSlider());

    cmdCouleurfond_ = Named(new QPushButton, "cmdCouleurfond");
    cmdVisualisation_ = Named(new QPushButton, "cmdVisualisation");

    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(optSeul_);
    layout->addWidget(optMosaique_);
    layout->addWidget(optSuperposition_);
    layout->addSpacing(8);
    layout->addWidget(lblZoom_);
    layout->addWidget(sldZoom_);
    layout->addSpacing(8);
    layout->addWidget(cmdCouleurfond_);
    layout->addStretch();
    layout->addWidget(cmdVisualisation_);

    connect(modes, &QButtonGroup::idClicked, this, [this](int id) {
        model_.SetMode(static_cast<PreviewMode>(id));
        Redraw();
    });
    connect(sldZoom_, &QSlider::valueChanged, this, [this](int value) {
        model_.SetZoomSlider(value);
        Redraw();
    });
    connect(cmdCouleurfond_, &QPushButton::clicked, this, &PreviewFrame::ChooseBackground);
    connect(cmdVisualisation_, &QPushButton::clicked, this, &PreviewFrame::VisualisationClicked);
    return panel;
}

void PreviewFrame::ShowObject(Document& doc, ObjectRef object) {
    const ObjectPreview preview = PreviewOfObject(doc, object);
    model_.Pick(preview);
    Redraw();
}

void PreviewFrame::Reset() {
    model_.Reset();
    Redraw();
}

void PreviewFrame::HideLabelColours() {
    Label4_->hide();
    Label5_->hide();
}

void PreviewFrame::ChooseBackground() {
    if (!chooseColour_) return;
    const std::optional<RasterColour> chosen = chooseColour_(model_.Background());
    if (!chosen || *chosen == model_.Background()) return;
    model_.SetBackground(*chosen);
    Redraw();
    emit BackgroundChanged();
}

void PreviewFrame::Redraw() {
    model_.Update();
    for (int i = 0; i < 2; ++i) apercus_[i]->SetRaster(model_.Apercus(i));

    const PreviewState& state = model_.State();
    const PreviewEnables enables = PreviewEnablesFor(state.Shown, model_.Mode());
    optSeul_->setEnabled(enables.Seul);
    optMosaique_->setEnabled(enables.Mosaique);
    optSuperposition_->setEnabled(enables.Superposition);
    cmdCouleurfond_->setEnabled(enables.Background);
    sldZoom_->setEnabled(enables.Zoom);
    lblZoom_->setEnabled(enables.Zoom);
    lblZoom_->setText(MainCaption("Zoom", "zoom") + QString(" x%1").arg(model_.ZoomSlider() / 100));

    ShowLabelColour(Label4_, state.LabelDayColour);
    ShowLabelColour(Label5_, state.LabelNightColour);
}

void PreviewFrame::ShowLabelColour(QLabel* label, const std::optional<std::uint32_t>& colour) {
    label->setVisible(colour.has_value());
    if (!colour) return;
    QPalette palette = label->palette();
    palette.setColor(QPalette::Window, RasterQColor(model_.Background()));
    palette.setColor(QPalette::WindowText, RasterQColor(*colour));
    label->setPalette(palette);
}

}  // namespace mirvane::app
