#include "blendShapeExtractTarget.h"

#include "commandObjects.h"
#include "commandSupport.h"
#include "targetItemData.h"

#include <maya/MArgDatabase.h>
#include <maya/MFnBlendShapeDeformer.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MObjectArray.h>

const char* const blendShapeExtractTarget_helpText =
    "\n"
    "Description: Extracts an existing blend shape target.\n"
    "\n"
    "Flags: kv_blendShapeExtractTarget\n"
    "    -h      -help               <n/a>      this message\n"
    "    -i      -index              <int>      index of the source target channel\n"
    "    -om     -originalMesh       <string>   original shape node\n"
    "    -ti     -targetItem         <int>      channel item to extract, i.e. 6000\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeExtractTarget -i <int> -ti <int> -om <string>\n"
    "Return Value: string\n";

blendShapeExtractTarget::blendShapeExtractTarget() : index(0), targetItem(6000) {}

void* blendShapeExtractTarget::creator() {
    return new blendShapeExtractTarget();
}

MSyntax blendShapeExtractTarget::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-i", "-index", MSyntax::kLong);
    syntax.addFlag("-om", "-originalMesh", MSyntax::kString);
    syntax.addFlag("-ti", "-targetItem", MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus blendShapeExtractTarget::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeExtractTarget_helpText)) return MS::kSuccess;

    if (!(status = common::getIndexFlag(argData, "-i", index))) return status;
    if (!(status = common::getIndexFlag(argData, "-ti", targetItem))) return status;
    if (argData.isFlagSet("-om") && !(status = argData.getFlagArgument("-om", 0, originalMeshName)))
        return status;

    status = common::getBlendShapeNode(argData, blendShapeNode);
    if (!status) {
        setResult(MString());
        return status;
    }
    // A missing or wrong original mesh is reported without failing the command.
    if (originalMeshName.length() == 0) {
        MGlobal::displayError("The original mesh is not defined.");
        setResult(MString());
        return MS::kSuccess;
    }
    if (!common::getMeshShape(originalMeshName, originalMeshPath)) {
        setResult(MString());
        return MS::kSuccess;
    }
    originalMesh = originalMeshPath.node();
    return redoIt();
}

MStatus blendShapeExtractTarget::redoIt() {
    resultMesh = MObject();
    MIntArray components;
    MPointArray points;
    const MStatus status =
        common::readTargetFillingEmpty(blendShapeNode, index, targetItem, components, points);
    if (!status) {
        setResult(MString());
        return status;
    }
    return evaluateTarget(components, points);
}

MStatus blendShapeExtractTarget::evaluateTarget(const MIntArray& components, const MPointArray& points) {
    // Two copies of the original: A gets a blend shape whose only target is B, so A shows the
    // original plus whatever deltas target 0 holds.
    MFnMesh copier;
    MObject baseCopy = copier.copy(originalMesh);
    MObject targetCopy = copier.copy(originalMesh);
    MFnBlendShapeDeformer deformer;
    MObject deformerNode = deformer.create(MFnDagNode(baseCopy).child(0));
    MObjectArray bases;
    deformer.getBaseObjects(bases);
    if (bases.length() != 0) deformer.addTarget(bases[0], 0, MFnDagNode(targetCopy).child(0), 1.0);
    deformer.setWeight(0, 1.0f);

    // On a failed write the temporary copies stay in the scene.
    MStatus status = common::writeTarget(deformerNode, 0, 6000, components, points);
    if (!status) {
        setResult(MString());
        return status;
    }

    // A plain copy of the evaluated shape, without history, is the result.
    resultMesh = copier.copy(MFnDagNode(baseCopy).child(0));
    MGlobal::deleteNode(deformerNode);
    MGlobal::deleteNode(baseCopy);
    MGlobal::deleteNode(targetCopy);

    MFnDagNode result(resultMesh);
    MGlobal::executeCommand("sets -e -forceElement initialShadingGroup " + result.fullPathName());
    MString name = result.name();
    name += "_";
    name += static_cast<double>(targetItem);
    result.setName(name);
    setResult(name);
    return MS::kSuccess;
}

MStatus blendShapeExtractTarget::undoIt() {
    if (!resultMesh.isNull()) MGlobal::deleteNode(resultMesh);
    resultMesh = MObject();
    return MS::kSuccess;
}
