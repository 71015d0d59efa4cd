#include "models/textpane/text_pane.h"

#include "lang/lookup.h"

namespace mirvane {

void ClearObjectsForWholeText(Document& doc) {
    doc.DrawOrder.clear();
    doc.Polygons.clear();
    doc.Polylines.clear();
    doc.Pois.clear();
    doc.PolylineCount = 0;
    doc.ExtraPolylineCount = 0;
}

TextPaneModel::TextPaneModel()
    : cmdAppliquerModif_Caption(
          LookupText("Main", "Cliquer ici pour appliquer les modifications", "cmdAppliquerModif")) {}

void TextPaneModel::BoxVisualisation_Change() {
    cmdAppliquerModif_Visible = true;
    cmdAppliquerModif_Enabled = true;
}

void TextPaneModel::BoxVisualisation_LostFocus(bool textShown, bool focusStaysInPane) {
    if (textShown && !focusStaysInPane) BoxVisualisation_Change();
}

void TextPaneModel::cmdAppliquerModif_Click(Document& doc, int editScope, const std::string& paneText,
                                            const ApplySteps& steps) {
    if (editScope == 0) ClearObjectsForWholeText(doc);
    if (steps.MarkModified) steps.MarkModified();
    if (steps.ouvrirtxt) steps.ouvrirtxt(paneText);
}

}  // namespace mirvane
