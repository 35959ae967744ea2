#include "blendShapeRemoveDeltas.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

const char* const blendShapeRemoveDeltas_helpText =
    "\n"
    "Description: Removes the blend shape deltas for the selected components.\n"
    "\n"
    "Flags: kv_blendShapeRemoveDeltas\n"
    "    -h      -help               <n/a>      this message\n"
    "    -i      -index              <int>      index of the source target channel\n"
    "    -ti     -targetItem         <int>      target position\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeRemoveDeltas -i <int> -ti <int>\n"
    "Return Value: int\n";

blendShapeRemoveDeltas::blendShapeRemoveDeltas() : index(0), targetItem(6000) {}

void* blendShapeRemoveDeltas::creator() {
    return new blendShapeRemoveDeltas();
}

MSyntax blendShapeRemoveDeltas::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-i", "-index", MSyntax::kLong);
    syntax.addFlag("-ti", "-targetItem", MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus blendShapeRemoveDeltas::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeRemoveDeltas_helpText)) return MS::kSuccess;
    return common::notAvailable("kv_blendShapeRemoveDeltas");
}

MStatus blendShapeRemoveDeltas::redoIt() {
    return MS::kSuccess;
}

MStatus blendShapeRemoveDeltas::undoIt() {
    return MS::kSuccess;
}
