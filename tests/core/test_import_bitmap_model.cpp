#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <tuple>

#include "models/poi/import_bitmap_model.h"
#include "scripted_prompts.h"
#include "temp_folder.h"

using namespace mirvane;

namespace {

constexpr std::uint32_t kOpaqueRed = 0xFFFF0000, kClear = 0;
constexpr RasterColour kFormGround = 0xF0F0F0;

// Every pixel a colour of its own.
RgbaPicture Gradient(int width, int height) {
    RgbaPicture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) picture.SetPixel(x, y, 0xFF000000u | (x & 0xFF) << 16 | (y & 0xFF) << 8 | 0x40);
    return picture;
}

// The files of a test: real files on disk (the model looks at them), whose
// pictures a stand-in reader gives back; a file it was not given is unreadable.
class ImportBitmapModelTest : public ::testing::Test {
protected:
    std::string File(const std::string& name, const std::string& bytes = "picture") {
        const std::string path = folder_.File(name);
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    std::string PictureFile(const std::string& name, RgbaPicture picture) {
        const std::string path = File(name);
        pictures_[path] = std::move(picture);
        return path;
    }
    // The combos' width and height, then the scaled bitmap's.
    std::tuple<int, int, int, int> TargetAndBitmapSize() const {
        return {model_.TargetWidth(), model_.TargetHeight(), model_.Bitmap().Width, model_.Bitmap().Height};
    }
    bool OpenFile(const std::string& path) {
        model_.SetPath(path);
        return model_.Open();
    }

    mirvane::testing::TempFolder folder_;
    std::map<std::string, RgbaPicture> pictures_;
    ScriptedPrompts prompts_;
    ImportBitmapModel model_{prompts_, [this](const std::string& path) -> std::optional<RgbaPicture> {
                                 const auto found = pictures_.find(path);
                                 if (found == pictures_.end()) return std::nullopt;
                                 return found->second;
                             }};
};

}  // namespace

TEST_F(ImportBitmapModelTest, SizeCombosScaleOnlyOnceAPictureIsOpen) {
    model_.SetTargetWidth(20);
    EXPECT_EQ(TargetAndBitmapSize(), std::tuple(20, 0, 0, 0));
    ASSERT_TRUE(OpenFile(PictureFile("long.png", Gradient(1000, 5))));
    EXPECT_EQ(model_.TargetHeight(), 0);  // a very long picture waits for the user's height
    EXPECT_FALSE(model_.Import());
    model_.SetTargetHeight(3);
    EXPECT_EQ(TargetAndBitmapSize(), std::tuple(64, 3, 64, 3));
    EXPECT_TRUE(model_.CanImport());
    model_.SetTargetWidth(65);  // beyond the list: no choice
    EXPECT_EQ(model_.TargetWidth(), 0);
    EXPECT_FALSE(model_.CanImport());
}

TEST_F(ImportBitmapModelTest, FilesThatCannotBeOpenedLeaveEverythingAsItWas) {
    ASSERT_TRUE(OpenFile(PictureFile("good.png", Gradient(30, 20))));
    model_.SetTargetWidth(15);
    const ImportedBitmap before = model_.Bitmap();

    const std::string missing = folder_.File("missing.png");
    const std::string empty = File("empty.png", "");
    const std::string corrupt = File("corrupt.png", "\x89PNG broken");
    for (const std::string& path : {std::string(), missing, folder_.Path().string(), empty, corrupt}) {
        prompts_.Log.clear();
        EXPECT_FALSE(OpenFile(path));
        EXPECT_EQ(prompts_.Texts("inform").size(), 1u) << path;
        EXPECT_EQ(std::tuple(model_.Source().Width, model_.TargetWidth()), std::tuple(30, 15));
        EXPECT_EQ(model_.Bitmap(), before);
    }
}

TEST_F(ImportBitmapModelTest, BrowsePutsTheChosenPathInText1) {
    prompts_.Paths = {std::string("/pictures/a.png"), std::nullopt};
    model_.Browse();
    EXPECT_EQ(model_.Path(), "/pictures/a.png");
    model_.Browse();  // cancelled
    EXPECT_EQ(model_.Path(), "/pictures/a.png");
}

