#include "models/mapsets/install_typ_model.h"

#include "base/file_io.h"
#include "base/numbers.h"
#include "document/records.h"
#include "lang/lookup.h"
#include "mapsets/info_file.h"
#include "mapsets/typ_ids.h"
#include "models/mapsets/clear_cache_model.h"

namespace mirvane {

namespace fs = std::filesystem;

namespace {

std::string MapsetsText(std::string_view defaultText, std::string_view key) {
    return LookupText("Mapsets", defaultText, key);
}

std::string TypFilter() { return MapsetsText("Fichiers typ", "Filtre") + " (*.typ)"; }

}  // namespace

InstallTypModel::InstallTypModel(MapsetEnvironment& environment, UserPrompts& prompts, TypOpener openTyp)
    : environment_(environment), prompts_(prompts), openTyp_(std::move(openTyp)) {}

void InstallTypModel::WarnNotWritten(const std::string& path) {
    prompts_.Warn("Mirvane", MapsetsText("Ce fichier n'a pas pu être écrit :", "msgEcritureEchec") + kLineBreak + path);
}

MapsetRow* InstallTypModel::Selected() {
    if (selected_ < 0 || selected_ >= static_cast<int>(rows_.size())) return nullptr;
    return &rows_[static_cast<std::size_t>(selected_)];
}

void InstallTypModel::List() {
    rows_ = ListMapsets(environment_);
    if (rows_.empty()) {
        MapsetRow none;
        none.Name = MapsetsText("Aucun mapset installé.", "txtPasdeMapset");
        rows_.push_back(none);
    }
    selected_ = 0;
}

void InstallTypModel::Associate() { Change(true); }

void InstallTypModel::Dissociate() { Change(false); }

void InstallTypModel::Change(bool associate) {
    MapsetRow* row = Selected();
    if (!row) return;
    bool changed = false;
    switch (KindOf(*row)) {
        case MapsetKind::Family: changed = ChangeRegistry(*row, associate); break;
        case MapsetKind::Installed: changed = ChangeInfoFile(*row, associate); break;
        case MapsetKind::Other: break;
    }
    if (!changed) return;
    const std::string question = MapsetsText("Voulez-vous effacer le cache de Mapsource?", "msgEffacerCache1") +
                                 kLineBreak + kLineBreak +
                                 MapsetsText("Le nouveau TYP sera alors pris en compte dès l'ouverture de Mapsource.",
                                             "msgEffacerCache2");
    if (prompts_.AskYesNo("Mirvane", question, false)) ClearCaches();
}

bool InstallTypModel::ChangeRegistry(MapsetRow& row, bool associate) {
    RegistryWriter* registry = environment_.RegistryChanges.get();
    if (!registry) return false;
    const std::string key = RegistryKeyOf(row);
    if (!associate) {
        if (const RegistryFailure failure = registry->DeleteValue(key, "TYP")) {
            prompts_.Warn("Mirvane", *failure);
            return false;
        }
        row.Typ.clear();
        return true;
    }
    const std::optional<fs::path> typ = ChooseTyp();
    if (!typ) return false;
    const std::string value = environment_.Paths.FromHost(*typ);
    if (const RegistryFailure failure = registry->SetText(key, "TYP", value)) {
        prompts_.Warn("Mirvane", *failure);
        return false;
    }
    row.Typ = value;
    AdjustFidPid(*typ, row);
    return true;
}

bool InstallTypModel::ChangeInfoFile(MapsetRow& row, bool associate) {
    const std::string xmlProblem = MapsetsText("Problème avec le fichier info.xml du mapset", "msgErreurXml");
    const std::optional<InfoFile> info = FindInfoFile(row.HostFolder);
    std::string text;
    if (!info || !ReadWholeFile(info->Path, text)) {
        prompts_.Warn("Mirvane", xmlProblem);
        return false;
    }
    std::optional<fs::path> typ;
    std::string entry;
    if (associate) {
        typ = ChooseTyp();
        if (!typ) return false;
        const char separator = environment_.Paths.Separator();
        entry = RelativePath(environment_.Paths.FromHost(*typ), row.Folder, separator);
        if (entry.empty()) {
            // The map programs find a mapset's TYP only on the mapset's own drive.
            typ = CopyToMapsetDrive(*typ, row);
            if (!typ) return false;
            entry = RelativePath(environment_.Paths.FromHost(*typ), row.Folder, separator);
            if (entry.empty()) return false;
        }
    }
    const std::optional<std::string> changed =
        associate ? WithTypEntry(text, info->Format, entry) : WithoutTypEntry(text, info->Format);
    if (!changed) {
        prompts_.Warn("Mirvane", xmlProblem);
        return false;
    }
    if (!WriteFileAtomically(info->Path, *changed).Ok()) {
        WarnNotWritten(Utf8FromPath(info->Path));
        return false;
    }
    row.Typ = entry;
    if (typ) AdjustFidPid(*typ, row);
    return true;
}

std::optional<fs::path> InstallTypModel::ChooseTyp() {
    const auto chosen = prompts_.ChooseOpenPath(MapsetsText("Choisir un fichier typ", "dlgTitre"), TypFilter());
    if (!chosen || chosen->empty()) return std::nullopt;
    return PathFromUtf8(*chosen);
}

std::optional<fs::path> InstallTypModel::CopyToMapsetDrive(const fs::path& typ, const MapsetRow& row) {
    const std::string question =
        MapsetsText("Le fichier typ sélectionné ne se trouve pas sur le même lecteur logique que le mapset.",
                    "msgErreur2a") +
        kLineBreak +
        MapsetsText("Le format des nouvelles cartes Garmin ne permet pas d'associer un fichier typ situé sur un autre "
                    "lecteur.",
                    "msgErreur2b") +
        kLineBreak + kLineBreak + MapsetsText("Voulez-vous que Mirvane copie ce fichier typ dans le lecteur", "msgErreur2c") +
        "  " + row.Folder.substr(0, 1) + MapsetsText("  , et l'installe ensuite?", "msgErreur2d");
    if (!prompts_.AskYesNo("Mirvane", question, false)) return std::nullopt;

    const std::string name = Utf8FromPath(typ.filename());
    const std::string title = MapsetsText("Copier le fichier ", "dlgTitreCopier") + name +
                              MapsetsText(" vers le disque", "msgDisque") + "  " + row.Folder.substr(0, 2);
    const auto target = prompts_.ChooseSavePath(title, name, TypFilter());
    if (!target || target->empty()) return std::nullopt;
    Bytes bytes;
    if (!ReadWholeFile(typ, bytes) || !WriteFileAtomically(PathFromUtf8(*target), bytes).Ok()) {
        WarnNotWritten(*target);
        return std::nullopt;
    }
    return PathFromUtf8(*target);
}

void InstallTypModel::AdjustFidPid(const fs::path& typ, const MapsetRow& row) {
    const TypIds wanted = MapsetIdsForTyp(LeadingNumber(row.Fid), LeadingNumber(row.Pid));
    const std::optional<TypIds> current = ReadTypIds(typ);
    if (!current || *current == wanted) return;
    const std::string question =
        MapsetsText("Le FID et/ou le PID du nouveau fichier TYP ne correspondent pas au FID et/ou PID du mapset.",
                    "msgFID1") +
        kLineBreak + kLineBreak + MapsetsText("Voulez-vous que Mirvane les ajustent dans le fichier TYP?", "msgFID2");
    if (!prompts_.AskYesNo("Mirvane", question, false)) return;
    if (!WriteTypIds(typ, wanted))
        WarnNotWritten(Utf8FromPath(typ));
}

bool InstallTypModel::OpenAssociatedTyp() {
    const MapsetRow* row = Selected();
    if (!row) return false;
    if (row->Typ.empty()) {
        prompts_.Inform("Mirvane", MapsetsText("Aucun fichier TYP n'est associé à ce mapset.", "msgPasdeTYP"));
        return false;
    }
    // An info file names its TYP from the mapset's folder.
    const std::string typ = KindOf(*row) == MapsetKind::Installed
                                ? AbsolutePath(row->Typ, row->Folder, environment_.Paths.Separator())
                                : row->Typ;
    return openTyp_(Utf8FromPath(environment_.Paths.ToHost(typ)));
}

void InstallTypModel::ClearCaches() { ClearCacheModel(environment_.CacheFolders, prompts_).Run(); }

}  // namespace mirvane
