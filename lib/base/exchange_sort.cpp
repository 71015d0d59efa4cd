#include "base/exchange_sort.h"

// How the exchange sort moves elements. Pass i carries element i forward:
// each later element that must come before the carried one is swapped with
// it, so the chain of successive minima shifts one step along itself and
// the smallest lands at i. Looked at through the elements of one key k and
// the smaller ones alone (larger ones never change the chain's path among
// them), the elements of k move only when one of them is first: it then
// jumps behind the run of k elements that follows it, and one smaller
// element leaves. So the k elements, taken in file order, build a list to
// which each is appended and which is then rotated left once for every
// smaller element standing between it and the next k element. With ties that
// swap, the run is carried along unrotated and the last placed comes first:
// the order is simply reversed.

namespace mirvane {

namespace {

// Present/absent flags over positions, with prefix counts and "the element
// with r present ones before it", both in O(log n).
class PositionCounts {
public:
    PositionCounts(std::size_t size, bool allPresent) : tree_(size + 1, 0) {
        if (!allPresent) return;
        for (std::size_t i = 1; i < tree_.size(); ++i) tree_[i] = static_cast<int>(i & (~i + 1));
    }

    void Add(std::size_t position, int delta) {
        for (std::size_t i = position + 1; i < tree_.size(); i += i & (~i + 1)) tree_[i] += delta;
    }

    // Present positions below `position`.
    int Before(std::size_t position) const {
        int sum = 0;
        for (std::size_t i = position; i > 0; i -= i & (~i + 1)) sum += tree_[i];
        return sum;
    }

    std::size_t WithRank(int rank) const {
        std::size_t at = 0;
        std::size_t step = 1;
        while (step * 2 < tree_.size()) step *= 2;
        for (; step > 0; step /= 2) {
            if (at + step < tree_.size() && tree_[at + step] <= rank) {
                at += step;
                rank -= tree_[at];
            }
        }
        return at;
    }

private:
    std::vector<int> tree_;
};

// The final order of one key's elements (file positions, ascending), where
// smallerAfter[k] counts the smaller elements between element k and the
// next one of the key, or the end. The list is built by appending element k
// and rotating left by smallerAfter[k]; here it is undone from the end, over
// the final slots kept as a circle of which `head` is the first.
std::vector<std::size_t> TiedOrder(const std::vector<std::size_t>& positions,
                                   const std::vector<std::size_t>& smallerAfter) {
    const std::size_t count = positions.size();
    std::vector<std::size_t> order(count);
    PositionCounts slots(count, true);
    std::size_t head = 0;
    for (std::size_t length = count; length > 0; --length) {
        const std::size_t shift = smallerAfter[length - 1] % length;
        const std::size_t headRank = static_cast<std::size_t>(slots.Before(head));
        const std::size_t unrotatedHead = (headRank + length - shift) % length;
        head = slots.WithRank(static_cast<int>(unrotatedHead));
        const std::size_t last = slots.WithRank(static_cast<int>((unrotatedHead + length - 1) % length));
        order[last] = positions[length - 1];
        slots.Add(last, -1);
    }
    return order;
}

}  // namespace

std::vector<std::size_t> ExchangeSortOrder(const std::vector<std::size_t>& ranks,
                                           const std::vector<bool>& swapsTies) {
    const std::size_t n = ranks.size();
    std::size_t rankCount = 0;
    for (std::size_t r : ranks) rankCount = std::max(rankCount, r + 1);
    std::vector<std::vector<std::size_t>> groups(rankCount);
    for (std::size_t i = 0; i < n; ++i) groups[ranks[i]].push_back(i);

    std::vector<std::size_t> order;
    order.reserve(n);
    PositionCounts smaller(n, false);
    for (std::size_t rank = 0; rank < rankCount; ++rank) {
        const std::vector<std::size_t>& group = groups[rank];
        if (rank < swapsTies.size() && swapsTies[rank]) {
            order.insert(order.end(), group.rbegin(), group.rend());
        } else {
            std::vector<std::size_t> smallerAfter(group.size());
            for (std::size_t k = 0; k < group.size(); ++k) {
                const std::size_t end = k + 1 < group.size() ? group[k + 1] : n;
                smallerAfter[k] = static_cast<std::size_t>(smaller.Before(end) - smaller.Before(group[k] + 1));
            }
            const std::vector<std::size_t> tied = TiedOrder(group, smallerAfter);
            order.insert(order.end(), tied.begin(), tied.end());
        }
        for (std::size_t position : group) smaller.Add(position, 1);
    }
    return order;
}

}  // namespace mirvane
