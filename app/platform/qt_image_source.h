// Pictures for the bitmap import, decoded by Qt's image readers (PNG, JPEG,
// BMP, GIF, ICO and whatever else the installed plugins read) and handed to
// the core as RgbaPicture.
#pragma once

#include <QImage>
#include <optional>
#include <string>

#include "colour/bitmap_import.h"

namespace mirvane::app {

// The image's pixels as 0xAARRGGBB words; empty for a null image.
RgbaPicture RgbaFromImage(const QImage& image);
QImage ImageFromRgba(const RgbaPicture& picture);

// A PictureReader: the picture of a file, turned as its EXIF data says; of an
// icon file its largest image. No value when Qt cannot decode the file.
std::optional<RgbaPicture> ReadPictureFile(const std::string& path);

// The picture the system clipboard holds, if any.
std::optional<RgbaPicture> ClipboardPicture();

}  // namespace mirvane::app
