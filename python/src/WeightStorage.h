#pragma once
// A whole weight map read and written in the engine's storage at once: a million elements cost one
// pass, where one plug per element costs a lookup each. Undo is recorded as for any plug write:
// the journal saves the map once, as it was.
#include "engine/Plug.h"

#include "core/weights/WeightMap.h"

#include <maya/MPlug.h>

namespace pytalven {

// Fills `dense` (one value per vertex, already set to the default) with the stored elements below
// its size. A map fed by a connection is read through its plugs, as the graph evaluates it.
void readWeightMap(const MPlug& weights, double* dense, unsigned int size);

// Replaces every element of the map by `writes`, whose indices ascend.
void replaceWeightMap(const MPlug& weights, const core::WeightMap& writes);

} // namespace pytalven
