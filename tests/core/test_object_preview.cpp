// The pictures of the preview and the icons view, decoded from the records:
// what each kind shows by day and by night, where it is transparent, and
// that drawing a broken object leaves the document alone.
#include <gtest/gtest.h>

#include "document/object_preview.h"
#include "labels/label_block.h"
#include "listing_test_support.h"
#include "models/preview/icons_view_model.h"

namespace mirvane {
namespace {

using testing::Colours;
using testing::PalettePoi;
using testing::Polygon;
using testing::Polyline;
using testing::TrueColourPoi;

constexpr std::int32_t T = kTransparentPixel;

TEST(ObjectPreview, PolygonsFillTheirTileWithPatternOrColourByDayAndNight) {
    Document doc;
    doc.Polygons = {Polygon("001", "00", 0x0A, Colours({0xFF0000})),
                    Polygon("002", "00", 7, Colours({0x112233, 0x445566}))};
    doc.Polygons[0].PatternBytes[0] = 0x81;  // pixels 0 and 7 of the first row, on a transparent background
    const PixelPicture pattern = PreviewOfObject(doc, ObjectRef{ObjectKind::Polygon, 0}).Picture;
    ASSERT_EQ(pattern.Day.size(), 1024u);
    EXPECT_EQ(std::vector(pattern.Day.begin(), pattern.Day.begin() + 8),
              (std::vector<std::int32_t>{0x0000FF, T, T, T, T, T, T, 0x0000FF}));
    EXPECT_TRUE(pattern.Night.empty());

    const PixelPicture solid = PictureOfObject(doc, ObjectRef{ObjectKind::Polygon, 1});
    EXPECT_EQ(solid.Day, std::vector<std::int32_t>(1024, 0x332211));
    EXPECT_EQ(solid.Night, std::vector<std::int32_t>(1024, 0x665544));
}

TEST(ObjectPreview, LinesAreBandsOfTheirWidthOrRows) {
    Document doc;
    doc.Polylines = {Polyline(7, 2, Colours({0x111111, 0x222222}), {3}),  // day and night, no border
                     Polyline(3 << 3 | 2, 0, Colours({0x123456}), Bytes(12, 0xFF)),
                     Polyline(0, 0, Colours({0x010101, 0x020202}), {1, 5})};  // border of 2 on each side
    const PixelPicture dayAndNight = PictureOfObject(doc, ObjectRef{ObjectKind::Polyline, 0});
    EXPECT_EQ(std::pair(dayAndNight.Height, dayAndNight.Night.front()), std::pair(3, 0x222222));
    EXPECT_EQ(PictureOfObject(doc, ObjectRef{ObjectKind::Polyline, 1}).Day.size(), std::size_t{96});
    const PixelPicture bordered = PictureOfObject(doc, ObjectRef{ObjectKind::Polyline, 2});
    ASSERT_EQ(bordered.Height, 5);
    EXPECT_EQ(std::tuple(bordered.Day[32 * 1], bordered.Day[32 * 2]), std::tuple(0x020202, 0x010101));
}

TEST(ObjectPreview, PoiPixelsByPaletteAndMode) {
    Document doc;
    PoiRecord night = PalettePoi(1, 1, 1, 0);
    night.Flags = 3;
    night.Bitmaps[1] = night.Bitmaps[0];
    night.Bitmaps[1].PaletteBytes = Colours({0x0A0B0C});
    doc.Pois = {night,
                TrueColourPoi(16, Colours({0x405060, 0x102030, 0x405060})),
                // 28 bits a pixel: 0x102030 alpha 0, then 0x405060 alpha 15.
                TrueColourPoi(32, {0x30, 0x20, 0x10, 0x00, 0x06, 0x05, 0xF4})};
    auto day = [&](int index) { return PictureOfObject(doc, ObjectRef{ObjectKind::Poi, index}).Day; };
    EXPECT_EQ(PictureOfObject(doc, ObjectRef{ObjectKind::Poi, 0}).Night, std::vector<std::int32_t>{0x0C0B0A});
    EXPECT_EQ(day(1), (std::vector<std::int32_t>{0x302010, T}));
    EXPECT_EQ(day(2), (std::vector<std::int32_t>{0x302010, T}));
}

TEST(ObjectPreview, LabelColoursComeFromTheExtendedLabels) {
    Document doc;
    PolygonRecord polygon = Polygon("003", "00", 0x36, Colours({0}));
    polygon.LabelBytes = EncodeLabelBlock({{0, "text"}});
    polygon.ExtendedLabelBytes = {0x1A, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06};  // SmallFont, DayAndNight
    doc.Polygons = {polygon};
    const ObjectPreview preview = PreviewOfObject(doc, ObjectRef{ObjectKind::Polygon, 0});
    EXPECT_EQ(preview.LabelDayColour, 0x010203u);
    EXPECT_EQ(preview.LabelNightColour, 0x040506u);
}

TEST(ObjectPreview, ObjectsThatCannotBeDrawnHaveNoPicture) {
    Document doc;
    doc.Polygons = {Polygon("001", "00", 0x09, Colours({1}))};  // four colours named, one stored
    doc.Polylines = {Polyline(0, 0, Colours({1, 2}), {})};      // no widths
    doc.Pois = {PalettePoi(4, 4, 2, 0), PalettePoi(0, 0, 0, 0)};
    doc.Pois[0].Bitmaps[0].PixelBytes.resize(1);
    for (const ObjectRef ref : {ObjectRef{ObjectKind::Polygon, 0}, {ObjectKind::Polyline, 0}, {ObjectKind::Poi, 0},
                                {ObjectKind::Poi, 1}})  // the last has no size
        EXPECT_TRUE(PictureOfObject(doc, ref).Day.empty()) << static_cast<int>(ref.Kind) << " " << ref.Row;
    EXPECT_TRUE(PreviewOfObject(doc, ObjectRef{ObjectKind::Poi, 5}).Picture.Day.empty());
}

// The text pane lists a broken object and logs it there; drawing it, as the
// preview and every redraw of the icons view do, must not log it again.
TEST(ObjectPreview, DrawingABrokenObjectLeavesTheErrorLogAlone) {
    Document doc;
    doc.Pois = {PalettePoi(2, 1, 1, 0), PalettePoi(2, 1, 1, 0)};
    doc.Pois[0].Bitmaps[0].PixelBytes.clear();
    doc.Pois[1].Flags |= 0x0C;
    doc.Pois[1].LabelBytes = {1};          // a label block cut short
    doc.Pois[1].ExtendedLabelBytes = {0x08};  // and an extended one
    doc.ReadErrorLog = "before";

    IconsViewModel icons;
    icons.Toggle();
    for (int redraw = 0; redraw < 3; ++redraw) icons.Rebuild(doc, 0xFFFFFF);
    const ObjectPreview broken = PreviewOfObject(doc, ObjectRef{ObjectKind::Poi, 0});
    const ObjectPreview labelled = PreviewOfObject(doc, ObjectRef{ObjectKind::Poi, 1});
    EXPECT_EQ(doc.ReadErrorLog, "before");
    EXPECT_FALSE(doc.ReadErrorFlag);
    EXPECT_TRUE(broken.Picture.Day.empty());
    EXPECT_EQ(labelled.Picture.Width, 2);
    EXPECT_EQ(labelled.Picture.Day.size(), 2u);
    EXPECT_FALSE(labelled.LabelDayColour);
}

}  // namespace
}  // namespace mirvane
