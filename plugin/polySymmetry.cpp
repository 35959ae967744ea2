#include "polySymmetry.h"

#include "commandSupport.h"
#include "symmetrySupport.h"
#include "targetDeltas.h"
#include "vertexOrderMap.h"

#include "core/mesh/MeshTopology.h"
#include "core/symmetry/PositionalSymmetry.h"

#include <maya/MArgDatabase.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MFnTransform.h>
#include <maya/MGlobal.h>
#include <maya/MItMeshEdge.h>
#include <maya/MItMeshVertex.h>
#include <maya/MMatrix.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>
#include <maya/MTransformationMatrix.h>

#include <algorithm>
#include <functional>
#include <vector>

const char* const polySymmetry_helpText =
    "\n"
    "Description: Checks for mesh symmetry. Returns 1 if the mesh is symmetrical.\n"
    "\n"
    "Flags: kv_polySymmetry\n"
    "    -h      -help               <n/a>      this message\n"
    "    -atm    -addToMap           <n/a>      add the symmetry ids to the vertex order map\n"
    "    -aom    -applyOrderMap      <string>   name of the mesh with the symmetry map\n"
    "    -ax     -axis               <string>   symmetry axis (optional, default: x)\n"
    "    -dir    -direction          <int>      direction (optional, default: 1; positive to negative)\n"
    "    -tol    -tolerance          <float>    tolerance value (optional, default: 0.001)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_polySymmetry -a <int> -ax <string> -dir <int> -tol <float> polyName\n"
    "Return Value: int\n";

namespace {

unsigned int axisIndexOf(const MString& axis) {
    return axis == "y" ? 1u : axis == "z" ? 2u : 0u;
}

// A face of the selected component: a vertex's or an edge's first face, or the first selected face.
int componentFace(const MDagPath& mesh, int kind, const MIntArray& components) {
    if (components.length() == 0) return -1;
    MIntArray faces;
    int previous = 0;
    if (kind == 0) {
        MItMeshVertex vertex(mesh);
        if (!vertex.setIndex(components[0], previous)) return -1;
        vertex.getConnectedFaces(faces);
    } else if (kind == 1) {
        MItMeshEdge edge(mesh);
        if (!edge.setIndex(components[0], previous)) return -1;
        edge.getConnectedFaces(faces);
    } else if (kind == 2) {
        return components[0];
    }
    return faces.length() ? faces[0] : -1;
}

// The vertices of the faces of the shell that holds `face`, ascending.
std::vector<int> shellVertices(const MDagPath& mesh, const core::MeshTopology& topology, int face) {
    MIntArray faces;
    MString command("polySelect -noSelection -ets ");
    command += face;
    MGlobal::executeCommand(command + " " + mesh.fullPathName(), faces, false, false);
    std::vector<char> inShell(std::size_t(topology.numVertices()), 0);
    for (unsigned int k = 0; k < faces.length(); ++k)
        for (int v : topology.faceVertices(faces[k])) inShell[std::size_t(v)] = 1;
    std::vector<int> vertices;
    for (int v = 0; v < topology.numVertices(); ++v)
        if (inShell[std::size_t(v)]) vertices.push_back(v);
    return vertices;
}

} // namespace

polySymmetry::polySymmetry()
    : addToMap(false), applyOrderMap(false), axis("x"), direction(true), tolerance(0.001), componentKind(-1) {
}

void* polySymmetry::creator() {
    return new polySymmetry();
}

MSyntax polySymmetry::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-atm", "-addToMap");
    syntax.addFlag("-aom", "-applyOrderMap", MSyntax::kString);
    syntax.addFlag("-ax", "-axis", MSyntax::kString);
    syntax.addFlag("-dir", "-direction", MSyntax::kLong);
    syntax.addFlag("-tol", "-tolerance", MSyntax::kDouble);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus polySymmetry::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, polySymmetry_helpText)) return MS::kSuccess;

    addToMap = argData.isFlagSet("-addToMap");
    applyOrderMap = argData.isFlagSet("-applyOrderMap");
    if (applyOrderMap) argData.getFlagArgument("-applyOrderMap", 0, orderMapMeshName);
    if (argData.isFlagSet("-axis")) argData.getFlagArgument("-axis", 0, axis);
    if (argData.isFlagSet("-direction")) {
        int value = 1;
        argData.getFlagArgument("-direction", 0, value);
        direction = value != 0;
    }
    if (argData.isFlagSet("-tolerance")) argData.getFlagArgument("-tolerance", 0, tolerance);

    MSelectionList objects;
    status = common::getMeshObjects(argData, objects);
    if (!status) return status;
    if (applyOrderMap) objects.add(orderMapMeshName);
    for (unsigned int i = 0; i < objects.length(); ++i) {
        MDagPath path;
        MObject component;
        status = common::getMeshObject(objects, i, path, component);
        if (!status) return status;
        if (i != 0) {
            orderMapPath = path;
            continue;
        }
        meshPath = path;
        if (component.isNull()) continue;
        MFnSingleIndexedComponent componentFn(component);
        const MFn::Type type = componentFn.componentType();
        componentKind = type == MFn::kMeshVertComponent      ? 0
                        : type == MFn::kMeshEdgeComponent    ? 1
                        : type == MFn::kMeshPolygonComponent ? 2
                                                             : -1;
        componentFn.getElements(components);
    }
    if (axis != "x" && axis != "y" && axis != "z") {
        MGlobal::displayError("The axis string is not correcty defined. Use x, y, or z.");
        return MS::kFailure;
    }
    return redoIt();
}

