#pragma once
// Colour sets in scene files, written as Maya writes them: ".clst[i].clsn" names the set,
// ".clst[i].clsp[…]" lists its colours, each face's "mc i n c…" record gives the colour of each of
// its corners, and ".ccls" names the current set. The host keeps one colour per vertex: read from a
// file, a vertex takes the colour of its first corner that has one.
#include "mesh/MeshData.h"

#include <string>

namespace host {

class Node;
struct NodeFileInfo;

// The colour index of every vertex in every set (-1 where unset): colours are listed in vertex
// order, set vertices only.
std::vector<std::vector<int>> colorIndices(const MeshData& mesh);

// The ".clst" statements for the mesh's colour sets (nothing when it has none).
void appendColorSetValues(const MeshData& mesh, const std::vector<std::vector<int>>& indices,
                          std::string& out);
// The ".ccls" statement (nothing without colour sets).
void appendCurrentColorSet(const MeshData& mesh, std::string& out);
// The "mc" records of one face, each starting with a blank.
void appendFaceColors(const MeshData& mesh, const std::vector<std::vector<int>>& indices,
                      std::size_t firstCorner, int count, std::string& out);

// After a file is read: the colour sets it gave as values and face records become the mesh's own,
// and those values and records are dropped so that saving writes them from the mesh.
void adoptColorSets(Node& shape, NodeFileInfo& info);

} // namespace host
