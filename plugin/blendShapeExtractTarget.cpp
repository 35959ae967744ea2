#include "blendShapeExtractTarget.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

const char* const blendShapeExtractTarget_helpText =
    "\n"
    "Description: Extracts an existing blend shape target.\n"
    "\n"
    "Flags: kv_blendShapeExtractTarget\n"
    "    -h      -help               <n/a>      this message\n"
    "    -i      -index              <int>      index of the source target channel\n"
    "    -om     -originalMesh       <string>   original shape node\n"
    "    -ti     -targetItem         <int>      channel item to extract, i.e. 6000\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeExtractTarget -i <int> -ti <int> -om <string>\n"
    "Return Value: string\n";

blendShapeExtractTarget::blendShapeExtractTarget() : index(0), targetItem(6000) {}

void* blendShapeExtractTarget::creator() {
    return new blendShapeExtractTarget();
}

MSyntax blendShapeExtractTarget::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-i", "-index", MSyntax::kLong);
    syntax.addFlag("-om", "-originalMesh", MSyntax::kString);
    syntax.addFlag("-ti", "-targetItem", MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus blendShapeExtractTarget::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeExtractTarget_helpText)) return MS::kSuccess;
    return common::notAvailable("kv_blendShapeExtractTarget");
}

MStatus blendShapeExtractTarget::redoIt() {
    return MS::kSuccess;
}

MStatus blendShapeExtractTarget::undoIt() {
    return MS::kSuccess;
}
