#pragma once

#include "core/mesh/MeshTopology.h"
#include "core/symmetry/MeshShells.h"

#include <array>
#include <string>
#include <vector>

namespace core {

// What the symmetry queries read of a mesh, gathered once from the host: its topology, its object-space
// points (x, y, z per vertex), its shells and the name that selection commands address it by.
struct SymmetryMesh {
    const MeshTopology& topology;
    const std::vector<double>& points;
    const MeshShells& shells;
    std::string name;

    double coordinate(int vertex, unsigned int axis) const { return points[3 * std::size_t(vertex) + axis]; }
    std::array<double, 3> point(int vertex) const {
        const double* p = &points[3 * std::size_t(vertex)];
        return {p[0], p[1], p[2]};
    }
    // True when the vertex's distance to the symmetry plane is below the tolerance (compared squared).
    bool onPlane(int vertex, unsigned int axis, double tolerance) const {
        const double d = coordinate(vertex, axis);
        return d * d < tolerance * tolerance;
    }
};

} // namespace core
