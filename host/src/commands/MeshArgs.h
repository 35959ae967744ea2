#pragma once
// Mesh arguments of the poly query commands: objects or their components (the selection when none
// are named), each resolved to the mesh shape it names and the elements it lists.
#include "commands/ArgReader.h"
#include "engine/Selection.h"
#include "mesh/MeshData.h"

#include <memory>
#include <vector>

namespace host {

struct MeshArg {
    NodePtr shape;                                  // a mesh shape
    std::shared_ptr<const MeshData> mesh;           // what the shape shows
    std::shared_ptr<const ComponentData> component; // null for the whole mesh
};

// False with an error for a name that matches nothing; items that are not meshes are skipped
// (`skipped` counts them).
bool meshArgs(const ArgReader& args, std::vector<MeshArg>& out, int& skipped);

} // namespace host
