#pragma once
// The geometry statements of a mesh block, read straight into the mesh: ".vt[a:b]" points,
// ".ed[a:b]" edges (both vertices and the smoothing flag) and ".fc[a:b]" polyFaces. Through setAttr
// a million-vertex mesh would also be kept element by element as attribute values, several times
// the size of its geometry; here it costs its geometry only. The smoothing flags and the records
// after each face (uv and colour assignments) go to the file store for saving.
#include "files/SceneFileStore.h"
#include "lang/CommandTable.h"

#include <string>

namespace host {

enum class MeshStatement {
    Other, // not such a statement: run it through setAttr
    Read,
    Failed // `error` says why; nothing was changed
};

MeshStatement readMeshStatement(const Statement& statement, Node& shape, NodeFileInfo& info,
                                std::string& error);

} // namespace host
