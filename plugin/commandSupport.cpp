#include "commandSupport.h"

#include <maya/MArgList.h>
#include <maya/MPxCommand.h>

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

MStatus appendFlagUses(const MArgDatabase& argData, const char* flag, MIntArray& values) {
    return appendUses(argData, flag, [&values](const MArgList& use) { values.append(use.asInt(0)); });
}

MStatus appendFlagUses(const MArgDatabase& argData, const char* flag, MStringArray& values) {
    return appendUses(argData, flag, [&values](const MArgList& use) { values.append(use.asString(0)); });
}

} // namespace common
