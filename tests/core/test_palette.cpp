#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "colour/palette.h"

using namespace mirvane;

namespace {

// Colours are written #RRGGBB in these tests, as users read them.
Colour Rgb(std::uint32_t rrggbb) {
    return composer_couleur(static_cast<std::uint8_t>(rrggbb >> 16), static_cast<std::uint8_t>(rrggbb >> 8),
                            static_cast<std::uint8_t>(rrggbb));
}

constexpr Colour kRed = 0x0000FF, kGreen = 0x00FF00, kBlue = 0xFF0000, kBlack = 0, kWhite = 0xFFFFFF;

}  // namespace

TEST(Palette, SquaresAreThe254GarminColoursInDialogOrder) {
    EXPECT_EQ(couleur_carre(1), Rgb(0x000000));
    EXPECT_EQ(couleur_carre(2), Rgb(0x000020));
    EXPECT_EQ(couleur_carre(9), Rgb(0x003000));
    EXPECT_EQ(couleur_carre(17), Rgb(0x006500));
    EXPECT_EQ(couleur_carre(49), Rgb(0x390000));  // red steps every 6 x 8 squares
    EXPECT_EQ(couleur_carre(240), Rgb(0xFFFFFF));
    EXPECT_EQ(couleur_carre(241), Rgb(0x101010));
    EXPECT_EQ(couleur_carre(254), Rgb(0xE6E6E6));
    EXPECT_FALSE(couleur_carre(0).has_value());
    EXPECT_FALSE(couleur_carre(255).has_value());

    std::set<Colour> distinct;
    for (int i = 1; i <= kNombreCarres; ++i) distinct.insert(*couleur_carre(i));
    EXPECT_EQ(distinct.size(), 254u);
}

TEST(Palette, GarminColoursMapToThemselves) {
    for (int i = 1; i <= kNombreCarres; ++i) {
        const Colour c = *couleur_carre(i);
        EXPECT_EQ(couleur_garmin(c), c) << texte_couleur(c);
        EXPECT_TRUE(est_couleur_garmin(c));
    }
    EXPECT_FALSE(est_couleur_garmin(Rgb(0x7B6542)));
}

TEST(Palette, EveryColourMapsIntoThePalette) {
    for (int r = 0; r < 256; r += 5)
        for (int g = 0; g < 256; g += 3)
            for (int b = 0; b < 256; b += 7) {
                const Colour nearest = couleur_garmin(composer_couleur(r, g, b));
                ASSERT_NE(carre_a_encadrer(nearest), 0) << r << "," << g << "," << b;
            }
}

TEST(Palette, ChannelTiesKeepTheLowerLevel) {
    EXPECT_EQ(decomposer_couleur(couleur_garmin(composer_couleur(90, 0, 0))).r, 57);
    EXPECT_EQ(decomposer_couleur(couleur_garmin(composer_couleur(0, 74, 0))).g, 48);
    EXPECT_EQ(decomposer_couleur(couleur_garmin(composer_couleur(0, 75, 0))).g, 101);
}

TEST(Palette, AGreyWinsOnlyWhenStrictlyNearer) {
    // The cube gives #000020 for #141414; the grey #101010 is much nearer.
    EXPECT_EQ(couleur_garmin(Rgb(0x141414)), Rgb(0x101010));
    // A colour far from the grey axis keeps its cube colour.
    EXPECT_EQ(couleur_garmin(Rgb(0xF00505)), Rgb(0xFF0000));
}

TEST(Palette, NearestEntryIsTheFirstOfEquals) {
    const std::vector<Colour> list{kWhite, Rgb(0x100000), Rgb(0x001000), kBlack};
    EXPECT_EQ(indice_couleur_proche(Rgb(0x080808), list), 1);  // 1 and 2 tie at 24: the first wins
    EXPECT_EQ(indice_couleur_proche(kBlack, list), 3);
    EXPECT_EQ(indice_couleur_proche(kBlack, std::vector<Colour>{kWhite}), 0);
    EXPECT_EQ(indice_couleur_proche(kBlack, std::vector<Colour>{}), -1);
}

TEST(Palette, ClosestPairNeverComparesTheLastEntry) {
    // Entries 1 and 3 are twins, but entry 3 is last and never compared.
    const std::vector<Colour> list{kRed, kGreen, Rgb(0x0000F0), kGreen};
    EXPECT_EQ(paire_proche(list), 0);
    EXPECT_EQ(paire_proche(std::vector<Colour>{kRed, kRed}), 0);  // nothing compared
    EXPECT_EQ(paire_proche(std::vector<Colour>{kBlack, kWhite, kRed}), 0);  // 765 is not below 765
    EXPECT_EQ(paire_proche(std::vector<Colour>{kBlue, kRed, Rgb(0xFE0000), kGreen}), 1);
    EXPECT_EQ(paire_proche(std::vector<Colour>{}), 0);
}

