#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace core {

// Hash map from an unordered vertex pair to an edge index: open addressing with linear probing over one
// flat array, so that numbering the edges of a million-vertex mesh costs no allocation per edge and one
// cache line per lookup.
class EdgeMap {
public:
    explicit EdgeMap(std::size_t expectedEdges);

    // Returns the edge stored for the pair {a, b}; when the pair is new, stores `edge` for it and returns
    // `edge`. Vertex indices must be non-negative.
    int findOrInsert(int a, int b, int edge);

    // Starts loading the slot of {a, b} into the cache ahead of a lookup: the table is far larger than the
    // cache and lookups land at random, so overlapping the misses is what makes numbering fast.
    void prefetch(int a, int b) const {
#if defined(__GNUC__)
        __builtin_prefetch(&slots_[slotOf(pairKey(a, b))]);
#else
        (void)a, (void)b;
#endif
    }

private:
    static std::uint64_t pairKey(int a, int b) {
        return a < b ? (std::uint64_t(a) << 32) | std::uint32_t(b)
                     : (std::uint64_t(b) << 32) | std::uint32_t(a);
    }
    void allocate(std::size_t capacity);
    std::size_t slotOf(std::uint64_t key) const;
    void grow();

    struct Slot {
        std::uint64_t key;
        int edge;
    };

    std::vector<Slot> slots_;
    std::size_t size_ = 0;
    int shift_ = 0;
};

} // namespace core
