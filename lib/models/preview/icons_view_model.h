// The icons view of the main window (fraVisualization): every polygon, then
// every polyline, then every POI, each as its day thumbnail in a grid of
// square cells within picAfficheTout. Plain arithmetic and a raster; the GUI
// shows a band of the picture and forwards clicks, slider and width.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "document/document.h"
#include "graphics/raster.h"

namespace mirvane {

inline constexpr int kIconMarginDefault = 5;  // IconMargin
inline constexpr int kIconZoomDefault = 2;    // IconZoom on first activation
// sldZoomIcons: IconZoom takes its value as it stands.
inline constexpr int kIconZoomSliderMinimum = 1;
inline constexpr int kIconZoomSliderMaximum = 4;
// Row and column are worked out in 16-bit integers: icons past this number have no place.
inline constexpr int kLastIconNumber = 32767;

// How many objects of each kind the view shows.
struct IconCounts {
    int Polygons = 0;
    int Polylines = 0;
    int Pois = 0;

    static IconCounts Of(const Document& doc);
    // At most kLastIconNumber + 1.
    int Total() const;
    // The object's number in the run: polygons first, then polylines, then POIs.
    std::optional<int> NumberOf(ObjectRef ref) const;
    std::optional<ObjectRef> RefOf(int number) const;
};

struct IconGrid {
    int Margin = kIconMarginDefault;
    int Zoom = kIconZoomDefault;
    int PictureWidth = 0;  // width of picAfficheTout

    int Cell() const { return 48 * Zoom; }  // C
    int Pitch() const { return Cell() + Margin; }
    // At least one column, however narrow the picture.
    int Columns() const;
    int RowOf(int number) const;
    int ColumnOf(int number) const;
    // The cell of object `number`, in picture coordinates.
    RasterRect CellOf(int number) const;
    // Height of a picture holding `total` icons: the last row and a margin below it.
    int PictureHeight(int total) const;
};

// The largest width or height over the document's POIs (0 when there are none).
int LargestPoiDimension(const Document& doc);

// IconScale: for POIs C / the largest POI dimension when that is above 0,
// otherwise C / 32. A POI wider than the cell gets 0 and is not drawn.
int IconScale(const IconGrid& grid, ObjectKind kind, int largestPoiDimension);

// Where a w by h thumbnail enlarged `scale` times is drawn: centred in its cell.
RasterRect IconPlacement(const IconGrid& grid, int number, int width, int height, int scale);

// The object whose cell holds the point (x, y) of the picture; none in the
// margins or past the last icon.
std::optional<ObjectRef> IconAt(const IconGrid& grid, const IconCounts& counts, int x, int y);

// The scroll offset (top of the visible band) that brings the icon of `ref`
// into a band of `viewHeight` rows, moving as little as it can.
int ScrollToShow(const IconGrid& grid, const IconCounts& counts, ObjectRef ref, int scrollTop, int viewHeight);

class IconsViewModel {
public:
    // cmdVisualisation: shows or hides the view. The first showing sets
    // IconMargin and IconZoom to their first values.
    void Toggle();
    bool Visible() const { return visible_; }
    // sldZoomIcons; the caller runs Rebuild again (AfficheTout).
    void SetZoomSlider(int value);
    void SetPictureWidth(int width) { grid_.PictureWidth = width; }

    // AfficheTout: decodes every object and keeps its day thumbnail. An
    // object that cannot be drawn is left blank; the document is not touched.
    void Rebuild(const Document& doc, RasterColour background);
    // The band [top, top + height) of the whole picture.
    Raster RenderBand(int top, int height) const;

    const IconGrid& Grid() const { return grid_; }
    const IconCounts& Counts() const { return counts_; }
    int PictureHeight() const { return grid_.PictureHeight(counts_.Total()); }
    std::optional<ObjectRef> Click(int x, int y) const { return IconAt(grid_, counts_, x, y); }
    int ScrollFor(ObjectRef ref, int scrollTop, int viewHeight) const {
        return ScrollToShow(grid_, counts_, ref, scrollTop, viewHeight);
    }

private:
    void DrawIcon(Raster& band, int top, int number) const;

    bool visible_ = false;
    bool activated_ = false;
    IconGrid grid_;
    IconCounts counts_;
    int largestPoi_ = 0;
    RasterColour background_ = 0xFFFFFF;
    std::vector<Raster> thumbnails_;  // in run order
};

}  // namespace mirvane