TEST(Palette, ThinningRemovesTheFirstOfTheClosestPair) {
    std::vector<Colour> one{kRed};
    reduire_liste_couleurs(one, 1);
    EXPECT_EQ(one, std::vector<Colour>{kRed});

    std::vector<Colour> two{kRed, kBlue};
    reduire_liste_couleurs(two, 1);
    EXPECT_EQ(two, std::vector<Colour>{kBlue});

    // The last entry is the twin of the first, yet it survives while the others go.
    std::vector<Colour> twins{kRed, kBlue, kGreen, kRed};
    reduire_liste_couleurs(twins, 2);
    EXPECT_EQ(twins, (std::vector<Colour>{kGreen, kRed}));

    std::vector<Colour> ordered{kBlack, kWhite, Rgb(0x010101), kRed, kBlue};
    reduire_liste_couleurs(ordered, 4);
    EXPECT_EQ(ordered, (std::vector<Colour>{kWhite, Rgb(0x010101), kRed, kBlue}));

    std::vector<Colour> emptied{kRed, kBlue};
    reduire_liste_couleurs(emptied, 0);
    EXPECT_TRUE(emptied.empty());
}

TEST(Palette, NeighbourIndicesNameTheLowerLevel) {
    EXPECT_EQ(indices_voisins(Rgb(0x000000)), (IndicesVoisins{0, 0, 0}));
    EXPECT_EQ(indices_voisins(Rgb(0xFFFFFF)), (IndicesVoisins{3, 4, 6}));
    EXPECT_EQ(indices_voisins(Rgb(0x7B6541)), (IndicesVoisins{1, 1, 1}));
    EXPECT_EQ(indices_voisins(Rgb(0x7C6642)), (IndicesVoisins{2, 2, 2}));
}

TEST(Palette, FramedSquare) {
    EXPECT_EQ(carre_a_encadrer(Rgb(0x123456)), 0);
    EXPECT_EQ(position_carre(1), (PositionCarre{0, 0}));
    EXPECT_EQ(position_carre(16), (PositionCarre{15, 0}));
    EXPECT_EQ(position_carre(17), (PositionCarre{0, 1}));
    EXPECT_EQ(position_carre(254), (PositionCarre{13, 15}));
}

TEST(Palette, SystemColoursAndText) {
    const SystemColourLookup system = [](int index) { return index == 5 ? Rgb(0xF0F0F0) : -1; };
    EXPECT_EQ(couleur_ole(kRed, system), kRed);
    EXPECT_EQ(couleur_ole(static_cast<Colour>(0x80000005u), system), Rgb(0xF0F0F0));
    EXPECT_EQ(couleur_ole(static_cast<Colour>(0x80000005u), nullptr), 0);

    EXPECT_EQ(inverser_rvb(0x0041657B), 0x7B6541);
    EXPECT_EQ(inverser_rvb(static_cast<Colour>(0x80000005u)), 0);
    EXPECT_EQ(texte_couleur(0x0041657B), "#7B6541");
    EXPECT_EQ(texte_couleur(kRed), "#FF0000");
    EXPECT_EQ(texte_couleur(static_cast<Colour>(0x80000005u)), "#000000");
}

TEST(Palette, HslPair) {
    const Tsl red = rvb_vers_tsl(255, 0, 0);
    EXPECT_FLOAT_EQ(red.h, 0);
    EXPECT_FLOAT_EQ(red.s, 1);
    EXPECT_FLOAT_EQ(red.l, 0.5f);
    EXPECT_FLOAT_EQ(rvb_vers_tsl(0, 255, 0).h, 2);
    EXPECT_FLOAT_EQ(rvb_vers_tsl(0, 0, 255).h, 4);
    EXPECT_FLOAT_EQ(rvb_vers_tsl(255, 0, 128).h, -128.0f / 255);  // red maximum, blue above green
    const Tsl grey = rvb_vers_tsl(100, 100, 100);
    EXPECT_EQ(grey.h, 0);
    EXPECT_EQ(grey.s, 0);
    EXPECT_EQ(tsl_vers_rvb(grey.h, 0, grey.l), (Rvb{100, 100, 100}));

    for (int r = 0; r < 256; r += 15)
        for (int g = 0; g < 256; g += 17)
            for (int b = 0; b < 256; b += 5) {
                const Tsl t = rvb_vers_tsl(r, g, b);
                const Rvb back = tsl_vers_rvb(t.h, t.s, t.l);
                ASSERT_EQ(back, (Rvb{std::uint8_t(r), std::uint8_t(g), std::uint8_t(b)})) << r << "," << g << "," << b;
            }
}

TEST(Palette, ChannelMixer) {
    EXPECT_EQ(ajuster_canal(100, 128), 100);
    EXPECT_EQ(ajuster_canal(100, 0), 0);
    EXPECT_EQ(ajuster_canal(100, 64), 50);
    EXPECT_EQ(ajuster_canal(100, 63), 49);
    EXPECT_EQ(ajuster_canal(100, 192), 177);  // 100 + 64 * 155 / 128 = 177.5
    EXPECT_EQ(ajuster_canal(0, 255), 253);    // 127 * 255 / 128 = 253.0
    EXPECT_EQ(ajuster_canal(255, 255), 255);
}
