#pragma once

#include "core/mesh/CompressedRows.h"
#include "core/mesh/MeshTopology.h"

#include <vector>

namespace core {

// The shells of a mesh: sets of faces connected through shared edges. Shells are numbered in the order
// of their lowest face index, and each shell lists its faces in ascending order.
class MeshShells {
public:
    explicit MeshShells(const MeshTopology& topology);

    int numShells() const { return faces_.numRows(); }
    // -1 for a face outside the mesh.
    int shellOf(int face) const;
    IndexRange faces(int shell) const { return faces_.row(shell); }

private:
    std::vector<int> shellOfFace_;
    CompressedRows faces_;
};

} // namespace core
