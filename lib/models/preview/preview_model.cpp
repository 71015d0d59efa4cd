#include "models/preview/preview_model.h"

#include <algorithm>

namespace mirvane {

Raster PaintThumbnail(const std::vector<std::int32_t>& pixels, int width, int height, RasterColour background) {
    Raster thumbnail(width, height, background);
    const std::size_t count = std::min(pixels.size(), thumbnail.Pixels().size());
    for (std::size_t i = 0; i < count; ++i) {
        const int x = static_cast<int>(i % static_cast<std::size_t>(width));
        const int y = static_cast<int>(i / static_cast<std::size_t>(width));
        if (pixels[i] >= 0) thumbnail.SetPixel(x, y, static_cast<RasterColour>(pixels[i]));
    }
    return thumbnail;
}

// Cut toward zero, as the program has always placed it, even when the
// enlarged thumbnail is wider than the preview.
int SeulOffset(int zoom, int size) { return (kPreviewSide - zoom * size) / 2; }

namespace {

int KindSlot(ObjectKind kind) { return static_cast<int>(kind) - 1; }

}  // namespace

ObjectPreviewModel::ObjectPreviewModel(RasterColour background) : background_(background) { Reset(); }

void ObjectPreviewModel::Reset() {
    state_ = PreviewState();
    pictures_ = {};
    for (Raster& vignette : vignettes_) vignette = Raster();
    for (Raster& apercu : apercus_) apercu.Reset(kPreviewSide, kPreviewSide, background_);
}

void ObjectPreviewModel::Pick(const ObjectPreview& preview) {
    const PixelPicture& picture = preview.Picture;
    pictures_[KindSlot(preview.Kind)] = picture;
    state_.Shown = preview.Kind;
    state_.LabelDayColour = preview.LabelDayColour;
    state_.LabelNightColour = preview.LabelNightColour;
    switch (preview.Kind) {
    case ObjectKind::Polygon:
        state_.PolygonShown = !picture.Day.empty();
        state_.PolygonNight = preview.HasNight();
        break;
    case ObjectKind::Polyline:
        state_.PolylineNight = preview.HasNight();
        state_.PolylineHeight = picture.Height;
        break;
    case ObjectKind::Poi:
        state_.PoiNight = preview.HasNight();
        state_.PoiWidth = picture.Width;
        state_.PoiHeight = picture.Height;
        break;
    }
    PaintVignettes(preview.Kind);
}

void ObjectPreviewModel::PaintVignettes(ObjectKind kind) {
    const int slot = KindSlot(kind);
    const PixelPicture& picture = pictures_[slot];
    Raster& day = vignettes_[slot * 2];
    Raster& night = vignettes_[slot * 2 + 1];
    day = picture.Day.empty() ? Raster() : PaintThumbnail(picture.Day, picture.Width, picture.Height, background_);
    night = picture.Night.empty() ? Raster()
                                  : PaintThumbnail(picture.Night, picture.Width, picture.Height, background_);
}

void ObjectPreviewModel::SetBackground(RasterColour background) {
    background_ = background;
    for (ObjectKind kind : {ObjectKind::Polygon, ObjectKind::Polyline, ObjectKind::Poi}) PaintVignettes(kind);
}

void ObjectPreviewModel::SetZoomSlider(int value) {
    zoomSlider_ = std::clamp(value, kZoomSliderMinimum, kZoomSliderMaximum);
}

bool ObjectPreviewModel::HasNight(ObjectKind kind) const {
    switch (kind) {
    case ObjectKind::Polygon: return state_.PolygonNight;
    case ObjectKind::Polyline: return state_.PolylineNight;
    case ObjectKind::Poi: break;
    }
    return state_.PoiNight;
}

int ObjectPreviewModel::ThumbnailWidth(ObjectKind kind) const {
    return kind == ObjectKind::Poi ? state_.PoiWidth : kTileSide;
}

int ObjectPreviewModel::ThumbnailHeight(ObjectKind kind) const {
    switch (kind) {
    case ObjectKind::Polygon: return kTileSide;
    case ObjectKind::Polyline: return state_.PolylineHeight;
    case ObjectKind::Poi: break;
    }
    return state_.PoiHeight;
}

void ObjectPreviewModel::AfficheSeul(ObjectKind kind) {
    const int zoom = state_.Zoom;
    const int left = SeulOffset(zoom, ThumbnailWidth(kind));
    const int top = SeulOffset(zoom, ThumbnailHeight(kind));
    const RasterRect source{0, 0, kSeulSourceSide, kSeulSourceSide};
    const int first = KindSlot(kind) * 2;
    StretchCopy(vignettes_[first], source, apercus_[0], left, top, zoom);
    if (HasNight(kind)) StretchCopy(vignettes_[first + 1], source, apercus_[1], left, top, zoom);
}

void ObjectPreviewModel::AfficheMosaique(int dayOrNight, ObjectKind kind) {
    if (kind == ObjectKind::Poi) return;  // a POI has no mosaic
    const Raster& tile = vignettes_[KindSlot(kind) * 2 + dayOrNight];
    const int rows = kind == ObjectKind::Polygon ? kMosaicRepeat : 1;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < kMosaicRepeat; ++column)
            CopyTile(tile, {0, 0, kTileSide, kTileSide}, apercus_[dayOrNight], column * kTileSide, row * kTileSide);
}

// The last polygon as a mosaic, the last line across it, the last POI near
// the middle. Pixels of the background colour let what is below show.
void ObjectPreviewModel::Superpose() {
    constexpr int mosaicSide = kTileSide * kMosaicRepeat;
    if (state_.PolygonShown) {
        AfficheMosaique(0, ObjectKind::Polygon);
        if (state_.PolygonNight) AfficheMosaique(1, ObjectKind::Polygon);
        else CopyTile(apercus_[0], {0, 0, mosaicSide, mosaicSide}, apercus_[1], 0, 0);
    }
    const RasterRect line{0, 0, kTileSide, state_.PolylineHeight};
    for (int night = 0; night <= (state_.PolylineNight ? 1 : 0); ++night)
        for (int column = 0; column < kMosaicRepeat; ++column)
            CopyTileKeyed(vignettes_[2 + night], line, apercus_[night], column * kTileSide, 64, background_);
    const RasterRect poi{0, 0, state_.PoiWidth, state_.PoiHeight};
    for (int night = 0; night <= (state_.PoiNight ? 1 : 0); ++night)
        CopyTileKeyed(vignettes_[4 + night], poi, apercus_[night], 96, 96, background_);
}

void ObjectPreviewModel::Update() {
    for (Raster& apercu : apercus_) apercu.Reset(kPreviewSide, kPreviewSide, background_);
    switch (mode_) {
    case PreviewMode::Seul:
        state_.Zoom = zoomSlider_ / 100;
        if (state_.Shown) AfficheSeul(*state_.Shown);
        break;
    case PreviewMode::Superposition:
        Superpose();
        break;
    case PreviewMode::Mosaique:
        state_.Zoom = kMosaicZoomField;
        if (!state_.Shown) break;
        AfficheMosaique(0, *state_.Shown);
        if (HasNight(*state_.Shown)) AfficheMosaique(1, *state_.Shown);
        break;
    }
}

}  // namespace mirvane
