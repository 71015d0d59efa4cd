// Reading the desktop under the pointer, for the pipette of the colour dialog
// and the colour identifier, and the magnifier both show.
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>

#include "colour/palette.h"

namespace mirvane::app {

QColor ToQColor(Colour colour);
Colour FromQColor(const QColor& colour);

// Part of the desktop in global coordinates; a null image where the platform
// cannot read the screen (offscreen, some Wayland sessions).
using ScreenReader = std::function<QImage(const QRect& area)>;
QImage GrabScreen(const QRect& area);

// What the pointer is over: the area the magnifier shows and the pixel at the
// pointer, when the screen could be read.
struct ScreenLook {
    QImage Area;
    std::optional<Colour> Pixel;
};
ScreenLook LookAt(const ScreenReader& reader, const QPoint& pointer, const QSize& magnifierSize);

// The desktop around the pointer enlarged five times, with a cross through
// the middle.
class Magnifier : public QWidget {
    Q_OBJECT
public:
    explicit Magnifier(QWidget* parent = nullptr);
    void Show(const QImage& area);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage area_;
};

}  // namespace mirvane::app
