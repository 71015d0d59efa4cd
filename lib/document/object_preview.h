// The pictures of decoded objects, as the preview and the icons view draw
// them: plain pixel lists, no GUI type. Building them reads the records and
// changes nothing, the document's error log included.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "document/bitmap_codec.h"
#include "document/document.h"
#include "document/object_codec.h"

namespace mirvane {

// A pixel the preview does not draw.
inline constexpr std::int32_t kTransparentPixel = -1;

// Day and night pictures of one object, row by row, colours as 0x00BBGGRR.
struct PixelPicture {
    int Width = 0;
    int Height = 0;
    std::vector<std::int32_t> Day;
    std::vector<std::int32_t> Night;  // empty when the object has no night form
};

struct ObjectPreview {
    ObjectKind Kind = ObjectKind::Polygon;
    PixelPicture Picture;
    // Custom label colours (Label4 day, Label5 night); no value hides the label.
    std::optional<std::uint32_t> LabelDayColour;
    std::optional<std::uint32_t> LabelNightColour;

    bool HasNight() const { return !Picture.Night.empty(); }
};

// A polygon's 32 by 32 tile, or a line's band of 32 pixels by its rows or
// its width with both borders; a POI's bitmaps. A transparent background
// stays transparent. An object that cannot be drawn whole gets no picture.
PixelPicture PictureOfPolygon(const DecodedPolygon& polygon);
PixelPicture PictureOfPolyline(const DecodedPolyline& line);
PixelPicture PictureOfPoi(const DecodedPoi& poi);

// An empty picture for an object the document does not hold.
PixelPicture PictureOfObject(const Document& doc, ObjectRef object);
// The picture and the custom label colours.
ObjectPreview PreviewOfObject(const Document& doc, ObjectRef object);

}  // namespace mirvane
