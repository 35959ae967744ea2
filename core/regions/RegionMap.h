#pragma once
// A region map: six weights per vertex, one array per region, and the six region locks. The
// normalisation rule every region edit ends with lives here.
#include <array>
#include <cstddef>
#include <vector>

namespace core {

constexpr int kRegionCount = 6;

using RegionWeights = std::array<double, kRegionCount>; // one vertex's weights, regions 0..5
using RegionLocks = std::array<int, kRegionCount>;      // nonzero: the region is locked

struct RegionMap {
    std::array<std::vector<double>, kRegionCount> regions;

    // The map's length is region 0's.
    std::size_t vertexCount() const { return regions[0].size(); }
    RegionWeights at(std::size_t vertex) const;
    void set(std::size_t vertex, const RegionWeights& weights);
    // Gives every region region 0's length: missing weights become 0, surplus ones are dropped,
    // so that at() and set() may be used on every vertex of the map.
    void matchLengths();
};

bool isRegionIndex(int index);

// Scales the unlocked weights down so that a vertex's total does not exceed 1, in single precision:
// only when the total, rounded to five decimals, is above 1 and more than one region has a weight
// that does not round to zero. Locked weights keep their value. Every result is rounded to five
// decimals. Totals below 1 are left as they are.
RegionWeights normalizeArray(const RegionWeights& weights, const RegionLocks& locks);

} // namespace core
