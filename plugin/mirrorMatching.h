#pragma once
// Mirror partners of mesh vertices: by position across a symmetry axis within a tolerance, or from
// the vertex order map stored on the mesh.
#include <maya/MDagPath.h>
#include <maya/MIntArray.h>
#include <maya/MString.h>

namespace common {

// For each source vertex, in order, the first vertex (in face order) of the mirrored mesh's face
// nearest to it whose mirrored position lies strictly within the tolerance; the tolerance is in the
// parent transform's space and is divided by its mean scale. A source without such a vertex
// contributes nothing, so a shorter result means unmatched sources. A partner is not reserved:
// two sources can receive the same one. The axis is "x", "y" or "z".
MIntArray getMirroredMeshIndices(const MString& axis, const MDagPath& mesh, const MIntArray& sources,
                                 float tolerance);

// The vertex order map's entry for each source, position-aligned. Sources the map does not cover
// (a map shorter than the mesh, or none at all) get -1.
MIntArray getMirroredOrderedMeshIndices(const MDagPath& mesh, const MIntArray& sources);

// The error a caller shows when the partner count differs from the source count; empty when equal.
MString mirrorCountError(unsigned int sources, unsigned int partners);

} // namespace common
