#include "commandSupport.h"

#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>

namespace common {

bool answerHelp(const MArgDatabase& argData, const char* helpText) {
    if (!argData.isFlagSet("-h")) return false;
    MPxCommand::setResult(MString(helpText));
    return true;
}

MStatus notAvailable(const char* commandName) {
    MGlobal::displayError(MString(commandName) + " is not available in this build.");
    return MS::kFailure;
}

} // namespace common
