#pragma once
// The mesh geometry behind an MObject: a mesh shape node (its current geometry) or mesh data.
#include "mesh/MeshData.h"

#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MSpace.h>

#include <memory>

namespace host {

std::shared_ptr<const MeshData> readMesh(const MObject& object);
// Geometry to change in place: a private copy when it is shared, with the node's tweaks baked in.
// Null for non-meshes.
MeshData* writeMesh(const MObject& object);
// Object to `space` matrix for a mesh node (identity for data and object space).
MMatrix meshSpaceMatrix(const MObject& object, MSpace::Space space);
// The component's element list; `all` is true for no component or a complete one.
void componentElements(const MObject& component, std::vector<int>& elements, bool& all);

} // namespace host
