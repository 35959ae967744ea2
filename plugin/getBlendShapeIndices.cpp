#include "getBlendShapeIndices.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>
#include <maya/MFnBlendShapeDeformer.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MSelectionList.h>

const char* const getBlendShapeIndices_helpText =
    "\n"
    "Description: Get all weight indices of the blend shape deformer.\n"
    "\n"
    "Flags: kv_getBlendShapeIndices\n"
    "    -h      -help               <n/a>      this message\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_getBlendShapeIndices <string>\n"
    "Return Value: int[]\n";

void* getBlendShapeIndices::creator() {
    return new getBlendShapeIndices();
}

MSyntax getBlendShapeIndices::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus getBlendShapeIndices::doIt(const MArgList& args) {
    MStatus status;
    const MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, getBlendShapeIndices_helpText)) return MS::kSuccess;

    MSelectionList objects;
    status = argData.getObjects(objects);
    if (!status) {
        MGlobal::displayError("Error getting objects");
        return status;
    }
    if (objects.length() == 0) {
        displayError("No blend shape node provided.");
        return MS::kFailure;
    }
    // Only the first object counts.
    objects.getDependNode(0, blendShape_);
    if (!blendShape_.hasFn(MFn::kBlendShape)) {
        displayError("The node is not a blend shape node.");
        return MS::kFailure;
    }
    return redoIt();
}

MStatus getBlendShapeIndices::redoIt() {
    MStatus status;
    const MFnBlendShapeDeformer blendShape(blendShape_, &status);
    if (!status) return status;
    MIntArray indices;
    status = blendShape.weightIndexList(indices);
    if (status) setResult(indices);
    return status;
}

MStatus getBlendShapeIndices::undoIt() {
    return MS::kSuccess;
}

bool getBlendShapeIndices::isUndoable() const {
    return false;
}
