// The glue between the lists and the preview views: the picture of a picked
// object, the live controls, the icon of a row.
#include <gtest/gtest.h>

#include "models/preview/preview_pane.h"
#include "listing_test_support.h"

namespace mirvane {
namespace {

using testing::PalettePoi;

TEST(PreviewPane, PictureOfABrokenObjectLeavesTheErrorLogAlone) {
    Document doc;
    doc.Pois = {PalettePoi(2, 1, 1, 0)};
    doc.Pois[0].Flags |= 0x04;
    doc.Pois[0].LabelBytes = {1};  // a label block cut short: the listing logs it
    doc.ReadErrorLog = "before";

    const ObjectPreview preview = PreviewOfObject(doc, 3, 0);
    EXPECT_EQ(preview.Kind, ObjectKind::Poi);
    EXPECT_EQ(preview.Picture.Width, 2);
    EXPECT_EQ(preview.Picture.Day.size(), 2u);
    EXPECT_EQ(doc.ReadErrorLog, "before");
    EXPECT_FALSE(doc.ReadErrorFlag);
}

TEST(PreviewPane, RowOutOfRangeGivesAnEmptyPicture) {
    Document doc;
    doc.Pois = {PalettePoi(2, 1, 1, 0)};
    EXPECT_TRUE(PreviewOfObject(doc, 3, 5).Picture.Day.empty());
    EXPECT_TRUE(PreviewOfObject(doc, 0, 0).Picture.Day.empty());
}

TEST(PreviewPane, MosaicOnlyForPolygonsAndLinesZoomOnlyAlone) {
    const PreviewEnables nothingPicked = PreviewEnablesFor(false, 1, PreviewMode::Seul);
    EXPECT_FALSE(nothingPicked.Seul || nothingPicked.Mosaique || nothingPicked.Superposition ||
                 nothingPicked.Background || nothingPicked.Zoom);

    const PreviewEnables polygon = PreviewEnablesFor(true, 1, PreviewMode::Seul);
    EXPECT_TRUE(polygon.Seul && polygon.Mosaique && polygon.Superposition && polygon.Background && polygon.Zoom);
    EXPECT_TRUE(PreviewEnablesFor(true, 2, PreviewMode::Seul).Mosaique);

    const PreviewEnables poi = PreviewEnablesFor(true, 3, PreviewMode::Superposition);
    EXPECT_FALSE(poi.Mosaique);
    EXPECT_FALSE(poi.Zoom);
    EXPECT_TRUE(poi.Superposition && poi.Background);
}

TEST(PreviewPane, RowsMapToIconsOfTheirKind) {
    EXPECT_EQ(IconOfRow(2, 7), (IconRef{ObjectKind::Polyline, 7}));
    EXPECT_EQ(IconOfRow(3, 0), (IconRef{ObjectKind::Poi, 0}));
    EXPECT_FALSE(IconOfRow(0, 3));
    EXPECT_FALSE(IconOfRow(4, 3));
    EXPECT_FALSE(IconOfRow(1, -1));
}

}  // namespace
}  // namespace mirvane