MStatus polySymmetry::redoIt() {
    return applyOrderMap ? applyMap() : checkSymmetry();
}

MStatus polySymmetry::applyMap() {
    MPlug plug;
    if (!orderMapPath.isValid() || !common::findVertexOrderMap(orderMapPath, plug)) {
        MGlobal::displayError("Vertex order map attribute is not available.");
        return MS::kFailure;
    }
    MFnMesh meshFn(meshPath);
    meshFn.getPoints(undoPoints, MSpace::kObject);
    const MIntArray stored = common::readVertexOrderMap(plug);
    std::vector<int> map(stored.length());
    for (unsigned int i = 0; i < stored.length(); ++i) map[i] = stored[i];
    std::vector<double> points(3 * std::size_t(undoPoints.length()));
    for (unsigned int v = 0; v < undoPoints.length(); ++v)
        for (unsigned int c = 0; c < 3; ++c) points[3 * std::size_t(v) + c] = undoPoints[v][c];
    core::applyOrderMap(points, map, axisIndexOf(axis), direction);
    MPointArray result(undoPoints);
    for (unsigned int v = 0; v < result.length(); ++v)
        result[v] = MPoint(points[3 * std::size_t(v)], points[3 * std::size_t(v) + 1],
                           points[3 * std::size_t(v) + 2], undoPoints[v].w);
    meshFn.setPoints(result, MSpace::kObject);
    setResult(1);
    return MS::kSuccess;
}

MStatus polySymmetry::checkSymmetry() {
    common::ScriptEditorReport report;
    const unsigned int axisIndex = axisIndexOf(axis);
    MPlug plug;
    const bool hasMap = common::findVertexOrderMap(meshPath, plug);

    core::MeshTopology topology;
    std::vector<double> points;
    // The check reads faces and vertex neighbours only.
    MStatus status = common::readMeshTopology(meshPath, topology, points, core::MeshTopology::kVertexEdges);
    if (!status) return status;
    const int numVertices = topology.numVertices();
    std::vector<int> tested;
    const int face = componentFace(meshPath, componentKind, components);
    if (face != -1) {
        tested = shellVertices(meshPath, topology, face);
    } else {
        tested.resize(std::size_t(numVertices));
        for (int v = 0; v < numVertices; ++v) tested[std::size_t(v)] = v;
    }

    MDagPath parentPath(meshPath);
    parentPath.pop();
    double scale[3] = {1.0, 1.0, 1.0};
    MFnTransform(parentPath).getScale(scale);
    const double scaledTolerance = tolerance / ((scale[0] + scale[1] + scale[2]) / 3.0);

    // The partners are searched on the mesh as reflected across the axis plane.
    double mirror[3] = {1.0, 1.0, 1.0};
    mirror[axisIndex] = -1.0;
    MTransformationMatrix transformation;
    transformation.setScale(mirror, MSpace::kTransform);
    common::ClosestFaceSearch closestFace(meshPath.node(), transformation.asMatrix());
    if (!closestFace.create()) {
        MGlobal::displayError("Failed to create intersector.");
        return MS::kFailure;
    }

    std::vector<int> map(std::size_t(numVertices), -1);
    if (addToMap && hasMap) {
        const MIntArray stored = common::readVertexOrderMap(plug);
        if (stored.length() != static_cast<unsigned int>(numVertices)) {
            setResult(-1);
            MGlobal::displayError("Unable to extend the order mapping because the vertex count has changed.");
            return MS::kFailure;
        }
        for (unsigned int v = 0; v < stored.length(); ++v) map[v] = stored[v];
        if (face != -1)
            for (int v : tested) map[std::size_t(v)] = -1;
    }

    const core::PositionalCheck check = core::checkPositionalSymmetry(
        topology, points, axisIndex, direction, scaledTolerance, tested, std::ref(closestFace), map, report);
    if (addToMap) {
        if (!hasMap) status = common::createVertexOrderMap(meshPath, plug);
        if (status) common::writeVertexOrderMap(plug, common::toIntArray(map));
    }

    if (check.asymmetrical.empty()) {
        setResult(1);
        if (!addToMap) MGlobal::displayInfo("The mesh is symmetrical");
    } else {
        setResult(0);
        if (!addToMap) {
            MIntArray asymmetrical = common::toIntArray(check.asymmetrical);
            common::selectVertices(meshPath, asymmetrical);
            MString text("Asymmetrical vertices found: ");
            text += static_cast<int>(asymmetrical.length());
            MGlobal::displayInfo(text);
        }
    }
    MGlobal::setOptionVarValue("TALVENMirrorToleranceValue", check.smallestCentreEdge / 10.0);
    return MS::kSuccess;
}

MStatus polySymmetry::undoIt() {
    if (undoPoints.length() == 0) return MS::kSuccess;
    return MFnMesh(meshPath).setPoints(undoPoints, MSpace::kObject);
}
