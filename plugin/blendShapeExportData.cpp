#include "blendShapeExportData.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

const char* const blendShapeExportData_helpText =
    "\n"
    "Description: Export blend shape targets to a json file.\n"
    "\n"
    "Flags: kv_blendShapeExportData\n"
    "    -h      -help               <n/a>      this message\n"
    "    -cn     -channelName        <string>   channel name (multi use)\n"
    "    -d      -delta              <n/a>      export deltas\n"
    "    -fn     -fileName           <string>   file name for export\n"
    "    -i      -index              <int>      target index (multi use)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeExportData\n"
    "Return Value: int\n";

blendShapeExportData::blendShapeExportData() : deltaMode(false) {}

void* blendShapeExportData::creator() {
    return new blendShapeExportData();
}

MSyntax blendShapeExportData::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-cn", "-channelName", MSyntax::kString);
    syntax.addFlag("-d", "-delta");
    syntax.addFlag("-fn", "-fileName", MSyntax::kString);
    syntax.addFlag("-i", "-index", MSyntax::kLong);
    syntax.makeFlagMultiUse("-channelName");
    syntax.makeFlagMultiUse("-index");
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus blendShapeExportData::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeExportData_helpText)) return MS::kSuccess;
    return common::notAvailable("kv_blendShapeExportData");
}

MStatus blendShapeExportData::redoIt() {
    return MS::kSuccess;
}

MStatus blendShapeExportData::undoIt() {
    return MS::kSuccess;
}
