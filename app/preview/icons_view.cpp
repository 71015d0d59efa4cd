#include "app/preview/icons_view.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QVBoxLayout>

#include "app/preview/raster_image.h"
#include "app/common/texts.h"

namespace mirvane::app {

IconsPicture::IconsPicture(IconsViewModel& model, QWidget* parent) : QWidget(parent), model_(model) {
    setObjectName("picAfficheTout");
    setAttribute(Qt::WA_OpaquePaintEvent);  // every band covers its rectangle
}

void IconsPicture::Relayout(int width) {
    model_.SetPictureWidth(width);
    resize(width, std::max(model_.PictureHeight(), 1));
    update();
}

void IconsPicture::paintEvent(QPaintEvent* event) {
    const QRect area = event->rect();
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(QPoint(0, area.top()), RasterImage(model_.RenderBand(area.top(), area.height())));
}

void IconsPicture::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QPoint at = event->position().toPoint();
    if (const auto ref = model_.Click(at.x(), at.y())) emit IconClicked(*ref);
}

void IconsFrame::RetranslateUi() {
    setTitle(MainCaption("Visualisation", "lblVisualisation"));
    lblZoomIcons_->setText(MainCaption("Zoom", "zoom"));
}

IconsFrame::IconsFrame(QWidget* parent) : QGroupBox(parent) {
    setObjectName("fraVisualization");
    sldZoomIcons_ = new QSlider(Qt::Horizontal, this);
    sldZoomIcons_->setObjectName("sldZoomIcons");
    sldZoomIcons_->setRange(kIconZoomSliderMinimum, kIconZoomSliderMaximum);
    sldZoomIcons_->setPageStep(1);
    sldZoomIcons_->setValue(kIconZoomDefault);
    sldZoomIcons_->setTickPosition(QSlider::TicksBelow);
    sldZoomIcons_->setMaximumWidth(160);
    sldZoomIcons_->setEnabled(false);

    Picture5_ = new QScrollArea(this);
    Picture5_->setObjectName("Picture5");
    Picture5_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Picture5_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // the width does not jump
    Picture5_->verticalScrollBar()->setObjectName("VScroll1");
    picture_ = new IconsPicture(model_);
    Picture5_->setWidget(picture_);
    Picture5_->viewport()->installEventFilter(this);

    auto* zoomRow = new QHBoxLayout;
    lblZoomIcons_ = new QLabel(this);
    lblZoomIcons_->setObjectName("lblZoomIcons");
    zoomRow->addWidget(lblZoomIcons_);
    zoomRow->addWidget(sldZoomIcons_);
    zoomRow->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(zoomRow);
    layout->addWidget(Picture5_, 1);
    hide();
    RetranslateUi();

    connect(sldZoomIcons_, &QSlider::valueChanged, this, [this](int value) {
        model_.SetZoomSlider(value);  // the thumbnails stay: only the grid changes
        Relayout();
    });
    connect(picture_, &IconsPicture::IconClicked, this, &IconsFrame::IconClicked);
}

void IconsFrame::Toggle(Document& doc, RasterColour background) {
    model_.Toggle();
    if (model_.Visible()) model_.SetZoomSlider(sldZoomIcons_->value());
    setVisible(model_.Visible());
    sldZoomIcons_->setEnabled(model_.Visible());
    Rebuild(doc, background);
}

void IconsFrame::Rebuild(Document& doc, RasterColour background) {
    if (!model_.Visible()) return;
    model_.Rebuild(doc, background);
    Relayout();
}

void IconsFrame::ShowIcon(ObjectRef ref) {
    if (!model_.Visible()) return;
    QScrollBar* bar = Picture5_->verticalScrollBar();
    bar->setValue(model_.ScrollFor(ref, bar->value(), Picture5_->viewport()->height()));
}

void IconsFrame::Relayout() {
    picture_->Relayout(Picture5_->viewport()->width());
    QScrollBar* bar = Picture5_->verticalScrollBar();
    bar->setSingleStep(model_.Grid().Pitch() / 4);  // a quarter of a row per step
}

bool IconsFrame::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Picture5_->viewport() && event->type() == QEvent::Resize && model_.Visible()) Relayout();
    return QGroupBox::eventFilter(watched, event);
}

}  // namespace mirvane::app
