#include "blendShapeRemoveDeltas.h"

#include "commandObjects.h"
#include "commandSupport.h"
#include "common.h"
#include "core/targets/TargetEditing.h"
#include "targetItemData.h"

#include <maya/MArgDatabase.h>
#include <maya/MDagPath.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MGlobal.h>
#include <maya/MItMeshEdge.h>
#include <maya/MItMeshPolygon.h>
#include <maya/MSelectionList.h>

#include <vector>

const char* const blendShapeRemoveDeltas_helpText =
    "\n"
    "Description: Removes the blend shape deltas for the selected components.\n"
    "\n"
    "Flags: kv_blendShapeRemoveDeltas\n"
    "    -h      -help               <n/a>      this message\n"
    "    -i      -index              <int>      index of the source target channel\n"
    "    -ti     -targetItem         <int>      target position\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeRemoveDeltas -i <int> -ti <int>\n"
    "Return Value: int\n";

blendShapeRemoveDeltas::blendShapeRemoveDeltas() : index(0), targetItem(6000), changed(false) {}

void* blendShapeRemoveDeltas::creator() {
    return new blendShapeRemoveDeltas();
}

MSyntax blendShapeRemoveDeltas::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-i", "-index", MSyntax::kLong);
    syntax.addFlag("-ti", "-targetItem", MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

namespace {

// The vertices of the components selected on the first item of the active selection: selected
// vertices, both ends of selected edges, every corner of selected faces. Corners shared by several
// components appear more than once; the caller treats the list as a set. Empty when the first item
// has no mesh component.
std::vector<int> selectedVertices() {
    std::vector<int> vertices;
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    MDagPath mesh;
    MObject component;
    if (selection.length() == 0 || !selection.getDagPath(0, mesh, component) || component.isNull())
        return vertices;
    MStatus status;
    if (component.hasFn(MFn::kMeshVertComponent)) {
        // The component's elements are the vertex indices an iterator would visit, read at once.
        MIntArray elements;
        MFnSingleIndexedComponent(component).getElements(elements);
        vertices = common::toVector(elements);
    } else if (component.hasFn(MFn::kMeshEdgeComponent)) {
        for (MItMeshEdge it(mesh, component, &status); status && !it.isDone(); it.next()) {
            vertices.push_back(it.index(0));
            vertices.push_back(it.index(1));
        }
    } else if (component.hasFn(MFn::kMeshPolygonComponent)) {
        MIntArray corners;
        for (MItMeshPolygon it(mesh, component, &status); status && !it.isDone(); it.next()) {
            it.getVertices(corners);
            for (unsigned int i = 0; i < corners.length(); ++i) vertices.push_back(corners[i]);
        }
    }
    return vertices;
}

} // namespace

MStatus blendShapeRemoveDeltas::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeRemoveDeltas_helpText)) return MS::kSuccess;

    if (!(status = common::getIndexFlag(argData, "-i", index))) return status;
    if (!(status = common::getIndexFlag(argData, "-ti", targetItem))) return status;

    status = common::getBlendShapeNode(argData, blendShapeNode);
    if (!status) {
        setResult(0);
        return status;
    }
    return redoIt();
}

MStatus blendShapeRemoveDeltas::redoIt() {
    oldComponents = common::getTargetComponents(blendShapeNode, index, targetItem);
    oldPoints = common::getTargetPoints(blendShapeNode, index, targetItem);
    changed = true;
    const std::vector<int> selected = selectedVertices();

    MStatus status;
    if (selected.empty()) {
        // Nothing selected: the item keeps no deltas, written as vertex 0 with a zero delta.
        if ((status = common::fillEmptyTargetComponents(blendShapeNode, index, targetItem)))
            status = common::fillEmptyTargetPoints(blendShapeNode, index, targetItem);
    } else {
        const std::vector<std::size_t> kept =
            core::unselectedPositions(common::toVector(oldComponents), selected);
        MIntArray components(static_cast<unsigned int>(kept.size()));
        MPointArray points(static_cast<unsigned int>(kept.size()));
        for (unsigned int k = 0; k < components.length(); ++k) {
            const unsigned int position = static_cast<unsigned int>(kept[k]);
            components[k] = oldComponents[position];
            // A point list shorter than the component list gives zero deltas to the rest.
            if (position < oldPoints.length()) points[k] = oldPoints[position];
        }
        status = common::writeTarget(blendShapeNode, index, targetItem, components, points);
    }
    setResult(status ? 1 : 0);
    return status;
}

MStatus blendShapeRemoveDeltas::undoIt() {
    if (!changed) return MS::kSuccess;
    return common::writeTarget(blendShapeNode, index, targetItem, oldComponents, oldPoints);
}
