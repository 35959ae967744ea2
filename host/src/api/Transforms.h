#pragma once
// Transform matrices of DAG nodes from their translate, rotate, scale and pivots.
#include "engine/Node.h"

#include <maya/MMatrix.h>

namespace host {

// The node's own local matrix (identity for shapes).
MMatrix localMatrix(const Node& node);
// The product of local matrices from the node up to the world.
MMatrix worldMatrix(const Node& node);

} // namespace host
