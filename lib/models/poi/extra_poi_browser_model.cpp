#include "models/poi/extra_poi_browser_model.h"

#include "document/bitmap_codec.h"
#include "lang/lookup.h"
#include "models/poi/extra_poi_icons.h"

namespace mirvane {

namespace {

std::string IconsText(const char* defaultText, const char* key) { return LookupText("Icones", defaultText, key); }

}  // namespace

int EnlargementFactor(int width, int height) { return width < 49 && height < 49 ? 8 : 6; }

ExtraPoiBrowserModel::ExtraPoiBrowserModel(const Document& doc, UserPrompts& prompts, PoiClipboard& clipboard)
    : doc_(doc), prompts_(prompts), clipboard_(clipboard) {
    Refresh();
}

void ExtraPoiBrowserModel::Refresh() {
    group_.reset();
    declaredCount_ = 0;
    subIcons_.clear();
    bordered_.reset();
    enlarged_.reset();
}

std::string ExtraPoiBrowserModel::ListHeading() const {
    if (doc_.ExtraPois.empty()) return IconsText(" Liste des Icônes  ( aucune icône )", "lblNoIcon");
    return IconsText("  Liste des icônes", "lblListeIcones") + "  (" + std::to_string(doc_.ExtraPois.size()) + ")";
}

void ExtraPoiBrowserModel::SelectGroup(int group) {
    subIcons_.clear();
    bordered_.reset();
    enlarged_.reset();
    declaredCount_ = 0;
    group_.reset();
    if (group < 0 || group >= static_cast<int>(doc_.ExtraPois.size())) return;
    group_ = group;
    const Bytes& data = doc_.ExtraPoiDataBytes;
    const auto start = static_cast<std::size_t>(doc_.ExtraPois[group].Offset);
    const std::vector<SubIconSpan> spans = WalkSubIcons(data, start, declaredCount_);
    const bool headerRead = start + 2 <= data.size();
    for (const SubIconSpan& span : spans) {
        SubIconBody body = ReadSubIconBody(data, span);
        subIcons_.push_back({static_cast<int>(span.BodyStart()), static_cast<int>(span.BodyLength()),
                             std::move(body.Record), body.Damaged});
    }
    const bool readable = headerRead && static_cast<int>(spans.size()) == declaredCount_;
    if (!readable)
        prompts_.Warn(IconsText("Icônes", "frmIconesCaption"),
                      IconsText("Il y a eu une erreur lors de la lecture d'icône n°", "msgErreurIcone1") +
                          std::to_string(group + 1));
    if (!AutoEnlargeOff && !subIcons_.empty()) ClickSubIcon(0);
}

std::string ExtraPoiBrowserModel::SubIconCountText() const {
    return group_ ? std::to_string(declaredCount_) : std::string();
}

std::string ExtraPoiBrowserModel::SubIconsHeading() const {
    const std::string caption = IconsText("Sous-icônes", "lblSousIcones");
    return group_ ? caption + " (" + std::to_string(declaredCount_) + ")" : " " + caption;
}

void ExtraPoiBrowserModel::ClickSubIcon(int index) {
    if (index < 0 || index >= std::min<int>(kThumbnails, static_cast<int>(subIcons_.size()))) return;
    bordered_ = index;
    enlarged_ = index;
    if (subIcons_[index].Damaged)
        prompts_.Warn(IconsText("Icônes", "frmIconesCaption"),
                      IconsText("Il y a eu une erreur lors de la lecture de la sous-icône n°", "msgErreurOuverture1") +
                          std::to_string(index + 1) + " " + IconsText("du groupe n°", "msgErreurOuverture2") +
                          std::to_string(*group_ + 1));
}

int ExtraPoiBrowserModel::Zoom() const {
    if (!enlarged_) return 8;
    const PoiRecord& r = subIcons_[*enlarged_].Record;
    return EnlargementFactor(r.Width, r.Height);
}

std::string ExtraPoiBrowserModel::EnlargedHeading() const {
    return Zoom() == 8 ? IconsText(" Sous-icône   agrandie 8 fois", "lblx8")
                       : IconsText(" Sous-icône   agrandie 6 fois", "lblx6");
}

std::string ExtraPoiBrowserModel::SizeText(int index) const {
    const PoiRecord& r = subIcons_.at(index).Record;
    return std::to_string(r.Width) + " x " + std::to_string(r.Height);
}

std::string ExtraPoiBrowserModel::DetailText(int index) const {
    const PoiRecord& r = subIcons_.at(index).Record;
    const PoiBitmap& day = r.Bitmaps[0];
    static const char kHex[] = "0123456789ABCDEF";
    const std::string colours =
        day.ColourCount == 0 ? IconsText("True colors (pas de palette)", "lblTrueColors")
                             : IconsText("Couleurs:", "lblCouleurs") + " " + std::to_string(day.ColourCount);
    return IconsText("Taille", "lblTaille") + ": " + std::to_string(r.Width) + " x  " + std::to_string(r.Height) +
           "    " + colours + "\n" + "Colormode: " + kHex[day.ColourMode >> 4] + kHex[day.ColourMode & 15];
}

PixelPicture ExtraPoiBrowserModel::Picture(int index) const {
    PixelPicture picture = PictureOfPoi(DecodePoi(subIcons_.at(index).Record));
    picture.Night.clear();
    return picture;
}

std::optional<int> ExtraPoiBrowserModel::ActionSubIcon() const {
    if (subIcons_.empty()) return std::nullopt;
    if (bordered_ && *bordered_ < 4) return bordered_;
    return 0;
}

bool ExtraPoiBrowserModel::Fits(int index) const {
    const PoiRecord& r = subIcons_.at(index).Record;
    return r.Width <= kMaxPoiSide && r.Height <= kMaxPoiSide;
}

bool ExtraPoiBrowserModel::ActionsEnabled() const {
    const std::optional<int> taken = ActionSubIcon();
    return taken && Fits(*taken) && (!enlarged_ || Fits(*enlarged_));
}

bool ExtraPoiBrowserModel::Copy() {
    if (!ActionsEnabled()) return false;
    const PoiRecord& r = subIcons_[*ActionSubIcon()].Record;
    clipboard_.Bitmap = WorkingBitmap::FromRecord(r.Bitmaps[0], r.Width, r.Height);
    return true;
}

}  // namespace mirvane
