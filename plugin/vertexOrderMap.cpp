#include "vertexOrderMap.h"

#include <maya/MFnIntArrayData.h>
#include <maya/MGlobal.h>
#include <maya/MObject.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

namespace common {

MStatus findVertexOrderMap(const MDagPath& mesh, MPlug& plug) {
    MSelectionList list;
    MStatus status = list.add(mesh.fullPathName() + ".kvVertexOrderMap");
    if (!status) return status;
    return list.getPlug(0, plug);
}

MStatus createVertexOrderMap(const MDagPath& mesh, MPlug& plug) {
    const MString command =
        MString("addAttr -ln \"kvVertexOrderMap\" -sn \"kvvom\" -h 1 -dt Int32Array ") + mesh.fullPathName();
    const MStatus status = MGlobal::executeCommand(command, false, false);
    if (!status) return status;
    return findVertexOrderMap(mesh, plug);
}

MIntArray readVertexOrderMap(const MPlug& plug) {
    MStatus status;
    const MObject data = plug.asMObject(&status);
    if (!status) return MIntArray();
    MFnIntArrayData array(data, &status);
    return status ? array.array() : MIntArray();
}

MStatus writeVertexOrderMap(MPlug& plug, const MIntArray& map) {
    MStatus status;
    MFnIntArrayData array;
    MObject data = array.create(map, &status);
    if (!status) return status;
    return plug.setMObject(data);
}

MStatus copyVertexOrderMap(const MPlug& source, const MString& targetName) {
    MSelectionList list;
    list.add(targetName);
    MObject node;
    list.getDependNode(0, node);
    if (!node.hasFn(MFn::kMesh)) {
        MStringArray names;
        list.getSelectionStrings(names);
        MGlobal::displayError((names.length() ? names[0] : targetName) + " is not a mesh object.");
        return MS::kFailure;
    }
    MDagPath target;
    MStatus status = list.getDagPath(0, target);
    if (!status) return status;
    status = target.extendToShape();
    if (!status) return status;
    MPlug plug;
    if (!findVertexOrderMap(target, plug)) {
        status = createVertexOrderMap(target, plug);
        if (!status) return status;
    }
    return writeVertexOrderMap(plug, readVertexOrderMap(source));
}

} // namespace common
