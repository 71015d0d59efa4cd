// frmMapsets: the mapsets installed on the machine, and tying a TYP to one of
// them so that Garmin's map programs draw that map with it. A mapset of the
// registry takes the TYP as a registry value; one installed in a folder takes
// it as an entry of its info file, relative to the folder.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "mapsets/mapset_catalog.h"
#include "mapsets/mapset_environment.h"
#include "models/shell/user_prompts.h"

namespace mirvane {

class InstallTypModel {
public:
    // Opens a binary TYP in the main window; true when it was opened.
    using TypOpener = std::function<bool(const std::string& path)>;

    InstallTypModel(MapsetEnvironment& environment, UserPrompts& prompts, TypOpener openTyp);

    // lstvMapsets
    const std::vector<MapsetRow>& Rows() const { return rows_; }
    int SelectedRow() const { return selected_; }
    void SelectRow(int row) { selected_ = row; }

    // Form_Load: lists the mapsets and selects the first; with none, one row
    // says so.
    void List();
    // cmdOK: asks for a TYP and ties it to the selected mapset.
    void Associate();
    // cmdSupprimer: unties the selected mapset's TYP.
    void Dissociate();
    // cmdOuvrirTyp: opens the selected mapset's TYP; true when it was opened.
    bool OpenAssociatedTyp();
    // cmdEffacerCache
    void ClearCaches();

private:
    // One routine for both, as the two share every step but the change.
    void Change(bool associate);
    bool ChangeRegistry(MapsetRow& row, bool associate);
    bool ChangeInfoFile(MapsetRow& row, bool associate);
    std::optional<std::filesystem::path> ChooseTyp();
    // Offers to copy a TYP to the mapset's drive; the copy, or no value.
    std::optional<std::filesystem::path> CopyToMapsetDrive(const std::filesystem::path& typ, const MapsetRow& row);
    // ajusterFIDPID
    void AdjustFidPid(const std::filesystem::path& typ, const MapsetRow& row);
    void WarnNotWritten(const std::string& path);
    MapsetRow* Selected();

    MapsetEnvironment& environment_;
    UserPrompts& prompts_;
    TypOpener openTyp_;
    std::vector<MapsetRow> rows_;
    int selected_ = -1;
};

}  // namespace mirvane
