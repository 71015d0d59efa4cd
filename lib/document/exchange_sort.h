// The program's one sort: for i, for j > i, swap when element i must follow j.
// Ties are decided by the way it swaps, so a faster sort is only used where it
// is known to give the same order.
#pragma once

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

namespace mirvane {

// Order a permutation of [0, n) by the exchange sort under `mustSwap(a, b)`,
// which says whether element a, standing before b, must be swapped with it.
template <typename MustSwap>
std::vector<std::size_t> ExchangeSortOrder(std::size_t n, MustSwap mustSwap) {
    std::vector<std::size_t> order(n);
    std::iota(order.begin(), order.end(), std::size_t{0});
    for (std::size_t i = 0; i + 1 < n; ++i)
        for (std::size_t j = i + 1; j < n; ++j)
            if (mustSwap(order[i], order[j])) std::swap(order[i], order[j]);
    return order;
}

// Sorts `items` by strictly ordered keys. When no two keys are equal the
// exchange sort's result is the one sorted order, so std::sort gives it; with
// equal keys the exchange sort itself runs under `mustSwap`.
template <typename T, typename Key, typename MustSwap>
void SortLikeExchangeSort(std::vector<T>& items, const std::vector<Key>& keys, MustSwap mustSwap) {
    const std::size_t n = items.size();
    if (n < 2) return;
    std::vector<std::size_t> order(n);
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
    bool distinct = true;
    for (std::size_t k = 1; k < n && distinct; ++k)
        distinct = keys[order[k - 1]] < keys[order[k]];
    if (!distinct) order = ExchangeSortOrder(n, mustSwap);
    std::vector<T> sorted;
    sorted.reserve(n);
    for (std::size_t index : order) sorted.push_back(std::move(items[index]));
    items = std::move(sorted);
}

}  // namespace mirvane
