#pragma once
// Moves target deltas and rest coordinates between the host's arrays and the plain arrays of the
// target arithmetic, and prepares empty targets before they are edited.
#include "core/targets/TargetDeltas.h"

#include <maya/MDagPath.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPointArray.h>
#include <maya/MString.h>

#include <vector>

namespace common {

// Reads the components and points of one item into the given arrays. A target without data gets
// the component list (0) and the point list ((0, 0, 0, 1)) written to it, while the arrays keep
// what was read. Shows "Error setting components for empty target." or "Error setting points for
// empty target." and returns false when such a write fails.
bool readTargetFillingEmpty(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex,
                            MIntArray& components, MPointArray& points);

core::TargetDeltas toTargetDeltas(const MIntArray& components, const MPointArray& points);
MIntArray toIntArray(const std::vector<int>& values);
MPointArray toPointArray(const std::vector<core::Delta>& deltas);

// 0, 1, 2 for "x", "y", "z" (callers check the text first).
int axisNumber(const MString& axis);
// Each vertex's object-space rest coordinate on the axis; empty when the mesh cannot be read.
std::vector<float> axisCoordinates(const MDagPath& mesh, int axis);

} // namespace common
