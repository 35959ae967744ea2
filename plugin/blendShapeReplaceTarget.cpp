#include "blendShapeReplaceTarget.h"

#include "commandObjects.h"
#include "commandSupport.h"
#include "common.h"
#include "core/targets/TargetEditing.h"
#include "targetItemData.h"

#include <maya/MArgDatabase.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include <vector>

const char* const blendShapeReplaceTarget_helpText =
    "\n"
    "Description: Replaces an existing blend shape target.\n"
    "\n"
    "Flags: kv_blendShapeReplaceTarget\n"
    "    -h      -help               <n/a>      this message\n"
    "    -i      -index              <int>      index of the source target channel\n"
    "    -m      -mesh               <string>   target mesh\n"
    "    -om     -originalMesh       <string>   original shape node\n"
    "    -ti     -targetItem         <int>      channel value to replace\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeReplaceTarget -i <int> -m <string> -om <string> -ti <float>\n"
    "Return Value: int\n";

blendShapeReplaceTarget::blendShapeReplaceTarget() : index(0), targetItem(6000), changed(false) {}

void* blendShapeReplaceTarget::creator() {
    return new blendShapeReplaceTarget();
}

MSyntax blendShapeReplaceTarget::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-i", "-index", MSyntax::kLong);
    syntax.addFlag("-m", "-mesh", MSyntax::kString);
    syntax.addFlag("-om", "-originalMesh", MSyntax::kString);
    syntax.addFlag("-ti", "-targetItem", MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

namespace {

// Object-space points, single precision, packed x, y, z.
std::vector<float> meshPoints(const MDagPath& mesh) {
    MFloatPointArray points;
    MFnMesh(mesh).getPoints(points, MSpace::kObject);
    return common::toVector(points);
}

} // namespace

MStatus blendShapeReplaceTarget::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeReplaceTarget_helpText)) return MS::kSuccess;

    if (!(status = common::getIndexFlag(argData, "-i", index))) return status;
    if (argData.isFlagSet("-m") && !(status = argData.getFlagArgument("-m", 0, meshName))) return status;
    if (argData.isFlagSet("-om") && !(status = argData.getFlagArgument("-om", 0, originalMeshName)))
        return status;
    if (!(status = common::getIndexFlag(argData, "-ti", targetItem))) return status;

    status = common::getBlendShapeNode(argData, blendShapeNode);
    if (!status) {
        setResult(0);
        return status;
    }
    if (!checkMeshes()) {
        setResult(0);
        return MS::kSuccess;
    }
    return redoIt();
}

// Both names must denote two different mesh shapes with the same number of vertices.
bool blendShapeReplaceTarget::checkMeshes() {
    MSelectionList list;
    if (originalMeshName.length() != 0) list.add(originalMeshName);
    if (meshName.length() != 0) list.add(meshName);
    if (list.length() != 2) {
        MGlobal::displayError("Mesh flag and original mesh flag must be defined.");
        return false;
    }
    MObject node;
    for (unsigned int i = 0; i < 2; ++i) {
        list.getDependNode(i, node);
        if (!node.hasFn(MFn::kMesh)) {
            MGlobal::displayError(common::selectionName(list, 0, originalMeshName) +
                                  " is not a mesh object.");
            return false;
        }
    }
    list.getDagPath(0, originalMeshPath);
    list.getDagPath(1, meshPath);
    // The deltas are taken vertex by vertex, so a mesh of another size cannot replace the target.
    const int originalCount = MFnMesh(originalMeshPath).numVertices();
    const int meshCount = MFnMesh(meshPath).numVertices();
    if (originalCount != meshCount) {
        MString message = common::selectionName(list, 1, meshName) + " has ";
        message += meshCount;
        message +=
            " vertices but the original mesh " + common::selectionName(list, 0, originalMeshName) + " has ";
        message += originalCount;
        MGlobal::displayError(message + ". The vertex counts must match.");
        return false;
    }
    return true;
}

MStatus blendShapeReplaceTarget::redoIt() {
    const core::SparseDeltas deltas = core::meshDeltas(meshPoints(originalMeshPath), meshPoints(meshPath));

    MStatus status =
        common::readTargetFillingEmpty(blendShapeNode, index, targetItem, oldComponents, oldPoints);
    if (!status) {
        setResult(0);
        return status;
    }
    changed = true;
    status = common::writeTarget(blendShapeNode, index, targetItem, common::toIntArray(deltas.components),
                                 common::toPointArray(deltas.deltas));
    setResult(status ? 1 : 0);
    return status;
}

MStatus blendShapeReplaceTarget::undoIt() {
    if (!changed) return MS::kSuccess;
    return common::writeTarget(blendShapeNode, index, targetItem, oldComponents, oldPoints);
}
