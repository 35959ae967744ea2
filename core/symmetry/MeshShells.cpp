#include "core/symmetry/MeshShells.h"

namespace core {

MeshShells::MeshShells(const MeshTopology& topology) {
    // Faces that share an edge are joined in a forest, edge after edge, which reads the edges in memory
    // order; a tree's root is its lowest face, so each shell gets its number at its lowest face.
    const int numFaces = topology.numFaces();
    std::vector<int> parent(static_cast<std::size_t>(numFaces));
    for (int face = 0; face < numFaces; ++face) parent[std::size_t(face)] = face;
    const auto root = [&](int face) {
        while (parent[std::size_t(face)] != face) {
            parent[std::size_t(face)] = parent[std::size_t(parent[std::size_t(face)])];
            face = parent[std::size_t(face)];
        }
        return face;
    };
    for (int edge = 0; edge < topology.numEdges(); ++edge) {
        const IndexRange faces = topology.edgeFaces(edge);
        for (int k = 1; k < faces.size(); ++k) {
            const int a = root(faces[0]), b = root(faces[k]);
            if (a < b) parent[std::size_t(b)] = a;
            if (b < a) parent[std::size_t(a)] = b;
        }
    }
    shellOfFace_.resize(static_cast<std::size_t>(numFaces));
    int numShells = 0;
    for (int face = 0; face < numFaces; ++face) {
        const int lowest = root(face);
        shellOfFace_[std::size_t(face)] = lowest == face ? numShells++ : shellOfFace_[std::size_t(lowest)];
    }
    faces_.build(numShells, [&](auto emit) {
        for (int face = 0; face < numFaces; ++face) emit(shellOfFace_[std::size_t(face)], face);
    });
}

int MeshShells::shellOf(int face) const {
    if (face < 0 || face >= static_cast<int>(shellOfFace_.size())) return -1;
    return shellOfFace_[face];
}

} // namespace core
