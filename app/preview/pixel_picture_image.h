// Object pictures of the core as images: transparent pixels stay
// transparent, so the widget's background shows through them.
#pragma once

#include <QImage>

#include "document/object_preview.h"

namespace mirvane::app {

// The day picture, or an empty image for an empty picture.
QImage DayPictureImage(const PixelPicture& picture);

}  // namespace mirvane::app
