#pragma once
// The closest-point indices built last, kept so that the commands of a batch that search one
// version of a mesh build its index once. An entry holds the mesh data it was built from: shared
// mesh data is never changed (writers copy it first), so the same data object with the same
// matrix and faces is the same surface.
#include "mesh/ClosestPointIndex.h"
#include "mesh/MeshData.h"

#include <memory>
#include <vector>

namespace host {

// The index of the mesh's faces (all of them when `faces` is null) moved by the row-vector matrix
// (null for none), built now or found among the most recent ones.
std::shared_ptr<const ClosestPointIndex> closestPointIndexOf(const std::shared_ptr<const MeshData>& mesh,
                                                             const double (*matrix)[4],
                                                             const std::vector<int>* faces);

// Forgets the kept indices and the mesh data they hold.
void clearClosestPointIndices();

} // namespace host
