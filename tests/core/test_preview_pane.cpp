// The live controls of the preview.
#include <gtest/gtest.h>

#include "models/preview/preview_pane.h"

namespace mirvane {
namespace {

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

}  // namespace
}  // namespace mirvane
