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

// The normalised weights of the map's vertices, each worked out when first needed and again after
// the vertex changed, so that a vertex shared by many neighbourhoods is normalised once.
class NormalisedRows {
public:
    NormalisedRows(const RegionMap& map, const RegionLocks& locks)
        : map_(map), locks_(locks), rows_(map.vertexCount()), known_(map.vertexCount(), 0) {}

    const RegionWeights& at(std::size_t v) {
        if (!known_[v]) {
            rows_[v] = normalizeArray(map_.at(v), locks_);
            known_[v] = 1;
        }
        return rows_[v];
    }
    void forget(std::size_t v) { known_[v] = 0; }

private:
    const RegionMap& map_;
    const RegionLocks& locks_;
    std::vector<RegionWeights> rows_;
    std::vector<char> known_;
};

// Per region, the mean of the neighbours' normalised weights over the neighbours where it is above 0.
RegionWeights neighbourMean(NormalisedRows& rows, std::size_t count, const int* first, const int* last) {
    RegionWeights sum{};
    std::array<int, kRegionCount> counted{};
    for (const int* n = first; n != last; ++n) {
        if (*n < 0 || static_cast<std::size_t>(*n) >= count) continue;
        const RegionWeights& r = rows.at(static_cast<std::size_t>(*n));
        for (int k = 0; k < kRegionCount; ++k) {
            sum[k] += r[k];
            if (r[k] > 0.0) ++counted[k];
        }
    }
    for (int k = 0; k < kRegionCount; ++k)
        if (counted[k]) sum[k] /= counted[k];
    return sum;
}

// Gives region `index` of each vertex all of the weight the vertex lacks, unless the region is locked.
void fillRegion(RegionMap& map, const RegionLocks& locks, int index, const std::vector<int>& vertices) {
    for (const int vertex : vertices) {
        if (vertex < 0 || static_cast<std::size_t>(vertex) >= map.vertexCount()) continue;
        const std::size_t v = static_cast<std::size_t>(vertex);
        const RegionWeights r = normalizeArray(map.at(v), locks);
        const double unassigned = roundDouble(1.0 - (r[0] + r[1] + r[2] + r[3] + r[4] + r[5]));
        if (unassigned > 0.0 && !locks[index]) map.regions[index][v] += unassigned;
    }
}

} // namespace

void appendUnassigned(RegionMap& map, const RegionLocks& locks, int index, const std::vector<int>& vertices,
                      const NeighbourLists& neighbours) {
    if (index != -1) {
        fillRegion(map, locks, index, vertices);
        return;
    }
    const std::size_t count = map.vertexCount();
    NormalisedRows rows(map, locks);
    const int* list = neighbours.indices.data();
    for (std::size_t j = 0; j < vertices.size() && j + 1 < neighbours.offsets.size(); ++j) {
        if (vertices[j] < 0 || static_cast<std::size_t>(vertices[j]) >= count) continue;
        const std::size_t v = static_cast<std::size_t>(vertices[j]);
        const RegionWeights& r = rows.at(v);
        const double unassigned = roundDouble(1.0 - (r[0] + r[1] + r[2] + r[3] + r[4] + r[5]));
        if (!(unassigned > 0.0)) continue;
        const RegionWeights mean =
            neighbourMean(rows, count, list + neighbours.offsets[j], list + neighbours.offsets[j + 1]);
        for (int k = 0; k < kRegionCount; ++k)
            if (!locks[k]) map.regions[k][v] += unassigned * mean[k];
        rows.forget(v);
    }
}

} // namespace core
