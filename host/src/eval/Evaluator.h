#pragma once
// Geometry evaluation: what a mesh shape shows and what flows along a deformer chain. Results are
// cached per scene change, so reading a deformed mesh twice computes its chain once.
#include "engine/Plug.h"
#include "mesh/MeshData.h"

#include <functional>
#include <memory>
#include <string>

namespace host {

using MeshPtr = std::shared_ptr<const MeshData>;

// The geometry a mesh shape shows: its deformer chain's result when inMesh is connected, its own
// geometry otherwise, with its pnts tweaks added. Null for nodes that are not meshes.
MeshPtr evaluatedMesh(const NodePtr& shape);

// The geometry coming out of a plug: a mesh's outMesh or worldMesh[i], a deformer's
// outputGeometry[i], a groupParts' outputGeometry, or whatever feeds a geometry input. Null when
// nothing geometric is there.
MeshPtr geometryAt(const Plug& plug);

// The geometry arriving at an input plug (follows its incoming connection). Null when unconnected.
MeshPtr geometryInto(const Plug& destination);

// The plug a deformer-like node computes an output from: input[i].inputGeometry for a
// deformer's outputGeometry[i], inputGeometry for a groupParts' outputGeometry. Null otherwise.
Plug deformerInputFor(const Plug& output);

// How a deformer type computes output `index` from its input geometry. Types without one pass
// their input through unchanged.
using DeformFunction = std::function<MeshPtr(const NodePtr& deformer, unsigned index, const MeshPtr& input)>;
void registerDeformer(const std::string& typeName, DeformFunction function);

// Drops cached results (tests, and writers that change data behind the plugs' back).
void clearEvaluationCache();

} // namespace host
