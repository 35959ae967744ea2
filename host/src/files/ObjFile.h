#pragma once
// Wavefront OBJ geometry: vertices ("v x y z") and faces ("f 1 2 3 4", also "f 1/1/1 …" and negative
// indices counted back from the last vertex). Texture coordinates, normals, groups, materials and
// smoothing groups are read past; everything else is reported once as not understood.
#include "mesh/MeshData.h"

#include <string>
#include <string_view>
#include <vector>

namespace host {

// Reads the geometry into `mesh` (points, face counts, face vertices). False with "line N: …" in
// `error` for a line that cannot be read; `warnings` lists what was passed over.
bool parseObj(std::string_view text, MeshData& mesh, std::string& error, std::vector<std::string>& warnings);

// Appends a mesh as "g name", "v" lines and "f" lines whose vertex numbers start after
// `vertexOffset` vertices written before it.
void appendObjMesh(const std::string& name, const MeshData& mesh, std::size_t vertexOffset, std::string& out);

} // namespace host
