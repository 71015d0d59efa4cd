// The program's one sort: for i, for j > i, swap when element i must follow j.
// Ties are decided by the way it swaps, so a faster way is only taken where it
// is known to give the same order.
#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace mirvane {

// Sorts `items` by `keys` as the exchange sort does under `mustSwap(a, b)`,
// which says whether the element keyed a, standing before the one keyed b,
// must be swapped with it.
//
// With `strictByKey` (mustSwap is "a > b"):
// - no two keys equal: the result is the one sorted order, so std::sort;
// - keys already in order: no pair ever swaps, so nothing moves (the usual
//   case for a file just read).
// Otherwise the exchange sort itself runs, over the keys alone.
template <typename T, typename Key, typename MustSwap>
void SortLikeExchangeSort(std::vector<T>& items, const std::vector<Key>& keys, MustSwap mustSwap,
                          bool strictByKey) {
    const std::size_t n = items.size();
    if (n < 2) return;
    std::vector<std::pair<Key, std::size_t>> entries;
    entries.reserve(n);
    for (std::size_t i = 0; i < n; ++i) entries.emplace_back(keys[i], i);
    bool distinct = false;
    if (strictByKey) {
        std::vector<std::pair<Key, std::size_t>> sorted = entries;
        std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
        distinct = true;
        for (std::size_t k = 1; k < n && distinct; ++k) distinct = sorted[k - 1].first < sorted[k].first;
        if (distinct) entries = std::move(sorted);
        else if (std::is_sorted(keys.begin(), keys.end())) return;
    }
    if (!distinct) {
        for (std::size_t i = 0; i + 1 < n; ++i)
            for (std::size_t j = i + 1; j < n; ++j)
                if (mustSwap(entries[i].first, entries[j].first)) std::swap(entries[i], entries[j]);
    }
    std::vector<T> result;
    result.reserve(n);
    for (const auto& entry : entries) result.push_back(std::move(items[entry.second]));
    items = std::move(result);
}

}  // namespace mirvane
