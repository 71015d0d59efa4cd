#include "document/sorts.h"

#include <tuple>

#include "document/encoding.h"
#include "document/exchange_sort.h"

namespace mirvane {

namespace {

// Type, then subtype: a subtype text may hold more than five bits.
template <typename Record>
std::vector<std::pair<int, int>> TypeKeys(const std::vector<Record>& records) {
    std::vector<std::pair<int, int>> keys;
    keys.reserve(records.size());
    for (const auto& r : records) keys.emplace_back(HexValue(r.Type), HexValue(r.SubType));
    return keys;
}

template <typename Record>
void SortByTypeAndSubType(std::vector<Record>& records) {
    const auto keys = TypeKeys(records);
    SortLikeExchangeSort(records, keys, [&](std::size_t a, std::size_t b) { return keys[a] > keys[b]; });
}

int ExtraKeyOf(const PolylineRecord& r) { return r.ExtraIndexBytes[0] * 256 + r.ExtraIndexBytes[1]; }

}  // namespace

void SortPolygons(std::vector<PolygonRecord>& polygons) { SortByTypeAndSubType(polygons); }

void SortPois(std::vector<PoiRecord>& pois) { SortByTypeAndSubType(pois); }

void SortPolylinesForDisplay(std::vector<PolylineRecord>& polylines) {
    std::vector<std::tuple<int, int, int, int>> keys;
    keys.reserve(polylines.size());
    for (const auto& r : polylines)
        keys.emplace_back(r.ExtraIndexBytes[0], r.ExtraIndexBytes[1], HexValue(r.Type), HexValue(r.SubType));
    SortLikeExchangeSort(polylines, keys, [&](std::size_t a, std::size_t b) { return keys[a] > keys[b]; });
}

// Equal types: the later record goes first when its extra key is smaller, or
// when the earlier one has none. Two regular lines of one type thus swap on
// every comparison, which only the exchange sort itself reproduces.
void SortPolylinesForWriting(std::vector<PolylineRecord>& polylines) {
    const auto keys = TypeKeys(polylines);
    std::vector<int> extraKeys;
    extraKeys.reserve(polylines.size());
    for (const auto& r : polylines) extraKeys.push_back(ExtraKeyOf(r));
    SortLikeExchangeSort(polylines, keys, [&](std::size_t a, std::size_t b) {
        if (keys[a] != keys[b]) return keys[a] > keys[b];
        return extraKeys[b] < extraKeys[a] || extraKeys[a] == 0;
    });
}

void SortExtraPolylineIndex(std::vector<ExtraPolylineIndexRow>& rows) {
    std::vector<std::pair<int, int>> keys;
    keys.reserve(rows.size());
    for (const auto& r : rows) keys.emplace_back(r.Key, r.ExtraKey);
    SortLikeExchangeSort(rows, keys, [&](std::size_t a, std::size_t b) { return keys[a] > keys[b]; });
}

}  // namespace mirvane
