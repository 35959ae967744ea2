#include "blendShapeSetInbetweenPosition.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

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
    : index(0), sourcePosition(6000), targetPosition(6000) {}

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
    return common::notAvailable("kv_blendShapeSetInbetweenPosition");
}

MStatus blendShapeSetInbetweenPosition::redoIt() {
    return MS::kSuccess;
}

MStatus blendShapeSetInbetweenPosition::undoIt() {
    return MS::kSuccess;
}
