#include "app/platform/qt_image_source.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImageReader>
#include <algorithm>

namespace mirvane::app {

RgbaPicture RgbaFromImage(const QImage& image) {
    if (image.isNull()) return {};
    // QRgb words of ARGB32 are 0xAARRGGBB, not premultiplied.
    const QImage argb = image.convertToFormat(QImage::Format_ARGB32);
    RgbaPicture picture(argb.width(), argb.height());
    for (int y = 0; y < argb.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(argb.constScanLine(y));
        std::copy(line, line + argb.width(), picture.Pixels.begin() + static_cast<std::ptrdiff_t>(y) * argb.width());
    }
    return picture;
}

QImage ImageFromRgba(const RgbaPicture& picture) {
    if (picture.Empty()) return {};
    QImage image(picture.Width, picture.Height, QImage::Format_ARGB32);
    for (int y = 0; y < picture.Height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        const auto row = picture.Pixels.begin() + static_cast<std::ptrdiff_t>(y) * picture.Width;
        std::copy(row, row + picture.Width, line);
    }
    return image;
}

namespace {

// An icon file holds the same icon at several sizes: the largest scales best.
void JumpToLargestImage(QImageReader& reader) {
    int best = -1;
    long long bestArea = 0;
    for (int i = 0; i < reader.imageCount() && reader.jumpToImage(i); ++i) {
        const QSize size = reader.size();
        const long long area = static_cast<long long>(size.width()) * size.height();
        if (area > bestArea) {
            bestArea = area;
            best = i;
        }
    }
    reader.jumpToImage(std::max(best, 0));
}

}  // namespace

std::optional<RgbaPicture> ReadPictureFile(const std::string& path) {
    QImageReader reader(QString::fromStdString(path));
    reader.setDecideFormatFromContent(true);  // a picture with the wrong ending still reads
    reader.setAutoTransform(true);
    if (reader.format() == "ico" && reader.imageCount() > 1) JumpToLargestImage(reader);
    const QImage image = reader.read();
    if (image.isNull()) return std::nullopt;
    return RgbaFromImage(image);
}

std::optional<RgbaPicture> ClipboardPicture() {
    const QImage image = QGuiApplication::clipboard()->image();
    if (image.isNull()) return std::nullopt;
    return RgbaFromImage(image);
}

}  // namespace mirvane::app
