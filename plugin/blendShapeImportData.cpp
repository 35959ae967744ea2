#include "blendShapeImportData.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

const char* const blendShapeImportData_helpText =
    "\n"
    "Description: Export blend shape targets to a json file.\n"
    "\n"
    "Flags: kv_blendShapeImportData\n"
    "    -h      -help               <n/a>      this message\n"
    "    -d      -delta              <n/a>      import deltas\n"
    "    -di     -destinationIndex   <int>      destination index (multi use)\n"
    "    -fn     -fileName           <string>   file name for import\n"
    "    -ld     -listDeltas         <n/a>      return a list with all delta items of the file\n"
    "    -rm     -remap              <n/a>      remap indices\n"
    "    -si     -sourceIndex        <int>      source index (multi use)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeImportData\n"
    "Return Value: int\n";

blendShapeImportData::blendShapeImportData() : delta(false), listDeltas(false), remap(false) {}

void* blendShapeImportData::creator() {
    return new blendShapeImportData();
}

MSyntax blendShapeImportData::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-d", "-delta");
    syntax.addFlag("-di", "-destinationIndex", MSyntax::kLong);
    syntax.addFlag("-fn", "-fileName", MSyntax::kString);
    syntax.addFlag("-ld", "-listDeltas");
    syntax.addFlag("-rm", "-remap");
    syntax.addFlag("-si", "-sourceIndex", MSyntax::kLong);
    syntax.makeFlagMultiUse("-destinationIndex");
    syntax.makeFlagMultiUse("-sourceIndex");
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus blendShapeImportData::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeImportData_helpText)) return MS::kSuccess;
    return common::notAvailable("kv_blendShapeImportData");
}

MStatus blendShapeImportData::redoIt() {
    return MS::kSuccess;
}

MStatus blendShapeImportData::undoIt() {
    return MS::kSuccess;
}
