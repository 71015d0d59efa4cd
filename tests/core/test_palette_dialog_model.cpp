#include <gtest/gtest.h>

#include <vector>

#include "models/colour/colours_dialog_model.h"
#include "models/colour/palette_dialog_model.h"

using namespace mirvane;

namespace {

// Colours are written #RRGGBB in these tests, as users read them.
Colour Rgb(std::uint32_t rrggbb) {
    return composer_couleur(static_cast<std::uint8_t>(rrggbb >> 16), static_cast<std::uint8_t>(rrggbb >> 8),
                            static_cast<std::uint8_t>(rrggbb));
}

int BorderedNeighbour(const PaletteDialogModel& dialog) {
    int found = 0;
    for (int i = kPremierVoisin; i <= kCarreActuel; ++i)
        if (dialog.Voisin(i).Bordure) found = found ? -1 : i;
    return found;
}

}  // namespace

TEST(PaletteDialog, OpensOnTheCurrentColourFramedWithItsNeighbours) {
    const Colour current = Rgb(0x7B6541);
    const PaletteDialogModel dialog(current, PaletteCaller::Editor);
    EXPECT_EQ(dialog.CouleurChoisie(), current);
    EXPECT_EQ(dialog.CarreEncadre(), 2 * 48 + 2 * 8 + 2 + 1);
    EXPECT_EQ(dialog.CarreAvecBordure(), dialog.CarreEncadre());
    EXPECT_FALSE(dialog.Label3Visible());
    EXPECT_FALSE(dialog.Label9Visible());
    EXPECT_EQ(dialog.lblCouleurChoisie_Caption(), "#7B6541");

    // Levels (1,1,1) enclose it from below: it is the far corner of its cell.
    const std::vector<Colour> corners{Rgb(0x393020), Rgb(0x7B3020), Rgb(0x7B6520), Rgb(0x396520),
                                      Rgb(0x393041), Rgb(0x7B3041), Rgb(0x7B6541), Rgb(0x396541)};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(dialog.Voisin(kPremierVoisin + i).Couleur, corners[i]) << i;
    EXPECT_EQ(BorderedNeighbour(dialog), kPremierVoisin + 6);
    EXPECT_EQ(dialog.Voisin(kPremierVoisin + 6).Tip, "Couleur Garmin la plus proche : #7B6541");
    EXPECT_EQ(dialog.Voisin(kPremierVoisin).Tip, "#393020");
    EXPECT_EQ(dialog.Voisin(kCarreChoisi).Tip, "Couleur Choisie #7B6541");
    EXPECT_EQ(dialog.Voisin(kCarreActuel).Couleur, current);
    EXPECT_EQ(dialog.Voisin(kCarreActuel).Tip, "#7B6541");
}

TEST(PaletteDialog, AColourOffThePaletteShowsBothWarningsAndFramesNothing) {
    const PaletteDialogModel dialog(Rgb(0x7A6541), PaletteCaller::Editor);
    EXPECT_TRUE(dialog.Label3Visible());
    EXPECT_TRUE(dialog.Label9Visible());
    EXPECT_EQ(dialog.CarreEncadre(), 0);
    EXPECT_EQ(dialog.CarreAvecBordure(), 0);
    EXPECT_EQ(dialog.Voisin(kCarreChoisi).Couleur, Rgb(0x7A6541));
    EXPECT_EQ(BorderedNeighbour(dialog), kPremierVoisin + 6);  // #7B6541 is the nearest
}

TEST(PaletteDialog, ClicksOnSquaresChooseAndTheFrameFollows) {
    PaletteDialogModel dialog(Rgb(0x7A6541), PaletteCaller::Editor);
    ASSERT_TRUE(dialog.Carre_Click(2));
    EXPECT_EQ(dialog.CouleurChoisie(), Rgb(0x000020));
    EXPECT_EQ(dialog.CarreEncadre(), 2);
    EXPECT_FALSE(dialog.Label9Visible());
    EXPECT_TRUE(dialog.Label3Visible());  // about the current colour: never touched again

    ASSERT_TRUE(dialog.Carre_Click(254));
    EXPECT_EQ(dialog.CouleurChoisie(), Rgb(0xE6E6E6));
    EXPECT_EQ(dialog.CarreEncadre(), 254);

    // The current colour's square chooses it again, with its warning.
    ASSERT_TRUE(dialog.Carre_Click(kCarreActuel));
    EXPECT_EQ(dialog.CouleurChoisie(), Rgb(0x7A6541));
    EXPECT_TRUE(dialog.Label9Visible());
    EXPECT_EQ(dialog.CarreEncadre(), 254) << "the frame stays where it was";
    EXPECT_EQ(dialog.CarreAvecBordure(), 0);

    // A neighbour is a square like the others.
    const Colour corner = dialog.Voisin(kPremierVoisin + 1).Couleur;
    ASSERT_TRUE(dialog.Carre_Click(kPremierVoisin + 1));
    EXPECT_EQ(dialog.CouleurChoisie(), corner);
    EXPECT_EQ(*couleur_carre(dialog.CarreEncadre()), corner);

    for (int outside : {0, 255, 260, 271, -1}) EXPECT_FALSE(dialog.Carre_Click(outside)) << outside;
    EXPECT_EQ(dialog.CouleurChoisie(), corner);
}

TEST(PaletteDialog, AGreyNearerThanEveryCornerBordersNoNeighbour) {
    const PaletteDialogModel dialog(Rgb(0x101010), PaletteCaller::Editor);
    EXPECT_EQ(dialog.CarreEncadre(), 241);
    EXPECT_EQ(BorderedNeighbour(dialog), 0);
    EXPECT_EQ(dialog.Voisin(kPremierVoisin).Couleur, Rgb(0x000000));
}

