#pragma once
// The sparse deltas of one target item on plain arrays: a vertex index list and one delta per
// entry, in the same order.
#include <vector>

namespace core {

struct Delta {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double w = 1.0;
};

struct TargetDeltas {
    std::vector<int> components;
    std::vector<Delta> deltas;
};

// The coordinate of vertex c on the axis, or 0 (the symmetry plane) for an index the mesh does
// not have, so that damaged component lists cannot read past the mesh.
inline float axisCoordinate(const std::vector<float>& coordinates, int c) {
    return c >= 0 && static_cast<std::size_t>(c) < coordinates.size()
               ? coordinates[static_cast<std::size_t>(c)]
               : 0.0f;
}

// The delta with its axis component set to zero (axis 0, 1, 2 for x, y, z).
inline Delta withoutAxis(Delta d, int axis) {
    (axis == 0 ? d.x : axis == 1 ? d.y : d.z) = 0.0;
    d.w = 1.0;
    return d;
}

} // namespace core
