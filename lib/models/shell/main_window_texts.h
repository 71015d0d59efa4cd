// The texts of the main window that a change of language sets again
// (ChangerLangue1): which widget takes which key of section "Main". The frame
// captions with their counts are not here: they are looked up at every redraw.
#pragma once

#include <array>

namespace mirvane {

enum class TextRole {
    Caption,     // the widget's, the menu's or the action's text
    ToolTip,
    FieldLabel,  // the label standing before the field of that name
};

struct MainWindowText {
    const char* ObjectName;
    const char* Key;
    TextRole Role;
};

// Rows whose widget does not exist (yet) are skipped.
inline constexpr std::array kMainWindowTexts = {
    MainWindowText{"mnuFichier", "mnuFichier", TextRole::Caption},
    MainWindowText{"mnuOuvrirTYP", "mnuOuvrirTYP", TextRole::Caption},
    MainWindowText{"mnuouvrirtxt", "mnuouvrirtxt", TextRole::Caption},
    MainWindowText{"mnuNouveau", "mnuNouveau", TextRole::Caption},
    MainWindowText{"mnuOuvrirTypMapset", "mnuOuvrirTypMapset", TextRole::Caption},
    MainWindowText{"mnuEnregistrerTyp", "mnuEnregistrerTyp", TextRole::Caption},
    MainWindowText{"mnuEnregistrerTxt", "mnuEnregistrerTxt", TextRole::Caption},
    MainWindowText{"mnufermer", "mnufermer", TextRole::Caption},
    MainWindowText{"mnuRecents", "mnuRecents", TextRole::Caption},
    MainWindowText{"mnuquitter", "mnuquitter", TextRole::Caption},
    MainWindowText{"mnuSauvegarde", "mnuSauvegarde", TextRole::Caption},
    MainWindowText{"mnuSauvegardeTexte", "mnuSauvegardeTexte", TextRole::Caption},
    MainWindowText{"mnuSauvegardeAuto", "mnuSauvegardeAuto", TextRole::Caption},
    MainWindowText{"mnuOutils", "mnuOutils", TextRole::Caption},
    MainWindowText{"mnuInstallerTyp", "mnuInstallerTYP", TextRole::Caption},
    MainWindowText{"mnuEffacerCache", "mnuEffacerCache", TextRole::Caption},
    MainWindowText{"mnuTypSpeciaux", "mnuTypSpeciaux", TextRole::Caption},
    MainWindowText{"mnuCouleurIdentifieur", "mnuCouleurIdentifieur", TextRole::Caption},
    MainWindowText{"mnuCompiler", "mnuCompiler", TextRole::Caption},
    MainWindowText{"mnuLangues", "mnuLangues", TextRole::Caption},
    MainWindowText{"mnuChoixLangue", "mnuChoixLangue", TextRole::Caption},
    MainWindowText{"mnuEdition", "mnuEdition", TextRole::Caption},
    MainWindowText{"mnuAnnuler", "mnuAnnuler", TextRole::Caption},
    MainWindowText{"mnuCouper", "mnuCouper", TextRole::Caption},
    MainWindowText{"mnuCopier", "mnuCopier", TextRole::Caption},
    MainWindowText{"mnuColler", "mnuColler", TextRole::Caption},
    MainWindowText{"mnuSupprimer", "mnuSupprimer", TextRole::Caption},
    MainWindowText{"mnuSelectionnerTout", "mnuSelectionnerTout", TextRole::Caption},
    MainWindowText{"mnuAide", "mnuAide", TextRole::Caption},
    MainWindowText{"mnuManuel", "mnuManuel", TextRole::Caption},
    MainWindowText{"mnuMiseAJour", "mnuMiseAJour", TextRole::Caption},
    MainWindowText{"mnuAProposDe", "mnuAProposDe", TextRole::Caption},
    MainWindowText{"fraEntete", "fraEntete", TextRole::Caption},
    MainWindowText{"lblDateCreation", "lblDate", TextRole::FieldLabel},
    MainWindowText{"lblLongueur", "lblTaille", TextRole::FieldLabel},
    MainWindowText{"txtFID", "lblFID", TextRole::FieldLabel},
    MainWindowText{"txtProductCode", "lblProductCode", TextRole::FieldLabel},
    MainWindowText{"cbbCodepage", "lblCodepage", TextRole::FieldLabel},
    MainWindowText{"cbbHeadersize", "lblHeadersize", TextRole::FieldLabel},
    MainWindowText{"cmdCreerTYP", "cmdCreerTYP", TextRole::Caption},
    MainWindowText{"cmdAddPolygone", "cmdAjouter", TextRole::Caption},
    MainWindowText{"cmdModifierPolygone", "cmdModifier", TextRole::Caption},
    MainWindowText{"cmdSupprimerPolygone", "cmdSupprimer", TextRole::Caption},
    MainWindowText{"cmdAddPolyline", "cmdAjouter", TextRole::Caption},
    MainWindowText{"cmdModifierPolyline", "cmdModifier", TextRole::Caption},
    MainWindowText{"cmdSupprimerPolyline", "cmdSupprimer", TextRole::Caption},
    MainWindowText{"cmdAddPOI", "cmdAjouter", TextRole::Caption},
    MainWindowText{"cmdModifierPOI", "cmdModifier", TextRole::Caption},
    MainWindowText{"cmdSupprimerPOI", "cmdSupprimer", TextRole::Caption},
    MainWindowText{"cmdAddPolygone", "cmdAddPolygoneTip", TextRole::ToolTip},
    MainWindowText{"cmdModifierPolygone", "cmdModifierPolygoneTip", TextRole::ToolTip},
    MainWindowText{"cmdSupprimerPolygone", "cmdSupprimerPolygoneTip", TextRole::ToolTip},
    MainWindowText{"cmdAddPolyline", "cmdAddPolylineTip", TextRole::ToolTip},
    MainWindowText{"cmdModifierPolyline", "cmdModifierPolylineTip", TextRole::ToolTip},
    MainWindowText{"cmdSupprimerPolyline", "cmdSupprimerPolylineTip", TextRole::ToolTip},
    MainWindowText{"cmdAddPOI", "cmdAddPOITip", TextRole::ToolTip},
    MainWindowText{"cmdModifierPOI", "cmdModifierPOITip", TextRole::ToolTip},
    MainWindowText{"cmdSupprimerPOI", "cmdSupprimerPOITip", TextRole::ToolTip},
    MainWindowText{"cmdDraworder", "cmdDraworder", TextRole::Caption},
    MainWindowText{"cmdDraworder", "cmdDraworderTip", TextRole::ToolTip},
    MainWindowText{"cmdIcones", "cmdIcones", TextRole::Caption},
    MainWindowText{"cmdLabels", "cmdLabels", TextRole::Caption},
    MainWindowText{"cmdvoirtxt", "cmdVoirTxt", TextRole::Caption},
    MainWindowText{"cmdvoirtxt", "cmdVoirTip", TextRole::ToolTip},
    MainWindowText{"cmdEnregistrer", "cmdEnregistrer", TextRole::Caption},
    MainWindowText{"cmdEnregistrer", "cmdEnregistrerTip", TextRole::ToolTip},
    MainWindowText{"cmdRecherche", "cmdRecherche", TextRole::Caption},
    MainWindowText{"cmdAppliquerModif", "cmdAppliquerModif", TextRole::Caption},
    MainWindowText{"cmdCouleurfond", "cmdCouleurfond", TextRole::Caption},
    MainWindowText{"cmdCouleurfond", "cmdCouleurFondTip", TextRole::ToolTip},
    MainWindowText{"fraApercu", "fraApercu", TextRole::Caption},
    MainWindowText{"fraVisualization", "lblVisualisation", TextRole::Caption},
    MainWindowText{"cmdVisualisation", "cmdVisualisation", TextRole::Caption},
    MainWindowText{"cmdVisualisation", "cmdVisualisationTip", TextRole::ToolTip},
    MainWindowText{"lblJour", "lblJour", TextRole::Caption},
    MainWindowText{"lblNuit", "lblNuit", TextRole::Caption},
    MainWindowText{"Label4", "Label", TextRole::Caption},
    MainWindowText{"Label5", "Label", TextRole::Caption},
    MainWindowText{"Label4", "lblExtendedLabelsTip", TextRole::ToolTip},
    MainWindowText{"Label5", "lblExtendedLabelsTip", TextRole::ToolTip},
    MainWindowText{"optSeul", "optSeul", TextRole::Caption},
    MainWindowText{"optMosaique", "optMosaique", TextRole::Caption},
    MainWindowText{"optSuperposition", "optSuperposition", TextRole::Caption},
    MainWindowText{"ListPolygone", "lstPolygoneTip", TextRole::ToolTip},
    MainWindowText{"ListPolyline", "lstPolylineTip", TextRole::ToolTip},
    MainWindowText{"ListPOI", "lstPOITip", TextRole::ToolTip},
};

}  // namespace mirvane
