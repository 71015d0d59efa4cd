#include "document/sorts.h"

#include <algorithm>
#include <cstdint>

#include "document/encoding.h"
#include "base/exchange_sort.h"

namespace mirvane {

namespace {

// Keys packed in one integer so that the exchange sort, when it has to run,
// compares plain numbers. Types and subtypes are at most 20 bits here.
std::int64_t Packed(std::int64_t high, std::int64_t low) { return (high << 20) | (low & 0xFFFFF); }

std::int64_t TypeAndSubTypeKey(const std::string& type, const std::string& subType) {
    return Packed(HexValue(type) & 0xFFFFF, HexValue(subType) & 0xFFFFF);
}

template <typename Record>
std::vector<std::int64_t> TypeKeys(const std::vector<Record>& records) {
    std::vector<std::int64_t> keys;
    keys.reserve(records.size());
    for (const auto& r : records) keys.push_back(TypeAndSubTypeKey(r.Type, r.SubType));
    return keys;
}

}  // namespace

void SortPolygons(std::vector<PolygonRecord>& polygons) {
    SortLikeExchangeSort(polygons, TypeKeys(polygons));
}

void SortPois(std::vector<PoiRecord>& pois) { SortLikeExchangeSort(pois, TypeKeys(pois)); }

void SortPolylinesForDisplay(std::vector<PolylineRecord>& polylines) {
    std::vector<std::int64_t> keys;
    keys.reserve(polylines.size());
    for (const auto& r : polylines) {
        const std::int64_t extra = r.ExtraIndexBytes[0] * 256 + r.ExtraIndexBytes[1];
        keys.push_back((extra << 40) | TypeAndSubTypeKey(r.Type, r.SubType));
    }
    SortLikeExchangeSort(polylines, keys);
}

// Equal types: the later record goes first when its extra key is smaller, or
// when the earlier one has none. Two regular lines of one type thus swap on
// every comparison. As long as no type holds both kinds of line, this is an
// order on (type, extra key) whose regular ties swap; a type that mixes them
// is left to the exchange sort itself.
void SortPolylinesForWriting(std::vector<PolylineRecord>& polylines) {
    if (polylines.size() < 2) return;
    struct Key {
        std::int64_t Type;
        int Extra;
    };
    std::vector<Key> keys;
    keys.reserve(polylines.size());
    for (const auto& r : polylines)
        keys.push_back({TypeAndSubTypeKey(r.Type, r.SubType), r.ExtraIndexBytes[0] * 256 + r.ExtraIndexBytes[1]});
    auto less = [](const Key& a, const Key& b) { return a.Type != b.Type ? a.Type < b.Type : a.Extra < b.Extra; };
    const std::vector<std::size_t> ranks = DenseRanks(keys, less);
    const std::size_t rankCount = *std::max_element(ranks.begin(), ranks.end()) + 1;
    std::vector<std::size_t> representative(rankCount);  // one element of each rank
    for (std::size_t i = 0; i < keys.size(); ++i) representative[ranks[i]] = i;
    std::vector<bool> swapsTies(rankCount);
    bool mixed = false;
    for (std::size_t r = 0; r < rankCount; ++r) {
        const Key& key = keys[representative[r]];
        swapsTies[r] = key.Extra == 0;
        // Extra keys ascend within a type: regular lines come right before
        // the first routing line of the same type.
        if (r > 0 && keys[representative[r - 1]].Type == key.Type && swapsTies[r - 1] != swapsTies[r]) mixed = true;
    }
    if (!mixed) {
        ApplyOrder(polylines, ExchangeSortOrder(ranks, swapsTies));
        return;
    }
    ExchangeSort(polylines, keys, [](const Key& a, const Key& b) {
        if (a.Type != b.Type) return a.Type > b.Type;
        return b.Extra < a.Extra || a.Extra == 0;
    });
}

void SortExtraPolylineIndex(std::vector<ExtraPolylineIndexRow>& rows) {
    std::vector<std::int64_t> keys;
    keys.reserve(rows.size());
    for (const auto& r : rows) keys.push_back(Packed(r.Key, r.ExtraKey));
    SortLikeExchangeSort(rows, keys);
}

}  // namespace mirvane
