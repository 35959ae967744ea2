#include "core/mesh/EdgeMap.h"

#include <utility>

namespace core {

namespace {

// Packed vertex pairs never reach this value, since both halves are at most INT_MAX.
constexpr std::uint64_t kEmpty = ~std::uint64_t(0);

} // namespace

EdgeMap::EdgeMap(std::size_t expectedEdges) {
    // Start at a load factor below one half for the expected size.
    std::size_t capacity = 16;
    while (capacity < expectedEdges * 2) capacity *= 2;
    allocate(capacity);
}

void EdgeMap::allocate(std::size_t capacity) {
    slots_.assign(capacity, Slot{kEmpty, -1});
    shift_ = 64;
    for (std::size_t c = capacity; c > 1; c /= 2) --shift_;
}

std::size_t EdgeMap::slotOf(std::uint64_t key) const {
    // Fibonacci hashing: the top bits of the product are well mixed.
    return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15ull) >> shift_);
}

void EdgeMap::grow() {
    std::vector<Slot> old = std::move(slots_);
    allocate(old.size() * 2);
    const std::size_t mask = slots_.size() - 1;
    for (const Slot& entry : old) {
        if (entry.key == kEmpty) continue;
        std::size_t slot = slotOf(entry.key);
        while (slots_[slot].key != kEmpty) slot = (slot + 1) & mask;
        slots_[slot] = entry;
    }
}

int EdgeMap::findOrInsert(int a, int b, int edge) {
    const std::uint64_t key = pairKey(a, b);
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = slotOf(key);
    while (slots_[slot].key != kEmpty) {
        if (slots_[slot].key == key) return slots_[slot].edge;
        slot = (slot + 1) & mask;
    }
    // Keep the load factor at or below 0.7 so probe sequences stay short.
    if ((size_ + 1) * 10 > slots_.size() * 7) {
        grow();
        return findOrInsert(a, b, edge);
    }
    slots_[slot] = Slot{key, edge};
    ++size_;
    return edge;
}

} // namespace core
