#include "models/preview/icons_view_model.h"

#include <algorithm>

#include "models/preview/preview_model.h"

namespace mirvane {

namespace {

constexpr ObjectKind kRunOrder[] = {ObjectKind::Polygon, ObjectKind::Polyline, ObjectKind::Poi};

int CountOf(const IconCounts& counts, ObjectKind kind) {
    switch (kind) {
    case ObjectKind::Polygon: return counts.Polygons;
    case ObjectKind::Polyline: return counts.Polylines;
    default: return counts.Pois;
    }
}

// Int() of a half: rounds toward minus infinity.
int FloorHalf(int value) { return value >= 0 ? value / 2 : -((1 - value) / 2); }

}  // namespace

IconCounts IconCounts::Of(const Document& doc) {
    return {static_cast<int>(doc.Polygons.size()), static_cast<int>(doc.Polylines.size()),
            static_cast<int>(doc.Pois.size())};
}

int IconCounts::Total() const {
    const long long sum = static_cast<long long>(std::max(Polygons, 0)) + std::max(Polylines, 0) + std::max(Pois, 0);
    return static_cast<int>(std::min<long long>(sum, kLastIconNumber + 1));
}

std::optional<int> IconCounts::NumberOf(ObjectRef ref) const {
    if (ref.Row < 0 || ref.Row >= CountOf(*this, ref.Kind)) return std::nullopt;
    long long number = ref.Row;
    for (ObjectKind kind : kRunOrder) {
        if (kind == ref.Kind) break;
        number += CountOf(*this, kind);
    }
    if (number > kLastIconNumber) return std::nullopt;
    return static_cast<int>(number);
}

std::optional<ObjectRef> IconCounts::RefOf(int number) const {
    if (number < 0 || number >= Total()) return std::nullopt;
    for (ObjectKind kind : kRunOrder) {
        const int count = CountOf(*this, kind);
        if (number < count) return ObjectRef{kind, number};
        number -= count;
    }
    return std::nullopt;
}

int IconGrid::Columns() const {
    const int columns = Pitch() > 0 ? PictureWidth / Pitch() : 0;
    return std::clamp(columns, 1, kLastIconNumber);
}

int IconGrid::RowOf(int number) const {
    return static_cast<std::int16_t>(number) / static_cast<std::int16_t>(Columns());
}

int IconGrid::ColumnOf(int number) const {
    return static_cast<std::int16_t>(number) % static_cast<std::int16_t>(Columns());
}

RasterRect IconGrid::CellOf(int number) const {
    return {Pitch() * ColumnOf(number) + Margin, Pitch() * RowOf(number) + Margin, Cell(), Cell()};
}

int IconGrid::PictureHeight(int total) const {
    if (total <= 0) return 0;
    const int rows = (total + Columns() - 1) / Columns();
    return rows * Pitch() + Margin;
}

int LargestPoiDimension(const Document& doc) {
    int largest = 0;
    for (const PoiRecord& poi : doc.Pois) largest = std::max({largest, int{poi.Width}, int{poi.Height}});
    return largest;
}

int IconScale(const IconGrid& grid, ObjectKind kind, int largestPoiDimension) {
    if (kind == ObjectKind::Poi && largestPoiDimension > 0) return grid.Cell() / largestPoiDimension;
    return grid.Cell() / 32;
}

RasterRect IconPlacement(const IconGrid& grid, int number, int width, int height, int scale) {
    const RasterRect cell = grid.CellOf(number);
    return {FloorHalf(grid.Cell() - width * scale) + cell.Left, FloorHalf(grid.Cell() - height * scale) + cell.Top,
            width * scale, height * scale};
}

std::optional<ObjectRef> IconAt(const IconGrid& grid, const IconCounts& counts, int x, int y) {
    const int fromLeft = x - grid.Margin, fromTop = y - grid.Margin;
    if (fromLeft < 0 || fromTop < 0 || grid.Pitch() <= 0) return std::nullopt;
    if (fromLeft % grid.Pitch() >= grid.Cell() || fromTop % grid.Pitch() >= grid.Cell()) return std::nullopt;
    const long long column = fromLeft / grid.Pitch(), row = fromTop / grid.Pitch();
    if (column >= grid.Columns()) return std::nullopt;
    const long long number = row * grid.Columns() + column;
    if (number >= counts.Total()) return std::nullopt;
    return counts.RefOf(static_cast<int>(number));
}

int ScrollToShow(const IconGrid& grid, const IconCounts& counts, ObjectRef ref, int scrollTop, int viewHeight) {
    const std::optional<int> number = counts.NumberOf(ref);
    const int highest = std::max(0, grid.PictureHeight(counts.Total()) - viewHeight);
    if (!number) return std::clamp(scrollTop, 0, highest);
    const RasterRect cell = grid.CellOf(*number);
    const int above = cell.Top - grid.Margin;
    const int below = cell.Top + cell.Height + grid.Margin;
    int top = scrollTop;
    if (below > top + viewHeight) top = below - viewHeight;
    if (above < top) top = above;  // a band lower than a cell shows the cell's top
    return std::clamp(top, 0, highest);
}

void IconsViewModel::Toggle() {
    visible_ = !visible_;
    if (visible_ && !activated_) {
        activated_ = true;
        grid_.Margin = kIconMarginDefault;
        grid_.Zoom = kIconZoomDefault;
    }
}

void IconsViewModel::SetZoomSlider(int value) {
    grid_.Zoom = std::clamp(value, kIconZoomSliderMinimum, kIconZoomSliderMaximum);
}

void IconsViewModel::Rebuild(const Document& doc, RasterColour background) {
    counts_ = IconCounts::Of(doc);
    largestPoi_ = LargestPoiDimension(doc);
    background_ = background;
    thumbnails_.clear();
    thumbnails_.reserve(static_cast<std::size_t>(counts_.Total()));
    for (int number = 0; number < counts_.Total(); ++number) {
        const ObjectRef ref = *counts_.RefOf(number);
        const PixelPicture picture = PictureOfObject(doc, ref);
        thumbnails_.push_back(PaintThumbnail(picture.Day, picture.Width, picture.Height, background));
    }
}

void IconsViewModel::DrawIcon(Raster& band, int top, int number) const {
    const Raster& thumbnail = thumbnails_[static_cast<std::size_t>(number)];
    if (thumbnail.Empty()) return;
    const int scale = IconScale(grid_, counts_.RefOf(number)->Kind, largestPoi_);
    const RasterRect place = IconPlacement(grid_, number, thumbnail.Width(), thumbnail.Height(), scale);
    if (place.Top + place.Height <= top || place.Top >= top + band.Height()) return;
    StretchCopy(thumbnail, thumbnail.Bounds(), band, place.Left, place.Top - top, scale);
}

Raster IconsViewModel::RenderBand(int top, int height) const {
    Raster band(grid_.PictureWidth, height, background_);
    if (band.Empty()) return band;
    // A thick line may stand out of its cell, so every icon is looked at.
    const int count = std::min(counts_.Total(), static_cast<int>(thumbnails_.size()));
    for (int number = 0; number < count; ++number) DrawIcon(band, top, number);
    return band;
}

}  // namespace mirvane
