// The pixel store under the previews: stretch copies and tiles clip to both
// rasters instead of reading or writing past them.
#include <gtest/gtest.h>

#include <algorithm>

#include "graphics/raster.h"

namespace mirvane {
namespace {

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

TEST(Raster, StretchCopyRepeatsEachSourcePixelZoomTimes) {
    const Raster source = Numbered(2, 2);
    Raster target(8, 8, 0);
    StretchCopy(source, source.Bounds(), target, 1, 2, 3);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            const bool inside = x >= 1 && x < 7 && y >= 2 && y < 8;
            const RasterColour expected = inside ? source.Pixel((x - 1) / 3, (y - 2) / 3) : 0;
            EXPECT_EQ(target.Pixel(x, y), expected) << x << "," << y;
        }
    }
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

TEST(Raster, KeyedTileLeavesTheKeyColourOut) {
    Raster source(2, 1, 5);
    source.SetPixel(1, 0, 6);
    Raster target(3, 1, 1);
    CopyTileKeyed(source, source.Bounds(), target, 1, 0, 5);
    EXPECT_EQ(target.Pixels(), (std::vector<RasterColour>{1, 1, 6}));
}

TEST(Raster, OpaqueWordsSetTheAlphaByteOnly) {
    Raster raster(1, 1, 0x00332211);
    EXPECT_EQ(OpaqueRgbxWords(raster), std::vector<std::uint32_t>{0xFF332211u});
}

}  // namespace
}  // namespace mirvane
