#include "document/object_preview.h"

#include <algorithm>

#include "labels/label_block.h"

namespace mirvane {

namespace {

std::int32_t PixelOf(std::optional<std::uint32_t> colour) {
    return colour ? static_cast<std::int32_t>(*colour & 0xFFFFFF) : kTransparentPixel;
}

// Cell by cell: a set bit in the foreground, a clear one in the background.
std::vector<std::int32_t> PaintPattern(const BitGrid& pattern, std::optional<std::uint32_t> foreground,
                                       std::optional<std::uint32_t> background) {
    std::vector<std::int32_t> pixels;
    pixels.reserve(static_cast<std::size_t>(pattern.Width()) * pattern.Height());
    for (int y = 0; y < pattern.Height(); ++y)
        for (std::uint8_t bit : pattern.Row(y)) pixels.push_back(PixelOf(bit ? foreground : background));
    return pixels;
}

PixelPicture PatternPicture(const BitGrid& pattern, const ColourLayout& layout, const ColourRoles& roles) {
    PixelPicture picture;
    picture.Width = pattern.Width();
    picture.Height = pattern.Height();
    picture.Day = PaintPattern(pattern, roles.DayForeground, roles.DayBackground);
    if (layout.Night) picture.Night = PaintPattern(pattern, roles.NightForeground, roles.NightBackground);
    return picture;
}

// Rows of 32 pixels: the line itself in the middle, its borders above and below.
std::vector<std::int32_t> PaintBand(int lineWidth, int height, std::optional<std::uint32_t> line,
                                    std::optional<std::uint32_t> border) {
    const int top = (height - lineWidth) / 2;
    std::vector<std::int32_t> pixels(static_cast<std::size_t>(height) * kPatternWidth);
    for (int y = 0; y < height; ++y) {
        const bool inside = y >= top && y < top + lineWidth;
        std::fill_n(pixels.begin() + static_cast<std::ptrdiff_t>(y) * kPatternWidth, kPatternWidth,
                    PixelOf(inside ? line : border));
    }
    return pixels;
}

std::vector<std::int32_t> PaintBitmap(const DecodedBitmap& bitmap, int width, int height) {
    std::vector<std::int32_t> pixels;
    pixels.reserve(static_cast<std::size_t>(width) * height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) pixels.push_back(PixelOf(bitmap.PixelColour({x, y})));
    return pixels;
}

const Bytes* ExtendedLabelsOf(const Document& doc, ObjectRef object) {
    const auto index = static_cast<std::size_t>(object.Row);
    switch (object.Kind) {
    case ObjectKind::Polygon: {
        const PolygonRecord& r = doc.Polygons[index];
        return (r.Flags & 0x20) ? &r.ExtendedLabelBytes : nullptr;
    }
    case ObjectKind::Polyline: {
        const PolylineRecord& r = doc.Polylines[index];
        return (r.Flags2 & 0x04) ? &r.ExtendedLabelBytes : nullptr;
    }
    case ObjectKind::Poi: break;
    }
    const PoiRecord& r = doc.Pois[index];
    return (r.Flags & 0x08) ? &r.ExtendedLabelBytes : nullptr;
}

}  // namespace

PixelPicture PictureOfPolygon(const DecodedPolygon& polygon) {
    if (polygon.Status != DecodeStatus::Ok) return {};
    const ColourRoles roles = polygon.Roles();
    if (polygon.Pattern) return PatternPicture(*polygon.Pattern, polygon.Layout, roles);
    PixelPicture picture;
    picture.Width = picture.Height = kPatternWidth;
    const std::size_t cells = static_cast<std::size_t>(kPatternWidth) * kPatternWidth;
    picture.Day.assign(cells, PixelOf(roles.DayForeground));
    if (polygon.Layout.Night) picture.Night.assign(cells, PixelOf(roles.NightForeground));
    return picture;
}

PixelPicture PictureOfPolyline(const DecodedPolyline& line) {
    if (line.Status != DecodeStatus::Ok) return {};
    const ColourRoles roles = line.Roles();
    if (line.Pattern) return PatternPicture(*line.Pattern, line.Layout, roles);
    const int lineWidth = *line.LineWidth;
    PixelPicture picture;
    picture.Width = kPatternWidth;
    picture.Height = std::max(lineWidth, static_cast<int>(line.TotalWidth.value_or(lineWidth)));
    picture.Day = PaintBand(lineWidth, picture.Height, roles.DayForeground, roles.DayBackground);
    if (line.Layout.Night)
        picture.Night = PaintBand(lineWidth, picture.Height, roles.NightForeground, roles.NightBackground);
    return picture;
}

PixelPicture PictureOfPoi(const DecodedPoi& poi) {
    if (poi.Status() != DecodeStatus::Ok || poi.Width < 1 || poi.Height < 1) return {};
    PixelPicture picture;
    picture.Width = poi.Width;
    picture.Height = poi.Height;
    picture.Day = PaintBitmap(poi.Day, poi.Width, poi.Height);
    if (poi.Night) picture.Night = PaintBitmap(*poi.Night, poi.Width, poi.Height);
    return picture;
}

PixelPicture PictureOfObject(const Document& doc, ObjectRef object) {
    if (!doc.Holds(object)) return {};
    const auto at = static_cast<std::size_t>(object.Row);
    switch (object.Kind) {
    case ObjectKind::Polygon: return PictureOfPolygon(DecodePolygon(doc.Polygons[at]));
    case ObjectKind::Polyline: return PictureOfPolyline(DecodePolyline(doc.Polylines[at]));
    case ObjectKind::Poi: break;
    }
    return PictureOfPoi(DecodePoi(doc.Pois[at]));
}

ObjectPreview PreviewOfObject(const Document& doc, ObjectRef object) {
    ObjectPreview preview;
    preview.Kind = object.Kind;
    if (!doc.Holds(object)) return preview;
    preview.Picture = PictureOfObject(doc, object);
    if (const Bytes* block = ExtendedLabelsOf(doc, object)) {
        if (const auto style = DecodeExtendedLabelBlock(*block)) {
            if (style->CustomColor & 1) preview.LabelDayColour = style->DayColour;
            if (style->CustomColor & 2) preview.LabelNightColour = style->NightColour;
        }
    }
    return preview;
}

}  // namespace mirvane
