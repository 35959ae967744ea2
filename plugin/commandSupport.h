#pragma once
// Steps every command shares: answering "-h" and reading multi-use flags.
#include <maya/MArgDatabase.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

namespace common {

// True when "-h"/"-help" was given: the help text is then the command's result.
bool answerHelp(const MArgDatabase& argData, const char* helpText);

// Every use of a multi-use flag, appended in the order given.
MStatus appendFlagUses(const MArgDatabase& argData, const char* flag, MIntArray& values);
MStatus appendFlagUses(const MArgDatabase& argData, const char* flag, MStringArray& values);

} // namespace common
