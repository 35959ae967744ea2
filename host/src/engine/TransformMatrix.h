#pragma once
// Matrices of DAG nodes from their translate, rotate, scale, pivots and (for joints) joint orient
// and inverse parent scale, as Maya composes them, and the matrix outputs every DAG node computes
// from them. Local and world matrices are cached on each node and recomputed only when the node, a
// connection feeding it or one of its ancestors has changed, so walking a deep chain is linear.
#include "engine/Matrix.h"
#include "engine/Plug.h"

#include <cstdint>

namespace host {

// The node's own local matrix (identity for shapes and other non-transforms).
Matrix localMatrixOf(const Node& node);
// The product of local matrices from the node up to the world (up to the first ancestor that does
// not inherit its parent's transform).
Matrix worldMatrixOf(const Node& node);

// The value of a DAG node's matrix output: matrix, inverseMatrix, and worldMatrix,
// worldInverseMatrix, parentMatrix, parentInverseMatrix (element 0, or the array plug, which reads
// as its element 0 as Maya's getAttr does). False for any other plug.
bool computedMatrix(const Plug& plug, Matrix& out);

Matrix matrixFromData(const Value& value); // the identity for a value that holds no matrix
DataPtr matrixData(const Matrix& m);

// How many local matrices have been computed since start-up: lets tests check the caching.
uint64_t localMatrixComputations();

} // namespace host
