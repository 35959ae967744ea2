#include "core/symmetry/MeshShells.h"

namespace core {

MeshShells::MeshShells(const MeshTopology& topology) {
    const int numFaces = topology.numFaces();
    shellOfFace_.assign(static_cast<std::size_t>(numFaces), -1);
    std::vector<int> queue;
    queue.reserve(static_cast<std::size_t>(numFaces));
    int numShells = 0;
    for (int seed = 0; seed < numFaces; ++seed) {
        if (shellOfFace_[seed] != -1) continue;
        shellOfFace_[seed] = numShells;
        queue.assign(1, seed);
        for (std::size_t next = 0; next < queue.size(); ++next) {
            for (int edge : topology.faceEdges(queue[next])) {
                for (int face : topology.edgeFaces(edge)) {
                    if (shellOfFace_[face] != -1) continue;
                    shellOfFace_[face] = numShells;
                    queue.push_back(face);
                }
            }
        }
        ++numShells;
    }
    faces_.build(numShells, [&](auto emit) {
        for (int face = 0; face < numFaces; ++face) emit(shellOfFace_[face], face);
    });
}

int MeshShells::shellOf(int face) const {
    if (face < 0 || face >= static_cast<int>(shellOfFace_.size())) return -1;
    return shellOfFace_[face];
}

} // namespace core
