#include "core/weights/WeightMap.h"

#include <algorithm>
#include <cmath>

namespace core {

std::vector<double> fullWeights(std::size_t vertexCount, const WeightMap& map) {
    std::vector<double> full(vertexCount, 1.0);
    const std::size_t count = std::min(map.indices.size(), map.weights.size());
    for (std::size_t k = 0; k < count; ++k) {
        const int v = map.indices[k];
        if (v >= 0 && static_cast<std::size_t>(v) < vertexCount)
            full[static_cast<std::size_t>(v)] = map.weights[k];
    }
    return full;
}

DroppedPairs keepUsablePairs(WeightMap& map, std::size_t vertexCount) {
    DroppedPairs dropped;
    const std::size_t count = std::min(map.indices.size(), map.weights.size());
    dropped.unpaired = std::max(map.indices.size(), map.weights.size()) - count;
    std::size_t kept = 0;
    for (std::size_t k = 0; k < count; ++k) {
        const int v = map.indices[k];
        const double w = map.weights[k];
        if (v < 0 || (vertexCount != 0 && static_cast<std::size_t>(v) >= vertexCount)) {
            ++dropped.outOfRange;
            continue;
        }
        if (!std::isfinite(w)) {
            ++dropped.notFinite;
            continue;
        }
        map.indices[kept] = v;
        map.weights[kept] = w;
        ++kept;
    }
    map.indices.resize(kept);
    map.weights.resize(kept);
    return dropped;
}

} // namespace core
