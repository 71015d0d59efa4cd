// frmImporterBitmap: a picture file shown at a fitting size, a target size of
// 1 to 64 a side chosen in two combos, the picture scaled to it, and on
// import its pixels and palette handed to the POI editor as an
// ImportedBitmap. Decoding the file is the platform's (PictureReader).
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "colour/bitmap_import.h"
#include "graphics/raster.h"
#include "models/shell/user_prompts.h"

namespace mirvane {

// Decodes a picture file; no value when the platform cannot read it as a picture.
using PictureReader = std::function<std::optional<RgbaPicture>(const std::string& path)>;

inline constexpr int kImportViewSide = 271;     // Picture2(0) and (1) are square boxes
inline constexpr int kImportMaxZoom = 16;
inline constexpr int kImportPreviewSide = 64;   // day and night previews: a POI's 64 x 64 frame
inline constexpr int kImportPreviewZoom = 2;
inline constexpr RasterColour kDayMapGround = 0xFFFFFF;
inline constexpr RasterColour kNightMapGround = 0x000000;

// The two views, by their index in the control arrays (Picture2, cmdZoomIn,
// cmdZoomOut, cmdTailleReelle).
enum class ImportView { Source = 0, Bitmap = 1 };

// The bitmap made from `picture` (already at the bitmap's size). When its
// colours do not fit a palette the user is asked whether they may be replaced
// by their nearest Garmin colours; no value when the answer is No. The POI
// editor's paste of a picture from the system clipboard takes this route too.
std::optional<ImportedBitmap> ImportWithQuestion(const RgbaPicture& picture, UserPrompts& prompts);

class ImportBitmapModel {
public:
    ImportBitmapModel(UserPrompts& prompts, PictureReader reader);

    // Text1: the path of the picture file.
    const std::string& Path() const { return path_; }
    void SetPath(std::string path) { path_ = std::move(path); }
    // cmdParcourir: the open dialog; the chosen path goes to Text1.
    void Browse();
    // cmdOuvrir: reads the file named in Text1. False, with a message, when
    // the path is empty, the file is missing or empty, or no picture can be
    // read from it; then nothing else changes.
    bool Open();
    // A picture that comes from elsewhere (the system clipboard), taken as
    // Open takes a file's.
    void LoadPicture(RgbaPicture picture);
    // FichierOuvert: a picture was read; the size combos act only then.
    bool FileOpen() const { return fileOpen_; }

    // The picture as read (lblLargeur, lblHauteur show its size).
    const RgbaPicture& Source() const { return source_; }

    // cbbLargeur and cbbHauteur: 1 to 64, 0 while none is chosen (a picture
    // so long that its short side would be 0 leaves the choice to the user).
    int TargetWidth() const { return targetWidth_; }
    int TargetHeight() const { return targetHeight_; }
    // A change of either combo scales again while a picture is open. Values
    // beyond 1 to 64 are taken as no choice.
    void SetTargetWidth(int width);
    void SetTargetHeight(int height);
    // cmdConvertir: the picture as read, scaled to the chosen size.
    void Convert();

    // The bitmap as the import would hand it over with its colours as they
    // are; empty until both sides are chosen.
    const ImportedBitmap& Bitmap() const { return bitmap_; }
    // Palette entries the bitmap needs as it stands; above 254 the import asks.
    int ColourCount() const { return colourCount_; }

    // Zoom of a view, 1 to 16: cmdZoomIn, cmdZoomOut, cmdTailleReelle.
    int Zoom(ImportView view) const { return zoom_[Slot(view)]; }
    void ZoomIn(ImportView view);
    void ZoomOut(ImportView view);
    void RealSize(ImportView view);

    // Picture2(i): the source at a fitting size, or the bitmap, enlarged by
    // the view's zoom as far as it fits and centred in a square of
    // kImportViewSide on `background`; transparency shows as a checkerboard.
    Raster ViewPicture(ImportView view, RasterColour background) const;
    // The bitmap centred in a POI's frame on a day or a night map, enlarged
    // kImportPreviewZoom times.
    Raster MapPreview(bool night) const;

    // cmdImporterBitmap acts once a picture is open and both sides are chosen.
    bool CanImport() const;
    // cmdImporterBitmap: true when the bitmap was handed over and the window
    // closes; false when the user refused the change of colours, and the
    // window stays open.
    bool Import();
    // cmdAnnuler: closes, handing nothing over.
    void Cancel();
    bool Closed() const { return closed_; }
    // What OK handed to the POI editor.
    const std::optional<ImportedBitmap>& Result() const { return result_; }

private:
    static int Slot(ImportView view) { return static_cast<int>(view); }
    bool CheckFile() const;

    UserPrompts& prompts_;
    PictureReader reader_;
    std::string path_;
    bool fileOpen_ = false;
    RgbaPicture source_;
    RgbaPicture fitted_;   // Picture1(0): the source at the view's fitting size
    int targetWidth_ = 0;
    int targetHeight_ = 0;
    RgbaPicture scaled_;   // Picture1(1): the source at the chosen size
    ImportedBitmap bitmap_;
    RgbaPicture bitmapPicture_;
    int colourCount_ = 0;
    std::array<int, 2> zoom_{1, 1};
    bool closed_ = false;
    std::optional<ImportedBitmap> result_;
};

}  // namespace mirvane
