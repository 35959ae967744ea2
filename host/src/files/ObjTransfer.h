#pragma once
// OBJ files in and out of the scene: an imported file becomes a transform with a mesh shape named
// after the file's first object ("o name"), or after the file; exported meshes are written in
// object space as they show (deformers and tweaks applied), one group per mesh.
#include "engine/Node.h"

#include <string>
#include <vector>

namespace host {

// False with "<file> line N: …" in `error`; nothing is created then.
bool importObjFile(const std::string& path, std::string& transformName, std::string& error);

// The mesh shapes an export covers: those of the given nodes (a transform stands for its visible
// mesh shape), each once; or every visible mesh shape of the scene when `all` is set.
std::vector<NodePtr> meshesToExport(const std::vector<NodePtr>& nodes, bool all);

bool exportObjFile(const std::string& path, const std::vector<NodePtr>& shapes, std::string& error);

} // namespace host
