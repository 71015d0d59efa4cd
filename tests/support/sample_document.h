// Documents built in code: the bundled sample, benchmarks and tests. Objects
// cycle through every encoding the format knows (colour layouts, patterns,
// widths and borders, every POI colour mode, night bitmaps, labels in several
// languages, extended labels of all four colour codes).
#pragma once

#include "document/document.h"

namespace mirvane {

struct SampleOptions {
    int Polygons = 12;
    int Polylines = 12;
    int Pois = 16;
    int PoiSize = 16;  // width and height of POI bitmaps, 1..255
    bool WithDrawOrder = true;
};

Document MakeSampleDocument(const SampleOptions& options = {});

// One record of each kind, variant n of the cycle, with its type from `index`.
PolygonRecord MakeSamplePolygon(int index, int variant);
PolylineRecord MakeSamplePolyline(int index, int variant);
PoiRecord MakeSamplePoi(int index, int variant, int size);

inline constexpr int kPolygonVariants = 8;
inline constexpr int kPolylineVariants = 8;
inline constexpr int kPoiVariants = 12;

}  // namespace mirvane
