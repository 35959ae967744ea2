#include "commandSupport.h"

#include <maya/MArgList.h>
#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>
#include <maya/MSelectionList.h>

namespace common {

namespace {

// Hands the argument list of every use of the flag to append, in order.
template <class Append> MStatus appendUses(const MArgDatabase& argData, const char* flag, Append append) {
    MArgList use;
    const unsigned int uses = argData.numberOfFlagUses(flag);
    for (unsigned int i = 0; i < uses; ++i) {
        const MStatus status = argData.getFlagArgumentList(flag, i, use);
        if (!status) return status;
        append(use);
    }
    return MS::kSuccess;
}

} // namespace

bool answerHelp(const MArgDatabase& argData, const char* helpText) {
    if (!argData.isFlagSet("-h")) return false;
    MPxCommand::setResult(MString(helpText));
    return true;
}

MStatus blendShapeArgument(const MArgDatabase& argData, MObject& blendShape) {
    MSelectionList objects;
    const MStatus status = argData.getObjects(objects);
    if (!status) {
        MGlobal::displayError("Error getting objects");
        return status;
    }
    if (objects.length() == 0) {
        MPxCommand::displayError("No blend shape node provided.");
        return MS::kFailure;
    }
    objects.getDependNode(0, blendShape);
    if (!blendShape.hasFn(MFn::kBlendShape)) {
        MPxCommand::displayError("The node is not a blend shape node.");
        return MS::kFailure;
    }
    return MS::kSuccess;
}

MStatus appendFlagUses(const MArgDatabase& argData, const char* flag, MIntArray& values) {
    return appendUses(argData, flag, [&values](const MArgList& use) { values.append(use.asInt(0)); });
}

MStatus appendFlagUses(const MArgDatabase& argData, const char* flag, MStringArray& values) {
    return appendUses(argData, flag, [&values](const MArgList& use) { values.append(use.asString(0)); });
}

MStatus notAvailable(const char* commandName) {
    MGlobal::displayError(MString(commandName) + " is not available in this build.");
    return MS::kFailure;
}

} // namespace common
