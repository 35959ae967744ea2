#include <maya/MGlobal.h>

#include "api/ObjectRef.h"
#include "api/command/ResultConvert.h"
#include "api/command/UndoSuspension.h"
#include "lang/Interpreter.h"
#include "lang/ResultFormat.h"
#include "session/Session.h"

namespace {

MStatus run(const MString& command, host::CommandResult& result, bool displayEnabled, bool undoEnabled) {
    // Only switches recording off: text run while recording is off (during undo, inside
    // another executeCommand) never turns it back on.
    const host::UndoSuspension suspension(!undoEnabled);
    if (displayEnabled) host::messageLog().info(command.str());
    const bool ok = host::interpreter().execute(command.str(), result);
    if (displayEnabled && ok) {
        const std::string line = host::formatResult(result);
        if (!line.empty()) host::messageLog().info(line);
    }
    return ok ? MS::kSuccess : MS::kFailure;
}

// Runs the command and reads its result as T; a result of another kind fails and leaves `out`.
template <class T> MStatus runInto(const MString& command, T& out, bool displayEnabled, bool undoEnabled) {
    host::CommandResult result;
    const MStatus status = run(command, result, displayEnabled, undoEnabled);
    if (status != MS::kSuccess) return status;
    return host::readResult(result, out) ? MS::kSuccess : MS::kInvalidParameter;
}

} // namespace

MGlobal::MMayaState MGlobal::mayaState(MStatus* ReturnStatus) {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return kBatch;
}

void MGlobal::displayInfo(const MString& theMessage) {
    host::messageLog().info(theMessage.str());
}
void MGlobal::displayWarning(const MString& theWarning) {
    host::messageLog().warning(theWarning.str());
}
void MGlobal::displayError(const MString& theError) {
    host::messageLog().error(theError.str());
}

MStatus MGlobal::executeCommand(const MString& command, bool displayEnabled, bool undoEnabled) {
    host::CommandResult ignored;
    return run(command, ignored, displayEnabled, undoEnabled);
}

MStatus MGlobal::executeCommand(const MString& command, MCommandResult& result, bool displayEnabled,
                                bool undoEnabled) {
    return run(command, result.box().value, displayEnabled, undoEnabled);
}

MStatus MGlobal::executeCommand(const MString& command, int& result, bool displayEnabled, bool undoEnabled) {
    return runInto(command, result, displayEnabled, undoEnabled);
}

MStatus MGlobal::executeCommand(const MString& command, MIntArray& result, bool displayEnabled,
                                bool undoEnabled) {
    return runInto(command, result, displayEnabled, undoEnabled);
}

MStatus MGlobal::executeCommand(const MString& command, double& result, bool displayEnabled,
                                bool undoEnabled) {
    return runInto(command, result, displayEnabled, undoEnabled);
}

MStatus MGlobal::executeCommand(const MString& command, MDoubleArray& result, bool displayEnabled,
                                bool undoEnabled) {
    return runInto(command, result, displayEnabled, undoEnabled);
}

MStatus MGlobal::executeCommand(const MString& command, MStringArray& result, bool displayEnabled,
                                bool undoEnabled) {
    return runInto(command, result, displayEnabled, undoEnabled);
}

MStatus MGlobal::executeCommand(const MString& command, MString& result, bool displayEnabled,
                                bool undoEnabled) {
    return runInto(command, result, displayEnabled, undoEnabled);
}

// Any result converts: numbers as the script editor prints them, arrays joined by blanks.
MString MGlobal::executeCommandStringResult(const MString& command, bool displayEnabled, bool undoEnabled,
                                            MStatus* ResultStatus) {
    host::CommandResult result;
    const MStatus status = run(command, result, displayEnabled, undoEnabled);
    if (ResultStatus) *ResultStatus = status;
    return MString(host::resultText(result));
}

MStatus MGlobal::deleteNode(MObject& node) {
    const host::NodePtr target = host::nodeOf(node);
    if (!target) return MS::kInvalidParameter;
    return host::scene().deleteNode(target, nullptr) ? MS::kSuccess : MS::kFailure;
}
