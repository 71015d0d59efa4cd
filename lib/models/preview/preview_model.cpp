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
    state_.EditScope = static_cast<int>(preview.Kind);
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

bool ObjectPreviewModel::HasNight(int scope) const {
    switch (scope) {
    case 1: return state_.PolygonNight;
    case 2: return state_.PolylineNight;
    case 3: return state_.PoiNight;
    default: return false;
    }
}

int ObjectPreviewModel::ThumbnailWidth(int scope) const {
    return scope == 3 ? state_.PoiWidth : kTileSide;
}

int ObjectPreviewModel::ThumbnailHeight(int scope) const {
    switch (scope) {
    case 1: return kTileSide;
    case 2: return state_.PolylineHeight;
    default: return state_.PoiHeight;
    }
}

void ObjectPreviewModel::AfficheSeul(int scope) {
    if (scope < 1 || scope > 3) return;
    const int zoom = state_.Zoom;
    const int left = SeulOffset(zoom, ThumbnailWidth(scope));
    const int top = SeulOffset(zoom, ThumbnailHeight(scope));
    const RasterRect source{0, 0, kSeulSourceSide, kSeulSourceSide};
    const int first = (scope - 1) * 2;
    StretchCopy(vignettes_[first], source, apercus_[0], left, top, zoom);
    if (HasNight(scope)) StretchCopy(vignettes_[first + 1], source, apercus_[1], left, top, zoom);
}

void ObjectPreviewModel::AfficheMosaique(int dayOrNight, int scope) {
    if (scope != 1 && scope != 2) return;  // a POI has no mosaic
    const Raster& tile = vignettes_[(scope - 1) * 2 + dayOrNight];
    const int rows = scope == 1 ? kMosaicRepeat : 1;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < kMosaicRepeat; ++column)
            CopyTile(tile, {0, 0, kTileSide, kTileSide}, apercus_[dayOrNight], column * kTileSide, row * kTileSide);
}

// The last polygon as a mosaic, the last line across it, the last POI near
// the middle. Pixels of the background colour let what is below show.
void ObjectPreviewModel::Superpose() {
    constexpr int mosaicSide = kTileSide * kMosaicRepeat;
    if (state_.PolygonShown) {
        AfficheMosaique(0, 1);
        if (state_.PolygonNight) AfficheMosaique(1, 1);
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
        AfficheSeul(state_.EditScope);
        break;
    case PreviewMode::Superposition:
        Superpose();
        break;
    case PreviewMode::Mosaique:
        state_.Zoom = kMosaicZoomField;
        AfficheMosaique(0, state_.EditScope);
        if (HasNight(state_.EditScope)) AfficheMosaique(1, state_.EditScope);
        break;
    }
}

}  // namespace mirvane
