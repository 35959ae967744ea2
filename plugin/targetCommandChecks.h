#pragma once
// The argument checks that the target commands share, each showing its error when it fails and
// setting the command's result to 0.
#include <maya/MArgDatabase.h>
#include <maya/MDagPath.h>
#include <maya/MObject.h>
#include <maya/MSelectionList.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

namespace common {

// The first object of the call, which must be a blend shape node. Otherwise shows "Error getting
// objects", "No blend shape node provided." or "The node is not a blend shape node." and returns
// the failing status to end the command with.
MStatus getBlendShapeObject(const MArgDatabase& argData, MObject& blendShape);

// False after showing "The original mesh is not defined." for an empty name.
bool originalMeshGiven(const MString& name);

// False after showing the axis message for anything but "x", "y" or "z".
bool validAxis(const MString& axis);

// Entry i of the list as a mesh shape; a transform stands for its first child. Otherwise shows
// the name as typed followed by " has no shape node." or " is not a mesh object." and returns false.
bool meshShapeAt(const MSelectionList& list, unsigned int i, MDagPath& path);

} // namespace common