TEST(PaletteDialog, BlackAndWhiteHaveTheirCellsInsideTheCube) {
    const PaletteDialogModel black(Rgb(0x000000), PaletteCaller::Editor);
    EXPECT_EQ(black.CarreEncadre(), 1);
    EXPECT_EQ(BorderedNeighbour(black), kPremierVoisin);
    const PaletteDialogModel white(Rgb(0xFFFFFF), PaletteCaller::Editor);
    EXPECT_EQ(white.CarreEncadre(), 240);
    EXPECT_EQ(BorderedNeighbour(white), kPremierVoisin + 6);
}

TEST(PaletteDialog, CancelGivesBackTheCurrentColourWhateverWasChosen) {
    std::vector<Colour> previews;
    PaletteDialogModel dialog(Rgb(0x393020), PaletteCaller::PreviewBackground,
                              [&](Colour c) { previews.push_back(c); });
    EXPECT_TRUE(previews.empty()) << "opening changes nothing on the previews";
    dialog.Carre_Click(10);
    dialog.cmdAutres_Result(Rgb(0x123456));
    EXPECT_EQ(previews, (std::vector<Colour>{*couleur_carre(10), Rgb(0x123456)}));

    dialog.cmdAnnuler_Click();
    EXPECT_TRUE(dialog.Closed());
    EXPECT_FALSE(dialog.Accepted());
    EXPECT_EQ(dialog.CouleurChoisie(), dialog.CouleurActuelle());
    EXPECT_EQ(previews.back(), Rgb(0x393020));
}

TEST(PaletteDialog, ThePipetteChoosesTheLastPixelReadOnRelease) {
    PaletteDialogModel dialog(Rgb(0x393020), PaletteCaller::Editor);
    EXPECT_EQ(dialog.picPicker_BackColor(), kPipetteAuRepos);
    EXPECT_FALSE(dialog.PipetteMoved(1, 1)) << "no pipette, no reading";

    dialog.PipetteStart();
    EXPECT_TRUE(dialog.PrelevementEnCours());
    EXPECT_TRUE(dialog.Picture3Visible());
    EXPECT_EQ(dialog.picPicker_BackColor(), kPipetteEnCours);
    EXPECT_TRUE(dialog.PipetteMoved(10, 20));
    dialog.PipettePixel(Rgb(0xABCDEF));
    EXPECT_FALSE(dialog.PipetteMoved(10, 20)) << "a still pointer is not read again";
    EXPECT_TRUE(dialog.PipetteMoved(11, 20));
    dialog.PipettePixel(Rgb(0x0000F0));
    EXPECT_EQ(dialog.Label10_Caption(), "#0000F0");
    EXPECT_EQ(dialog.CouleurChoisie(), Rgb(0x393020)) << "nothing is chosen before the release";

    dialog.PipetteEnd();
    EXPECT_FALSE(dialog.PrelevementEnCours());
    EXPECT_EQ(dialog.CouleurChoisie(), Rgb(0x0000F0));
    EXPECT_EQ(dialog.CarreAvecBordure(), 0);
    EXPECT_EQ(dialog.CarreEncadre(), carre_a_encadrer(Rgb(0x393020))) << "the frame stays where it was";
    EXPECT_TRUE(dialog.Label9Visible());
}

TEST(PaletteDialog, TheMagnifierShowsAFifthCentredOnThePointer) {
    const RasterRect area = LoupeSource(100, 50, 80, 60);
    EXPECT_EQ(area.Left, 92);
    EXPECT_EQ(area.Top, 44);
    EXPECT_EQ(area.Width, 16);
    EXPECT_EQ(area.Height, 12);
}

TEST(ColoursDialog, EachBarMovesOneChannelOfTheCopy) {
    Raster bitmap(2, 1);
    bitmap.SetPixel(0, 0, static_cast<RasterColour>(Rgb(0x204060)));
    bitmap.SetPixel(1, 0, static_cast<RasterColour>(Rgb(0xFF0080)));
    ColoursDialogModel mixer(bitmap);

    EXPECT_EQ(mixer.Scroll_Change(CanalCouleur::Rouge, ColoursDialogModel::kNeutre), bitmap);

    const Raster redUp = mixer.Scroll_Change(CanalCouleur::Rouge, 255);
    EXPECT_EQ(redUp.Pixel(0, 0), static_cast<RasterColour>(Rgb(0xFD4060)));  // 32 + 127 x 223 / 128
    EXPECT_EQ(redUp.Pixel(1, 0), static_cast<RasterColour>(Rgb(0xFF0080)));

    // The second bar starts from the copy again: red is back.
    const Raster blueDown = mixer.Scroll_Change(CanalCouleur::Bleu, 0);
    EXPECT_EQ(blueDown.Pixel(0, 0), static_cast<RasterColour>(Rgb(0x204000)));
    EXPECT_EQ(blueDown.Pixel(1, 0), static_cast<RasterColour>(Rgb(0xFF0000)));
    EXPECT_EQ(mixer.Valeur(CanalCouleur::Rouge), 255);
    EXPECT_EQ(mixer.Picture0(), bitmap);

    const Raster greenHalf = mixer.Scroll_Change(CanalCouleur::Vert, 64);
    EXPECT_EQ(greenHalf.Pixel(0, 0), static_cast<RasterColour>(Rgb(0x202060)));
}

TEST(ColoursDialog, OpensBesideTheEditor) {
    EXPECT_EQ(PositionCouleurs(100, 50, 400), (PositionFenetre{520, 76}));
}

