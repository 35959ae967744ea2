#pragma once
// A sparse per-vertex weight map as plain arrays, and the checks that keep pairs from a file or a
// caller inside the mesh they are meant for.
#include <cstddef>
#include <vector>

namespace core {

// Parallel arrays: weights[k] belongs to vertex indices[k]. A vertex without an entry weighs 1.0.
struct WeightMap {
    std::vector<int> indices;
    std::vector<double> weights;

    std::size_t size() const { return indices.size(); }
    bool empty() const { return indices.empty(); }
    void append(int index, double weight) {
        indices.push_back(index);
        weights.push_back(weight);
    }
};

// One weight per vertex: 1.0 everywhere, then the map's weights at their indices in map order (a
// later entry for the same vertex wins). Entries outside 0 .. vertexCount - 1 are ignored.
std::vector<double> fullWeights(std::size_t vertexCount, const WeightMap& map);

// What keepUsablePairs removed.
struct DroppedPairs {
    std::size_t unpaired = 0;   // an index without a weight or a weight without an index
    std::size_t outOfRange = 0; // a negative index, or one at or beyond the vertex count
    std::size_t notFinite = 0;  // a NaN or infinite weight
    std::size_t total() const { return unpaired + outOfRange + notFinite; }
};

// Keeps the pairs that can be written: both arrays are cut to the shorter one, then pairs with a
// negative index, an index at or beyond vertexCount (when vertexCount is not 0, i.e. known) or a
// weight that is not finite are removed. Order is kept.
DroppedPairs keepUsablePairs(WeightMap& map, std::size_t vertexCount);

} // namespace core
