// The preview of the picked object: thumbnails from the listing's pictures,
// the three ways of composing them, the live controls, and the pixel store
// under it, whose copies clip to both rasters instead of running past them.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "graphics/raster.h"
#include "models/preview/preview_model.h"
#include "models/preview/preview_pane.h"
#include "listing_test_support.h"
#include "text/listing.h"

namespace mirvane {
namespace {

constexpr RasterColour kBackground = 0x00ABCDEF;
constexpr std::int32_t kRed = 0x0000FF, kGreen = 0x00FF00, kBlue = 0xFF0000, kGrey = 0x808080;

ObjectPreview Solid(ObjectKind kind, int width, int height, std::int32_t day,
                    std::optional<std::int32_t> night = std::nullopt) {
    ObjectPreview preview;
    preview.Kind = kind;
    preview.Picture.Width = width;
    preview.Picture.Height = height;
    preview.Picture.Day.assign(static_cast<std::size_t>(width) * height, day);
    if (night) preview.Picture.Night.assign(preview.Picture.Day.size(), *night);
    return preview;
}

bool AllOf(const Raster& raster, RasterColour colour) {
    return std::all_of(raster.Pixels().begin(), raster.Pixels().end(), [&](RasterColour c) { return c == colour; });
}

// Left, top, width and height.
using Box = std::array<int, 4>;

// The bounding box of the pixels that differ from the background.
Box Drawn(const Raster& raster) {
    int left = raster.Width(), top = raster.Height(), right = -1, bottom = -1;
    for (int y = 0; y < raster.Height(); ++y)
        for (int x = 0; x < raster.Width(); ++x)
            if (raster.Pixel(x, y) != kBackground) {
                left = std::min(left, x), right = std::max(right, x);
                top = std::min(top, y), bottom = std::max(bottom, y);
            }
    if (right < 0) return {};
    return {left, top, right - left + 1, bottom - top + 1};
}

ObjectPreviewModel Composed(PreviewMode mode, std::initializer_list<ObjectPreview> picks, int slider = 200) {
    ObjectPreviewModel model(kBackground);
    for (const ObjectPreview& pick : picks) model.Pick(pick);
    model.SetMode(mode);
    model.SetZoomSlider(slider);
    model.Update();
    return model;
}

TEST(PreviewThumbnails, TransparentPixelsTakeTheBackground) {
    ObjectPreview poi = Solid(ObjectKind::Poi, 3, 2, kRed, kBlue);
    poi.Picture.Day[1] = kTransparentPixel;
    poi.Picture.Night[4] = kTransparentPixel;
    ObjectPreview pattern = Solid(ObjectKind::Polygon, 32, 32, kTransparentPixel);  // no night form
    for (int i = 0; i < 32; ++i) pattern.Picture.Day[static_cast<std::size_t>(i) * 33] = kGreen;  // a diagonal
    ObjectPreviewModel model = Composed(PreviewMode::Seul, {pattern, poi});
    EXPECT_EQ(model.Vignette(4).Pixel(1, 0), kBackground);
    EXPECT_EQ(model.Vignette(5).Pixel(1, 1), kBackground);
    EXPECT_EQ(model.Vignette(0).Pixel(6, 5), kBackground);
    EXPECT_TRUE(model.Vignette(1).Empty());

    // A new background paints the kept pictures again.
    model.SetBackground(0x000001);
    EXPECT_EQ(model.Vignette(4).Pixel(1, 0), 0x000001u);
}

TEST(PreviewSeul, PlacesTheZoomedThumbnailInTheMiddle) {
    struct Case {
        int width, height, slider, zoom, left, top;
        Box seen;
    };
    // The zoom is the slider's hundreds, cut; offsets are cut toward zero; an
    // enlargement past the preview is clipped to it.
    for (const Case& c :
         {Case{7, 5, 399, 3, 109, 112, {109, 112, 21, 15}}, Case{32, 32, 800, 8, -8, -8, {0, 0, 240, 240}},
          Case{27, 3, 900, 9, -1, 106, {0, 106, 240, 27}}}) {
        const ObjectPreviewModel model =
            Composed(PreviewMode::Seul, {Solid(ObjectKind::Poi, c.width, c.height, kRed)}, c.slider);
        ASSERT_EQ(model.State().Zoom, c.zoom) << c.slider;
        EXPECT_EQ(std::pair(SeulOffset(c.zoom, c.width), SeulOffset(c.zoom, c.height)), std::pair(c.left, c.top));
        EXPECT_EQ(Drawn(model.Apercus(0)), c.seen) << c.width << " " << c.slider;
        EXPECT_TRUE(AllOf(model.Apercus(1), kBackground));
    }
}

TEST(PreviewSeul, EmptyPoiGivesAnEmptyPreview) {
    ObjectPreview empty;
    empty.Kind = ObjectKind::Poi;  // what the listing gives for a 0 by 0 POI
    const ObjectPreviewModel model = Composed(PreviewMode::Seul, {empty});
    EXPECT_TRUE(model.Vignette(4).Empty() && model.Vignette(5).Empty());
    EXPECT_TRUE(AllOf(model.Apercus(0), kBackground) && AllOf(model.Apercus(1), kBackground));
}

TEST(PreviewMosaique, RepeatsTheTileAndLeavesPoisOut) {
    ObjectPreview polygon = Solid(ObjectKind::Polygon, 32, 32, kRed, kBlue);
    polygon.Picture.Day[0] = kGreen;
    const ObjectPreviewModel model = Composed(PreviewMode::Mosaique, {polygon});
    EXPECT_EQ(Drawn(model.Apercus(1)), (Box{0, 0, 160, 160}));
    EXPECT_EQ(model.Apercus(0).Pixel(128, 128), RasterColour(kGreen));
    EXPECT_EQ(model.Apercus(0).Pixel(129, 128), RasterColour(kRed));
    EXPECT_FALSE(model.ZoomEnabled());

    const ObjectPreviewModel line = Composed(PreviewMode::Mosaique, {Solid(ObjectKind::Polyline, 32, 4, kRed)});
    EXPECT_EQ(Drawn(line.Apercus(0)), (Box{0, 0, 160, 4}));
    EXPECT_TRUE(AllOf(line.Apercus(1), kBackground));
}

TEST(PreviewSuperposition, LaysLineAndPoiOverThePolygonMosaic) {
    const ObjectPreviewModel model =
        Composed(PreviewMode::Superposition,
                 {Solid(ObjectKind::Poi, 4, 4, kBlue, 0x123456), Solid(ObjectKind::Polygon, 32, 32, kGrey),
                  Solid(ObjectKind::Polyline, 32, 2, kRed, kGreen)});
    const Raster& day = model.Apercus(0);
    const Raster& night = model.Apercus(1);
    EXPECT_EQ(day.Pixel(150, 65), RasterColour(kRed));
    EXPECT_EQ(day.Pixel(99, 99), RasterColour(kBlue));
    // No night polygon: the day mosaic stands in for it, under the night line and POI.
    EXPECT_EQ(night.Pixel(10, 10), RasterColour(kGrey));
    EXPECT_EQ(night.Pixel(10, 64), RasterColour(kGreen));
    EXPECT_EQ(night.Pixel(96, 96), 0x123456u);
    EXPECT_FALSE(model.ZoomEnabled());
}

TEST(PreviewSuperposition, ThumbnailPixelsOfTheBackgroundColourCountAsTransparent) {
    ObjectPreview poi = Solid(ObjectKind::Poi, 2, 1, kRed);
    poi.Picture.Day[1] = static_cast<std::int32_t>(kBackground);  // opaque, but the background's colour
    const ObjectPreviewModel model =
        Composed(PreviewMode::Superposition, {Solid(ObjectKind::Polygon, 32, 32, kGrey), poi});
    EXPECT_EQ(model.Apercus(0).Pixel(96, 96), RasterColour(kRed));
    EXPECT_EQ(model.Apercus(0).Pixel(97, 96), RasterColour(kGrey));
}

TEST(PreviewPane, MosaicOnlyForPolygonsAndLinesZoomOnlyAlone) {
    const PreviewEnables nothingPicked = PreviewEnablesFor(std::nullopt, PreviewMode::Seul);
    EXPECT_FALSE(nothingPicked.Seul || nothingPicked.Mosaique || nothingPicked.Superposition ||
                 nothingPicked.Background || nothingPicked.Zoom);

    const PreviewEnables polygon = PreviewEnablesFor(ObjectKind::Polygon, PreviewMode::Seul);
    EXPECT_TRUE(polygon.Seul && polygon.Mosaique && polygon.Superposition && polygon.Background && polygon.Zoom);
    EXPECT_TRUE(PreviewEnablesFor(ObjectKind::Polyline, PreviewMode::Seul).Mosaique);

    const PreviewEnables poi = PreviewEnablesFor(ObjectKind::Poi, PreviewMode::Superposition);
    EXPECT_FALSE(poi.Mosaique);
    EXPECT_FALSE(poi.Zoom);
    EXPECT_TRUE(poi.Superposition && poi.Background);
}

Raster Numbered(int width, int height) {
    Raster raster(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) raster.SetPixel(x, y, static_cast<RasterColour>(y * 100 + x + 1));
    return raster;
}

TEST(Raster, OutsidePixelsReadAsGivenAndAreNotWritten) {
    Raster raster(3, 2, 7);
    raster.SetPixel(3, 0, 9);
    raster.SetPixel(-1, 1, 9);
    EXPECT_EQ(raster.Pixel(3, 0, 42), 42u);
    EXPECT_EQ(std::count(raster.Pixels().begin(), raster.Pixels().end(), 7u), 6);
    EXPECT_TRUE(Raster(0, 5).Empty());
    EXPECT_TRUE(Raster(-2, 5).Pixels().empty());
}

TEST(Raster, CopiesClipToSourceAndTarget) {
    const Raster source = Numbered(4, 4);
    Raster target(5, 5, 0);
    // An area larger than the source and a corner off the target.
    StretchCopy(source, {-1, 0, 64, 64}, target, -2, 3, 2);
    // Source column -1 lands on target columns -2, -1; column 0 on 0, 1.
    EXPECT_EQ(target.Pixel(0, 3), source.Pixel(0, 0));
    EXPECT_EQ(target.Pixel(2, 4), source.Pixel(1, 0));
    EXPECT_EQ(target.Pixel(4, 2), 0u);

    Raster untouched(5, 5, 0);
    StretchCopy(source, source.Bounds(), untouched, 10, 10, 4);
    StretchCopy(source, source.Bounds(), untouched, 0, 0, 0);
    StretchCopy(Raster(), {0, 0, 32, 32}, untouched, 0, 0, 1);
    EXPECT_EQ(untouched, Raster(5, 5, 0));
}

}  // namespace
}  // namespace mirvane
