#include "models/shell/main_window_model.h"

#include <algorithm>
#include <filesystem>

#include "document/binary_reader.h"
#include "document/binary_writer.h"
#include "document/file_messages.h"
#include "document/presentation.h"
#include "document/draw_order_table.h"
#include "models/shell/error_list_model.h"
#include "lang/lookup.h"
#include "base/ascii.h"

namespace mirvane {

namespace {

std::string ModifiedMark() { return MainText("modifié", "modif"); }

std::string TypFilter() { return MainText("Fichiers TYP", "msgFiltreTyp") + " (*.typ)"; }

// `lowerTail` in lower case; the text's own case does not matter ("MAP.TYP").
bool EndsWithNoCase(const std::string& text, const std::string& lowerTail) {
    return text.size() >= lowerTail.size() && AsciiLower(text.substr(text.size() - lowerTail.size())) == lowerTail;
}

constexpr int kKnownHeaderSizes[] = {91, 110, 156, 164, 174};
constexpr int kAddedHeaderSizeItem = 5;

// Index of a size in cbbHeadersize; any size it does not know has an item of its own.
int HeaderSizeIndexOf(int headerSize) {
    const auto known = std::find(std::begin(kKnownHeaderSizes), std::end(kKnownHeaderSizes), headerSize);
    return static_cast<int>(known - std::begin(kKnownHeaderSizes));
}

template <typename Record>
bool EraseRow(std::vector<Record>& records, int row) {
    if (row < 0 || row >= static_cast<int>(records.size())) return false;
    records.erase(records.begin() + row);
    return true;
}

}  // namespace

std::string ObjectWord(ObjectKind kind) {
    switch (kind) {
        case ObjectKind::Polygon: return MainText("le polygone", "msgPolygone");
        case ObjectKind::Polyline: return MainText("la polyligne", "msgPolyligne");
        case ObjectKind::Poi: break;
    }
    return MainText("le POI", "msgPOI");
}

MainWindowModel::MainWindowModel(Document& doc, UserPrompts& prompts, SettingsStore& settings,
                                 std::string versionText)
    : doc_(doc), prompts_(prompts), settings_(settings), versionText_(std::move(versionText)) {
    recent_.Load(settings_);
}

void MainWindowModel::Changed(ChangeSet what) {
    if (selection_ && !doc_.Holds(*selection_)) {
        selection_.reset();
        what |= Change::Selection;
    }
    changes_.Tell(what);
}

void MainWindowModel::Select(std::optional<ObjectRef> object) {
    if (object && !doc_.Holds(*object)) object.reset();
    if (object == selection_) return;
    selection_ = object;
    changes_.Tell(Change::Selection);
}

// --- what the window shows

std::string MainWindowModel::Title() const {
    std::string title = BaseTitle();
    if (newDocumentFlag_ && doc_.FilePath.empty()) return title + " - " + MainText("Nouveau TYP", "nouveauTYP");
    if (doc_.State == DocumentState::None) return title;
    title += " - [" + doc_.FileName + "]";
    if (doc_.ModifiedFlag) title += " " + ModifiedMark();
    return title;
}

std::string MainWindowModel::NameCaption() const {
    if (doc_.FileName.empty()) return {};
    return doc_.FileFolder + "\n" + doc_.FileName;
}

std::string MainWindowModel::LengthText() const {
    if (doc_.State == DocumentState::None) return {};
    if (doc_.ModifiedFlag) return ModifiedMark();  // the length on disk no longer holds
    if (doc_.FilePath.empty() || doc_.FromText) return {};
    return LengthCaption(doc_.FileLengthText);
}

std::string MainWindowModel::DateText() const {
    if (doc_.FilePath.empty() || doc_.FromText) return {};
    return DateCreationCaption(doc_.Header);
}

std::string MainWindowModel::PolygonCaption() const {
    return HasDocument() ? PolygonFrameCaption(doc_) : MainText("Liste des polygones", "fraPolygone");
}
std::string MainWindowModel::PolylineCaption() const {
    return HasDocument() ? PolylineFrameCaption(doc_) : MainText("Liste des polylignes", "fraPolyligne");
}
std::string MainWindowModel::PoiCaption() const {
    return HasDocument() ? PoiFrameCaption(doc_) : MainText("Liste des POI", "fraPOI");
}
std::string MainWindowModel::ExtraPoiCaption() const {
    return HasDocument() ? ExtraPoiFrameCaption(doc_) : MainText("Liste des POI additionnels", "fraExtraPOI");
}
std::string MainWindowModel::DrawOrderCaptionText() const {
    return HasDocument() ? DrawOrderCaption(doc_.DrawOrder.size()) : MainText("DrawOrder", "fraDraworder");
}

std::vector<std::string> MainWindowModel::DrawOrderRows() const {
    std::vector<std::string> rows;
    rows.reserve(doc_.DrawOrder.size());
    for (const DrawOrderEntry& entry : doc_.DrawOrder) rows.push_back(DrawOrderRowText(entry));
    return rows;
}

std::string MainWindowModel::ErrorListText() const {
    return ErrorWindowText(doc_.FilePath, doc_.ReadErrorLog);
}

EnableState MainWindowModel::Enables() const {
    EnableState state;
    state.OpenText = HasTextRoute();
    if (!HasDocument()) return state;
    state.ObjectCommands = state.IdentityFields = state.Combos = true;
    state.CreateTyp = state.ViewText = state.DrawOrder = state.Close = true;
    state.SaveText = true;
    return state;
}

// --- commands

void MainWindowModel::New() {
    Close();
    doc_.State = DocumentState::New;
    newDocumentFlag_ = true;
    Changed(ChangeSet::Everything());
}

bool MainWindowModel::OpenTyp(const std::string& path) {
    // The path is asked before closing, so that a cancelled dialog keeps the work.
    std::string chosen = path;
    if (chosen.empty() && !AskOpenPath(chosen, MainText("Ouvrir un fichier TYP", "msgOuvrirTyp"), TypFilter()))
        return false;
    return LoadDocument(chosen, OpenBinaryTyp, false);
}

bool MainWindowModel::OpenText(const std::string& path) {
    if (!textOpener_) return false;
    std::string chosen = path;
    if (chosen.empty() && !AskOpenPath(chosen, MainText("Ouvrir un fichier txt", "msgOuvrirtxt"),
                                       MainText("Fichiers texte", "msgFiltreTxt") + " (*.txt)"))
        return false;
    return LoadDocument(chosen, textOpener_, true);
}

bool MainWindowModel::AskOpenPath(std::string& chosen, const std::string& title, const std::string& filter) {
    auto answer = prompts_.ChooseOpenPath(title, filter);
    if (!answer || answer->empty()) return false;
    chosen = *answer;
    return true;
}

bool MainWindowModel::LoadDocument(const std::string& path, const DocumentReader& reader, bool fromText) {
    if (HasDocument()) Close();
    Document loaded;
    if (!reader(loaded, path)) {
        std::string text = MainText("Impossible de lire le fichier", "msgLectureImpossible") + " " + path;
        if (const ReadResult problem = InspectInputFile(PathFromUtf8(path)); !problem.Ok())
            text += kLineBreak + ReadFailureText(problem);
        prompts_.Warn("Mirvane", text);
        Changed(ChangeSet::Everything());
        return false;
    }
    doc_ = std::move(loaded);
    if (fromText) {
        doc_.FromText = true;
        if (doc_.State == DocumentState::None) doc_.State = DocumentState::Loaded;
    }
    doc_.SetPath(path);
    newDocumentFlag_ = false;
    AddRecent(path);
    Changed(ChangeSet::Everything());
    if (doc_.ReadErrorFlag) prompts_.ShowErrorList(ErrorListText());
    return true;
}

bool MainWindowModel::OpenAny(const std::string& path) {
    if (EndsWithNoCase(path, ".typ")) return OpenTyp(path);
    return OpenText(path);
}

void MainWindowModel::Close() {
    // There is no Cancel: closing cannot be refused.
    if (doc_.ModifiedFlag && prompts_.AskYesNo("Mirvane", MainText("Voulez-vous enregistrer le fichier ?", "msgEnregistrer"), false))
        SaveTyp();
    doc_.Reset();
    newDocumentFlag_ = false;
    selection_.reset();
    Changed(ChangeSet::Everything());
}

bool MainWindowModel::ConfirmOverwrite(const std::string& path) {
    const std::string text = MainText("Le fichier", "msgFichierExiste1") + "   " + path + "   " +
                             MainText("existe déjà", "msgFichierExiste2") + "." + kLineBreak + kLineBreak +
                             MainText("Voulez vous le remplacer?", "msgFichierExiste3");
    return prompts_.AskYesNo(MainText("Ecraser le fichier ?", "msgFichierExiste4"), text, true);
}

std::optional<MainWindowModel::SaveTarget> MainWindowModel::ChooseSaveTarget(std::string suggested,
                                                                            const std::string& filter) {
    for (;;) {
        auto answer = prompts_.ChooseSavePath(MainText("Enregistrer sous", "dlgEnregistrerSous"), suggested, filter);
        if (!answer || answer->empty()) return std::nullopt;
        const std::string& path = *answer;
        suggested.clear();
        switch (InspectWriteTarget(PathFromUtf8(path))) {
        case TargetKind::Missing: return SaveTarget{path};
        case TargetKind::Writable:
            if (ConfirmOverwrite(path)) return SaveTarget{path};
            break;
        case TargetKind::ReadOnly:
            if (ConfirmOverwrite(path) && ConfirmReadOnlyReplace(path))
                return SaveTarget{path, ReadOnlyTarget::Replace};
            break;
        case TargetKind::NotRegularFile:
            prompts_.Inform("Mirvane", path + kLineBreak + WriteFailureText(WriteStatus::NotRegularFile, {}));
            break;
        }
    }
}

bool MainWindowModel::ConfirmReadOnlyReplace(const std::string& path) {
    const std::string text = MainText("Le fichier", "msgFichierExiste1") + "   " + path + "   " +
                             MainText("est en lecture seule.", "msgLectureSeule1") + kLineBreak + kLineBreak +
                             MainText("Voulez-vous le remplacer quand même ?", "msgLectureSeule2");
    return prompts_.AskYesNo(MainText("Fichier en lecture seule", "msgLectureSeule3"), text, true);
}

bool MainWindowModel::SaveTyp() {
    if (!HasDocument() || !InformOfMissingIdentity()) return false;
    std::string suggested = doc_.FileName;
    if (EndsWithNoCase(suggested, ".typ") || EndsWithNoCase(suggested, ".txt"))
        suggested.resize(suggested.size() - 4);
    if (!suggested.empty() && !doc_.FileFolder.empty())
        suggested = (std::filesystem::path(doc_.FileFolder) / suggested).string();
    const std::optional<SaveTarget> chosen = ChooseSaveTarget(suggested, TypFilter());
    if (!chosen) return false;
    const std::string& target = chosen->Path;
    if (auto failure = SaveBinaryTyp(doc_, target, SaveTime::Now(), chosen->ReadOnly)) {
        if (failure->ErrorNumber == 0) prompts_.Inform(failure->Title, failure->Description);
        else prompts_.Warn("Mirvane", SaveFailureMessage(*failure));
        Changed(Change::File);
        return false;
    }
    doc_.SetPath(target);
    std::error_code error;
    const auto size = std::filesystem::file_size(target, error);
    if (!error) doc_.FileLengthText = std::to_string(size);
    doc_.State = DocumentState::Loaded;
    doc_.FromText = false;
    newDocumentFlag_ = false;
    AddRecent(target);
    Changed(Change::File | Change::Settings);
    return true;
}

bool MainWindowModel::RequestQuit(bool autoSaveChecked) {
    settings_.Set(kSettingsSection, "Sauvegarde automatique", autoSaveChecked ? "true" : "false");
    if (!doc_.ModifiedFlag && !newDocumentFlag_) return true;
    if (!prompts_.AskYesNo("Mirvane", MainText("Voulez-vous enregistrer le fichier ?", "msgEnregistrer"), false))
        return true;
    if (!InformOfMissingIdentity()) return false;
    SaveTyp();
    return true;
}

void MainWindowModel::OpenRecent(std::size_t index) {
    if (index >= recent_.Items().size()) return;
    const std::string path = recent_.Items()[index];
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) {
        prompts_.Inform("Mirvane", MainText("Fichier introuvable", "msgFichierIntrouvable"));
        recent_.Remove(path);
        recent_.Store(settings_);
        Changed(Change::Settings);
        return;
    }
    AddRecent(path);
    OpenAny(path);
}

