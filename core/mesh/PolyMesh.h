#pragma once

#include <vector>

namespace core {

// A plain polygon mesh: x, y, z per vertex, the vertex count of each face and the face vertex indices,
// face after face.
struct PolyMesh {
    std::vector<double> points;
    std::vector<int> faceCounts;
    std::vector<int> faceConnects;

    int numVertices() const { return static_cast<int>(points.size() / 3); }
};

} // namespace core
