#pragma once
// The geometry statements of a mesh block, read straight into the mesh: ".vt[a:b]" points,
// ".ed[a:b]" edges (both vertices and the smoothing flag) and ".fc[a:b]" polyFaces. Through setAttr
// a million-vertex mesh would also be kept element by element as attribute values, several times
// the size of its geometry; here it costs its geometry only. The smoothing flags and the records
// after each face (uv and colour assignments) go to the file store for saving.
#include "commands/MeshAttrs.h"
#include "files/SceneFileStore.h"
#include "lang/CommandTable.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host {

enum class MeshStatement {
    Other, // not such a statement: run it through setAttr
    Read,
    Failed // `error` says why; nothing was changed
};

// The elements a geometry statement sets: ".vt[0:7]", ".ed[3]", ".fc[0:5]" and their long names.
struct MeshTarget {
    MeshArray array = MeshArray::Points;
    uint32_t first = 0;
    std::size_t count = 0;
};

// False when the plug text names no such range.
bool parseMeshTarget(std::string_view plug, MeshTarget& out);

// Writes three numbers per point (x y z) or edge (two vertices and the smoothing flag).
bool writeMeshNumbers(Node& shape, NodeFileInfo& info, const MeshTarget& target,
                      const std::vector<double>& numbers, std::string& error);
// Writes one signed edge list per face and keeps the text of the records after each face.
bool writeMeshFaceList(Node& shape, NodeFileInfo& info, const MeshTarget& target,
                       const std::vector<std::vector<int>>& loops, std::vector<std::string>& records,
                       std::string& error);

MeshStatement readMeshStatement(const Statement& statement, Node& shape, NodeFileInfo& info,
                                std::string& error);

} // namespace host
