// The program's one sort: for i, for j > i, swap when element i must follow j.
// Ties are decided by the way it swaps, and files rely on that order, so the
// order is kept exactly; it is computed in O(n log n) rather than by the
// quadratic swapping itself, which a file of tied keys would turn into seconds.
#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace mirvane {

// Puts `items` in `order`: element k of the result is items[order[k]].
template <typename T>
void ApplyOrder(std::vector<T>& items, const std::vector<std::size_t>& order) {
    std::vector<T> result;
    result.reserve(items.size());
    for (std::size_t index : order) result.push_back(std::move(items[index]));
    items = std::move(result);
}

// Rank of each key among the distinct keys, 0 for the smallest.
template <typename Key, typename Less>
std::vector<std::size_t> DenseRanks(const std::vector<Key>& keys, Less less) {
    std::vector<std::size_t> byKey(keys.size());
    for (std::size_t i = 0; i < byKey.size(); ++i) byKey[i] = i;
    std::stable_sort(byKey.begin(), byKey.end(),
                     [&](std::size_t a, std::size_t b) { return less(keys[a], keys[b]); });
    std::vector<std::size_t> ranks(keys.size());
    std::size_t rank = 0;
    for (std::size_t k = 0; k < byKey.size(); ++k) {
        if (k > 0 && less(keys[byKey[k - 1]], keys[byKey[k]])) ++rank;
        ranks[byKey[k]] = rank;
    }
    return ranks;
}

// The order the exchange sort leaves, given each element's rank: element k
// of the result is the original index of the element that ends at k. Equal
// ranks are compared with "swap when a > b" and so stay unswapped, except
// the ranks that `swapsTies` marks, whose equal elements swap on every
// comparison (that relation is still an order between distinct ranks).
std::vector<std::size_t> ExchangeSortOrder(const std::vector<std::size_t>& ranks,
                                           const std::vector<bool>& swapsTies = {});

// The exchange sort itself, for a relation that is not an order:
// `mustSwap(a, b)` says whether the element keyed a, standing before the one
// keyed b, must be swapped with it. Quadratic; only for small or rare inputs.
template <typename T, typename Key, typename MustSwap>
void ExchangeSort(std::vector<T>& items, const std::vector<Key>& keys, MustSwap mustSwap) {
    std::vector<std::size_t> order(keys.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    for (std::size_t i = 0; i + 1 < order.size(); ++i)
        for (std::size_t j = i + 1; j < order.size(); ++j)
            if (mustSwap(keys[order[i]], keys[order[j]])) std::swap(order[i], order[j]);
    ApplyOrder(items, order);
}

// Sorts `items` by `keys` exactly as the exchange sort under "swap when
// key a > key b" would.
template <typename T, typename Key>
void SortLikeExchangeSort(std::vector<T>& items, const std::vector<Key>& keys) {
    if (items.size() < 2 || std::is_sorted(keys.begin(), keys.end())) return;
    ApplyOrder(items, ExchangeSortOrder(DenseRanks(keys, [](const Key& a, const Key& b) { return a < b; })));
}

}  // namespace mirvane
