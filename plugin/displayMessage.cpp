#include "displayMessage.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>
#include <maya/MGlobal.h>

const char* const displayMessage_helpText = "\n"
                                            "Description: Print the given message.\n"
                                            "\n"
                                            "Flags: kv_displayMessage\n"
                                            "    -h      -help               <n/a>      this message\n"
                                            "    -e      -error              <string>   error message\n"
                                            "    -i      -info               <string>   info message\n"
                                            "    -w      -warning            <string>   warning message\n"
                                            "Usage: Execute the command with the following arguments:\n"
                                            "Execute: kv_displayMessage -i <string>\n"
                                            "Return Value: n/a\n";

displayMessage::displayMessage() : info_(false), warning_(false), error_(false) {}

void* displayMessage::creator() {
    return new displayMessage();
}

MSyntax displayMessage::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-e", "-error", MSyntax::kString);
    syntax.addFlag("-i", "-info", MSyntax::kString);
    syntax.addFlag("-w", "-warning", MSyntax::kString);
    return syntax;
}

MStatus displayMessage::doIt(const MArgList& args) {
    MStatus status;
    const MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, displayMessage_helpText)) return MS::kSuccess;

    // Read in a fixed order into one text: with several flags the error's text wins, shown at the
    // highest-ranking severity (information, then error, then warning).
    info_ = readMessage(argData, "-i");
    warning_ = readMessage(argData, "-w");
    error_ = readMessage(argData, "-e");
    return redoIt();
}

bool displayMessage::readMessage(const MArgDatabase& argData, const char* flag) {
    if (!argData.isFlagSet(flag)) return false;
    argData.getFlagArgument(flag, 0, message_);
    return true;
}

MStatus displayMessage::redoIt() {
    if (info_) {
        MGlobal::displayInfo(message_);
    } else if (error_) {
        MGlobal::displayError(message_);
        return MS::kFailure;
    } else if (warning_) {
        MGlobal::displayWarning(message_);
    }
    return MS::kSuccess;
}

MStatus displayMessage::undoIt() {
    return MS::kSuccess;
}

bool displayMessage::isUndoable() const {
    return false;
}
