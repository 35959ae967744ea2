#pragma once
// Per-vertex arithmetic of the target editing commands on plain arrays: the deltas between a mesh
// and its original, which listed deltas survive a component selection, and tweak offsets added to
// mesh points. Points are packed x, y, z per vertex.
#include <cstddef>
#include <vector>

namespace core {

// A target item's sparse deltas: vertex indices and, parallel to them, x, y, z per index.
struct SparseDeltas {
    std::vector<int> components;
    std::vector<double> deltas;
};

// For every vertex of the original: mesh - original, subtracted per coordinate in single
// precision; vertices whose difference has length 0 are left out. No tolerance: any change counts.
// The mesh must hold at least as many points as the original.
SparseDeltas meshDeltas(const std::vector<float>& original, const std::vector<float>& mesh);

// The positions in components whose vertex is not among the selected vertices, in list order. The
// selection is used as a set, so a vertex that occurs several times in it (a corner shared by
// selected edges or faces) counts once; negative indices select nothing. Linear in both sizes.
std::vector<std::size_t> unselectedPositions(const std::vector<int>& components,
                                             const std::vector<int>& selected);

// Adds each offset (x, y, z per vertex, converted to single precision first) to the point of its
// vertex. Offsets of vertices the points do not have are ignored.
void addOffsets(std::vector<float>& points, const std::vector<int>& vertices,
                const std::vector<double>& offsets);

} // namespace core
