#include "meshEvaluate.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>
#include <maya/MDagModifier.h>
#include <maya/MDagPath.h>
#include <maya/MFn.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MSelectionList.h>

const char* const meshEvaluate_helpText =
    "\n"
    "Description: Get the shape or intermediate shape nodes of a mesh.\n"
    "\n"
    "Flags: kv_meshEvaluate\n"
    "    -h      -help               <n/a>      this message\n"
    "    -i      -intermediate       <n/a>      get the intermediate shape node\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_meshEvaluate\n"
    "Return Value: int\n";

namespace {

const char* const kCurrentDagPathVar = "TALVENCurrentDagPath";
// Deformer chains are short; a longer walk is a cycle in the graph.
const int kMaxUpstreamHops = 1000;

MString partialPath(const MObject& node) {
    return MFnDagNode(node).partialPathName();
}

// The node on the other end of a plug's first connection, either direction; null when none.
MObject connectedNode(const MPlug& plug, bool asDestination, bool asSource) {
    MPlugArray connected;
    if (!plug.connectedTo(connected, asDestination, asSource) || connected.length() == 0) return MObject();
    return connected[0].node();
}

// The node feeding a deformer's geometry: the first element of its "input" array, in physical
// order, whose inputGeometry child has an incoming connection. Null when there is none.
MObject upstreamNode(const MObject& deformer) {
    MStatus status;
    const MPlug input = MFnDependencyNode(deformer).findPlug("input", false, &status);
    if (!status || !input.isArray()) return MObject();
    for (unsigned int k = 0; k < input.numElements(); ++k) {
        const MPlug geometry = input.elementByPhysicalIndex(k).child(0, &status);
        if (!status) continue;
        const MObject source = connectedNode(geometry, true, false);
        if (!source.isNull()) return source;
    }
    return MObject();
}

bool isIntermediateDagNode(const MObject& node) {
    return node.hasFn(MFn::kDagNode) && MFnDagNode(node).isIntermediateObject();
}

bool isSourceOfConnection(const MObject& node) {
    MPlugArray plugs;
    MFnDependencyNode(node).getConnections(plugs);
    for (unsigned int k = 0; k < plugs.length(); ++k)
        if (plugs[k].isSource()) return true;
    return false;
}

// Follows the deformation chain up from the node at the other end of the tweak location to the
// first intermediate DAG node.
MStatus intermediateUpstream(const MObject& transform, const MPlug& tweakLocation, MObject& shape) {
    MObject node = connectedNode(tweakLocation, true, true);
    for (int hop = 0; hop < kMaxUpstreamHops && !node.isNull(); ++hop) {
        if (isIntermediateDagNode(node)) {
            shape = node;
            return MS::kSuccess;
        }
        node = upstreamNode(node);
    }
    MGlobal::displayError(partialPath(transform) + " has no intermediate shape node.");
    return MS::kFailure;
}

// Moves the shape under the transform when it has another parent, with a warning.
void adoptShape(const MObject& transform, const MObject& shape) {
    MFnDagNode shapeFn(shape);
    if (shapeFn.parentCount() > 0 && shapeFn.parent(0) == transform) return;
    const MString shapePath = shapeFn.fullPathName();
    MDagModifier modifier;
    if (!modifier.reparentNode(shape, transform) || !modifier.doIt()) return;
    MGlobal::displayWarning("The intermediate shape " + shapePath + " is not a child of " +
                            MFnDagNode(transform).fullPathName() + " and has been re-parented.");
}

// Without a tweak connection: the connected intermediates with the visible shape's vertex count.
MStatus intermediateByCount(const MObject& transform, const MObject& visible,
                            const MObjectArray& intermediates, MObject& shape) {
    const int vertexCount = MFnMesh(visible).numVertices();
    MObjectArray candidates;
    for (unsigned int k = 0; k < intermediates.length(); ++k) {
        const MObject& candidate = intermediates[k];
        if (MFnMesh(candidate).numVertices() == vertexCount && isSourceOfConnection(candidate))
            candidates.append(candidate);
    }
    if (candidates.length() == 1) {
        shape = candidates[0];
        return MS::kSuccess;
    }
    if (candidates.length() > 1) {
        for (unsigned int k = 0; k < candidates.length(); ++k)
            MGlobal::displayInfo("Possible excessive intermediate: " +
                                 MFnDependencyNode(candidates[k]).absoluteName());
        MGlobal::displayInfo("Please remove all unnecessary shape nodes.\nA deformed mesh usually has only "
                             "two shape nodes; the deformed shape and the original shape.");
        MGlobal::displayError(MFnDependencyNode(transform).name() +
                              " has no too many intermediate shape nodes. See script editor for details.");
        return MS::kFailure;
    }
    if (intermediates.length() > 0) shape = intermediates[0];
    return MS::kSuccess;
}

} // namespace

