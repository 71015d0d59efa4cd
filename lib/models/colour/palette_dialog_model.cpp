#include "models/colour/palette_dialog_model.h"

#include "lang/lookup.h"

namespace mirvane {

namespace {

std::string PaletteText(std::string_view defaultText, std::string_view key) {
    return LookupText("Palette", defaultText, key);
}

}  // namespace

PaletteDialogModel::PaletteDialogModel(Colour couleurActuelle, PaletteCaller appelant, PreviewHandler preview)
    : couleurActuelle_(couleurActuelle),
      couleurChoisie_(couleurActuelle),
      appelant_(appelant),
      preview_(std::move(preview)) {
    label3Visible_ = label9Visible_ = !est_couleur_garmin(couleurActuelle);
    encadrer();
    couleurs_voisines();
}

std::optional<Colour> PaletteDialogModel::CouleurDuCarre(int index) const {
    if (index >= kPremierVoisin && index <= kCarreActuel) return Voisin(index).Couleur;
    return couleur_carre(index);
}

bool PaletteDialogModel::Carre_Click(int index) {
    const auto colour = CouleurDuCarre(index);
    if (!colour) return false;
    Choisir(*colour);
    return true;
}

void PaletteDialogModel::cmdAutres_Result(Colour c) { Choisir(c); }

void PaletteDialogModel::PipetteStart() {
    prelevementEnCours_ = true;
    pixelLu_ = false;
}

bool PaletteDialogModel::PipetteMoved(int x, int y) {
    return prelevementEnCours_ && curseur_.Bouge(x, y);
}

void PaletteDialogModel::PipettePixel(Colour c) {
    if (!prelevementEnCours_) return;
    couleurSousCurseur_ = c;
    pixelLu_ = true;
    label10_ = texte_couleur(c);
}

void PaletteDialogModel::PipetteEnd() {
    if (!prelevementEnCours_) return;
    prelevementEnCours_ = false;
    // Where the screen cannot be read nothing was picked, and nothing is chosen.
    if (pixelLu_) Choisir(couleurSousCurseur_);
}

void PaletteDialogModel::cmdOK_Click() {
    closed_ = true;
    accepted_ = true;
}

void PaletteDialogModel::cmdAnnuler_Click() {
    couleurChoisie_ = couleurActuelle_;
    principal();
    closed_ = true;
    accepted_ = false;
}

void PaletteDialogModel::Choisir(Colour c) {
    couleurChoisie_ = c;
    encadrer();
    couleurs_voisines();
    label9Visible_ = !est_couleur_garmin(c);
    principal();
}

void PaletteDialogModel::encadrer() {
    carreAvecBordure_ = carre_a_encadrer(couleurChoisie_);
    if (carreAvecBordure_ != 0) carreEncadre_ = carreAvecBordure_;
}

void PaletteDialogModel::couleurs_voisines() {
    const CouleursVoisines around = mirvane::couleurs_voisines(couleurChoisie_);
    for (int i = 0; i < 8; ++i) {
        CarreVoisin& square = voisins_[i];
        square.Couleur = around.coins[i];
        square.Bordure = around.coinGarmin == i;
        square.Tip = square.Bordure ? PaletteText("Couleur Garmin la plus proche", "TipProche") + " : " +
                                          texte_couleur(square.Couleur)
                                    : texte_couleur(square.Couleur);
    }
    voisins_[kCarreChoisi - kPremierVoisin] = {
        couleurChoisie_, false, PaletteText("Couleur Choisie ", "Tipchoisie") + texte_couleur(couleurChoisie_)};
    voisins_[kCarreActuel - kPremierVoisin] = {couleurActuelle_, false, texte_couleur(couleurActuelle_)};
}

void PaletteDialogModel::principal() const {
    if (appelant_ == PaletteCaller::PreviewBackground && preview_) preview_(couleurChoisie_);
}

bool SuiviCurseur::Bouge(int x, int y) {
    const std::pair<int, int> position{x, y};
    if (dernier_ == position) return false;
    dernier_ = position;
    return true;
}

RasterRect LoupeSource(int cursorX, int cursorY, int pictureWidth, int pictureHeight) {
    const int width = pictureWidth / kLoupeZoom, height = pictureHeight / kLoupeZoom;
    return {cursorX - width / 2, cursorY - height / 2, width, height};
}

}  // namespace mirvane
