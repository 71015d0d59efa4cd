#include "app/platform/screen_reader.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QScreen>

#include "models/colour/palette_dialog_model.h"

namespace mirvane::app {

QColor ToQColor(Colour colour) {
    const RgbChannels c = SplitColour(colour);
    return QColor(c.r, c.g, c.b);
}

Colour FromQColor(const QColor& colour) {
    return MakeColour(static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
                            static_cast<std::uint8_t>(colour.blue()));
}

QImage GrabScreen(const QRect& area) {
    if (QGuiApplication::platformName() == "offscreen") return {};
    QScreen* screen = QGuiApplication::screenAt(area.center());
    if (!screen) return {};
    const QRect geometry = screen->geometry();
    return screen->grabWindow(0, area.x() - geometry.x(), area.y() - geometry.y(), area.width(), area.height())
        .toImage();
}

ScreenLook LookAt(const ScreenReader& reader, const QPoint& pointer, const QSize& magnifierSize) {
    const RasterRect source = MagnifierSource(pointer.x(), pointer.y(), magnifierSize.width(), magnifierSize.height());
    const QRect area(source.Left, source.Top, std::max(source.Width, 1), std::max(source.Height, 1));
    ScreenLook look;
    if (reader) look.Area = reader(area);
    if (look.Area.isNull()) return look;
    // A screen with a scale factor gives more pixels than points.
    const QPoint at = ((pointer - area.topLeft()) * look.Area.devicePixelRatio());
    if (look.Area.rect().contains(at)) look.Pixel = FromQColor(look.Area.pixelColor(at));
    return look;
}

Magnifier::Magnifier(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

void Magnifier::Show(const QImage& area) {
    area_ = area;
    update();
}

void Magnifier::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (!area_.isNull()) painter.drawImage(rect(), area_);
    painter.setPen(QPen(Qt::red, 1));
    painter.drawLine(width() / 2, 0, width() / 2, height());
    painter.drawLine(0, height() / 2, width(), height() / 2);
}

}  // namespace mirvane::app
