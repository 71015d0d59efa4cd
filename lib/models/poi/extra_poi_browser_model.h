// frmIcones without its widgets: the groups of additional POIs read from the
// document's raw sections, the sub-icons of the chosen group with their
// sizes and pictures, the enlarged one, and the copy to the POI clipboard.
// The browser only reads the document; the POI editor changes it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "document/document.h"
#include "document/object_preview.h"
#include "models/poi/poi_editor_model.h"
#include "models/shell/user_prompts.h"

namespace mirvane {

// One sub-icon of the chosen group (a row of SousIcones).
struct SubIcon {
    int Offset = 0;   // of its Flags byte in ExtraPoiDataBytes
    int Length = 0;   // of its body, from the Flags byte on
    PoiRecord Record;  // Flags, size, bitmaps and labels, read as a POI's are
    bool Damaged = false;  // the body runs past the section or its stated length
};

// Apercu1(0) enlarges a sub-icon 8 times while both sides are below 49, else 6 times.
int EnlargementFactor(int width, int height);

class ExtraPoiBrowserModel {
public:
    static constexpr int kThumbnails = 6;  // Apercu1(1) to (6)

    ExtraPoiBrowserModel(const Document& doc, UserPrompts& prompts, PoiClipboard& clipboard);

    // rafraichir: the groups as the document holds them again; the selection is gone.
    void Refresh();
    // The rows of lstvExtraPOI, one a group, in index order.
    const std::vector<ExtraPoiRecord>& Groups() const { return doc_.ExtraPois; }
    std::string ListHeading() const;  // Label1

    // A row of lstvExtraPOI picked: its sub-icons are read, and the first is
    // enlarged unless AutoEnlargeOff. A group that cannot be read is told
    // and keeps the sub-icons read before the fault.
    void SelectGroup(int group);
    std::optional<int> SelectedGroup() const { return group_; }
    const std::vector<SubIcon>& SubIcons() const { return subIcons_; }
    std::string SubIconCountText() const;  // Label3
    std::string SubIconsHeading() const;   // Label5

    bool AutoEnlargeOff = false;  // Check1

    // A click on thumbnail `index` + 1: it alone takes the selection border,
    // and it is enlarged.
    void ClickSubIcon(int index);
    std::optional<int> Bordered() const { return bordered_; }
    std::optional<int> Enlarged() const { return enlarged_; }
    int Zoom() const;                        // of the enlarged sub-icon
    std::string EnlargedHeading() const;     // Label2
    std::string SizeText(int index) const;   // lbltaille(index + 1)
    std::string DetailText(int index) const; // size, colours and mode
    // Day picture of a sub-icon; transparent pixels are kTransparentPixel.
    PixelPicture Picture(int index) const;

    // The sub-icon cmdCopier and cmdModifier act on: the first of thumbnails
    // 1 to 4 with the border; thumbnails 5 and 6 are not looked at, so with
    // either of them bordered (or none) the first sub-icon is taken.
    std::optional<int> ActionSubIcon() const;
    // cmdCopier and cmdModifier: the POI editor holds nothing above 64 x 64.
    bool ActionsEnabled() const;
    // cmdCopier: the bitmap of ActionSubIcon into the POI clipboard; false when disabled.
    bool Copy();

private:
    bool Fits(int index) const;

    const Document& doc_;
    UserPrompts& prompts_;
    PoiClipboard& clipboard_;
    std::optional<int> group_;
    int declaredCount_ = 0;  // the group's count byte
    std::vector<SubIcon> subIcons_;
    std::optional<int> bordered_, enlarged_;
};

}  // namespace mirvane
