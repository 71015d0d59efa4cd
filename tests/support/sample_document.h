// Documents built in code: the bundled sample, benchmarks and tests. Objects
// cycle through every encoding the format knows (colour layouts, patterns,
// widths and borders, every POI colour mode, night bitmaps, labels in several
// languages, extended labels of all four colour codes).
#pragma once

#include <vector>

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

// A group of additional POIs: its type and the sizes of its sub-icons.
struct SampleExtraPoiGroup {
    int Type = 0;
    int SubType = 0;
    std::vector<std::pair<int, int>> Sizes;  // width, height
};

// One sub-icon as the additional POI data holds it, length prefix included:
// a disk with a dark ring on a transparent background, in palette mode 16,
// its colours from `seed`.
Bytes SampleSubIcon(int width, int height, int seed);

// Writes the groups as additional POI data and index (rows of 5 bytes), with
// the counts and rows the reader would give. The writer keeps them from a
// header of 110 bytes on.
void AddSampleExtraPois(Document& doc, const std::vector<SampleExtraPoiGroup>& groups);

inline constexpr int kPolygonVariants = 8;
inline constexpr int kPolylineVariants = 8;
inline constexpr int kPoiVariants = 12;

}  // namespace mirvane
