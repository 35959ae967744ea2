#pragma once
// The construction history that goes with deleted nodes: deformers, their helper nodes and the
// intermediate original shapes upstream of a deleted mesh that feed nothing else, as Maya deletes
// a deformed mesh's history with it.
#include "engine/Node.h"

#include <vector>

namespace host {

// The nodes upstream of the meshes in `deleted` (and below them) whose every outgoing connection
// leads into what is deleted. Transforms, joints and visible shapes are never included.
std::vector<NodePtr> ownHistory(const std::vector<NodePtr>& deleted);

} // namespace host
