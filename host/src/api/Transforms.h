#pragma once
// The engine's DAG node matrices as MMatrix, for the interface layer and the built-in commands.
#include "engine/TransformMatrix.h"

#include <maya/MMatrix.h>

namespace host {

inline MMatrix toMMatrix(const Matrix& m) {
    return MMatrix(m.m);
}

// The node's own local matrix (identity for shapes).
inline MMatrix localMatrix(const Node& node) {
    return toMMatrix(localMatrixOf(node));
}
// The product of local matrices from the node up to the world.
inline MMatrix worldMatrix(const Node& node) {
    return toMMatrix(worldMatrixOf(node));
}

} // namespace host