bool MainWindowModel::DeleteObject(ObjectKind kind, int row) {
    const std::string* type = nullptr;
    const std::string* subType = nullptr;
    auto pick = [&](const auto& records) {
        if (row < 0 || row >= static_cast<int>(records.size())) return;
        type = &records[row].Type;
        subType = &records[row].SubType;
    };
    switch (kind) {
        case ObjectKind::Polygon: pick(doc_.Polygons); break;
        case ObjectKind::Polyline: pick(doc_.Polylines); break;
        case ObjectKind::Poi: pick(doc_.Pois); break;
    }
    if (!type) return false;  // no selection: nothing to do
    const std::string word = ObjectWord(kind);
    const std::string title = MainText("Voulez-vous réellement supprimer", "msgSupprimer") + " " + word + " ?";
    const std::string text = MainText("Supprimer définitivement", "msgSupprimer2") + " " + word + " Type:0x" +
                             *type + "  SubType:0x" + *subType + " ?";
    if (!prompts_.AskYesNo(title, text, false)) return false;
    switch (kind) {
        case ObjectKind::Polygon: EraseRow(doc_.Polygons, row); break;
        case ObjectKind::Polyline: {
            const auto& extra = doc_.Polylines[row].ExtraIndexBytes;
            (extra[0] || extra[1] ? doc_.ExtraPolylineCount : doc_.PolylineCount)--;
            EraseRow(doc_.Polylines, row);
            break;
        }
        case ObjectKind::Poi: EraseRow(doc_.Pois, row); break;
    }
    MarkModified(ChangeSet::Records(kind));
    return true;
}

