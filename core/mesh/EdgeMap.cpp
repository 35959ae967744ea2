#include "core/mesh/EdgeMap.h"

#include <utility>

namespace core {

namespace {

// Packed vertex pairs never reach this value, since both halves are at most INT_MAX.
constexpr std::uint64_t kEmpty = ~std::uint64_t(0);

std::uint64_t pairKey(int a, int b) {
    if (a > b) std::swap(a, b);
    return (static_cast<std::uint64_t>(a) << 32) | static_cast<std::uint32_t>(b);
}

} // namespace

EdgeMap::EdgeMap(std::size_t expectedEdges) {
    // Start at a load factor below one half for the expected size.
    std::size_t capacity = 16;
    while (capacity < expectedEdges * 2) capacity *= 2;
    allocate(capacity);
}

void EdgeMap::allocate(std::size_t capacity) {
    keys_.assign(capacity, kEmpty);
    edges_.assign(capacity, -1);
    shift_ = 64;
    for (std::size_t c = capacity; c > 1; c /= 2) --shift_;
}

std::size_t EdgeMap::slotOf(std::uint64_t key) const {
    // Fibonacci hashing: the top bits of the product are well mixed.
    return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15ull) >> shift_);
}

void EdgeMap::grow() {
    std::vector<std::uint64_t> keys = std::move(keys_);
    std::vector<int> edges = std::move(edges_);
    allocate(keys.size() * 2);
    const std::size_t mask = keys_.size() - 1;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (keys[i] == kEmpty) continue;
        std::size_t slot = slotOf(keys[i]);
        while (keys_[slot] != kEmpty) slot = (slot + 1) & mask;
        keys_[slot] = keys[i];
        edges_[slot] = edges[i];
    }
}

int EdgeMap::findOrInsert(int a, int b, int edge) {
    const std::uint64_t key = pairKey(a, b);
    const std::size_t mask = keys_.size() - 1;
    std::size_t slot = slotOf(key);
    while (keys_[slot] != kEmpty) {
        if (keys_[slot] == key) return edges_[slot];
        slot = (slot + 1) & mask;
    }
    // Keep the load factor at or below 0.7 so probe sequences stay short.
    if ((size_ + 1) * 10 > keys_.size() * 7) {
        grow();
        return findOrInsert(a, b, edge);
    }
    keys_[slot] = key;
    edges_[slot] = edge;
    ++size_;
    return edge;
}

} // namespace core
