#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace core {

// Hash map from an unordered vertex pair to an edge index: open addressing with linear probing over two
// flat arrays, so that numbering the edges of a million-vertex mesh costs no allocation per edge.
class EdgeMap {
public:
    explicit EdgeMap(std::size_t expectedEdges);

    // Returns the edge stored for the pair {a, b}; when the pair is new, stores `edge` for it and returns
    // `edge`. Vertex indices must be non-negative.
    int findOrInsert(int a, int b, int edge);

private:
    void allocate(std::size_t capacity);
    std::size_t slotOf(std::uint64_t key) const;
    void grow();

    std::vector<std::uint64_t> keys_;
    std::vector<int> edges_;
    std::size_t size_ = 0;
    int shift_ = 0;
};

} // namespace core
