#include "app/preview/pixel_picture_image.h"

namespace mirvane::app {

QImage DayPictureImage(const PixelPicture& picture) {
    const std::size_t count = static_cast<std::size_t>(picture.Width) * picture.Height;
    if (picture.Width < 1 || picture.Height < 1 || picture.Day.size() < count) return {};
    QImage image(picture.Width, picture.Height, QImage::Format_ARGB32);
    for (int y = 0; y < picture.Height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < picture.Width; ++x) {
            const std::int32_t colour = picture.Day[static_cast<std::size_t>(y) * picture.Width + x];
            line[x] = colour == kTransparentPixel ? qRgba(0, 0, 0, 0)
                                                  : qRgb(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
        }
    }
    return image;
}

}  // namespace mirvane::app
