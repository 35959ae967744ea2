#pragma once
// Steps every command shares: answering "-h" and refusing work a build does not have yet.
#include <maya/MArgDatabase.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

namespace common {

// True when "-h"/"-help" was given: the help text is then the command's result.
bool answerHelp(const MArgDatabase& argData, const char* helpText);

// The blend shape node among the command's objects (the first one): "Error getting objects", "No
// blend shape node provided." and "The node is not a blend shape node." are shown and a failure
// returned when there is none.
MStatus blendShapeArgument(const MArgDatabase& argData, MObject& blendShape);

// Every use of a multi-use flag, appended in the order given.
MStatus appendFlagUses(const MArgDatabase& argData, const char* flag, MIntArray& values);
MStatus appendFlagUses(const MArgDatabase& argData, const char* flag, MStringArray& values);

// Shows "<command> is not available in this build." and returns failure.
MStatus notAvailable(const char* commandName);

} // namespace common
