#include "editTweakNode.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

const char* const editTweakNode_helpText =
    "\n"
    "Description: Bake and remove tweak node edits.\n"
    "\n"
    "Flags: kv_editTweakNode\n"
    "    -h      -help               <n/a>      this message\n"
    "    -b      -bake               <int>      bake the edits to the original mesh\n"
    "    -om     -originalMesh       <string>   original shape node\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_editTweakNode -b <int> -om <string>\n"
    "Return Value: int\n";

editTweakNode::editTweakNode() : bake(false) {}

void* editTweakNode::creator() {
    return new editTweakNode();
}

MSyntax editTweakNode::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-b", "-bake", MSyntax::kBoolean);
    syntax.addFlag("-om", "-originalMesh", MSyntax::kString);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus editTweakNode::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, editTweakNode_helpText)) return MS::kSuccess;
    return common::notAvailable("kv_editTweakNode");
}

MStatus editTweakNode::redoIt() {
    return MS::kSuccess;
}

MStatus editTweakNode::undoIt() {
    return MS::kSuccess;
}
