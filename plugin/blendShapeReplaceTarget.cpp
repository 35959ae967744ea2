#include "blendShapeReplaceTarget.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

const char* const blendShapeReplaceTarget_helpText =
    "\n"
    "Description: Replaces an existing blend shape target.\n"
    "\n"
    "Flags: kv_blendShapeReplaceTarget\n"
    "    -h      -help               <n/a>      this message\n"
    "    -i      -index              <int>      index of the source target channel\n"
    "    -m      -mesh               <string>   target mesh\n"
    "    -om     -originalMesh       <string>   original shape node\n"
    "    -ti     -targetItem         <int>      channel value to replace\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeReplaceTarget -i <int> -m <string> -om <string> -ti <float>\n"
    "Return Value: int\n";

blendShapeReplaceTarget::blendShapeReplaceTarget() : index(0), targetItem(6000) {}

void* blendShapeReplaceTarget::creator() {
    return new blendShapeReplaceTarget();
}

MSyntax blendShapeReplaceTarget::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-i", "-index", MSyntax::kLong);
    syntax.addFlag("-m", "-mesh", MSyntax::kString);
    syntax.addFlag("-om", "-originalMesh", MSyntax::kString);
    syntax.addFlag("-ti", "-targetItem", MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus blendShapeReplaceTarget::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeReplaceTarget_helpText)) return MS::kSuccess;
    return common::notAvailable("kv_blendShapeReplaceTarget");
}

MStatus blendShapeReplaceTarget::redoIt() {
    return MS::kSuccess;
}

MStatus blendShapeReplaceTarget::undoIt() {
    return MS::kSuccess;
}
