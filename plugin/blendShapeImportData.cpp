#include "blendShapeImportData.h"

#include "commandObjects.h"
#include "commandSupport.h"
#include "deltaImport.h"

#include <maya/MArgDatabase.h>
#include <maya/MGlobal.h>

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
    status = parseArguments(argData);
    if (!status) return status;

    if (delta) {
        status = common::getBlendShapeNode(argData, blendShapeNode);
        if (!status) return status;
    }

    const char* problem = nullptr;
    if (!delta && !listDeltas)
        problem = "No operation mode defined.";
    else if (delta && remap && sourceIndices.length() != destinationIndices.length())
        problem = "The number of indices for source and destination needs to match.";
    else if (fileName.length() == 0)
        problem = "Missing export file path.";
    if (problem) {
        MGlobal::displayError(problem);
        setResult(0);
        return MS::kSuccess;
    }
    return redoIt();
}

MStatus blendShapeImportData::parseArguments(const MArgDatabase& argData) {
    MStatus status;
    delta = argData.isFlagSet("-d");
    listDeltas = argData.isFlagSet("-ld");
    remap = argData.isFlagSet("-rm");
    if (argData.isFlagSet("-fn") && !(status = argData.getFlagArgument("-fn", 0, fileName))) return status;
    if (!(status = common::appendFlagUses(argData, "-si", sourceIndices))) return status;
    if (!(status = common::appendFlagUses(argData, "-di", destinationIndices))) return status;
    return MS::kSuccess;
}

MStatus blendShapeImportData::redoIt() {
    MStringArray list;
    if (delta)
        setResult(importDeltas(true, list));
    else {
        importDeltas(false, list);
        setResult(list);
    }
    return MS::kSuccess;
}

bool blendShapeImportData::importDeltas(bool writing, MStringArray& list) {
    json::DeltaScanOptions options;
    options.remap = remap;
    options.sourceIndices.assign(sourceIndices.length(), 0);
    for (unsigned int i = 0; i < sourceIndices.length(); ++i) options.sourceIndices[i] = sourceIndices[i];
    options.destinationIndices.assign(destinationIndices.length(), 0);
    for (unsigned int i = 0; i < destinationIndices.length(); ++i)
        options.destinationIndices[i] = destinationIndices[i];
    if (writing) options.vertexFilter = common::selectedVertexFilter();

    common::DeltaImport reader(blendShapeNode, writing, list);
    if (!json::scanDeltaFile(fileName.asChar(), options, reader)) {
        MGlobal::displayError("Unable to open file for reading.");
        return false;
    }
    return true;
}

MStatus blendShapeImportData::undoIt() {
    return MS::kSuccess;
}
