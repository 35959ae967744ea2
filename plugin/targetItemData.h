#pragma once
// Reading and writing one target item's component and point lists with the messages the target
// editing commands show when a write fails.
#include <maya/MFloatPointArray.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPointArray.h>
#include <maya/MStatus.h>

#include <vector>

namespace common {

// Writes the one-element component list (0), or the one-element point list ((0, 0, 0, 1)), to the
// item so that it exists as written data. Shows "Error setting components for empty target." or
// "Error setting points for empty target." on failure.
MStatus fillEmptyTargetComponents(const MObject& blendShape, unsigned int targetIndex,
                                  unsigned int itemIndex);
MStatus fillEmptyTargetPoints(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex);

// Reads the item's component list and point list as they are; each one found empty is filled on
// the node as above. The lists returned are the ones read.
MStatus readTargetFillingEmpty(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex,
                               MIntArray& components, MPointArray& points);

// Writes both lists to the item, components first. Shows "Error setting components." or "Error
// setting points." on failure.
MStatus writeTarget(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex,
                    const MIntArray& components, const MPointArray& points);

// Conversions between host arrays and the plain arrays of core (points packed x, y, z).
std::vector<int> toVector(const MIntArray& array);
MIntArray toIntArray(const std::vector<int>& values);
MPointArray toPointArray(const std::vector<double>& xyz);
std::vector<float> toVector(const MFloatPointArray& points);

} // namespace common
