#include "symmetrySupport.h"

#include <maya/MFloatPointArray.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnMesh.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MGlobal.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

#include <cfloat>

namespace common {

void ScriptEditorReport::info(const std::string& text) {
    MGlobal::displayInfo(MString(text.c_str()));
}

void ScriptEditorReport::warning(const std::string& text) {
    MGlobal::displayWarning(MString(text.c_str()));
}

void ScriptEditorReport::error(const std::string& text) {
    MGlobal::displayError(MString(text.c_str()));
}

std::string ScriptEditorReport::number(double value) const {
    MString text;
    text += value;
    return text.asChar();
}

MStatus getMeshObjects(const MArgDatabase& argData, MSelectionList& objects) {
    const MStatus status = argData.getObjects(objects);
    if (!status) {
        MGlobal::displayError("Error getting objects");
        return status;
    }
    if (objects.length() == 0) {
        MGlobal::displayError("No mesh provided.");
        return MS::kFailure;
    }
    return MS::kSuccess;
}

MStatus getMeshObject(const MSelectionList& list, unsigned int index, MDagPath& mesh, MObject& component) {
    MStringArray names;
    list.getSelectionStrings(index, names);
    const MString name = names.length() ? names[0] : MString();
    MObject node;
    list.getDependNode(index, node);
    MStatus status = list.getDagPath(index, mesh, component);
    if (status && mesh.node().hasFn(MFn::kTransform)) {
        MFnDagNode transform(mesh);
        if (transform.childCount() == 0) {
            MGlobal::displayError(name + " has no shape node.");
            return MS::kFailure;
        }
        mesh.push(transform.child(0));
    }
    if (!status || !mesh.node().hasFn(MFn::kMesh)) {
        MGlobal::displayError(name + " is not a mesh object.");
        return MS::kFailure;
    }
    return MS::kSuccess;
}

MStatus readMeshTopology(const MDagPath& mesh, core::MeshTopology& topology, std::vector<double>& points,
                         unsigned int tables) {
    MStatus status;
    MFnMesh meshFn(mesh, &status);
    if (!status) return status;
    // The host's arrays are let go before the next step, so that it reuses their memory.
    {
        MFloatPointArray positions;
        status = meshFn.getPoints(positions, MSpace::kObject);
        if (!status) return status;
        points.resize(3 * std::size_t(positions.length()));
        for (unsigned int v = 0; v < positions.length(); ++v)
            for (unsigned int c = 0; c < 3; ++c) points[3 * std::size_t(v) + c] = positions[v][c];
    }
    std::vector<int> faceCounts, faceConnects;
    {
        MIntArray counts, connects;
        status = meshFn.getVertices(counts, connects);
        if (!status) return status;
        faceCounts.resize(counts.length());
        faceConnects.resize(connects.length());
        if (counts.length()) counts.get(faceCounts.data());
        if (connects.length()) connects.get(faceConnects.data());
    }
    const std::string problem = topology.build(static_cast<int>(points.size() / 3), std::move(faceCounts),
                                               std::move(faceConnects), tables);
    if (!problem.empty()) {
        MGlobal::displayError(MString("The mesh cannot be read: ") + problem.c_str());
        return MS::kFailure;
    }
    return MS::kSuccess;
}

MStatus ClosestFaceSearch::create() {
    if (intersector_) return MS::kSuccess;
    if (failed_) return MS::kFailure;
    intersector_.reset(new MMeshIntersector());
    if (!intersector_->create(mesh_, matrix_)) {
        intersector_.reset();
        failed_ = true;
        return MS::kFailure;
    }
    return MS::kSuccess;
}

int ClosestFaceSearch::operator()(const std::array<double, 3>& point) {
    if (!create()) return -1;
    MPointOnMesh onMesh;
    if (!intersector_->getClosestPoint(MPoint(point[0], point[1], point[2]), onMesh, DBL_MAX)) return -1;
    return onMesh.faceIndex();
}

MStatus selectVertices(const MDagPath& mesh, MIntArray& vertices) {
    MSelectionList list;
    if (vertices.length() != 0) {
        MFnSingleIndexedComponent componentFn;
        MObject component = componentFn.create(MFn::kMeshVertComponent);
        componentFn.addElements(vertices);
        list.add(mesh, component);
    }
    return MGlobal::setActiveSelectionList(list, MGlobal::kReplaceList);
}

MStatus selectComponents(const std::vector<std::string>& components) {
    MSelectionList list;
    for (const std::string& component : components) list.add(MString(component.c_str()));
    return MGlobal::setActiveSelectionList(list, MGlobal::kReplaceList);
}

} // namespace common
