#include "models/poi/poi_editor_model.h"

#include <algorithm>
#include <charconv>

#include "colour/bitmap_import.h"
#include "colour/palette.h"
#include "document/encoding.h"
#include "document/sorts.h"
#include "graphics/flood_fill.h"
#include "lang/lookup.h"
#include "models/poi/extra_poi_icons.h"
#include "models/poi/import_bitmap_model.h"

namespace mirvane {

namespace {

constexpr int kNewPoiSide = 16;
constexpr std::uint8_t kNightFlag = 0x02;
constexpr std::uint8_t kBitmapFlag = 0x01;
constexpr std::uint8_t kLabelsFlag = 0x04;
constexpr std::uint8_t kExtendedLabelFlag = 0x08;

std::string EditText(std::string_view defaultText, std::string_view key) {
    return LookupText("Editer", defaultText, key);
}

std::optional<int> HexValue(const std::string& text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

// The colours shown, transparent pixels as one value of their own, as the
// paint pot compares them.
bool SameLabels(const LabelStringsModel& a, const LabelStringsModel& b) {
    return a.Enabled() == b.Enabled() && a.Rows() == b.Rows() && a.ExtendedEnabled() == b.ExtendedEnabled() &&
           a.Extended() == b.Extended();
}

void KeepUnfilledInStep(WorkingBitmap& b) {
    if (b.Unfilled.empty()) return;
    b.Unfilled.resize(b.Bitmap.Palette.size(), false);
    if (std::ranges::find(b.Unfilled, true) == b.Unfilled.end()) b.Unfilled.clear();
}

Grid<std::optional<std::uint32_t>> ShownColours(const WorkingBitmap& b) {
    Grid<std::optional<std::uint32_t>> colours(b.Width, b.Height);
    for (int y = 0; y < b.Height; ++y)
        for (int x = 0; x < b.Width; ++x) colours.Set({x, y}, b.ShownColour({x, y}));
    return colours;
}

}  // namespace

// What the pen draws on: the bitmap of the stroke, through its own Paint.
class PoiEditorModel::Canvas : public EditTarget<PoiPaint> {
public:
    explicit Canvas(WorkingBitmap& bitmap, const PoiPaint& paint) : bitmap_(bitmap) {
        primary = paint;
        secondary = paint;  // both buttons draw alike
    }
    bool Paint(Cell cell, const PoiPaint& value) override { return bitmap_.Paint(cell, value); }

private:
    WorkingBitmap& bitmap_;
};

PoiClipboard& SharedPoiClipboard() {
    static PoiClipboard clipboard;
    return clipboard;
}

PoiEditorModel::PoiEditorModel(UserPrompts& prompts, PoiClipboard& clipboard)
    : prompts_(prompts), clipboard_(clipboard) {
    LoadNew();
}

void PoiEditorModel::LoadNew() {
    loaded_ = PoiRecord{};
    loaded_.Flags = kBitmapFlag;
    Type.clear();
    SubType.clear();
    history_.Reset({WorkingBitmap::Blank(kNewPoiSide, kNewPoiSide), std::nullopt});
    nightShown_ = false;
    Paint = PoiPaint{};
    HasBitmap = BitmapFlag = true;
    Labels = loadedLabels_ = LabelStringsModel{};
}

void PoiEditorModel::LoadLabels(const PoiRecord& record) {
    Labels = LabelStringsModel{};
    if (record.Flags & kLabelsFlag) Labels.LoadLabels(record.LabelBytes);
    if (record.Flags & kExtendedLabelFlag) Labels.LoadExtended(record.ExtendedLabelBytes);
    loadedLabels_ = Labels;
}

void PoiEditorModel::Load(const PoiRecord& record) {
    loaded_ = record;
    Type = record.Type;
    SubType = record.SubType;
    State state;
    state.Day = WorkingBitmap::FromRecord(record.Bitmaps[0], record.Width, record.Height);
    if (record.Flags & kNightFlag)
        state.Night = WorkingBitmap::FromRecord(record.Bitmaps[1], record.Width, record.Height);
    history_.Reset(std::move(state));
    nightShown_ = false;
    Paint = PoiPaint{};
    HasBitmap = record.Width > 0 && record.Height > 0;
    BitmapFlag = record.Flags & kBitmapFlag;
    LoadLabels(record);
    if (Shown().HasPalette()) PickEntry(0);
}

const WorkingBitmap& PoiEditorModel::Shown() const {
    return NightShown() ? *Current().Night : Current().Day;
}

void PoiEditorModel::PickEntry(int index) {
    const WorkingBitmap& b = Shown();
    if (index < 0 || index >= b.ColourCount()) return;
    const PaletteEntry& entry = b.Bitmap.Palette[static_cast<std::size_t>(index)];
    Paint = {false, static_cast<std::uint8_t>(index), entry.Colour, entry.Alpha};
}

void PoiEditorModel::PickTransparent() {
    if (Shown().Bitmap.ColourMode == 32) return;  // alpha does it in that mode
    Paint.Transparent = true;
}

void PoiEditorModel::Commit(State state) {
    if (!(state == history_.Current())) history_.Commit(std::move(state));
}

void PoiEditorModel::CommitShown(WorkingBitmap bitmap) {
    State state = Current();
    (NightShown() ? *state.Night : state.Day) = std::move(bitmap);
    Commit(std::move(state));
}

void PoiEditorModel::Press(Cell cell, MouseButton button) {
    const WorkingBitmap& shown = Shown();
    if (!shown.Contains(cell)) return;
    if (Tool == PoiTool::Pipette) {
        Paint = shown.PaintAt(cell);
        Tool = PoiTool::Pen;  // the pipette lasts one sample
        return;
    }
    if (!CheckPaletteFilled(shown, true)) return;
    WorkingBitmap bitmap = shown;
    if (Tool == PoiTool::Fill) {
        for (const Cell& c : RegionAt(ShownColours(bitmap), cell)) bitmap.Paint(c, Paint);
        CommitShown(std::move(bitmap));
        return;
    }
    stroke_ = std::move(bitmap);
    Canvas canvas(*stroke_, Paint);
    pen_.Press(canvas, cell, button);
}

void PoiEditorModel::Move(Cell cell) {
    if (!stroke_) return;
    Canvas canvas(*stroke_, Paint);
    pen_.Move(canvas, cell);
}

void PoiEditorModel::Release(Cell cell) {
    if (!stroke_) return;
    Canvas canvas(*stroke_, Paint);
    if (pen_.Release(canvas, cell)) CommitShown(std::move(*stroke_));
    stroke_.reset();
}

void PoiEditorModel::EraseAll() {
    WorkingBitmap b = Shown();
    FillAll(b, Paint);
    CommitShown(std::move(b));
}

void PoiEditorModel::Invert() {
    WorkingBitmap b = Shown();
    InvertColours(b);
    if (b.HasPalette() && !Paint.Transparent) Paint.Colour = 0xFFFFFF - (Paint.Colour & 0xFFFFFF);
    CommitShown(std::move(b));
}

void PoiEditorModel::Rotate(Turn turn) {
    WorkingBitmap b = Shown();
    Turn90(b, turn);
    CommitShown(std::move(b));
}

void PoiEditorModel::Flip(bool horizontal) {
    WorkingBitmap b = Shown();
    Mirror(b, horizontal);
    CommitShown(std::move(b));
}

void PoiEditorModel::ShiftBy(int dx, int dy) {
    WorkingBitmap b = Shown();
    ShiftByOne(b, dx, dy);
    CommitShown(std::move(b));
}

void PoiEditorModel::Copy() {
    if (CheckWritable(Shown())) clipboard_.Bitmap = Shown();
}

void PoiEditorModel::Paste() {
    if (!clipboard_.Bitmap) return;
    CommitShown(*clipboard_.Bitmap);
    if (Shown().HasPalette()) PickEntry(0);
}

void PoiEditorModel::SetNightBitmap(bool different) {
    State state = Current();
    if (different && !state.Night) state.Night = state.Day;
    if (!different) {
        state.Night.reset();
        nightShown_ = false;
    }
    Commit(std::move(state));
}

bool PoiEditorModel::Ask(const std::string& title, std::initializer_list<std::string_view> lines) const {
    std::string text;
    for (std::string_view line : lines) text += (text.empty() ? "" : "\r\n") + std::string(line);
    return prompts_.AskYesNo(title, text, false);
}

bool PoiEditorModel::SetColourMode(int modeIndex) {
    WorkingBitmap b = Shown();
    const int from = b.Bitmap.ColourMode, to = modeIndex * 16;
    if (modeIndex < 0 || modeIndex > 2 || from == to) return false;
    DecodedBitmap& d = b.Bitmap;
    const auto answerYes = [&](std::string_view a, std::string_view ak, std::string_view bt, std::string_view bk,
                               std::string_view c, std::string_view ck) {
        return Ask(EditText("Problème de transparence", "msgConvertir2e"),
                   {EditText(a, ak), EditText(bt, bk), EditText(c, ck), EditText("Voulez-vous continuer?", "msgConvertir2d")});
    };
    if (from == 16 && to == 0 && b.HasTransparentPixel()) {
        prompts_.Inform(EditText("Conversion impossible", "msgConvertir1d"),
                        EditText("Impossible de convertir ce bitmap en colormode 00 ,", "msgConvertir1a") + "\r\n" +
                            EditText("car il contient des pixels transparents ,", "msgConvertir1b") + "\r\n" +
                            EditText("et ce mode de couleur ne permet pas la transparence.", "msgConvertir1c"));
        return false;
    }
    if (from == 32 && to == 0 &&
        !answerYes("Vous allez convertir ce bitmap en mode couleur 00 ,", "msgConvertir2a",
                   "mais ce mode ne permet pas la transparence.", "msgConvertir2b",
                   "Vous allez donc perdre tous les effets de transparence.", "msgConvertir2c"))
        return false;
    if (from == 32 && to == 16 &&
        !answerYes("Vous allez convertir ce bitmap en mode couleur 10 ,", "msgConvertir3a",
                   "mais ce mode ne permet pas la transparence la transparence partielle.", "msgConvertir3b",
                   "Vous allez donc perdre tous les effets de transparence partielle, seule la transparence "
                   "totale sera conservée.",
                   "msgConvertir3c"))
        return false;

    const int oldTransparent = b.TransparentIndex();
    std::vector<Cell> fullyTransparent;  // alpha 15, which stays transparent in mode 16
    for (int y = 0; y < b.Height; ++y)
        for (int x = 0; x < b.Width; ++x)
            if (!b.ShownColour({x, y})) fullyTransparent.push_back({x, y});
    if (from == 16 && to == 32 && b.HasPalette()) {
        d.Palette.push_back({0x000000, kTransparentAlpha});  // the entry transparent pixels take
    }
    if (!b.HasPalette() && to == 32 && d.Alpha.Empty()) d.Alpha = AlphaGrid(b.Width, b.Height, kOpaqueAlpha);
    d.ColourMode = static_cast<std::uint8_t>(to);
    if (from == 32 && to == 16 && !b.HasPalette()) d.KeyColour = UnusedKeyColour(b);
    if (!b.HasPalette() && to != 32) d.Alpha = AlphaGrid();
    if (from == 0 && to == 16 && !b.HasPalette()) d.KeyColour = UnusedKeyColour(b);
    RepadIndices(b, oldTransparent);
    for (const Cell& c : fullyTransparent) {
        if (to == 16) b.Paint(c, PoiPaint{.Transparent = true});
        else if (to == 32 && b.HasPalette()) b.Paint(c, PoiPaint{.Index = static_cast<std::uint8_t>(b.ColourCount() - 1)});
        else if (to == 32) d.Alpha.Set(c, kTransparentAlpha);
    }
    CommitShown(std::move(b));
    return true;
}

bool PoiEditorModel::SetColourCount(int count) {
    WorkingBitmap b = Shown();
    const int previous = b.ColourCount();
    if (count < 0 || count > kMaxPaletteColours || count == previous) return false;
    DecodedBitmap& d = b.Bitmap;
    const int oldTransparent = b.TransparentIndex();
    if (count == 0) {
        if (!Ask("Mirvane",
                 {EditText("Attention, vous allez convertir un bitmap avec palette en un bitmap sans palette.",
                           "msgConvertir4a"),
                  EditText("Cette transformation est irréversible.", "msgConvertir4b"),
                  EditText("Voulez-vous continuer?", "msgConvertir2d")}))
            return false;
        WorkingBitmap truth{b.Width, b.Height, {}, {}};
        truth.Bitmap.ColourMode = d.ColourMode;
        truth.Bitmap.Colours = ColourGrid(b.Width, b.Height);
        if (d.ColourMode == 32) truth.Bitmap.Alpha = AlphaGrid(b.Width, b.Height);
        truth.Bitmap.KeyColour = UnusedKeyColour(b);
        for (int y = 0; y < b.Height; ++y)
            for (int x = 0; x < b.Width; ++x) {
                const std::uint8_t index = d.Indices.At({x, y});
                PoiPaint paint{.Transparent = index >= previous};
                if (index < previous) paint = {false, 0, d.Palette[index].Colour, d.Palette[index].Alpha};
                truth.Paint({x, y}, paint);
            }
        Paint = PoiPaint{};
        CommitShown(std::move(truth));
        return true;
    }
    if (previous == 0) {
        prompts_.Inform("Mirvane", EditText("Ce bitmap n'a pas de palette.(True colors)", "lblInfosTrueColors1"));
        return false;
    }
    if (count > previous) {
        d.Palette.resize(static_cast<std::size_t>(count), PaletteEntry{0xFFFFFF, kOpaqueAlpha});
        KeepUnfilledInStep(b);
        RepadIndices(b, oldTransparent);
        CommitShown(std::move(b));
        return true;
    }
    if (!ReduceColours(b, count)) return false;
    CommitShown(std::move(b));
    PickEntry(0);
    return true;
}

bool PoiEditorModel::ReduceColours(WorkingBitmap& b, int count) {
    DecodedBitmap& d = b.Bitmap;
    const int previous = b.ColourCount();
    std::vector<Colour> filled;
    for (int i = 0; i < previous; ++i)
        if (b.EntryFilled(i)) filled.push_back(static_cast<Colour>(d.Palette[static_cast<std::size_t>(i)].Colour));
    const bool thinning = static_cast<int>(filled.size()) > count;
    if (thinning &&
        !Ask(EditText("Suppression de couleurs", "msgDiminuerNombreCouleurs4"),
             {EditText("Attention,vous allez diminuer le nombre de couleurs du bitmap.", "msgDiminuerNombreCouleurs1"),
              EditText("Les pixels dont la couleur va être supprimée, vont prendre la couleur la plus proche parmi "
                       "celles qui restent.",
                       "msgDiminuerNombreCouleurs2"),
              EditText("Voulez-vous continuer?", "msgDiminuerNombreCouleurs3")}))
        return false;
    std::vector<Colour> kept = filled;
    if (thinning) ThinColourList(kept, static_cast<std::int16_t>(count));
    std::vector<PaletteEntry> palette;
    for (Colour colour : kept) {
        const auto same = std::ranges::find(d.Palette, static_cast<std::uint32_t>(colour), &PaletteEntry::Colour);
        palette.push_back({static_cast<std::uint32_t>(colour), same->Alpha});
    }
    std::vector<bool> unfilled(static_cast<std::size_t>(count), false);
    for (std::size_t i = kept.size(); i < unfilled.size(); ++i) unfilled[i] = true;
    palette.resize(static_cast<std::size_t>(count), PaletteEntry{0xFFFFFF, kOpaqueAlpha});
    const auto transparent = static_cast<std::uint8_t>(count);
    IndexGrid indices(b.Width, b.Height, transparent);
    for (int y = 0; y < b.Height; ++y)
        for (int x = 0; x < b.Width; ++x) {
            const std::uint8_t index = d.Indices.At({x, y});
            if (index >= previous || !b.EntryFilled(index)) continue;
            const Colour colour = static_cast<Colour>(d.Palette[index].Colour);
            if (thinning) {
                indices.Set({x, y}, static_cast<std::uint8_t>(NearestColourIndex(colour, kept)));
            } else if (const auto same = std::ranges::find(kept, colour); same != kept.end()) {
                indices.Set({x, y}, static_cast<std::uint8_t>(same - kept.begin()));
            }
        }
    d.Palette = std::move(palette);
    d.Indices = std::move(indices);
    b.Unfilled = std::move(unfilled);
    KeepUnfilledInStep(b);
    RepadIndices(b, count);
    return true;
}

bool PoiEditorModel::CheckPaletteFilled(const WorkingBitmap& b, bool noColourChosen) const {
    const bool filled = noColourChosen ? (Paint.Transparent || !b.HasPalette() || b.EntryFilled(Paint.Index))
                                       : b.PaletteComplete();
    if (filled) return true;
    std::string text = EditText("Il faut remplir la palette", "msgPaletteIncomplete1");
    if (noColourChosen) text += "\r\n\r\nAucune couleur n'a été sélectionnée.";
    prompts_.Inform(EditText("Palette incomplète", "msgPaletteIncomplete2"), text);
    return false;
}

bool PoiEditorModel::CheckWritable(const WorkingBitmap& b) const {
    if (!b.HasPalette() || b.Bitmap.ColourMode == 16 || !b.HasTransparentPixel()) return true;
    bool outOfPalette = false;
    for (int y = 0; y < b.Height; ++y)
        for (int x = 0; x < b.Width; ++x) outOfPalette |= b.Bitmap.Indices.At({x, y}) >= b.ColourCount();
    if (!outOfPalette) return true;  // alpha 15 entries in mode 32
    if (b.Bitmap.ColourMode == 0)
        prompts_.Warn("Mirvane", EditText("Le bitmap ne peut pas être sauvegardé en colormode 00, car il contient "
                                          "des pixels transparents.",
                                          "msgBitmapErreur1") +
                                     "\r\n" +
                                     EditText("Veuillez l'enregistrer en colormode 10 , ou bien supprimer les pixels "
                                              "transparents",
                                              "msgBitmapErreur2"));
    else
        prompts_.Warn("Mirvane",
                      EditText("Le bitmap ne peut pas être sauvegardé en colormode 32, car il contient des pixels "
                               "transparents.",
                               "msgBitmapErreur3") +
                          "\r\n" +
                          EditText("Veuillez affecter une couleur à ces pixels puis enregistrer le bitmap en "
                                   "colormode 32,",
                                   "msgBitmapErreur4") +
                          "\r\n" +
                          EditText("en leur attribuant un canal alpha égal à 15 pour rendre cette couleur "
                                   "transparente.",
                                   "msgBitmapErreur5"));
    return false;
}

std::optional<PoiRecord> PoiEditorModel::BuildRecord() const {
    for (const auto& [field, key] : {std::pair{&Type, "Type"}, std::pair{&SubType, "SubType"}}) {
        if (!field->empty()) continue;
        const std::string name = EditText(key, key);
        prompts_.Inform(name + " " + EditText("absent", "msgAbsent"),
                        EditText("Il faut indiquer le ", "msgEntrer") + " " + name + ".");
        return std::nullopt;
    }
    const State& s = Current();
    PoiRecord record = loaded_;
    // Typed "2f" is stored as the lists write it, "02f"; an unchanged value keeps its text.
    const auto text = [](const std::string& typed, const std::string& loaded, std::string (*format)(int)) {
        const auto value = HexValue(typed);
        if (!value) return typed;
        return value == HexValue(loaded) ? loaded : format(*value);
    };
    record.Type = text(Type, loaded_.Type, TypeText);
    record.SubType = text(SubType, loaded_.SubType, SubTypeText);
    record.Flags = static_cast<std::uint8_t>((record.Flags & ~(kBitmapFlag | kLabelsFlag | kExtendedLabelFlag)) |
                                             (BitmapFlag ? kBitmapFlag : 0) | (Labels.Enabled() ? kLabelsFlag : 0) |
                                             (Labels.ExtendedEnabled() ? kExtendedLabelFlag : 0));
    if (!SameLabels(Labels, loadedLabels_)) {
        record.LabelBytes = Labels.LabelBytes();
        record.ExtendedLabelBytes = Labels.ExtendedLabelBytes();
    }
    if (!HasBitmap) {
        // A POI loaded without a size keeps its bytes; one whose bitmap was
        // switched off stores no colours.
        if (loaded_.Width == 0 || loaded_.Height == 0) return record;
        record.Width = record.Height = 0;
        record.Bitmaps = {};
        record.Flags &= static_cast<std::uint8_t>(~kNightFlag);
        return record;
    }
    if (!CheckPaletteFilled(s.Day, false) || (s.Night && !CheckPaletteFilled(*s.Night, false))) return std::nullopt;
    if (!CheckWritable(s.Day) || (s.Night && !CheckWritable(*s.Night))) return std::nullopt;
    if (s.Night && (s.Night->Width != s.Day.Width || s.Night->Height != s.Day.Height)) {
        prompts_.Inform("Mirvane", EditText("Le bitmap de jour et le bitmap de nuit doivent avoir la même hauteur "
                                            "et la même largeur",
                                            "msgMemeTaille"));
        return std::nullopt;
    }
    record.Width = static_cast<std::uint8_t>(s.Day.Width);
    record.Height = static_cast<std::uint8_t>(s.Day.Height);
    record.Bitmaps[0] = s.Day.ToRecord();
    record.Bitmaps[1] = s.Night ? s.Night->ToRecord() : PoiBitmap{};
    record.Flags = static_cast<std::uint8_t>((record.Flags & ~kNightFlag) | (s.Night ? kNightFlag : 0));
    return record;
}

std::optional<int> PoiEditorModel::Save(Document& doc, std::optional<int> replacing) const {
    auto record = BuildRecord();
    if (!record) return std::nullopt;
    const auto type = HexValue(record->Type), subType = HexValue(record->SubType);
    for (int i = 0; i < doc.PoiCount(); ++i) {
        const PoiRecord& other = doc.Pois[static_cast<std::size_t>(i)];
        if (i == replacing || HexValue(other.Type) != type || HexValue(other.SubType) != subType) continue;
        prompts_.Inform(EditText("Erreur de choix du Type et/ou du SubType", "msgErreurchoixType"),
                        EditText("Il existe déjà un POI de type 0x", "msgPOIExiste1") + TypeText(type.value_or(0)) +
                            " " + EditText("et de subtype 0x", "msgPolygoneExiste2") + SubTypeText(subType.value_or(0)));
        return std::nullopt;
    }
    if (replacing) doc.Pois[static_cast<std::size_t>(*replacing)] = *record;
    else doc.Pois.push_back(*record);
    SortPois(doc.Pois);
    const auto stored = std::ranges::find_if(doc.Pois, [&](const PoiRecord& r) {
        return HexValue(r.Type) == type && HexValue(r.SubType) == subType;
    });
    return static_cast<int>(stored - doc.Pois.begin());
}

bool PoiEditorModel::SaveSubIcon(Document& doc, int group, int subIcon) const {
    const auto record = BuildRecord();
    return record && WriteSubIcon(doc, group, subIcon, *record);
}

void PoiEditorModel::Resize(int width, int height) {
    if (width < 1 || height < 1 || width > kMaxPoiSide || height > kMaxPoiSide) return;
    WorkingBitmap b = Shown();
    if (b.Width == 0 || b.Height == 0) b = WorkingBitmap::Blank(width, height);
    ResizeBitmap(b, width, height);
    CommitShown(std::move(b));
}

void PoiEditorModel::SetEntry(int index, std::uint32_t colour, std::uint8_t alpha) {
    WorkingBitmap b = Shown();
    if (index < 0 || index >= b.ColourCount()) return;
    PaletteEntry& entry = b.Bitmap.Palette[static_cast<std::size_t>(index)];
    entry.Colour = colour & 0xFFFFFF;
    if (b.Bitmap.ColourMode == kModeAlpha) entry.Alpha = alpha;
    if (!b.EntryFilled(index)) b.Unfilled[static_cast<std::size_t>(index)] = false;
    KeepUnfilledInStep(b);
    CommitShown(std::move(b));
    PickEntry(index);
}

void PoiEditorModel::AddColour(std::uint32_t colour, std::uint8_t alpha) {
    WorkingBitmap b = Shown();
    if (!b.HasPalette() || b.ColourCount() >= kMaxPaletteColours) return;
    const int oldTransparent = b.TransparentIndex();
    b.Bitmap.Palette.push_back({colour & 0xFFFFFF, b.Bitmap.ColourMode == kModeAlpha ? alpha : kOpaqueAlpha});
    KeepUnfilledInStep(b);
    RepadIndices(b, oldTransparent);
    CommitShown(std::move(b));
    PickEntry(Shown().ColourCount() - 1);
}

bool PoiEditorModel::RemoveColour() {
    WorkingBitmap b = Shown();
    const int count = b.ColourCount();
    const int removed = Paint.Index;
    if (!b.HasPalette() || Paint.Transparent || removed >= count) return false;
    DecodedBitmap& d = b.Bitmap;
    const std::uint32_t colour = d.Palette[static_cast<std::size_t>(removed)].Colour;
    bool toTransparent = false;
    // The entries that stay, by their index before the removal.
    std::vector<int> others;
    std::vector<Colour> otherColours;
    if (b.EntryFilled(removed)) {
        if (d.ColourMode == kModeTransparentColour)
            toTransparent = Ask(EditText("Remplacer par des pixels transparents?", "msgRemplacerParPixeltransparent2"),
                                {EditText("Voulez-vous que les pixels de la couleur supprimée deviennent transparents?",
                                          "msgRemplacerParPixelTransparent1")});
        for (int i = 0; i < count; ++i)
            if (i != removed && b.EntryFilled(i)) {
                others.push_back(i);
                otherColours.push_back(static_cast<Colour>(d.Palette[static_cast<std::size_t>(i)].Colour));
            }
        if (!toTransparent && others.empty()) {
            // The only colour: every pixel turns transparent, and the entry waits for a colour.
            for (int y = 0; y < b.Height; ++y)
                for (int x = 0; x < b.Width; ++x) d.Indices.Set({x, y}, b.TransparentIndex());
            b.Unfilled.assign(static_cast<std::size_t>(count), false);
            b.Unfilled[static_cast<std::size_t>(removed)] = true;
            CommitShown(std::move(b));
            Paint = PoiPaint{.Transparent = true};
            return true;
        }
    }
    const int nearest = others.empty() ? 0 : others[static_cast<std::size_t>(
                                                 NearestColourIndex(static_cast<Colour>(colour), otherColours))];
    const auto newTransparent = static_cast<std::uint8_t>(count - 1);
    const auto moved = [&](int index) { return static_cast<std::uint8_t>(index > removed ? index - 1 : index); };
    for (int y = 0; y < b.Height; ++y)
        for (int x = 0; x < b.Width; ++x) {
            const int index = d.Indices.At({x, y});
            std::uint8_t now = moved(index);
            if (index >= count || (index == removed && toTransparent)) now = newTransparent;
            else if (index == removed) now = moved(nearest);
            d.Indices.Set({x, y}, now);
        }
    d.Palette.erase(d.Palette.begin() + removed);
    if (!b.Unfilled.empty()) b.Unfilled.erase(b.Unfilled.begin() + removed);
    KeepUnfilledInStep(b);
    RepadIndices(b, newTransparent);
    CommitShown(std::move(b));
    PickEntry(0);
    return true;
}

void PoiEditorModel::SetAlphaOfAll(std::uint8_t alpha) {
    WorkingBitmap b = Shown();
    DecodedBitmap& d = b.Bitmap;
    if (d.ColourMode != kModeAlpha) return;
    if (b.HasPalette())
        for (PaletteEntry& entry : d.Palette) entry.Alpha = alpha;
    else
        d.Alpha.Fill(alpha);
    Paint.Alpha = alpha;
    CommitShown(std::move(b));
}

void PoiEditorModel::SetPixelAlpha(Cell cell, std::uint8_t alpha) {
    WorkingBitmap b = Shown();
    if (b.HasPalette() || b.Bitmap.ColourMode != kModeAlpha || !b.Contains(cell)) return;
    b.Bitmap.Alpha.Set(cell, alpha);
    CommitShown(std::move(b));
}

bool PoiEditorModel::AllGarminColours() const {
    const WorkingBitmap& b = Shown();
    if (b.HasPalette()) {
        for (int i = 0; i < b.ColourCount(); ++i)
            if (b.EntryFilled(i) && !IsGarminColour(static_cast<Colour>(b.Bitmap.Palette[static_cast<std::size_t>(i)].Colour)))
                return false;
        return true;
    }
    for (int y = 0; y < b.Height; ++y)
        for (int x = 0; x < b.Width; ++x)
            if (const auto colour = b.ShownColour({x, y}); colour && !IsGarminColour(static_cast<Colour>(*colour)))
                return false;
    return true;
}

void PoiEditorModel::UseGarminColours() {
    WorkingBitmap b = Shown();
    DecodedBitmap& d = b.Bitmap;
    const auto garmin = [](std::uint32_t colour) {
        return static_cast<std::uint32_t>(NearestGarminColour(static_cast<Colour>(colour)));
    };
    if (b.HasPalette()) {
        for (PaletteEntry& entry : d.Palette) entry.Colour = garmin(entry.Colour);
    } else {
        for (int y = 0; y < b.Height; ++y)
            for (int x = 0; x < b.Width; ++x)
                if (b.ShownColour({x, y})) d.Colours.Set({x, y}, garmin(d.Colours.At({x, y})));
    }
    const bool palette = b.HasPalette();
    CommitShown(std::move(b));
    if (palette && !Paint.Transparent) PickEntry(Paint.Index);
}

std::optional<std::uint8_t> PoiEditorModel::AlphaFromText(const std::string& text) {
    if (text.empty() || text.size() > 2 || text.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    const int number = std::stoi(text);
    if (number > kTransparentAlpha) return std::nullopt;
    return static_cast<std::uint8_t>(number);
}

void PoiEditorModel::TakeImport(const ImportedBitmap& imported) {
    if (imported.Width < 1 || imported.Height < 1) return;
    CommitShown(BitmapOfImport(imported));
    Paint = PoiPaint{};
    if (Shown().HasPalette()) PickEntry(0);
}

bool PoiEditorModel::PastePicture(const RgbaPicture& picture) {
    if (picture.Empty()) return false;
    const PictureSize fitted = FitWithin(picture.Width, picture.Height, kMaxPoiSide);
    const RgbaPicture scaled = ScalePicture(picture, std::max(fitted.Width, 1), std::max(fitted.Height, 1));
    const auto imported = ImportWithQuestion(scaled, prompts_);
    if (!imported) return false;
    TakeImport(*imported);
    return true;
}

}  // namespace mirvane
