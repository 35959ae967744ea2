#pragma once

#include "core/mesh/MeshTopology.h"
#include "core/symmetry/ShellComponents.h"
#include "core/symmetry/SymmetryReport.h"

#include <vector>

namespace core {

// A coordinate lies on the tested side when, rounded to five decimals, it is below 0 (direction true:
// the negative side is tested) or above 0 (direction false).
bool onTestedSide(double coordinate, bool direction);

struct PositionalCheck {
    std::vector<int> asymmetrical; // tested vertices without a partner, in test order
    double smallestCentreEdge = 0.0;
};

// Searches the positional partner of every tested vertex that lies on the tested side or next to it:
// the first vertex, in face order, of the mirrored mesh's face nearest to the vertex whose mirror image
// lies within the tolerance (compared squared). `closestFace` answers on the mirrored mesh. Partners
// are written into `map` both ways. The shortest (rounded) edge of the vertices next to the tested side
// is recorded as the smallest centre-line edge length.
PositionalCheck checkPositionalSymmetry(const MeshTopology& topology, const std::vector<double>& points,
                                        unsigned int axis, bool direction, double tolerance,
                                        const std::vector<int>& tested, const ClosestFace& closestFace,
                                        std::vector<int>& map, SymmetryReport& report);

// Moves every vertex on the tested side that has a partner in `map` to its partner's mirror image.
void applyOrderMap(std::vector<double>& points, const std::vector<int>& map, unsigned int axis,
                   bool direction);

} // namespace core
