#include "models/poi/import_bitmap_model.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/file_io.h"
#include "lang/lookup.h"

namespace mirvane {

namespace {

std::string ImportText(std::string_view defaultText, std::string_view key) {
    return LookupText("ImporterBitmap", defaultText, key);
}

// "Le fichier <path> <what>": the messages about the file named in Text1.
std::string AboutFile(const std::string& path, const std::string& what) {
    return ImportText("Le fichier", "msgFichier1") + " " + path + " " + what;
}

constexpr int kCheckSide = 6;
constexpr RasterColour kLightCheck = 0xFFFFFF;
constexpr RasterColour kDarkCheck = 0xCCCCCC;

RasterColour CheckerAt(int x, int y) { return (x / kCheckSide + y / kCheckSide) % 2 ? kDarkCheck : kLightCheck; }

// A picture word laid over a ground colour (0x00BBGGRR) by its alpha.
RasterColour Over(std::uint32_t argb, RasterColour ground) {
    const unsigned alpha = AlphaByte(argb);
    const auto mix = [alpha](unsigned top, unsigned bottom) {
        return (top * alpha + bottom * (255 - alpha) + 127) / 255;
    };
    const unsigned r = mix((argb >> 16) & 0xFF, ground & 0xFF);
    const unsigned g = mix((argb >> 8) & 0xFF, (ground >> 8) & 0xFF);
    const unsigned b = mix(argb & 0xFF, (ground >> 16) & 0xFF);
    return b << 16 | g << 8 | r;
}

// `picture` enlarged `zoom` times at (left, top) of `target`, each pixel laid
// over the ground that `groundAt` gives for the target's pixel.
template <typename GroundAt>
void DrawZoomed(const RgbaPicture& picture, int columns, int rows, int zoom, Raster& target, int left, int top,
                GroundAt groundAt) {
    for (int y = 0; y < rows * zoom; ++y)
        for (int x = 0; x < columns * zoom; ++x) {
            const int tx = left + x, ty = top + y;
            if (target.Contains(tx, ty))
                target.SetPixel(tx, ty, Over(picture.Pixel(x / zoom, y / zoom), groundAt(tx, ty)));
        }
}

}  // namespace

std::optional<ImportedBitmap> ImportWithQuestion(const RgbaPicture& picture, UserPrompts& prompts) {
    if (CountImportColours(picture) <= kMaxPaletteColours) return ImportBitmap(picture, ImportColours::AsTheyAre);
    const std::string question =
        ImportText("Le nombre de couleurs de l'image dépasse 254", "msgNombreCouleurs1") + "\r\n\r\n" +
        ImportText("Pour pouvoir importer le bitmap, le nombre de couleurs doit être réduit à 254",
                   "msgNombreCouleurs2") +
        "\r\n\r\n" + ImportText("Voulez-vous que Mirvane le fasse?", "msgNombreCouleurs3");
    if (!prompts.AskYesNo("Mirvane", question, false)) return std::nullopt;
    return ImportBitmap(picture, ImportColours::NearestGarmin);
}

ImportBitmapModel::ImportBitmapModel(UserPrompts& prompts, PictureReader reader)
    : prompts_(prompts), reader_(std::move(reader)) {}

void ImportBitmapModel::Browse() {
    const auto chosen = prompts_.ChooseOpenPath(ImportText("Choisir l'image à importer", "ImporterBitmap"),
                                                "Images (*.png *.jpg *.jpeg *.bmp *.gif *.ico)");
    if (chosen && !chosen->empty()) path_ = *chosen;
}

bool ImportBitmapModel::CheckFile() const {
    if (path_.empty()) {
        prompts_.Inform(ImportText("Chemin absent", "msgChemin2"),
                        ImportText("Il faut entrer le chemin d'un fichier image.", "msgChemin1"));
        return false;
    }
    std::error_code error;
    const auto file = PathFromUtf8(path_);
    if (!std::filesystem::is_regular_file(file, error)) {
        prompts_.Inform(ImportText("Fichier introuvable", "msgFichier4"),
                        AboutFile(path_, ImportText("est introuvable.", "msgFichier2")) + "\r\n" +
                            ImportText("Veuillez réessayer.", "msgFichier3"));
        return false;
    }
    if (std::filesystem::file_size(file, error) == 0) {
        prompts_.Inform(ImportText("Image illisible", "msgImageIllisible2"),
                        AboutFile(path_, ImportText("est vide.", "msgFichierVide")));
        return false;
    }
    return true;
}

bool ImportBitmapModel::Open() {
    if (!CheckFile()) return false;
    std::optional<RgbaPicture> picture = reader_ ? reader_(path_) : std::nullopt;
    if (!picture || picture->Empty()) {
        const std::string what =
            ImportText("n'est pas une image que Mirvane sait lire (PNG, JPEG, BMP, GIF, ICO).", "msgImageIllisible1");
        prompts_.Inform(ImportText("Image illisible", "msgImageIllisible2"), AboutFile(path_, what));
        return false;
    }
    LoadPicture(std::move(*picture));
    return true;
}

void ImportBitmapModel::LoadPicture(RgbaPicture picture) {
    source_ = std::move(picture);
    const PictureSize fitted = FitWithin(source_.Width, source_.Height, kImportViewSide);
    fitted_ = ScalePicture(source_, fitted.Width, fitted.Height);
    const PictureSize proposed = FitWithin(source_.Width, source_.Height, kMaxBitmapSide);
    targetWidth_ = proposed.Width;
    targetHeight_ = proposed.Height;
    fileOpen_ = true;
    Convert();
}

void ImportBitmapModel::SetTargetWidth(int width) {
    targetWidth_ = width >= 1 && width <= kMaxBitmapSide ? width : 0;
    if (fileOpen_) Convert();
}

void ImportBitmapModel::SetTargetHeight(int height) {
    targetHeight_ = height >= 1 && height <= kMaxBitmapSide ? height : 0;
    if (fileOpen_) Convert();
}

void ImportBitmapModel::Convert() {
    scaled_ = ScalePicture(source_, targetWidth_, targetHeight_);
    bitmap_ = scaled_.Empty() ? ImportedBitmap{} : ImportBitmap(scaled_, ImportColours::AsTheyAre);
    bitmapPicture_ = PictureOf(bitmap_);
    colourCount_ = scaled_.Empty() ? 0 : CountImportColours(scaled_);
}

void ImportBitmapModel::ZoomIn(ImportView view) {
    int& zoom = zoom_[Slot(view)];
    zoom = std::min(zoom + 1, kImportMaxZoom);
}

void ImportBitmapModel::ZoomOut(ImportView view) {
    int& zoom = zoom_[Slot(view)];
    zoom = std::max(zoom - 1, 1);
}

void ImportBitmapModel::RealSize(ImportView view) { zoom_[Slot(view)] = 1; }

Raster ImportBitmapModel::ViewPicture(ImportView view, RasterColour background) const {
    Raster box(kImportViewSide, kImportViewSide, background);
    const RgbaPicture& picture = view == ImportView::Source ? fitted_ : bitmapPicture_;
    const int zoom = Zoom(view);
    const int fits = kImportViewSide / zoom;
    const int columns = std::min(picture.Width, fits), rows = std::min(picture.Height, fits);
    const int centre = kImportViewSide / 2;
    DrawZoomed(picture, columns, rows, zoom, box, centre - columns * zoom / 2, centre - rows * zoom / 2, CheckerAt);
    return box;
}

Raster ImportBitmapModel::MapPreview(bool night) const {
    const RasterColour ground = night ? kNightMapGround : kDayMapGround;
    const int side = kImportPreviewSide * kImportPreviewZoom;
    Raster frame(side, side, ground);
    const int left = (kImportPreviewSide - bitmapPicture_.Width) / 2 * kImportPreviewZoom;
    const int top = (kImportPreviewSide - bitmapPicture_.Height) / 2 * kImportPreviewZoom;
    DrawZoomed(bitmapPicture_, bitmapPicture_.Width, bitmapPicture_.Height, kImportPreviewZoom, frame, left, top,
               [ground](int, int) { return ground; });
    return frame;
}

bool ImportBitmapModel::CanImport() const { return fileOpen_ && !scaled_.Empty(); }

bool ImportBitmapModel::Import() {
    if (!CanImport()) return false;
    auto bitmap = ImportWithQuestion(scaled_, prompts_);
    if (!bitmap) return false;
    result_ = std::move(bitmap);
    closed_ = true;
    return true;
}

void ImportBitmapModel::Cancel() { closed_ = true; }

}  // namespace mirvane
