#include "blendShapeSplitTarget.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

const char* const blendShapeSplitTarget_helpText =
    "\n"
    "Description: Splits an existing blend shape target.\n"
    "\n"
    "Flags: kv_blendShapeSplitTarget\n"
    "    -h      -help               <n/a>      this message\n"
    "    -ax     -axis               <string>   symmetry axis (optional, default: x)\n"
    "    -b      -blend              <float>    blend width value\n"
    "    -c      -center             <float>    split center position\n"
    "    -i      -index              <int>      index of the source target channel\n"
    "    -iv     -invert             <int>      switches between the positive or negative side\n"
    "    -om     -originalMesh       <string>   original shape node\n"
    "    -tol    -tolerance          <float>    tolerance value (optional, default: 0.001)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeSplitTarget -ax <string> -b <float> -c <float> -i <int> -iv <int> -om <string> "
    "-tol <float>\n"
    "Return Value: int\n";

blendShapeSplitTarget::blendShapeSplitTarget()
    : axis("x"), blend(0.0), center(0.0), index(0), side(0), tolerance(0.001) {}

void* blendShapeSplitTarget::creator() {
    return new blendShapeSplitTarget();
}

MSyntax blendShapeSplitTarget::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-ax", "-axis", MSyntax::kString);
    syntax.addFlag("-b", "-blend", MSyntax::kDouble);
    syntax.addFlag("-c", "-center", MSyntax::kDouble);
    syntax.addFlag("-i", "-index", MSyntax::kLong);
    syntax.addFlag("-iv", "-invert", MSyntax::kLong);
    syntax.addFlag("-om", "-originalMesh", MSyntax::kString);
    syntax.addFlag("-tol", "-tolerance", MSyntax::kDouble);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus blendShapeSplitTarget::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeSplitTarget_helpText)) return MS::kSuccess;
    return common::notAvailable("kv_blendShapeSplitTarget");
}

MStatus blendShapeSplitTarget::redoIt() {
    return MS::kSuccess;
}

MStatus blendShapeSplitTarget::undoIt() {
    return MS::kSuccess;
}
