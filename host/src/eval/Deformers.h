#pragma once
// The deformer types the host evaluates, one file each. registerBuiltinDeformers puts them into the
// evaluator's table; the evaluator calls it once, when the table is first used.
#include "eval/Evaluator.h"

namespace host {

void registerBuiltinDeformers();

// out = in + envelope × Σ targets (targetWeights × baseWeights × the target's shape at its weight).
MeshPtr deformBlendShape(const NodePtr& deformer, unsigned index, const MeshPtr& input);
// out = in + envelope × vlist[index].vertex offsets.
MeshPtr deformTweak(const NodePtr& deformer, unsigned index, const MeshPtr& input);
// Linear blend skinning: Σ weights × bind pre-matrices × influence matrices, in bind world space.
MeshPtr deformSkinCluster(const NodePtr& deformer, unsigned index, const MeshPtr& input);

} // namespace host
