// The program's one sort: for i, for j > i, swap when element i must follow j.
// Ties are decided by the way it swaps, so a faster way is only taken where it
// is known to give the same order.
#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace mirvane {

// Puts `items` in the order of `entries` (key, original index).
template <typename T, typename Key>
void ApplyOrder(std::vector<T>& items, const std::vector<std::pair<Key, std::size_t>>& entries) {
    std::vector<T> result;
    result.reserve(items.size());
    for (const auto& entry : entries) result.push_back(std::move(items[entry.second]));
    items = std::move(result);
}

template <typename Key>
std::vector<std::pair<Key, std::size_t>> KeyedEntries(const std::vector<Key>& keys) {
    std::vector<std::pair<Key, std::size_t>> entries;
    entries.reserve(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) entries.emplace_back(keys[i], i);
    return entries;
}

// The exchange sort itself, over the keys alone: `mustSwap(a, b)` says whether
// the element keyed a, standing before the one keyed b, must be swapped with it.
template <typename T, typename Key, typename MustSwap>
void ExchangeSort(std::vector<T>& items, const std::vector<Key>& keys, MustSwap mustSwap) {
    auto entries = KeyedEntries(keys);
    const std::size_t n = entries.size();
    for (std::size_t i = 0; i + 1 < n; ++i)
        for (std::size_t j = i + 1; j < n; ++j)
            if (mustSwap(entries[i].first, entries[j].first)) std::swap(entries[i], entries[j]);
    ApplyOrder(items, entries);
}

// The exchange sort under "swap when key a > key b". With no two keys equal
// its result is the one sorted order, so std::sort gives it; with keys
// already in order no pair ever swaps (the usual case for a file just read).
// Only unordered keys with ties pay for the exchange sort itself.
template <typename T, typename Key>
void SortLikeExchangeSort(std::vector<T>& items, const std::vector<Key>& keys) {
    if (items.size() < 2 || std::is_sorted(keys.begin(), keys.end())) return;
    auto entries = KeyedEntries(keys);
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    const bool distinct = std::adjacent_find(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
                              return !(a.first < b.first);
                          }) == entries.end();
    if (distinct) ApplyOrder(items, entries);
    else ExchangeSort(items, keys, [](const Key& a, const Key& b) { return b < a; });
}

}  // namespace mirvane
