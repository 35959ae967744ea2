#pragma once
// A deformer's place in mesh history, read from and written to connections: geometry `index` of a
// deformer flows from input[index].inputGeometry to outputGeometry[index]. Deformers, groupParts
// and similar nodes may follow each other between an original shape and the shape that shows the
// result.
#include "engine/Plug.h"

#include <optional>
#include <string>
#include <vector>

namespace host {

// The mesh at the upstream end of the chain feeding the deformer's geometry `index` (the original
// shape); null when the chain does not start at a mesh.
NodePtr inputShape(const NodePtr& deformer, unsigned index);
// The mesh shape that the deformer's output `index` ends in, through later deformers; null when none.
NodePtr outputShape(const NodePtr& deformer, unsigned index);
// The output indices that end in a shape, and the input indices that start at one, ascending.
std::vector<unsigned> outputIndices(const NodePtr& deformer);
std::vector<unsigned> inputIndices(const NodePtr& deformer);
std::optional<unsigned> indexForShape(const NodePtr& deformer, const NodePtr& shape);

// Puts a deformer that is not connected yet on a mesh shape's history as its geometry `index`, as
// Maya does: a shape without history first gets an intermediate copy "<shape>Orig" of its geometry
// (tweaks included, which the shape then drops) under the same transform, which feeds the deformer;
// the deformer then feeds the shape. With history, the deformer goes between the end of the chain
// and the shape, or with `frontOfChain` between the original shape and the first deformer.
bool insertDeformer(const NodePtr& deformer, unsigned index, const NodePtr& shape, bool frontOfChain,
                    std::string* error);

} // namespace host
