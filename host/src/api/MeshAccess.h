#pragma once
// The mesh geometry behind an MObject: a mesh shape node (its current geometry) or mesh data.
#include "mesh/MeshData.h"

#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MSpace.h>

#include <array>
#include <memory>
#include <vector>

namespace host {

std::shared_ptr<const MeshData> readMesh(const MObject& object);
// Geometry to change in place: a private copy when it is shared, with the node's tweaks baked in
// unless a deformer chain feeds the shape (its tweaks apply to the chain's result). Null for
// non-meshes.
MeshData* writeMesh(const MObject& object);
// Writes positions as the mesh shows them: points[k] becomes the shown position of vertex
// first + k (points beyond the mesh are ignored). A shape fed by a deformer chain keeps them as
// tweaks (pnts) on top of the chain's result, as Maya does; any other mesh takes them as its own
// geometry, so whatever it feeds (an original shape's deformed shape) re-evaluates. False for
// objects that are not meshes.
bool writeShownPoints(const MObject& object, std::size_t first,
                      const std::vector<std::array<float, 3>>& points);
// Object to `space` matrix for a mesh node (identity for data and object space).
MMatrix meshSpaceMatrix(const MObject& object, MSpace::Space space);
// The component's element list; `all` is true for no component or a complete one.
void componentElements(const MObject& component, std::vector<int>& elements, bool& all);

} // namespace host
