// The object preview of the main window: six thumbnails painted from the
// pictures of the last picked polygon, polyline and POI, and the
// day and night previews composed from them ("Seul", "Mosaïque",
// "Superposition"). No GUI type: the view shows Apercus(0) and Apercus(1).
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "graphics/raster.h"
#include "document/object_preview.h"

namespace mirvane {

// optAperçu(0), (1), (2).
enum class PreviewMode { Seul = 0, Mosaique = 1, Superposition = 2 };

inline constexpr int kPreviewSide = 240;  // Apercus(0) and Apercus(1) are square
inline constexpr int kSeulSourceSide = 64;
inline constexpr int kTileSide = 32;
inline constexpr int kMosaicRepeat = 5;
inline constexpr int kMosaicZoomField = 6;
// sldZoom: the zoom is its value / 100, cut to a whole number.
inline constexpr int kZoomSliderMinimum = 100;
inline constexpr int kZoomSliderMaximum = 1000;
inline constexpr int kZoomSliderDefault = 400;
inline constexpr RasterColour kDefaultPreviewBackground = 0xFFFFFF;

// What the window keeps from the last picked objects.
struct PreviewState {
    std::optional<ObjectKind> Shown;  // the kind of the last pick; none before any
    bool PolygonShown = false;
    bool PolygonNight = false;
    bool PolylineNight = false;
    bool PoiNight = false;
    int PolylineHeight = 0;
    int PoiWidth = 0;
    int PoiHeight = 0;
    int Zoom = 1;
    // Label4 and Label5 of the last pick: no value hides the label.
    std::optional<std::uint32_t> LabelDayColour;
    std::optional<std::uint32_t> LabelNightColour;
};

// A thumbnail of `width` by `height` pixels: each colour as it stands, a
// transparent (negative) entry or a missing one as `background`.
Raster PaintThumbnail(const std::vector<std::int32_t>& pixels, int width, int height, RasterColour background);

// Top left corner of a w by h thumbnail zoomed `zoom` times in the preview.
int SeulOffset(int zoom, int size);

class ObjectPreviewModel {
public:
    explicit ObjectPreviewModel(RasterColour background = kDefaultPreviewBackground);

    // An object was picked in its list: paints the two thumbnails of its kind
    // and makes it the one shown. Call Update() to compose.
    void Pick(const ObjectPreview& preview);
    // cmdCouleurFond: the thumbnails of the last picks are painted again;
    // Update() shows them.
    void SetBackground(RasterColour background);
    void SetMode(PreviewMode mode) { mode_ = mode; }
    // sldZoom, kept within its range.
    void SetZoomSlider(int value);
    // maj_Aperçu.
    void Update();
    // The document was closed: nothing picked, everything cleared.
    void Reset();

    RasterColour Background() const { return background_; }
    PreviewMode Mode() const { return mode_; }
    int ZoomSlider() const { return zoomSlider_; }
    // sldZoom and lblZoom are enabled under "Seul" only.
    bool ZoomEnabled() const { return mode_ == PreviewMode::Seul; }
    const PreviewState& State() const { return state_; }
    const Raster& Vignette(int index) const { return vignettes_.at(index); }
    const Raster& Apercus(int index) const { return apercus_.at(index); }

private:
    void PaintVignettes(ObjectKind kind);
    bool HasNight(ObjectKind kind) const;
    int ThumbnailHeight(ObjectKind kind) const;
    int ThumbnailWidth(ObjectKind kind) const;
    void AfficheSeul(ObjectKind kind);
    void AfficheMosaique(int dayOrNight, ObjectKind kind);
    void Superpose();

    RasterColour background_;
    PreviewMode mode_ = PreviewMode::Seul;
    int zoomSlider_ = kZoomSliderDefault;
    PreviewState state_;
    std::array<PixelPicture, 3> pictures_;  // the last pick of each kind, for repainting
    std::array<Raster, 6> vignettes_;
    std::array<Raster, 2> apercus_;
};

}  // namespace mirvane