void MainWindowModel::MarkModified(ChangeSet what) {
    if (!newDocumentFlag_) doc_.ModifiedFlag = true;
    Changed(what | Change::File);
}

// --- header fields

bool MainWindowModel::IdentityKeyAccepted(char key) { return (key >= '0' && key <= '9') || key == '\b'; }

std::string MainWindowModel::FidText() const { return IdentityNumberText(doc_.Identity.Fid); }
std::string MainWindowModel::ProductCodeText() const { return IdentityNumberText(doc_.Identity.ProductCode); }

int MainWindowModel::CodePageIndex() const {
    const int page = doc_.Identity.CodePage;
    return HasDocument() ? ListedCodePageRow(page) : -1;
}

std::string MainWindowModel::UnlistedCodePageText() const {
    const int page = doc_.Identity.CodePage;
    return HasDocument() && !IsListedCodePage(page) ? std::to_string(page) : std::string();
}

std::vector<std::string> MainWindowModel::HeaderSizeItems() const {
    if (!HasDocument()) return {};
    std::vector<std::string> items = {"91 " + MainText("(ancien format)", "cbbHeaderSize0"),
                                      "110 " + MainText("(+ Extra POI)", "cbbHeaderSize1"),
                                      "156 " + MainText("(+ labels)", "cbbHeaderSize2"),
                                      "164 " + MainText("(+ inconnu...)", "cbbHeaderSize3"),
                                      "174 " + MainText("(+ Active Routing)", "cbbHeaderSize4")};
    const int size = doc_.Identity.HeaderSize;
    if (HeaderSizeIndexOf(size) == kAddedHeaderSizeItem)
        items.push_back(std::to_string(size) + " " + MainText("octets : format inconnu", "cbbHeaderInconnu"));
    return items;
}

