#include "app/preview/raster_image.h"

#include <QPainter>

namespace mirvane::app {

QImage RasterImage(const Raster& raster) {
    if (raster.Empty()) return {};
    const std::vector<std::uint32_t> words = OpaqueRgbxWords(raster);
    const QImage view(reinterpret_cast<const uchar*>(words.data()), raster.Width(), raster.Height(),
                      raster.Width() * 4, QImage::Format_RGBX8888);
    return view.copy();  // the words go out of scope
}

QColor RasterQColor(RasterColour colour) {
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

RasterColour QColorRaster(const QColor& colour) {
    return static_cast<RasterColour>(colour.red()) | static_cast<RasterColour>(colour.green()) << 8 |
           static_cast<RasterColour>(colour.blue()) << 16;
}

RasterPicture::RasterPicture(int width, int height, QWidget* parent) : QFrame(parent) {
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(1);
    setFixedSize(width + 2, height + 2);
}

void RasterPicture::SetRaster(const Raster& raster) {
    image_ = RasterImage(raster);
    update();
}

void RasterPicture::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);  // pixels stay square
    painter.drawImage(contentsRect().topLeft(), image_);
}

}  // namespace mirvane::app
