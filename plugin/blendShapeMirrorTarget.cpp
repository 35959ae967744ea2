#include "blendShapeMirrorTarget.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

const char* const blendShapeMirrorTarget_helpText =
    "\n"
    "Description: Mirrors an existing blend shape target.\n"
    "\n"
    "Flags: kv_blendShapeMirrorTarget\n"
    "    -h      -help               <n/a>      this message\n"
    "    -ax     -axis               <string>   symmetry axis (optional, default: x)\n"
    "    -dir    -direction          <int>      direction (optional, default: 1; positive to negative)\n"
    "    -f      -flip               <int>      mirror the shape in place\n"
    "    -ib     -inbetween          <int>      target is an in-between shape\n"
    "    -m      -mesh               <string>   deformed mesh\n"
    "    -ob     -orderBased         <string>   use the vertex order from the given mesh\n"
    "    -om     -originalMesh       <string>   original shape node\n"
    "    -sc     -skipComponents     <string>   list of components which should not be mirrored\n"
    "    -si     -sourceIndex        <int>      index of the source target channel\n"
    "    -ti     -targetIndex        <int>      index of the destination target channel (optional, important "
    "for duplication)\n"
    "    -tn     -targetName         <string>   name of the mirrored blend shape target (optional, important "
    "for duplication)\n"
    "    -tit    -targetItem         <int>      target item value\n"
    "    -tol    -tolerance          <float>    tolerance value (optional, default: 0.001)\n"
    "    -tm     -tweakMesh          <string>   name of the mesh the mirrored deltas should be applied to as "
    "tweaks\n"
    "    -t      -type               <int>      mirror mode (0: mirror, 1: copy to opposite, 2: apply to "
    "opposite)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeMirrorTarget -ax <string> -dir <int> -f <int> -ib <int> -m <string> -om <string> "
    "-si <int> -t <int> -ti <int> -tn <string> -tol <float> -tit <int>\n"
    "Return Value: int\n";

blendShapeMirrorTarget::blendShapeMirrorTarget()
    : axis("x"), direction(true), flip(false), inbetween(false), sourceIndex(0), targetIndex(0),
      targetItem(6000), tolerance(0.001f), type(0) {}

void* blendShapeMirrorTarget::creator() {
    return new blendShapeMirrorTarget();
}

MSyntax blendShapeMirrorTarget::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-ax", "-axis", MSyntax::kString);
    syntax.addFlag("-dir", "-direction", MSyntax::kBoolean);
    syntax.addFlag("-f", "-flip", MSyntax::kBoolean);
    syntax.addFlag("-ib", "-inbetween", MSyntax::kBoolean);
    syntax.addFlag("-m", "-mesh", MSyntax::kString);
    syntax.addFlag("-ob", "-orderBased", MSyntax::kString);
    syntax.addFlag("-om", "-originalMesh", MSyntax::kString);
    syntax.addFlag("-sc", "-skipComponents", MSyntax::kString);
    syntax.addFlag("-si", "-sourceIndex", MSyntax::kLong);
    syntax.addFlag("-ti", "-targetIndex", MSyntax::kLong);
    syntax.addFlag("-tn", "-targetName", MSyntax::kString);
    syntax.addFlag("-tit", "-targetItem", MSyntax::kLong);
    syntax.addFlag("-tol", "-tolerance", MSyntax::kDouble);
    syntax.addFlag("-tm", "-tweakMesh", MSyntax::kString);
    syntax.addFlag("-t", "-type", MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus blendShapeMirrorTarget::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeMirrorTarget_helpText)) return MS::kSuccess;
    return common::notAvailable("kv_blendShapeMirrorTarget");
}

MStatus blendShapeMirrorTarget::redoIt() {
    return MS::kSuccess;
}

MStatus blendShapeMirrorTarget::undoIt() {
    return MS::kSuccess;
}
