#pragma once
// Building blend shapes: creating the node on mesh history and storing targets as sparse deltas.
// Shared by MFnBlendShapeDeformer and the blendShape command.
#include "engine/Plug.h"
#include "mesh/MeshData.h"

#include <optional>
#include <string>
#include <vector>

namespace host {

// A new blendShape node deforming shapes[i] as its geometry i (see insertDeformer). Null, with
// nothing created, when a shape is not a mesh or is listed twice.
NodePtr createBlendShape(const std::vector<NodePtr>& shapes, const std::string& name, bool frontOfChain,
                         std::string* error);

// The item number a full weight is stored under: round(weight × 1000 + 5000) modulo 2^32. None
// when that is 5000 (weight 0, the implicit zero shape) and for weights that are not finite.
std::optional<uint32_t> itemForWeight(double fullWeight);

// Stores `target` as item itemForWeight(fullWeight) of target `weightIndex` for geometry
// `geometry`: its differences to the deformer's input points, vertices with a non-zero delta only.
// A null target stores an empty item. Creates weight[weightIndex] (value 0) when it is missing.
bool addBlendShapeTarget(const NodePtr& blendShape, unsigned geometry, unsigned weightIndex,
                         const MeshData* target, double fullWeight, std::string* error);

// Removes every item of target `weightIndex` for geometry `geometry`, or with `item` that item only.
// A target left without items loses its group and its weight channel.
void removeBlendShapeItems(const NodePtr& blendShape, unsigned geometry, unsigned weightIndex,
                           std::optional<uint32_t> item);

// inputTarget[geometry].inputTargetGroup[weightIndex] and weight[weightIndex].
Plug targetGroupPlug(const NodePtr& blendShape, unsigned geometry, unsigned weightIndex);
Plug weightPlug(const NodePtr& blendShape, unsigned weightIndex);

} // namespace host
