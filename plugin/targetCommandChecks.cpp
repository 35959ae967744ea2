#include "targetCommandChecks.h"

#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

namespace common {

MStatus getBlendShapeObject(const MArgDatabase& argData, MObject& blendShape) {
    MSelectionList objects;
    MStatus status = argData.getObjects(objects);
    if (!status) {
        MGlobal::displayError("Error getting objects");
        MPxCommand::setResult(0);
        return status;
    }
    if (objects.length() == 0) {
        MPxCommand::displayError("No blend shape node provided.");
        MPxCommand::setResult(0);
        return MS::kFailure;
    }
    objects.getDependNode(0, blendShape);
    if (!blendShape.hasFn(MFn::kBlendShape)) {
        MPxCommand::displayError("The node is not a blend shape node.");
        MPxCommand::setResult(0);
        return MS::kFailure;
    }
    return MS::kSuccess;
}

bool originalMeshGiven(const MString& name) {
    if (name.length() != 0) return true;
    MGlobal::displayError("The original mesh is not defined.");
    MPxCommand::setResult(0);
    return false;
}

bool validAxis(const MString& axis) {
    if (axis == "x" || axis == "y" || axis == "z") return true;
    MGlobal::displayError("The axis string is not correcty defined. Use x, y, or z.");
    MPxCommand::setResult(0);
    return false;
}

bool meshShapeAt(const MSelectionList& list, unsigned int i, MDagPath& path) {
    MStringArray typed;
    list.getSelectionStrings(i, typed);
    const MString name = typed.length() ? typed[0] : MString();
    if (!list.getDagPath(i, path)) {
        MGlobal::displayError(name + " is not a mesh object.");
        return false;
    }
    if (path.node().hasFn(MFn::kTransform)) {
        if (path.childCount() == 0) {
            MGlobal::displayError(name + " has no shape node.");
            return false;
        }
        path.push(path.child(0));
    }
    if (!path.node().hasFn(MFn::kMesh)) {
        MGlobal::displayError(name + " is not a mesh object.");
        return false;
    }
    return true;
}

} // namespace common
