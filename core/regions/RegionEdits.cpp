#include "core/regions/RegionEdits.h"

#include "core/common/Numbers.h"

namespace core {

void addPaintedWeights(RegionMap& map, const RegionLocks& locks, int index, const std::vector<int>& vertices,
                       const std::vector<double>& painted, bool distribute) {
    const std::size_t count = map.vertexCount();
    const std::size_t pairs = vertices.size() < painted.size() ? vertices.size() : painted.size();
    for (std::size_t j = 0; j < pairs; ++j) {
        if (vertices[j] < 0 || static_cast<std::size_t>(vertices[j]) >= count) continue;
        const std::size_t v = static_cast<std::size_t>(vertices[j]);
        RegionWeights r = map.at(v);
        if (!locks[index]) {
            const double before = roundDouble(r[index]);
            const double after = roundDouble(painted[j]);
            r[index] = after;
            if (distribute && before > after) {
                int receivers = 0;
                for (int k = 0; k < kRegionCount; ++k)
                    if (k != index && roundDouble(r[k]) > 0.0) ++receivers;
                const double share = receivers ? (before - after) / receivers : 0.0;
                for (int k = 0; k < kRegionCount && receivers; ++k)
                    if (k != index && roundDouble(r[k]) > 0.0) r[k] += share;
            }
        }
        map.set(v, normalizeArray(r, locks));
    }
}

namespace {

// Per region, the mean of the neighbours' normalised weights over the neighbours where it is above 0.
RegionWeights neighbourMean(const RegionMap& map, const RegionLocks& locks, const int* first,
                            const int* last) {
    RegionWeights sum{};
    std::array<int, kRegionCount> counted{};
    for (const int* n = first; n != last; ++n) {
        if (*n < 0 || static_cast<std::size_t>(*n) >= map.vertexCount()) continue;
        const RegionWeights r = normalizeArray(map.at(static_cast<std::size_t>(*n)), locks);
        for (int k = 0; k < kRegionCount; ++k) {
            sum[k] += r[k];
            if (r[k] > 0.0) ++counted[k];
        }
    }
    for (int k = 0; k < kRegionCount; ++k)
        if (counted[k]) sum[k] /= counted[k];
    return sum;
}

} // namespace

void appendUnassigned(RegionMap& map, const RegionLocks& locks, int index, const std::vector<int>& vertices,
                      const NeighbourLists& neighbours) {
    const bool fromNeighbours = index == -1;
    for (std::size_t j = 0; j < vertices.size(); ++j) {
        if (vertices[j] < 0 || static_cast<std::size_t>(vertices[j]) >= map.vertexCount()) continue;
        const std::size_t v = static_cast<std::size_t>(vertices[j]);
        const RegionWeights r = normalizeArray(map.at(v), locks);
        const double unassigned = roundDouble(1.0 - (r[0] + r[1] + r[2] + r[3] + r[4] + r[5]));
        if (!(unassigned > 0.0)) continue;
        if (!fromNeighbours) {
            if (!locks[index]) map.regions[index][v] += unassigned;
            continue;
        }
        if (j + 1 >= neighbours.offsets.size()) continue;
        const int* list = neighbours.indices.data();
        const RegionWeights mean =
            neighbourMean(map, locks, list + neighbours.offsets[j], list + neighbours.offsets[j + 1]);
        for (int k = 0; k < kRegionCount; ++k)
            if (!locks[k]) map.regions[k][v] += unassigned * mean[k];
    }
}

} // namespace core
