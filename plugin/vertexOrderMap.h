#pragma once
// The vertex order map: a hidden Int32Array attribute "kvVertexOrderMap" on a mesh shape holding
// each vertex's mirror partner (-1 unmapped, its own index on the symmetry plane).
#include <maya/MDagPath.h>
#include <maya/MIntArray.h>
#include <maya/MPlug.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

namespace common {

// The map's plug on the shape; failure when the mesh has none.
MStatus findVertexOrderMap(const MDagPath& mesh, MPlug& plug);
// Adds the attribute to the shape (the mesh must not have one yet) and returns its plug.
MStatus createVertexOrderMap(const MDagPath& mesh, MPlug& plug);
// The stored array; empty when the plug holds no data.
MIntArray readVertexOrderMap(const MPlug& plug);
// Stores the whole array.
MStatus writeVertexOrderMap(MPlug& plug, const MIntArray& map);
// Copies the map unchanged onto the named mesh, creating its attribute when missing. Shows
// "<name> is not a mesh object." and fails when the name is no mesh.
MStatus copyVertexOrderMap(const MPlug& source, const MString& targetName);

} // namespace common
