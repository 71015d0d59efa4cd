// The glue between the lists and the preview views: the live controls, the
// icon of a row.
#include <gtest/gtest.h>

#include "models/preview/preview_pane.h"

namespace mirvane {
namespace {

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
