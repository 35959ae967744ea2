#pragma once
// Steps every command shares: answering "-h" and refusing work a build does not have yet.
#include <maya/MArgDatabase.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

namespace common {

// True when "-h"/"-help" was given: the help text is then the command's result.
bool answerHelp(const MArgDatabase& argData, const char* helpText);

// Shows "<command> is not available in this build." and returns failure.
MStatus notAvailable(const char* commandName);

} // namespace common