int MainWindowModel::HeaderSizeIndex() const {
    return HasDocument() ? HeaderSizeIndexOf(doc_.Identity.HeaderSize) : -1;
}

// What a header of this size may hold besides the usual objects, one line
// for each size above the smallest.
std::string MainWindowModel::HeaderSizeTip() const {
    if (!HasDocument()) return {};
    std::string tip = MainText("La taille de l'entête est de", "cbbHeadersizeTip1") + " " +
                      std::to_string(doc_.Identity.HeaderSize) + " " + MainText("octets", "cbbHeadersizeTip2") + ".";
    const int index = HeaderSizeIndex();
    if (index == 0) return tip;
    tip += kLineBreak;
    tip += MainText("Ce fichier TYP peut donc contenir, en plus des polygones, polylignes et POI habituels",
                    "cbbHeadersizeTip3") + " :";
    static const char* const kDefaults[] = {"des POI supplémentaires", "des labels supplémentaires",
                                            "des données encore inconnues", "des polylignes pour l'active routing",
                                            "d'autres données encore inconnues..."};
    for (int above = 0; above < index; ++above) {
        tip += kLineBreak;
        tip += "\t" + MainText(kDefaults[above], "cbbHeadersizeTip" + std::to_string(above + 4));
    }
    return tip;
}

