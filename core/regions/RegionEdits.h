#pragma once
// The region edits that change weights: merging painted weights into one region, and filling
// vertices whose weights do not reach 1.
#include "core/regions/RegionMap.h"

#include <vector>

namespace core {

// Merges painted weights (vertices[j] painted painted[j], in that order) into region `index`. Unless
// that region is locked it takes the painted value, rounded to five decimals; when it was lowered and
// distribute is on, the weight it lost is shared equally among the other regions whose weight does
// not round to zero (locked ones included: only the painted region's lock is looked at). Every
// painted vertex is then normalised, locked or not. Vertices outside the map are skipped; `index`
// must be a region index.
void addPaintedWeights(RegionMap& map, const RegionLocks& locks, int index, const std::vector<int>& vertices,
                       const std::vector<double>& painted, bool distribute);

// The edge neighbours of some vertices: those of vertex j of a list are
// indices[offsets[j]] .. indices[offsets[j + 1] - 1].
struct NeighbourLists {
    std::vector<int> offsets{0};
    std::vector<int> indices;
};

// Gives each listed vertex (ascending) the weight it lacks to reach 1 (after normalisation, rounded
// to five decimals). With a region index the unlocked region gets all of it. With -1 every unlocked
// region k gets the lacking weight times the mean of k's normalised weight over the neighbours
// where k is above zero; neighbours are read as the walk has left them. Vertices outside the map
// are skipped, and so are neighbours outside it.
void appendUnassigned(RegionMap& map, const RegionLocks& locks, int index, const std::vector<int>& vertices,
                      const NeighbourLists& neighbours);

} // namespace core
