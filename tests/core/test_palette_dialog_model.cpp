#include <gtest/gtest.h>

#include <vector>

#include "models/colour/colour_identifier_model.h"
#include "models/colour/colours_dialog_model.h"
#include "models/colour/palette_dialog_model.h"

using namespace mirvane;

namespace {

// Colours are written #RRGGBB in these tests, as users read them.
Colour Rgb(std::uint32_t rrggbb) {
    return MakeColour(static_cast<std::uint8_t>(rrggbb >> 16), static_cast<std::uint8_t>(rrggbb >> 8),
                      static_cast<std::uint8_t>(rrggbb));
}

int BorderedNeighbour(const PaletteDialogModel& dialog) {
    int found = 0;
    for (int i = kFirstNeighbourSquare; i <= kCurrentSquare; ++i)
        if (dialog.Neighbour(i).Border) found = found ? -1 : i;
    return found;
}

}  // namespace

TEST(PaletteDialog, OpensOnTheCurrentColourFramedWithItsNeighbours) {
    const PaletteDialogModel dialog(Rgb(0x7B6541), PaletteCaller::Editor);
    EXPECT_EQ(dialog.ChosenColour(), Rgb(0x7B6541));
    EXPECT_EQ(dialog.BorderedSquare(), dialog.FramedSquare());
    EXPECT_FALSE(dialog.CurrentColourOutsidePalette() || dialog.ChosenColourOutsidePalette());

    // Levels (1,1,1) enclose it from below: it is the far corner of its cell.
    const std::vector<std::uint32_t> corners{0x393020, 0x7B3020, 0x7B6520, 0x396520,
                                             0x393041, 0x7B3041, 0x7B6541, 0x396541};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(dialog.Neighbour(kFirstNeighbourSquare + i).Fill, Rgb(corners[i])) << i;
    EXPECT_EQ(dialog.Neighbour(kCurrentSquare).Fill, Rgb(0x7B6541));
}

TEST(PaletteDialog, FramedSquareAndBorderedNeighbourOfTheOpeningColour) {
    struct Case {
        std::uint32_t rgb;
        int framed, bordered;
    };
    const Case cases[] = {
        {0x7A6541, 0, kFirstNeighbourSquare + 6},  // off the palette: #7B6541 is the nearest
        {0x101010, 241, 0},                        // a grey nearer than every corner
        {0x000000, 1, kFirstNeighbourSquare},      // black and white have their cells inside the cube
        {0xFFFFFF, 240, kFirstNeighbourSquare + 6},
    };
    for (const Case& c : cases) {
        const PaletteDialogModel dialog(Rgb(c.rgb), PaletteCaller::Editor);
        EXPECT_EQ(dialog.FramedSquare(), c.framed) << c.rgb;
        EXPECT_EQ(BorderedNeighbour(dialog), c.bordered) << c.rgb;
    }
}

TEST(PaletteDialog, ClicksOnSquaresChooseAndTheFrameFollows) {
    PaletteDialogModel dialog(Rgb(0x7A6541), PaletteCaller::Editor);
    ASSERT_TRUE(dialog.ChooseSquare(254));
    EXPECT_EQ(dialog.ChosenColour(), Rgb(0xE6E6E6));
    EXPECT_EQ(dialog.FramedSquare(), 254);
    EXPECT_FALSE(dialog.ChosenColourOutsidePalette());
    EXPECT_TRUE(dialog.CurrentColourOutsidePalette());  // about the current colour: never touched again

    // The current colour's square chooses it again, with its warning.
    ASSERT_TRUE(dialog.ChooseSquare(kCurrentSquare));
    EXPECT_TRUE(dialog.ChosenColourOutsidePalette());
    EXPECT_EQ(dialog.FramedSquare(), 254) << "the frame stays where it was";

    for (int outside : {0, 255, 271, -1}) EXPECT_FALSE(dialog.ChooseSquare(outside)) << outside;
    EXPECT_EQ(dialog.ChosenColour(), Rgb(0x7A6541));
}

TEST(PaletteDialog, CancelGivesBackTheCurrentColourWhateverWasChosen) {
    std::vector<Colour> previews;
    PaletteDialogModel dialog(Rgb(0x393020), PaletteCaller::PreviewBackground,
                              [&](Colour c) { previews.push_back(c); });
    EXPECT_TRUE(previews.empty()) << "opening changes nothing on the previews";
    dialog.ChooseFreeColour(Rgb(0x123456));
    EXPECT_EQ(previews, (std::vector<Colour>{Rgb(0x123456)}));
    dialog.Cancel();
    EXPECT_TRUE(dialog.Closed() && !dialog.Accepted());
    EXPECT_EQ(dialog.ChosenColour(), dialog.CurrentColour());
    EXPECT_EQ(previews.back(), Rgb(0x393020));
}

TEST(PaletteDialog, ThePipetteChoosesTheLastPixelReadOnRelease) {
    PaletteDialogModel dialog(Rgb(0x393020), PaletteCaller::Editor);
    EXPECT_FALSE(dialog.PipetteMoved(1, 1)) << "no pipette, no reading";

    dialog.PipetteStart();
    EXPECT_TRUE(dialog.PipetteMoved(10, 20));
    dialog.PipettePixel(Rgb(0xABCDEF));
    EXPECT_FALSE(dialog.PipetteMoved(10, 20)) << "a still pointer is not read again";
    EXPECT_TRUE(dialog.PipetteMoved(11, 20));
    dialog.PipettePixel(Rgb(0x0000F0));
    EXPECT_EQ(dialog.ChosenColour(), Rgb(0x393020)) << "nothing is chosen before the release";

    dialog.PipetteEnd();
    EXPECT_EQ(dialog.ChosenColour(), Rgb(0x0000F0));
    EXPECT_TRUE(dialog.ChosenColourOutsidePalette());
}

TEST(ColoursDialog, EachBarMovesOneChannelOfTheCopy) {
    const auto pixel = [](std::uint32_t rgb) { return static_cast<RasterColour>(Rgb(rgb)); };
    Raster bitmap(2, 1);
    bitmap.SetPixel(0, 0, pixel(0x204060));
    bitmap.SetPixel(1, 0, pixel(0xFF0080));
    ColoursDialogModel mixer(bitmap);

    EXPECT_EQ(mixer.MoveBar(ColourChannel::Red, ColoursDialogModel::kNeutral), bitmap);
    const Raster redUp = mixer.MoveBar(ColourChannel::Red, 255);
    EXPECT_EQ(redUp.Pixels(), (std::vector{pixel(0xFD4060), pixel(0xFF0080)}));  // 32 + 127 x 223 / 128

    // The second bar starts from the copy again: red is back.
    const Raster blueDown = mixer.MoveBar(ColourChannel::Blue, 0);
    EXPECT_EQ(blueDown.Pixels(), (std::vector{pixel(0x204000), pixel(0xFF0000)}));
    EXPECT_EQ(mixer.MoveBar(ColourChannel::Green, 64).Pixel(0, 0), pixel(0x202060));
}

TEST(ColourIdentifier, ReadsTypeAndSubTypeFromTheIdentificationColour) {
    // Red 0x71, green 0x0f, blue 0x1a: type 0x10f, subtype 0x1a; the high byte is not read.
    for (const std::uint32_t colour : {0x001A0F71u, 0xFF1A0F71u}) {
        const ColourIdentity identity = IdentifyColour(colour);
        EXPECT_EQ(identity.Text + " " + identity.Type + " " + identity.SubType, "#710F1A 0x10F 0x1A");
    }
}