std::optional<std::uint16_t> MainWindowModel::CheckIdentityValue(const std::string& text) {
    const std::optional<std::uint16_t> value = ParseIdentityNumber(text);
    if (!value) prompts_.Inform(MainText("Erreur de saisie", "msgErreurSaisie"), IdentityRangeMessage());
    return value;
}

void MainWindowModel::SetFid(std::uint16_t fid) {
    if (doc_.Identity.Fid == fid) return;
    doc_.Identity.Fid = fid;
    MarkModified(Change::Identity);
}

void MainWindowModel::SetProductCode(std::uint16_t productCode) {
    if (doc_.Identity.ProductCode == productCode) return;
    doc_.Identity.ProductCode = productCode;
    MarkModified(Change::Identity);
}

void MainWindowModel::SetCodePageIndex(int index) {
    if (index < 0 || index >= static_cast<int>(kListedCodePages.size())) return;
    const int page = kListedCodePages[static_cast<std::size_t>(index)];
    if (doc_.Identity.CodePage == page) return;
    doc_.Identity.CodePage = page;
    MarkModified(Change::Identity);
}

void MainWindowModel::SetHeaderSizeIndex(int index) {
    if (index < 0 || index >= kAddedHeaderSizeItem || doc_.Identity.HeaderSize == kKnownHeaderSizes[index]) return;
    doc_.Identity.HeaderSize = kKnownHeaderSizes[index];
    MarkModified(Change::Identity);
}

bool MainWindowModel::InformOfMissingIdentity() {
    const std::optional<MissingIdentity> missing = FindMissingIdentity(doc_.Identity);
    if (missing) prompts_.Inform(missing->Title, missing->Text);
    return !missing;
}

// --- helpers

void MainWindowModel::AddRecent(const std::string& path) {
    recent_.Add(path);
    recent_.Store(settings_);
}

}  // namespace mirvane
