#include "editTweakNode.h"

#include "commandObjects.h"
#include "commandSupport.h"
#include "core/targets/TargetEditing.h"
#include "targetItemData.h"

#include <maya/MArgDatabase.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MSelectionList.h>

#include <vector>

const char* const editTweakNode_helpText =
    "\n"
    "Description: Bake and remove tweak node edits.\n"
    "\n"
    "Flags: kv_editTweakNode\n"
    "    -h      -help               <n/a>      this message\n"
    "    -b      -bake               <int>      bake the edits to the original mesh\n"
    "    -om     -originalMesh       <string>   original shape node\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_editTweakNode -b <int> -om <string>\n"
    "Return Value: int\n";

editTweakNode::editTweakNode() : bake(false) {}

void* editTweakNode::creator() {
    return new editTweakNode();
}

MSyntax editTweakNode::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-b", "-bake", MSyntax::kBoolean);
    syntax.addFlag("-om", "-originalMesh", MSyntax::kString);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus editTweakNode::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, editTweakNode_helpText)) return MS::kSuccess;

    if (argData.isFlagSet("-b") && !(status = argData.getFlagArgument("-b", 0, bake))) return status;
    if (argData.isFlagSet("-om") && !(status = argData.getFlagArgument("-om", 0, originalMeshName)))
        return status;

    status = common::getCommandNode(argData, MFn::kTweak, "No tweak node provided.",
                                    "The node is not a tweak node.", tweakNode);
    if (!status) {
        setResult(0);
        return status;
    }
    if (originalMeshName.length() == 0) {
        MGlobal::displayError("The original mesh is not defined.");
        setResult(0);
        return MS::kSuccess;
    }
    if (!common::getMeshShape(originalMeshName, originalMeshPath)) {
        setResult(0);
        return MS::kSuccess;
    }
    originalMesh = originalMeshPath.node();

    const MString plugName = MFnDependencyNode(tweakNode).name() + ".vlist[0].vertex";
    MSelectionList list;
    if (!(status = list.add(plugName)) || !(status = list.getPlug(0, vertexPlug))) {
        MGlobal::displayError(plugName + " cannot be found.");
        setResult(0);
        return status;
    }
    return redoIt();
}

MStatus editTweakNode::redoIt() {
    MFnMesh mesh(originalMeshPath);
    MFloatPointArray meshPoints;
    MStatus status = mesh.getPoints(meshPoints, MSpace::kObject);
    if (!status) {
        setResult(0);
        return status;
    }
    std::vector<float> points = common::toVector(meshPoints);

    MIntArray logical;
    vertexPlug.getExistingArrayAttributeIndices(logical, &status);
    if (!status) {
        setResult(0);
        return status;
    }
    std::vector<int> vertices(logical.length());
    std::vector<double> offsets(3 * static_cast<std::size_t>(logical.length()));
    for (unsigned int k = 0; k < logical.length(); ++k) {
        vertices[k] = logical[k];
        const MPlug offset = vertexPlug.elementByPhysicalIndex(k, &status);
        if (!status) {
            setResult(0);
            return status;
        }
        for (unsigned int c = 0; c < 3; ++c) offsets[3 * k + c] = offset.child(c).asDouble();
    }
    core::addOffsets(points, vertices, offsets);

    // A null data object clears every offset of the list.
    vertexPlug.setValue(MObject::kNullObj);
    if (bake) {
        for (unsigned int i = 0; i < meshPoints.length(); ++i)
            meshPoints[i] = MFloatPoint(points[3 * i], points[3 * i + 1], points[3 * i + 2]);
        status = mesh.setPoints(meshPoints, MSpace::kObject);
        if (!status) {
            setResult(0);
            return status;
        }
    }
    setResult(1);
    return MS::kSuccess;
}

MStatus editTweakNode::undoIt() {
    return MS::kSuccess;
}
