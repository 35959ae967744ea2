#include "blendShapeEditWeights.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

const char* const blendShapeEditWeights_helpText =
    "\n"
    "Description: Edit blend shape weights.\n"
    "\n"
    "Flags: kv_blendShapeEditWeights\n"
    "    -h      -help               <n/a>      this message\n"
    "    modes:\n"
    "    -add    -add                <n/a>      add weights from a file\n"
    "    -del    -delete             <n/a>      delete weights\n"
    "    -ex     -export             <n/a>      export weights to a file\n"
    "    -flp    -flip               <n/a>      flip weights\n"
    "    -fl     -flush              <double>   flush weights with value (1 clears all weights)\n"
    "    -f      -freeze             <n/a>      freeze weights\n"
    "    -fp     -freezePaint        <n/a>      freeze paint\n"
    "    -gi     -getIndices         <n/a>      get weights indices\n"
    "    -gw     -getWeights         <n/a>      get weights\n"
    "    -im     -import             <n/a>      import weights from a file\n"
    "    -iv     -invert             <n/a>      invert weights\n"
    "    -m      -mirror             <n/a>      mirror weights\n"
    "    -sw     -setWeights         <n/a>      set weights\n"
    "    -sc     -skinCluster        <string>   name of the skin cluster\n"
    "    -sub    -subtract           <n/a>      subtract weights from a file\n"
    "    -t      -trim               <n/a>      trim weights\n"
    "    options:\n"
    "    -av     -allValues          <n/a>      keep all values (invert mode)\n"
    "    -ax     -axis               <string>   symmetry axis (optional, default: x)\n"
    "    -dir    -direction          <int>      direction (optional, default: 1; positive to negative)\n"
    "    -fn     -fileName           <string>   file name for export/import\n"
    "    -i      -index              <int>      index of the source target channel\n"
    "    -ii     -influenceIndex     <int>      skin cluster influence index\n"
    "    -ob     -orderBased         <string>   use the vertex order from the given mesh\n"
    "    -om     -originalMesh       <string>   original shape node\n"
    "    -sm     -skinMesh           <string>   shape node with skin cluster\n"
    "    -ti     -targetItem         <int>      target item value\n"
    "    -tol    -tolerance          <double>   tolerance value (optional, default: 0.001)\n"
    "    -w      -weight             <double>   weight value (multi use)\n"
    "    -wi     -weightIndex        <int>      index of the weight (multi use)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeEditWeights\n"
    "Return Value: int/intArray/floatArray (depending on the mode)\n";

blendShapeEditWeights::blendShapeEditWeights()
    : addMode(false), deleteMode(false), exportMode(false), flipMode(false), flushValue(0.0f),
      freezeMode(false), freezePaintMode(false), getIndicesMode(false), getWeightsMode(false),
      importMode(false), invertMode(false), mirrorMode(false), setWeightsMode(false), subtractMode(false),
      trimMode(false), allValues(false), axis("x"), direction(true), targetIndex(0), influenceIndex(0),
      targetItem(6000), tolerance(0.001f) {}

void* blendShapeEditWeights::creator() {
    return new blendShapeEditWeights();
}

MSyntax blendShapeEditWeights::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-aw", "-addWeights");
    syntax.addFlag("-del", "-delete");
    syntax.addFlag("-ex", "-export");
    syntax.addFlag("-flp", "-flip");
    syntax.addFlag("-fl", "-flush", MSyntax::kDouble);
    syntax.addFlag("-f", "-freeze");
    syntax.addFlag("-fp", "-freezePaint");
    syntax.addFlag("-gi", "-getIndices");
    syntax.addFlag("-gw", "-getWeights");
    syntax.addFlag("-im", "-import");
    syntax.addFlag("-iv", "-invert");
    syntax.addFlag("-m", "-mirror");
    syntax.addFlag("-sw", "-setWeights");
    syntax.addFlag("-sc", "-skinCluster", MSyntax::kString);
    syntax.addFlag("-sub", "-subtract");
    syntax.addFlag("-t", "-trim");
    syntax.addFlag("-av", "-allValues");
    syntax.addFlag("-ax", "-axis", MSyntax::kString);
    syntax.addFlag("-dir", "-direction", MSyntax::kBoolean);
    syntax.addFlag("-fn", "-fileName", MSyntax::kString);
    syntax.addFlag("-i", "-index", MSyntax::kLong);
    syntax.addFlag("-ii", "-influenceIndex", MSyntax::kLong);
    syntax.addFlag("-ob", "-orderBased", MSyntax::kString);
    syntax.addFlag("-om", "-originalMesh", MSyntax::kString);
    syntax.addFlag("-sm", "-skinMesh", MSyntax::kString);
    syntax.addFlag("-ti", "-targetItem", MSyntax::kLong);
    syntax.addFlag("-tol", "-tolerance", MSyntax::kDouble);
    syntax.addFlag("-w", "-weight", MSyntax::kDouble);
    syntax.makeFlagMultiUse("-weight");
    syntax.addFlag("-wi", "-weightIndex", MSyntax::kLong);
    syntax.makeFlagMultiUse("-weightIndex");
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus blendShapeEditWeights::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeEditWeights_helpText)) return MS::kSuccess;
    return common::notAvailable("kv_blendShapeEditWeights");
}

MStatus blendShapeEditWeights::redoIt() {
    return MS::kSuccess;
}

MStatus blendShapeEditWeights::undoIt() {
    return MS::kSuccess;
}
