// The five sorts of the document. Each keeps the order that one plain exchange
// sort gives, since ties in the files are decided by it.
#pragma once

#include "document/document.h"

namespace mirvane {

void SortPolygons(std::vector<PolygonRecord>& polygons);
void SortPois(std::vector<PoiRecord>& pois);
void SortPolylinesForDisplay(std::vector<PolylineRecord>& polylines);
void SortPolylinesForWriting(std::vector<PolylineRecord>& polylines);

struct ExtraPolylineIndexRow {
    int Key = 0;
    int ExtraKey = 0;
    Bytes OffsetBytes;
};
void SortExtraPolylineIndex(std::vector<ExtraPolylineIndexRow>& rows);

}  // namespace mirvane