meshEvaluate::meshEvaluate() : intermediate(false) {}

void* meshEvaluate::creator() {
    return new meshEvaluate();
}

MSyntax meshEvaluate::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-i", "-intermediate");
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus meshEvaluate::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, meshEvaluate_helpText)) return MS::kSuccess;
    intermediate = argData.isFlagSet("-i");

    MSelectionList objects;
    status = argData.getObjects(objects);
    if (!status) {
        MGlobal::displayError("Error getting objects");
        return status;
    }
    if (objects.length() == 0) {
        MGlobal::displayError("No mesh node provided.");
        return MS::kFailure;
    }
    MDagPath path;
    if (!objects.getDagPath(0, path)) {
        // Not a DAG node at all, so it cannot be a mesh.
        MObject node;
        objects.getDependNode(0, node);
        MGlobal::displayError(MFnDependencyNode(node).name() + " is not a mesh object.");
        return MS::kFailure;
    }
    const bool givenAsTransform = path.node().hasFn(MFn::kTransform);
    if (givenAsTransform) {
        transform = path.node();
        if (path.childCount() == 0) {
            MGlobal::displayError(MFnDependencyNode(transform).name() + " has no shape node.");
            return MS::kFailure;
        }
        path.push(path.child(0));
    }
    meshShape = path.node();
    if (!meshShape.hasFn(MFn::kMesh)) {
        MGlobal::displayError(MFnDependencyNode(meshShape).name() + " is not a mesh object.");
        return MS::kFailure;
    }
    if (!givenAsTransform) {
        transform = path.transform(&status);
        if (!status || transform.isNull() || transform == meshShape) {
            MGlobal::displayError(path.partialPathName() + " has no parent node.");
            return MS::kFailure;
        }
    }

    const MString meshPath = path.fullPathName();
    if (MGlobal::optionVarStringValue(kCurrentDagPathVar) != meshPath)
        MGlobal::setOptionVarValue(kCurrentDagPathVar, meshPath);
    return redoIt();
}

MStatus meshEvaluate::redoIt() {
    MObject found;
    const MStatus status = intermediate ? getIntermediate(transform, found) : getShape(transform, found);
    if (!status) return MS::kFailure;
    resultPath = MFnDagNode(found).fullPathName();
    setResult(resultPath);
    return MS::kSuccess;
}

MStatus meshEvaluate::undoIt() {
    return MS::kSuccess;
}

MObjectArray meshEvaluate::getShapes(const MObject& transform, bool intermediate,
                                     MObjectArray& intermediates) {
    MObjectArray shapes;
    const MFnDagNode transformFn(transform);
    for (unsigned int k = 0; k < transformFn.childCount(); ++k) {
        const MObject child = transformFn.child(k);
        if (!child.hasFn(MFn::kMesh)) continue;
        const bool isIntermediate = MFnDagNode(child).isIntermediateObject();
        if (isIntermediate) intermediates.append(child);
        if (intermediate || !isIntermediate) shapes.append(child);
    }
    return shapes;
}

MStatus meshEvaluate::getShape(const MObject& transform, MObject& shape) {
    MObjectArray intermediates;
    const MObjectArray visible = getShapes(transform, false, intermediates);
    if (visible.length() > 1) {
        MGlobal::displayError(partialPath(transform) + " has more than one shape node.");
        return MS::kFailure;
    }
    if (visible.length() == 0) return MS::kFailure;
    shape = visible[0];
    return MS::kSuccess;
}

MStatus meshEvaluate::getIntermediate(const MObject& transform, MObject& shape) {
    MObjectArray intermediates;
    const MObjectArray visible = getShapes(transform, false, intermediates);
    if (visible.length() > 1) {
        MGlobal::displayError(partialPath(transform) + " has more than one shape node.");
        return MS::kFailure;
    }
    MObject answer;
    if (visible.length() == 1) {
        const MFnDependencyNode deformedFn(visible[0]);
        MStatus status;
        const MPlug tweakLocation = deformedFn.findPlug("tweakLocation", false, &status);
        if (!status || tweakLocation.isNull()) {
            MGlobal::displayError(deformedFn.name() + " has no tweak location attribute.");
            return MS::kFailure;
        }
        if (tweakLocation.isConnected()) {
            if (!intermediateUpstream(transform, tweakLocation, answer)) return MS::kFailure;
            adoptShape(transform, answer);
        } else if (!intermediateByCount(transform, visible[0], intermediates, answer)) {
            return MS::kFailure;
        }
    }
    if (answer.isNull()) {
        MGlobal::displayError(partialPath(transform) + " has no shape node.");
        return MS::kFailure;
    }
    shape = answer;
    return MS::kSuccess;
}
