// Rasters of the preview models on screen: a QImage copy, and a framed
// picture box that shows one raster pixel for pixel.
#pragma once

#include <QColor>
#include <QFrame>
#include <QImage>

#include "graphics/raster.h"

namespace mirvane::app {

QImage RasterImage(const Raster& raster);

// 0x00BBGGRR to and from QColor.
QColor RasterQColor(RasterColour colour);
RasterColour QColorRaster(const QColor& colour);

class RasterPicture : public QFrame {
    Q_OBJECT
public:
    // A box of width by height pixels inside a one-pixel frame.
    RasterPicture(int width, int height, QWidget* parent = nullptr);

    void SetRaster(const Raster& raster);
    const QImage& Image() const { return image_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage image_;
};

}  // namespace mirvane::app
