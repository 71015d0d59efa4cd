#include "models/textpane/text_pane_session.h"

#include <filesystem>

#include "document/file_messages.h"
#include "document/presentation.h"
#include "base/codepage.h"
#include "lang/lookup.h"
#include "text/parser.h"

namespace mirvane {

namespace {

// The number behind `word` in `rtf` ("\green150" -> 150), 0 when absent.
std::uint8_t RtfNumber(std::string_view rtf, std::string_view word) {
    const std::size_t at = rtf.find(word);
    if (at == std::string_view::npos) return 0;
    unsigned value = 0;
    for (std::size_t i = at + word.size(); i < rtf.size() && rtf[i] >= '0' && rtf[i] <= '9'; ++i)
        value = std::min(255u, value * 10 + static_cast<unsigned>(rtf[i] - '0'));
    return static_cast<std::uint8_t>(value);
}

// The document's name with ".txt", in its folder.
std::string SuggestedTextPath(const Document& doc) {
    if (doc.FileName.empty()) return {};
    std::filesystem::path name(doc.FileName);
    name.replace_extension(".txt");
    return doc.FileFolder.empty() ? name.string() : (std::filesystem::path(doc.FileFolder) / name).string();
}

}  // namespace

void ClearObjectsForWholeText(Document& doc) {
    doc.DrawOrder.clear();
    doc.Polygons.clear();
    doc.Polylines.clear();
    doc.Pois.clear();
    doc.PolylineCount = 0;
    doc.ExtraPolylineCount = 0;
}

PaneColour ParseRtfColour(std::string_view rtf) {
    return {RtfNumber(rtf, "\\red"), RtfNumber(rtf, "\\green"), RtfNumber(rtf, "\\blue")};
}

int PieceColourIndex(PieceRole role) {
    switch (role) {
    case PieceRole::Comment:
    case PieceRole::HeadingComment: return 1;
    case PieceRole::SectionHead:
    case PieceRole::IdHead:
    case PieceRole::IdEnd:
    case PieceRole::DrawOrderHead: return 2;
    case PieceRole::Key: return 3;
    case PieceRole::Text:
    case PieceRole::LineBreak:
    case PieceRole::LabelLineBreak: break;
    }
    return 0;
}

RtfColours LoadRtfColours(const SettingsStore& settings) {
    RtfColours colours;
    for (std::size_t i = 0; i < colours.Colour.size(); ++i)
        colours.Colour[i] = settings.GetOr(kSettingsSection, "RtfColour" + std::to_string(i), colours.Colour[i]);
    return colours;
}

std::array<PaneColour, 4> PaneColours(const RtfColours& colours) {
    std::array<PaneColour, 4> parsed;
    for (std::size_t i = 0; i < parsed.size(); ++i) parsed[i] = ParseRtfColour(colours.Colour[i]);
    return parsed;
}

int PaneCodePage(const TypIdentity& identity) {
    const int page = identity.CodePage;
    if (!IsListedCodePage(page) || IsSupportedCodePage(page)) return page;
    return kDefaultCodePage;
}

TextPaneSession::TextPaneSession(MainWindowModel& model, UserPrompts& prompts) : model_(model), prompts_(prompts) {}

std::string TextPaneSession::ApplyCaption() const {
    return MainText("Cliquer ici pour appliquer les modifications", "cmdAppliquerModif");
}

void TextPaneSession::TextEdited() { applyVisible_ = applyEnabled_ = true; }

void TextPaneSession::FocusLeft(bool textShown, bool focusStaysInPane) {
    if (textShown && !focusStaysInPane) TextEdited();
}

void TextPaneSession::Apply(const std::string& paneBytes, bool autoBackupOn) {
    if (!model_.HasDocument()) return;
    Document& doc = model_.Doc();
    const std::optional<ObjectRef> target = model_.Selection();
    // Only this apply's errors go to frmErreur.
    doc.ReadErrorLog.clear();
    doc.ReadErrorFlag = false;
    if (!target) ClearObjectsForWholeText(doc);
    const ParseResult result = ParseTypText(doc, paneBytes, target);
    applyEnabled_ = false;

    sauvegardertexte(backups_, paneBytes, autoBackupOn, backupFolder_, doc.FileName);
    model_.MarkModified(target ? ChangeSet::Records(target->Kind) : ChangeSet::Everything());
    // The object is picked again by its Type and SubType, at its row after sorting.
    if (target) model_.Select(ObjectRef{target->Kind, result.SelectIndex});
    if (doc.ReadErrorFlag) prompts_.ShowErrorList(model_.ErrorListText());
}

bool TextPaneSession::SaveText(const std::string& paneBytes) {
    if (!model_.HasDocument()) return false;
    const auto target = model_.ChooseSaveTarget(SuggestedTextPath(model_.Doc()),
                                                MainText("Fichiers texte", "msgFiltreTxt") + " (*.txt)");
    if (!target) return false;
    const WriteResult written = WriteFileAtomically(PathFromUtf8(target->Path), paneBytes, target->ReadOnly);
    if (!written.Ok()) {
        prompts_.Warn("Mirvane", MainText("Impossible d'écrire le fichier", "msgEcritureImpossible") + " " +
                                     target->Path + kLineBreak + WriteFailureText(written.Status, written.Reason));
        return false;
    }
    return true;
}

}  // namespace mirvane
