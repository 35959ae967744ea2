#include "blendShapeExportData.h"

#include "commandObjects.h"
#include "commandSupport.h"
#include "common.h"
#include "core/json/DeltaFileWriter.h"

#include <maya/MArgDatabase.h>
#include <maya/MGlobal.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>

#include <algorithm>
#include <string>
#include <vector>

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
    status = parseArguments(argData);
    if (!status) return status;

    status = common::getBlendShapeNode(argData, blendShapeNode);
    if (!status) return status;

    const char* missing = nullptr;
    if (!deltaMode)
        missing = "No operation mode defined.";
    else if (fileName.length() == 0)
        missing = "Missing export file path.";
    else if (channelNames.length() == 0)
        missing = "Missing channel names.";
    else if (indices.length() == 0)
        missing = "Missing index list.";
    if (missing) {
        MGlobal::displayError(missing);
        setResult(0);
        return MS::kSuccess;
    }
    return redoIt();
}

MStatus blendShapeExportData::parseArguments(const MArgDatabase& argData) {
    MStatus status;
    deltaMode = argData.isFlagSet("-d");
    if (argData.isFlagSet("-fn") && !(status = argData.getFlagArgument("-fn", 0, fileName))) return status;
    if (!(status = common::appendFlagUses(argData, "-cn", channelNames))) return status;
    if (!(status = common::appendFlagUses(argData, "-i", indices))) return status;
    return MS::kSuccess;
}

MStatus blendShapeExportData::redoIt() {
    setResult(exportDeltas());
    return MS::kSuccess;
}

// Streams one block per index. An index without items and an item without data are skipped with a
// warning; the separators of the others stay where their list positions put them.
bool blendShapeExportData::exportDeltas() {
    if (indices.length() == 0) {
        MGlobal::displayError("No items to export");
        return false;
    }
    json::DeltaFileWriter writer;
    if (!writer.open(fileName.asChar())) {
        MGlobal::displayError("Unable to open file for writing.");
        return false;
    }
    std::vector<int> components;
    std::vector<double> xyz;
    const unsigned int count = indices.length();
    for (unsigned int p = 0; p < count; ++p) {
        const int index = indices[p];
        const bool lastIndex = p + 1 == count;
        const MIntArray items = common::targetItems(blendShapeNode, static_cast<unsigned int>(index));
        if (items.length() == 0) {
            MString message("Skipped index ");
            message += index;
            MGlobal::displayWarning(message + " because of missing data.");
            writer.skipTarget(lastIndex);
            continue;
        }
        // Indices beyond the names given get an empty name.
        const MString name = p < channelNames.length() ? channelNames[p] : MString();
        writer.beginTarget(index, std::string(name.asChar(), name.length()));
        for (unsigned int k = 0; k < items.length(); ++k) {
            const int item = items[k];
            const MIntArray ids =
                common::getTargetComponents(blendShapeNode, static_cast<unsigned int>(index), item);
            const MPointArray points =
                ids.length() == 0 ? MPointArray() : common::getTargetPoints(blendShapeNode, index, item);
            if (points.length() == 0) {
                MString message("Skipped position ");
                message += item;
                message += " of index ";
                message += index;
                MGlobal::displayWarning(message + " because of missing target data.");
                continue;
            }
            // A component without a delta (or a delta without a component) has nothing to pair with.
            const unsigned int pairs = std::min(ids.length(), points.length());
            components.resize(pairs);
            xyz.resize(3 * std::size_t(pairs));
            for (unsigned int v = 0; v < pairs; ++v) {
                components[v] = ids[v];
                xyz[3 * v] = points[v].x;
                xyz[3 * v + 1] = points[v].y;
                xyz[3 * v + 2] = points[v].z;
            }
            writer.writeItem(item, components.data(), xyz.data(), pairs, k + 1 == items.length());
        }
        writer.endTarget(lastIndex);
    }
    if (!writer.close()) {
        MGlobal::displayError("Unable to write the file.");
        return false;
    }
    return true;
}

MStatus blendShapeExportData::undoIt() {
    return MS::kSuccess;
}
