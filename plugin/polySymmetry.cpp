#include "polySymmetry.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

const char* const polySymmetry_helpText =
    "\n"
    "Description: Checks for mesh symmetry. Returns 1 if the mesh is symmetrical.\n"
    "\n"
    "Flags: kv_polySymmetry\n"
    "    -h      -help               <n/a>      this message\n"
    "    -atm    -addToMap           <n/a>      add the symmetry ids to the vertex order map\n"
    "    -aom    -applyOrderMap      <string>   name of the mesh with the symmetry map\n"
    "    -ax     -axis               <string>   symmetry axis (optional, default: x)\n"
    "    -dir    -direction          <int>      direction (optional, default: 1; positive to negative)\n"
    "    -tol    -tolerance          <float>    tolerance value (optional, default: 0.001)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_polySymmetry -a <int> -ax <string> -dir <int> -tol <float> polyName\n"
    "Return Value: int\n";

polySymmetry::polySymmetry()
    : addToMap(false), applyOrderMap(false), axis("x"), direction(true), tolerance(0.001) {}

void* polySymmetry::creator() {
    return new polySymmetry();
}

MSyntax polySymmetry::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-atm", "-addToMap");
    syntax.addFlag("-aom", "-applyOrderMap", MSyntax::kString);
    syntax.addFlag("-ax", "-axis", MSyntax::kString);
    syntax.addFlag("-dir", "-direction", MSyntax::kLong);
    syntax.addFlag("-tol", "-tolerance", MSyntax::kDouble);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus polySymmetry::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, polySymmetry_helpText)) return MS::kSuccess;
    return common::notAvailable("kv_polySymmetry");
}

MStatus polySymmetry::redoIt() {
    return MS::kSuccess;
}

MStatus polySymmetry::undoIt() {
    return MS::kSuccess;
}
