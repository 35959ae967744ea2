#include "meshEvaluate.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

const char* const meshEvaluate_helpText =
    "\n"
    "Description: Get the shape or intermediate shape nodes of a mesh.\n"
    "\n"
    "Flags: kv_meshEvaluate\n"
    "    -h      -help               <n/a>      this message\n"
    "    -i      -intermediate       <n/a>      get the intermediate shape node\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_meshEvaluate\n"
    "Return Value: int\n";

meshEvaluate::meshEvaluate() : intermediate(false) {}

void* meshEvaluate::creator() {
    return new meshEvaluate();
}

MSyntax meshEvaluate::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-i", "-intermediate");
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus meshEvaluate::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, meshEvaluate_helpText)) return MS::kSuccess;
    return common::notAvailable("kv_meshEvaluate");
}

MStatus meshEvaluate::redoIt() {
    return MS::kSuccess;
}

MStatus meshEvaluate::undoIt() {
    return MS::kSuccess;
}
