#include "sculptExtractDeltaMesh.h"

#include "commandSupport.h"
#include "meshEvaluate.h"

#include "core/sculpt/CorrectiveMath.h"

#include <maya/MArgDatabase.h>
#include <maya/MDagPath.h>
#include <maya/MFn.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MSelectionList.h>

#include <vector>

const char* const sculptExtractDeltaMesh_helpText =
    "\n"
    "Description: Generates a delta mesh based on the given sculpt result and the intermediate shape node.\n"
    "\n"
    "Flags: kv_sculptExtractDeltaMesh\n"
    "    -h      -help               <n/a>      this message\n"
    "    -c      -compare            <n/a>      compares if both meshes are identical\n"
    "    -m      -mesh               <string>   mesh with skin cluster\n"
    "    -om     -originalMesh       <string>   original shape node\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_sculptExtractDeltaMesh -m <string> -om <string>\n"
    "Return Value: int\n";

namespace {

using core::Point4;

std::vector<Point4> readPoints(const MObject& mesh) {
    MPointArray points;
    MFnMesh(mesh).getPoints(points, MSpace::kObject);
    std::vector<Point4> out(points.length());
    for (unsigned int i = 0; i < points.length(); ++i) {
        const MPoint& p = points[i];
        out[i] = {p.x, p.y, p.z, p.w};
    }
    return out;
}

void writePoints(const MObject& mesh, const std::vector<Point4>& points) {
    MPointArray array(static_cast<unsigned int>(points.size()));
    for (unsigned int i = 0; i < array.length(); ++i)
        array[i] = MPoint(points[i][0], points[i][1], points[i][2], points[i][3]);
    MFnMesh(mesh).setPoints(array, MSpace::kObject);
}

// The deformed mesh's points with the original shape moved one unit along each axis in turn; the
// original points are put back afterwards.
std::vector<Point4> probe(const MObject& original, const MObject& deformed, const std::vector<Point4>& base,
                          int axis) {
    writePoints(original, core::offsetPoints(base, axis, 1.0));
    return readPoints(deformed);
}

MString nodeName(const MObject& node) {
    return node.hasFn(MFn::kDagNode) ? MFnDagNode(node).partialPathName() : MFnDependencyNode(node).name();
}

// The mesh shape of a selection entry: the entry itself, or the single visible mesh below a
// transform. Shows "<name> is not a mesh object." when there is none.
MStatus meshShapeOf(const MSelectionList& list, unsigned int index, MObject& shape) {
    MDagPath path;
    MObject node;
    list.getDependNode(index, node);
    if (list.getDagPath(index, path) && path.hasFn(MFn::kMesh)) {
        if (path.node().hasFn(MFn::kMesh)) {
            shape = path.node();
            return MS::kSuccess;
        }
        if (meshEvaluate::getShape(path.node(), shape)) return MS::kSuccess;
    }
    MGlobal::displayError(nodeName(node) + " is not a mesh object.");
    return MS::kFailure;
}

} // namespace

sculptExtractDeltaMesh::sculptExtractDeltaMesh() : compare(false) {}

void* sculptExtractDeltaMesh::creator() {
    return new sculptExtractDeltaMesh();
}

MSyntax sculptExtractDeltaMesh::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-c", "-compare");
    syntax.addFlag("-m", "-mesh", MSyntax::kString);
    syntax.addFlag("-om", "-originalMesh", MSyntax::kString);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus sculptExtractDeltaMesh::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, sculptExtractDeltaMesh_helpText)) return MS::kSuccess;
    compare = argData.isFlagSet("-c");
    if (argData.isFlagSet("-m")) argData.getFlagArgument("-m", 0, meshName);
    if (argData.isFlagSet("-om")) argData.getFlagArgument("-om", 0, originalMeshName);

    MSelectionList objects;
    status = argData.getObjects(objects);
    if (!status) {
        MGlobal::displayError("Error getting objects");
        setResult(0);
        return status;
    }
    if (objects.length() == 0) {
        MGlobal::displayError("No target mesh provided.");
        return MS::kFailure;
    }
    // A name that matches no node cannot be a mesh.
    for (const MString& name : {meshName, originalMeshName}) {
        if (name.length() == 0 || objects.add(name)) continue;
        MGlobal::displayError(name + " is not a mesh object.");
        setResult(0);
        return MS::kFailure;
    }
    if (objects.length() <= 1) {
        MGlobal::displayError("Mesh flag and target node must be defined.");
        return MS::kFailure;
    }
    MObject shapes[3];
    const unsigned int used = objects.length() < 3 ? objects.length() : 3;
    for (unsigned int k = 0; k < objects.length(); ++k) {
        MObject shape;
        if (!meshShapeOf(objects, k, shape)) {
            setResult(0);
            return MS::kFailure;
        }
        if (k < used) shapes[k] = shape;
    }
    sculptMesh = shapes[0];
    deformedMesh = shapes[1];
    originalMesh = shapes[2];
    // Without -originalMesh the skinned mesh's original shape is found as kv_meshEvaluate
    // -intermediate finds it.
    if (originalMesh.isNull()) {
        const MObject transform = MFnDagNode(deformedMesh).parent(0);
        if (!meshEvaluate::getIntermediate(transform, originalMesh)) {
            setResult(0);
            return MS::kFailure;
        }
    }
    return redoIt();
}

MStatus sculptExtractDeltaMesh::redoIt() {
    createdMesh = MObject();
    const std::vector<Point4> sculpt = readPoints(sculptMesh);
    const std::vector<Point4> deformed = readPoints(deformedMesh);
    const std::vector<Point4> original = readPoints(originalMesh);
    // The skinned mesh is checked too: its points pair with the original's one to one.
    if (sculpt.size() != original.size() || deformed.size() != original.size()) {
        MGlobal::displayError("No shape extracted. The intermediate shape has a different vertex count.");
        setResult(-1);
        return MS::kSuccess;
    }
    if (compare && !core::pointsDiffer(sculpt, deformed)) {
        MGlobal::displayError("No shape extracted. Both meshes are identical.");
        setResult(-1);
        return MS::kSuccess;
    }

    MStatus status;
    MFnMesh corrective;
    createdMesh = corrective.copy(originalMesh, MObject::kNullObj, &status);
    if (!status) return MS::kFailure;

    const std::vector<Point4> probeX = probe(originalMesh, deformedMesh, original, 0);
    const std::vector<Point4> probeY = probe(originalMesh, deformedMesh, original, 1);
    const std::vector<Point4> probeZ = probe(originalMesh, deformedMesh, original, 2);
    writePoints(originalMesh, original);
    writePoints(corrective.object(),
                core::correctivePoints({sculpt, deformed, original, probeX, probeY, probeZ}));

    MGlobal::executeCommand("sets -e -forceElement initialShadingGroup " + corrective.fullPathName(), false,
                            false);
    MFnDependencyNode transformFn(corrective.parent(0));
    const MString sculptTransform = MFnDependencyNode(MFnDagNode(sculptMesh).parent(0)).name();
    transformFn.setName(sculptTransform + "_corrective");
    setResult(transformFn.name());
    return MS::kSuccess;
}

MStatus sculptExtractDeltaMesh::undoIt() {
    if (createdMesh.isNull()) return MS::kSuccess;
    const MStatus status = MGlobal::deleteNode(createdMesh);
    createdMesh = MObject();
    return status;
}
