#pragma once
// A mesh shape keeps its geometry in MeshData (Node::mesh()). Writing its .vt, .ed and .fc elements
// updates that geometry as well as the attribute, and reading .vt reads the geometry back, so that
// scene files and commands see the same mesh. Arrays grow only at their end; edges must name
// existing vertices and faces existing edges that close into a loop.
#include "engine/Plug.h"
#include "mesh/MeshData.h"

#include <array>
#include <string>
#include <vector>

namespace host {

enum class MeshArray { None, Points, Edges, Faces };

// The geometry array a plug on a mesh shape addresses (by its top-level attribute).
MeshArray meshArrayOf(const Plug& plug);
// The number of elements the geometry holds for an array.
std::size_t meshArraySize(const Node& node, MeshArray array);
// A vertex position; false outside the mesh.
bool meshPoint(const Node& node, uint32_t index, std::array<double, 3>& out);
// An edge as its .ed element reads: both vertices and the hardness flag (0, hard: hardness is not
// kept); false outside the mesh.
bool meshEdge(const Node& node, uint32_t index, std::array<double, 3>& out);

// Writes `count` consecutive elements from `first`: `fields` values per element, the first of them
// for field `firstField` (x y z of a point; both vertices and the hardness flag of an edge, which is
// not kept). Checks everything before changing anything.
bool writeMeshPoints(Node& node, uint32_t first, std::size_t count, int firstField, int fields,
                     const std::vector<double>& values, std::string& error);
bool writeMeshEdges(Node& node, uint32_t first, std::size_t count, int firstField, int fields,
                    const std::vector<double>& values, std::string& error);
// Faces as signed edge references (-i-1 walks edge i backwards), one per element.
bool writeMeshFaces(Node& node, uint32_t first, const std::vector<const std::vector<int>*>& faces,
                    std::string& error);

} // namespace host
