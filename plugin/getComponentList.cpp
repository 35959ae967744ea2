#include "getComponentList.h"

#include "commandSupport.h"
#include "common.h"

#include <maya/MArgDatabase.h>
#include <maya/MDagPath.h>
#include <maya/MFn.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MGlobal.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>

const char* const getComponentList_helpText =
    "\n"
    "Description: Returns a flat index list for the given component attribute.\n"
    "\n"
    "Flags: kv_getComponentList\n"
    "    -h      -help               <n/a>      this message\n"
    "    -at     -attribute          <string>   the component attribute\n"
    "    -sl     -select             <string>   select the components of the given mesh\n"
    "    -ct     -componentType      <int>      type of component selection (0: vertex, 1: edge, 2: face)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_getComponentList -at <string>\n"
    "Return Value: <int> array\n";

namespace {

// The component type of a -componentType value; kInvalid for values that name none.
MFn::Type meshComponentType(int componentType) {
    switch (componentType) {
    case 0:
        return MFn::kMeshVertComponent;
    case 1:
        return MFn::kMeshEdgeComponent;
    case 2:
        return MFn::kMeshPolygonComponent;
    default:
        return MFn::kInvalid;
    }
}

} // namespace

getComponentList::getComponentList() : componentType_(-1) {}

void* getComponentList::creator() {
    return new getComponentList();
}

MSyntax getComponentList::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-at", "-attribute", MSyntax::kString);
    syntax.addFlag("-sl", "-select", MSyntax::kString);
    syntax.addFlag("-ct", "-componentType", MSyntax::kLong);
    return syntax;
}

MStatus getComponentList::doIt(const MArgList& args) {
    MStatus status;
    const MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, getComponentList_helpText)) return MS::kSuccess;

    attribute_.clear();
    selectMesh_.clear();
    componentType_ = -1;
    if (argData.isFlagSet("-at")) argData.getFlagArgument("-at", 0, attribute_);
    if (argData.isFlagSet("-sl")) argData.getFlagArgument("-sl", 0, selectMesh_);
    if (argData.isFlagSet("-ct")) argData.getFlagArgument("-ct", 0, componentType_);
    if (attribute_.length() == 0) return MS::kSuccess;
    return redoIt();
}

MStatus getComponentList::redoIt() {
    // A bad attribute leaves the list empty and fails the command, but the rest still runs.
    MSelectionList list;
    MPlug plug;
    MStatus status = list.add(attribute_);
    if (status) status = list.getPlug(0, plug);
    MIntArray indices;
    if (status) indices = common::getComponents(plug);

    if (selectMesh_.length() != 0 && componentType_ != -1) {
        const MStatus selected = selectComponents(indices);
        return status ? selected : status;
    }
    setResult(indices);
    return status;
}

MStatus getComponentList::selectComponents(MIntArray& indices) const {
    MSelectionList meshList;
    MDagPath mesh;
    MStatus status = meshList.add(selectMesh_);
    if (status) status = meshList.getDagPath(0, mesh);
    if (status) status = mesh.extendToShape();
    if (!status) return status;

    // Another type value selects the shape itself.
    MObject components;
    const MFn::Type type = meshComponentType(componentType_);
    if (type != MFn::kInvalid) {
        MFnSingleIndexedComponent component;
        components = component.create(type, &status);
        if (!status) return status;
        component.addElements(indices);
    }
    MSelectionList selection;
    selection.add(mesh, components);
    return MGlobal::setActiveSelectionList(selection, MGlobal::kReplaceList);
}

MStatus getComponentList::undoIt() {
    return MS::kSuccess;
}

bool getComponentList::isUndoable() const {
    return false;
}
