#pragma once
// Region maps shown as vertex colours. Mode 1 mixes fixed region hues (0 red, 1 yellow, 2 green,
// 3 cyan, 4 blue, 5 magenta) additively, unclamped. Mode 0 shows how much of each vertex is
// assigned in grey (assigned black, unassigned white); every other mode shows it on a ramp: white
// at 0, then hue total x 240 degrees from red through yellow and green to blue, black from 1 on.
#include "core/regions/RegionMap.h"

#include <vector>

namespace core {

struct RegionColors {
    std::vector<float> rgb;  // three channels per vertex of the map, in vertex order; alpha is 1
    std::size_t partial = 0; // vertices whose grey or ramp colour is not black (0 in mode 1)
};

// The colours of every vertex of the map, from its normalised weights.
RegionColors regionColors(const RegionMap& map, const RegionLocks& locks, int mode);

} // namespace core
