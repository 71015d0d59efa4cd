#include "graphics/raster.h"

#include <algorithm>

namespace mirvane {

Raster::Raster(int width, int height, RasterColour fill) { Reset(width, height, fill); }

void Raster::Reset(int width, int height, RasterColour fill) {
    width_ = std::max(width, 0);
    height_ = std::max(height, 0);
    if (width_ == 0 || height_ == 0) width_ = height_ = 0;
    pixels_.assign(static_cast<std::size_t>(width_) * height_, fill);
}

void Raster::Fill(RasterColour colour) { std::fill(pixels_.begin(), pixels_.end(), colour); }

RasterColour Raster::Pixel(int x, int y, RasterColour outside) const {
    return Contains(x, y) ? Row(y)[x] : outside;
}

void Raster::SetPixel(int x, int y, RasterColour colour) {
    if (Contains(x, y)) Row(y)[x] = colour;
}

namespace {

// Narrows `area` to the source and moves the target corner along with it.
bool ClipToSource(const Raster& source, RasterRect& area, int& left, int& top, int zoom) {
    if (area.Left < 0) {
        left -= area.Left * zoom;
        area.Width += area.Left;
        area.Left = 0;
    }
    if (area.Top < 0) {
        top -= area.Top * zoom;
        area.Height += area.Top;
        area.Top = 0;
    }
    area.Width = std::min(area.Width, source.Width() - area.Left);
    area.Height = std::min(area.Height, source.Height() - area.Top);
    return !area.Empty();
}

// One target span [first, last) along an axis, for a source run of `length`
// pixels enlarged `zoom` times from `start`, clipped to [0, limit).
struct Span {
    int First = 0;
    int Last = 0;
};

Span TargetSpan(int start, int length, int zoom, int limit) {
    const long long end = static_cast<long long>(start) + static_cast<long long>(length) * zoom;
    return {std::max(start, 0), static_cast<int>(std::min<long long>(end, limit))};
}

template <typename Put>
void CopyZoomed(const Raster& source, RasterRect area, Raster& target, int left, int top, int zoom, Put put) {
    if (zoom < 1 || !ClipToSource(source, area, left, top, zoom)) return;
    const Span columns = TargetSpan(left, area.Width, zoom, target.Width());
    const Span rows = TargetSpan(top, area.Height, zoom, target.Height());
    for (int y = rows.First; y < rows.Last; ++y) {
        const RasterColour* from = source.Row(area.Top + (y - top) / zoom) + area.Left;
        RasterColour* to = target.Row(y);
        for (int x = columns.First; x < columns.Last; ++x) put(to[x], from[(x - left) / zoom]);
    }
}

}  // namespace

void StretchCopy(const Raster& source, RasterRect area, Raster& target, int left, int top, int zoom) {
    CopyZoomed(source, area, target, left, top, zoom, [](RasterColour& to, RasterColour from) { to = from; });
}

void CopyTile(const Raster& source, RasterRect area, Raster& target, int left, int top) {
    StretchCopy(source, area, target, left, top, 1);
}

void CopyTileKeyed(const Raster& source, RasterRect area, Raster& target, int left, int top,
                   RasterColour transparent) {
    CopyZoomed(source, area, target, left, top, 1, [transparent](RasterColour& to, RasterColour from) {
        if (from != transparent) to = from;
    });
}

std::vector<std::uint32_t> OpaqueRgbxWords(const Raster& raster) {
    std::vector<std::uint32_t> words(raster.Pixels());
    for (std::uint32_t& word : words) word |= 0xFF000000u;
    return words;
}

}  // namespace mirvane
