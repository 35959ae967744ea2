#include "core/regions/RegionMap.h"

#include "core/common/Numbers.h"

#include <cmath>

namespace core {

RegionWeights RegionMap::at(std::size_t vertex) const {
    RegionWeights weights;
    for (int k = 0; k < kRegionCount; ++k) weights[k] = regions[k][vertex];
    return weights;
}

void RegionMap::set(std::size_t vertex, const RegionWeights& weights) {
    for (int k = 0; k < kRegionCount; ++k) regions[k][vertex] = weights[k];
}

void RegionMap::matchLengths() {
    for (int k = 1; k < kRegionCount; ++k) regions[k].resize(regions[0].size(), 0.0);
}

bool isRegionIndex(int index) {
    return index >= 0 && index < kRegionCount;
}

RegionWeights normalizeArray(const RegionWeights& weights, const RegionLocks& locks) {
    float total = 0.0f, locked = 0.0f, unlocked = 0.0f;
    int weighted = 0;
    for (int k = 0; k < kRegionCount; ++k) {
        const float w = static_cast<float>(weights[k]);
        total += w;
        (locks[k] ? locked : unlocked) += w;
        // A NaN compares unequal to zero, so it counts as a weight.
        if (roundFloat(w) != 0.0f) ++weighted;
    }
    const float factor = roundFloat(total) > 1.0f && weighted > 1 ? (1.0f - locked) / unlocked : 1.0f;
    RegionWeights result;
    for (int k = 0; k < kRegionCount; ++k) {
        const float w = static_cast<float>(weights[k]);
        // The five-decimal value is chosen in single precision and kept as its nearest double, so
        // that sums of normalised weights carry no single-precision noise (0.999 stays 0.999).
        result[k] = roundDouble(roundFloat(locks[k] ? w : w * factor));
    }
    return result;
}

} // namespace core
