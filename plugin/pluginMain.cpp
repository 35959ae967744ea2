// Plug-in entry points: register the commands at load and remove them at unload, in one fixed order.
// A step that fails is reported and the walk goes on; the last step's status is returned.
#include "TALVENCompareDraggerTool.h"
#include "blendShapeEditWeights.h"
#include "blendShapeExportData.h"
#include "blendShapeExtractTarget.h"
#include "blendShapeImportData.h"
#include "blendShapeMirrorTarget.h"
#include "blendShapeRemoveDeltas.h"
#include "blendShapeReplaceTarget.h"
#include "blendShapeSetInbetweenPosition.h"
#include "blendShapeSplitTarget.h"
#include "displayMessage.h"
#include "editRegionMap.h"
#include "editTweakNode.h"
#include "getBlendShapeIndices.h"
#include "getComponentList.h"
#include "meshEvaluate.h"
#include "polyMapVertexOrder.h"
#include "polySymmetry.h"
#include "reorderRotation.h"
#include "sculptExtractDeltaMesh.h"

#include <maya/MFnPlugin.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

namespace {

struct CommandEntry {
    const char* name;
    MCreatorFunction creator;
    MCreateSyntaxFunction syntax;
};

const CommandEntry commands[] = {
    {"kv_blendShapeEditWeights", blendShapeEditWeights::creator, blendShapeEditWeights::newSyntax},
    {"kv_blendShapeExportData", blendShapeExportData::creator, blendShapeExportData::newSyntax},
    {"kv_blendShapeExtractTarget", blendShapeExtractTarget::creator, blendShapeExtractTarget::newSyntax},
    {"kv_blendShapeImportData", blendShapeImportData::creator, blendShapeImportData::newSyntax},
    {"kv_blendShapeMirrorTarget", blendShapeMirrorTarget::creator, blendShapeMirrorTarget::newSyntax},
    {"kv_blendShapeRemoveDeltas", blendShapeRemoveDeltas::creator, blendShapeRemoveDeltas::newSyntax},
    {"kv_blendShapeReplaceTarget", blendShapeReplaceTarget::creator, blendShapeReplaceTarget::newSyntax},
    {"kv_blendShapeSetInbetweenPosition", blendShapeSetInbetweenPosition::creator,
     blendShapeSetInbetweenPosition::newSyntax},
    {"kv_blendShapeSplitTarget", blendShapeSplitTarget::creator, blendShapeSplitTarget::newSyntax},
    {"kv_displayMessage", displayMessage::creator, displayMessage::newSyntax},
    {"kv_editRegionMap", editRegionMap::creator, editRegionMap::newSyntax},
    {"kv_editTweakNode", editTweakNode::creator, editTweakNode::newSyntax},
    {"kv_getBlendShapeIndices", getBlendShapeIndices::creator, getBlendShapeIndices::newSyntax},
    {"kv_getComponentList", getComponentList::creator, getComponentList::newSyntax},
    {"kv_meshEvaluate", meshEvaluate::creator, meshEvaluate::newSyntax},
    {"kv_polyMapVertexOrder", polyMapVertexOrder::creator, polyMapVertexOrder::newSyntax},
    {"kv_polySymmetry", polySymmetry::creator, polySymmetry::newSyntax},
    {"kv_reorderRotation", reorderRotation::creator, reorderRotation::newSyntax},
    {"kv_sculptExtractDeltaMesh", sculptExtractDeltaMesh::creator, sculptExtractDeltaMesh::newSyntax},
};

// The tool context command comes last, after every command above.
const char* const contextCommandName = "TALVENCompareDraggerToolContext";

void reportFailure(const MStatus& status, const char* action, const char* name) {
    if (!status) status.perror(MString(action) + name + " command failed.");
}

} // namespace

PLUGIN_EXPORT MStatus initializePlugin(MObject obj) {
    MFnPlugin plugin(obj, "Talven", "5.10.0", "Any");
    for (const CommandEntry& command : commands)
        reportFailure(plugin.registerCommand(command.name, command.creator, command.syntax), "Register ",
                      command.name);
    const MStatus status =
        plugin.registerContextCommand(contextCommandName, TALVENCompareDraggerToolContextCommand::creator);
    reportFailure(status, "Register ", contextCommandName);
    return status;
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject obj) {
    MFnPlugin plugin(obj);
    for (const CommandEntry& command : commands)
        reportFailure(plugin.deregisterCommand(command.name), "Deregister ", command.name);
    const MStatus status = plugin.deregisterContextCommand(contextCommandName);
    reportFailure(status, "Deregister ", contextCommandName);
    return status;
}
