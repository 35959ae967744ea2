#include "commandObjects.h"

#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>
#include <maya/MStringArray.h>

namespace common {

MStatus getCommandNode(const MArgDatabase& argData, MFn::Type type, const char* missingMessage,
                       const char* wrongTypeMessage, MObject& node) {
    MSelectionList objects;
    MStatus status = argData.getObjects(objects);
    if (!status) {
        MGlobal::displayError("Error getting objects");
        return status;
    }
    if (objects.length() == 0) {
        MPxCommand::displayError(missingMessage);
        return MS::kFailure;
    }
    objects.getDependNode(0, node);
    if (!node.hasFn(type)) {
        MPxCommand::displayError(wrongTypeMessage);
        return MS::kFailure;
    }
    return MS::kSuccess;
}

MStatus getIndexFlag(const MArgDatabase& argData, const char* flag, unsigned int& index) {
    if (!argData.isFlagSet(flag)) return MS::kSuccess;
    int value = 0;
    const MStatus status = argData.getFlagArgument(flag, 0, value);
    if (status) index = static_cast<unsigned int>(value);
    return status;
}

MStatus getBlendShapeNode(const MArgDatabase& argData, MObject& node) {
    return getCommandNode(argData, MFn::kBlendShape, "No blend shape node provided.",
                          "The node is not a blend shape node.", node);
}

MString selectionName(const MSelectionList& list, unsigned int index, const MString& fallback) {
    MStringArray names;
    list.getSelectionStrings(index, names);
    return names.length() != 0 ? names[0] : fallback;
}

bool getMeshShape(const MString& name, MDagPath& path) {
    MSelectionList list;
    MObject node;
    if (list.add(name) && list.length() != 0) list.getDependNode(0, node);
    if (!node.hasFn(MFn::kMesh) || !list.getDagPath(0, path)) {
        MGlobal::displayError(selectionName(list, 0, name) + " is not a mesh object.");
        return false;
    }
    return true;
}

} // namespace common
