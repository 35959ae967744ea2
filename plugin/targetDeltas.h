#pragma once
// Moves target deltas and rest coordinates between the host's arrays and the plain arrays of the
// target arithmetic; the item reads that fill empty targets are in targetItemData.
#include "targetItemData.h"

#include "core/targets/TargetDeltas.h"

#include <maya/MDagPath.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPointArray.h>
#include <maya/MString.h>

#include <vector>

namespace common {

core::TargetDeltas toTargetDeltas(const MIntArray& components, const MPointArray& points);
MPointArray toPointArray(const std::vector<core::Delta>& deltas);

// 0, 1, 2 for "x", "y", "z" (callers check the text first).
int axisNumber(const MString& axis);
// Each vertex's object-space rest coordinate on the axis; empty when the mesh cannot be read.
std::vector<float> axisCoordinates(const MDagPath& mesh, int axis);

} // namespace common