TEST_F(ImportBitmapModelTest, ImportHandsTheBitmapOverAndCancelNothing) {
    RgbaPicture picture(2, 2, kOpaqueRed);
    picture.SetPixel(1, 1, kClear);
    ASSERT_TRUE(OpenFile(PictureFile("p.png", picture)));
    model_.Cancel();
    EXPECT_TRUE(model_.Closed() && !model_.Result());
    ASSERT_TRUE(model_.Import());
    ASSERT_TRUE(model_.Result().has_value());
    EXPECT_EQ(*model_.Result(), ImportBitmap(picture, ImportColours::AsTheyAre));
    EXPECT_TRUE(prompts_.Log.empty());  // few colours: no question
}

TEST_F(ImportBitmapModelTest, MoreThan254ColoursAskBeforeTakingGarminColours) {
    ASSERT_TRUE(OpenFile(PictureFile("photo.jpg", Gradient(64, 64))));
    EXPECT_EQ(model_.ColourCount(), 64 * 64);
    prompts_.Answers = {false};
    EXPECT_FALSE(model_.Import() || model_.Closed() || model_.Result());
    EXPECT_EQ(prompts_.Texts("ask").size(), 1u);

    prompts_.Answers = {true};
    ASSERT_TRUE(model_.Import());
    const ImportedBitmap& bitmap = *model_.Result();
    EXPECT_TRUE(bitmap.GarminColours);
    EXPECT_LE(bitmap.ColourCount(), kMaxPaletteColours);
}

TEST_F(ImportBitmapModelTest, ZoomStaysBetweenOneAndSixteen) {
    for (int i = 0; i < 20; ++i) model_.ZoomIn(ImportView::Bitmap);
    model_.ZoomOut(ImportView::Bitmap);
    EXPECT_EQ(std::tuple(model_.Zoom(ImportView::Bitmap), model_.Zoom(ImportView::Source)), std::tuple(15, 1));
    model_.RealSize(ImportView::Bitmap);
    model_.ZoomOut(ImportView::Bitmap);
    EXPECT_EQ(model_.Zoom(ImportView::Bitmap), 1);
}

TEST_F(ImportBitmapModelTest, ViewsCentreTheZoomedPictureAndCheckTransparency) {
    RgbaPicture picture(10, 10, kOpaqueRed);
    picture.SetPixel(9, 9, kClear);
    ASSERT_TRUE(OpenFile(PictureFile("p.png", picture)));
    const Raster real = model_.ViewPicture(ImportView::Bitmap, kFormGround);
    EXPECT_EQ(std::pair(real.Pixel(129, 130), real.Pixel(130, 130)), std::pair(kFormGround, 0x0000FFu));  // 135 - 5
    EXPECT_NE(real.Pixel(139, 139), 0x0000FFu);  // the transparent corner shows a check
    EXPECT_NE(real.Pixel(139, 139), kFormGround);
    // The source view shows the picture as read.
    EXPECT_EQ(model_.ViewPicture(ImportView::Source, kFormGround), real);
}

TEST_F(ImportBitmapModelTest, MapPreviewsShowTheBitmapOnDayAndNightGrounds) {
    RgbaPicture picture(4, 2, kOpaqueRed);
    picture.SetPixel(0, 0, kClear);
    picture.SetPixel(1, 0, 0x80FF0000);  // half transparent red
    ASSERT_TRUE(OpenFile(PictureFile("p.png", picture)));
    const int left = (kImportPreviewSide - 4) / 2 * kImportPreviewZoom;
    const int top = (kImportPreviewSide - 2) / 2 * kImportPreviewZoom;
    for (bool night : {false, true}) {
        const Raster preview = model_.MapPreview(night);
        const RasterColour ground = night ? kNightMapGround : kDayMapGround;
        EXPECT_EQ(preview.Pixel(left, top), ground);  // transparent
        // Alpha 7 of 15 lets a little more than half of the ground through.
        const RasterColour half = preview.Pixel(left + 2, top);
        EXPECT_EQ(half & 0xFF, night ? 0x88u : 0xFFu);
        EXPECT_EQ((half >> 8) & 0xFF, night ? 0x00u : 0x77u);
    }
}
