// The icons view: grid arithmetic, the hit test that inverts it, scrolling
// to a selected object, and real files whose every object gets a thumbnail.
#include <gtest/gtest.h>

#include <algorithm>

#include "corpus.h"
#include "document/binary_reader.h"
#include "document/object_preview.h"
#include "models/preview/icons_view_model.h"
#include "models/preview/preview_model.h"

namespace mirvane {
namespace {

TEST(IconGrid, PlacesObjectsInRowsOfWholeCells) {
    const IconGrid grid{5, 2, 520};  // C = 96, five columns of 101
    EXPECT_EQ(grid.Columns(), 5);
    EXPECT_EQ(std::pair(grid.RowOf(12), grid.ColumnOf(12)), std::pair(2, 2));
    EXPECT_EQ(grid.PictureHeight(11), 3 * 101 + 5);
    EXPECT_EQ((IconGrid{5, 2, 50}.Columns()), 1);  // narrower than a cell

    // Centred: Int((C - w * scale) / 2) + (C + margin) * column + margin.
    const RasterRect poi = IconPlacement(grid, 12, 20, 10, 4);
    EXPECT_EQ(std::pair(poi.Left, poi.Top), std::pair(8 + 202 + 5, 28 + 202 + 5));
    EXPECT_EQ(IconPlacement(grid, 0, 33, 32, 3).Left, -2 + 5);  // Int rounds down
}

TEST(IconGrid, ScaleFollowsTheLargestPoi) {
    const IconGrid grid{5, 2, 500};
    EXPECT_EQ(IconScale(grid, ObjectKind::Poi, 24), 4);
    EXPECT_EQ(IconScale(grid, ObjectKind::Polygon, 24), 3);
    EXPECT_EQ(IconScale(grid, ObjectKind::Poi, 200), 0);
}

TEST(IconGrid, HitTestInvertsThePlacement) {
    const IconCounts counts{7, 5, 9};
    for (int zoom : {1, 3}) {
        for (int width : {60, 1000}) {
            const IconGrid grid{5, zoom, width};
            for (int number = 0; number < counts.Total(); ++number) {
                const RasterRect cell = grid.CellOf(number);
                const auto ref = counts.RefOf(number);
                ASSERT_TRUE(ref);
                EXPECT_EQ(IconAt(grid, counts, cell.Left, cell.Top), ref);
                EXPECT_EQ(IconAt(grid, counts, cell.Left + cell.Width - 1, cell.Top + cell.Height - 1), ref);
                EXPECT_EQ(counts.NumberOf(*ref), number);
                EXPECT_FALSE(IconAt(grid, counts, cell.Left - 1, cell.Top));  // in the margin
            }
        }
    }
    const IconGrid grid{5, 2, 520};
    EXPECT_FALSE(IconAt(grid, counts, 5 + 101, 5 + 4 * 101));  // past the last icon
    EXPECT_FALSE(IconAt(grid, counts, 5 * 101 + 5, 5));          // right of the last column
}

TEST(IconGrid, ScrollBringsTheSelectedIconIntoView) {
    const IconGrid grid{5, 2, 520};
    const IconCounts counts{0, 0, 60};  // 12 rows, 1217 pixels
    const ObjectRef row8{ObjectKind::Poi, 40};
    EXPECT_EQ(ScrollToShow(grid, counts, row8, 0, 300), 9 * 101 + 5 - 300);
    EXPECT_EQ(ScrollToShow(grid, counts, row8, 700, 300), 700);  // already in view
    EXPECT_EQ(ScrollToShow(grid, counts, row8, 0, 50), 8 * 101);  // a band lower than a cell
    EXPECT_EQ(ScrollToShow(grid, counts, {ObjectKind::Polygon, 0}, 99, 300), 99);  // no such object
}

TEST(IconGrid, NumbersPastTheSixteenBitRangeHaveNoPlace) {
    const IconCounts counts{30000, 3000, 10};
    EXPECT_EQ(counts.Total(), kLastIconNumber + 1);
    EXPECT_FALSE(counts.NumberOf({ObjectKind::Poi, 0}));
    EXPECT_EQ(counts.NumberOf({ObjectKind::Polyline, 2767}), kLastIconNumber);
    const IconGrid grid{5, 1, 5300};  // 100 columns
    EXPECT_EQ(grid.RowOf(kLastIconNumber), 327);
}

// Every object of the real files gets a thumbnail the size of its picture.
TEST(IconsViewCorpus, EveryObjectGetsAThumbnail) {
    MIRVANE_REQUIRE_CORPUS();
    const auto files = testing::CorpusFiles("binary", ".typ");
    if (files.empty()) GTEST_SKIP() << "no binary TYP in the corpus";
    for (const auto& path : files) {
        SCOPED_TRACE(path.string());
        Document doc;
        ASSERT_TRUE(OpenBinaryTyp(doc, path.string()));
        ObjectPreviewModel preview;
        for (std::size_t slot = 0; slot < std::size(kObjectKinds); ++slot) {
            const ObjectKind kind = kObjectKinds[slot];
            for (int i = 0; i < doc.CountOf(kind); ++i) {
                const ObjectPreview picture = PreviewOfObject(doc, ObjectRef{kind, i});
                preview.Pick(picture);
                const Raster& day = preview.Vignette(static_cast<int>(slot) * 2);
                EXPECT_EQ(day.Width() * day.Height(), static_cast<int>(picture.Picture.Day.size()));
                for (PreviewMode mode : {PreviewMode::Seul, PreviewMode::Mosaique, PreviewMode::Superposition}) {
                    preview.SetMode(mode);
                    preview.Update();
                    ASSERT_EQ(preview.Apercus(1).Width(), kPreviewSide);
                }
            }
        }
        IconsViewModel icons;
        icons.Toggle();
        icons.SetPictureWidth(700);
        constexpr RasterColour background = 0x010203;
        icons.Rebuild(doc, background);
        const Raster band = icons.RenderBand(0, std::min(icons.PictureHeight(), 2000));
        if (icons.Counts().Total() == 0) continue;
        EXPECT_EQ(band.Width(), 700);
        EXPECT_GT(std::count_if(band.Pixels().begin(), band.Pixels().end(),
                                [](RasterColour c) { return c != background; }),
                  0);
    }
}

}  // namespace
}  // namespace mirvane
