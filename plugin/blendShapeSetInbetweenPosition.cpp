#include "blendShapeSetInbetweenPosition.h"

#include "commandObjects.h"
#include "commandSupport.h"
#include "targetItemData.h"

#include <maya/MArgDatabase.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>

const char* const blendShapeSetInbetweenPosition_helpText =
    "\n"
    "Description: Moves an in-between target to a new position.\n"
    "\n"
    "Flags: kv_blendShapeSetInbetweenPosition\n"
    "    -h      -help               <n/a>      this message\n"
    "    -i      -index              <int>      index of the source target channel\n"
    "    -sp     -sourcePosition     <int>      current position\n"
    "    -tp     -targetPosition     <int>      result position\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeSetInbetweenPosition -i <int> -sp <int> -tp <int>\n"
    "Return Value: int\n";

blendShapeSetInbetweenPosition::blendShapeSetInbetweenPosition()
    : index(0), sourcePosition(6000), targetPosition(6000), changed(false) {}

void* blendShapeSetInbetweenPosition::creator() {
    return new blendShapeSetInbetweenPosition();
}

MSyntax blendShapeSetInbetweenPosition::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-i", "-index", MSyntax::kLong);
    syntax.addFlag("-sp", "-sourcePosition", MSyntax::kLong);
    syntax.addFlag("-tp", "-targetPosition", MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus blendShapeSetInbetweenPosition::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeSetInbetweenPosition_helpText)) return MS::kSuccess;

    if (!(status = common::getIndexFlag(argData, "-i", index))) return status;
    if (!(status = common::getIndexFlag(argData, "-sp", sourcePosition))) return status;
    if (!(status = common::getIndexFlag(argData, "-tp", targetPosition))) return status;

    status = common::getBlendShapeNode(argData, blendShapeNode);
    if (!status) {
        setResult(0);
        return status;
    }
    return redoIt();
}

void blendShapeSetInbetweenPosition::removeItem(unsigned int position) const {
    // The numbers go through the string's floating-point append, as the node's item numbers do
    // everywhere else in the command strings.
    MString command = "removeMultiInstance -b 1 " + MFnDependencyNode(blendShapeNode).name() + ".it[0].itg[";
    command += static_cast<double>(index);
    command += "].iti[";
    command += static_cast<double>(position);
    command += "]";
    MGlobal::executeCommand(command, false, false);
}

MStatus blendShapeSetInbetweenPosition::redoIt() {
    MStatus status =
        common::readTargetFillingEmpty(blendShapeNode, index, sourcePosition, components, points);
    if (!status) {
        setResult(0);
        return status;
    }
    removeItem(sourcePosition);
    changed = true;
    status = common::writeTarget(blendShapeNode, index, targetPosition, components, points);
    setResult(status ? 1 : 0);
    return status;
}

MStatus blendShapeSetInbetweenPosition::undoIt() {
    if (!changed) return MS::kSuccess;
    removeItem(targetPosition);
    return common::writeTarget(blendShapeNode, index, sourcePosition, components, points);
}
