#include "deltaImport.h"

#include "common.h"

#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MPlug.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MSelectionList.h>

namespace common {

std::vector<int> selectedVertexFilter() {
    std::vector<int> filter;
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    MDagPath path;
    MObject component;
    if (selection.length() == 0 || !selection.getDagPath(0, path, component) || component.isNull())
        return filter;
    if (MFnComponent(component).componentType() != MFn::kMeshVertComponent) return filter;
    MIntArray elements;
    MFnSingleIndexedComponent(component).getElements(elements);
    filter.resize(elements.length());
    for (unsigned int i = 0; i < elements.length(); ++i) filter[i] = elements[i];
    return filter;
}

DeltaImport::DeltaImport(const MObject& blendShape, bool writing, MStringArray& list)
    : blendShape(blendShape), writing(writing), list(list) {}

void DeltaImport::targetKey(int targetIndex) {
    listEntry = MString();
    listEntry += targetIndex;
    listEntry += ",";
}

void DeltaImport::channelName(const std::string& name) {
    listEntry += name.c_str();
    listEntry += ",";
}

void DeltaImport::itemKey(double weight, bool afterItem) {
    if (afterItem) listEntry += ":";
    listEntry += weight;
}

void DeltaImport::blockClosed() {
    if (listEntry.length() != 0) list.append(listEntry);
    listEntry = MString();
}

void DeltaImport::invalidItem(int targetIndex, double weight) {
    if (!writing) return;
    MString message("Skipped the item at weight ");
    message += weight;
    message += " of index ";
    message += targetIndex;
    MGlobal::displayWarning(message + " because it has no valid item index.");
}

void DeltaImport::item(int targetIndex, int itemIndex, const std::string& channelName,
                       const std::vector<int>& components, const std::vector<double>& xyz) {
    if (!writing) return;
    // Target indices are logical indices of the node's arrays and cannot be negative.
    if (targetIndex < 0) {
        MString message("Skipped index ");
        message += targetIndex;
        MGlobal::displayWarning(message + " because it is not a valid target index.");
        return;
    }
    const unsigned int target = static_cast<unsigned int>(targetIndex);
    const unsigned int item = static_cast<unsigned int>(itemIndex);
    const bool isNew = !targetExists(targetIndex);

    ids.setLength(static_cast<unsigned int>(components.size()));
    for (unsigned int k = 0; k < ids.length(); ++k) ids[k] = components[k];
    if (!setTargetComponents(blendShape, target, item, ids))
        MGlobal::displayError("Error setting components.");
    points.setLength(static_cast<unsigned int>(xyz.size() / 3));
    for (unsigned int k = 0; k < points.length(); ++k)
        points[k] = MPoint(xyz[3 * k], xyz[3 * k + 1], xyz[3 * k + 2]);
    if (!setTargetPoints(blendShape, target, item, points)) MGlobal::displayError("Error setting points.");
    if (isNew) addWeightAlias(targetIndex, channelName);
}

bool DeltaImport::targetExists(int targetIndex) const {
    MIntArray existing;
    targetGroupPlug(blendShape, 0).array().getExistingArrayAttributeIndices(existing);
    for (unsigned int i = 0; i < existing.length(); ++i)
        if (existing[i] == targetIndex) return true;
    return false;
}

// The channel name (or "weight_<index>" without one), made unique among the node's aliases with a
// number suffix, then a zero weight.
void DeltaImport::addWeightAlias(int targetIndex, const std::string& channelName) const {
    MFnDependencyNode node(blendShape);
    MString base;
    if (channelName.empty()) {
        base = "weight_";
        base += targetIndex;
    } else {
        base = channelName.c_str();
    }
    MString alias = base;
    MObject attribute;
    for (int n = 1; node.findAlias(alias, attribute); ++n) {
        alias = base;
        alias += n;
    }
    MString weight = node.name() + ".w[";
    weight += targetIndex;
    weight += "]";
    MGlobal::executeCommand("aliasAttr " + alias + " " + weight);
    MGlobal::executeCommand("setAttr " + weight + " 0");
}

} // namespace common
