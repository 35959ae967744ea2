#include "common.h"

#include "core/common/ComponentList.h"
#include "core/common/Numbers.h"

#include <maya/MFnComponentListData.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnDoubleArrayData.h>
#include <maya/MFnPointArrayData.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MGlobal.h>
#include <maya/MPoint.h>
#include <maya/MSelectionList.h>
#include <maya/MString.h>

#include <string>
#include <string_view>
#include <vector>

namespace common {

namespace {

// Resolves a plug path such as "bs.inputTarget[0].baseWeights" to a plug.
MStatus resolvePlug(const MString& path, MPlug& plug) {
    MSelectionList list;
    MStatus status = list.add(path);
    if (!status) return status;
    return list.getPlug(0, plug);
}

MPlug inputTargetPlug(const MObject& blendShape) {
    MStatus status;
    MFnDependencyNode node(blendShape, &status);
    if (!status) return MPlug();
    const MPlug inputTarget = node.findPlug("inputTarget", false, &status);
    if (!status) return MPlug();
    return inputTarget.elementByLogicalIndex(0);
}

// inputTargetItem[itemIndex] of the target, by name, with `attribute` appended.
MStatus itemAttributePlug(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex,
                          const char* attribute, MPlug& plug) {
    MStatus status;
    const MPlug items = targetGroupPlug(blendShape, targetIndex).child(0, &status);
    if (!status) return status;
    const MPlug item = items.elementByLogicalIndex(itemIndex, &status);
    if (!status) return status;
    return resolvePlug(item.name() + attribute, plug);
}

} // namespace

float roundFloat(float x) {
    return core::roundFloat(x);
}

double roundDouble(double x) {
    return core::roundDouble(x);
}

bool compareDouble(double a, double b) {
    return core::compareDouble(a, b);
}

MIntArray flattenComponentList(const MStringArray& components) {
    std::vector<int> indices;
    for (unsigned int i = 0; i < components.length(); ++i) {
        const MString& entry = components[i];
        int length = 0;
        const char* text = entry.asChar(length);
        core::appendComponentIndices(std::string_view(text, static_cast<std::size_t>(length)), indices);
    }
    return MIntArray(indices.data(), static_cast<unsigned int>(indices.size()));
}

MPlug targetGroupPlug(const MObject& blendShape, unsigned int targetIndex) {
    MStatus status;
    const MPlug groups = inputTargetPlug(blendShape).child(0, &status);
    if (!status) return MPlug();
    return groups.elementByLogicalIndex(targetIndex);
}

MIntArray targetItems(const MObject& blendShape, unsigned int targetIndex) {
    MStatus status;
    MPlug items = targetGroupPlug(blendShape, targetIndex).child(0, &status);
    MIntArray indices;
    if (status) items.getExistingArrayAttributeIndices(indices, &status);
    return status ? indices : MIntArray();
}

MStatus inputPointsTargetPlug(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex,
                              MPlug& plug) {
    return itemAttributePlug(blendShape, targetIndex, itemIndex, ".inputPointsTarget", plug);
}

MStatus inputComponentsTargetPlug(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex,
                                  MPlug& plug) {
    return itemAttributePlug(blendShape, targetIndex, itemIndex, ".inputComponentsTarget", plug);
}

MPointArray getTargetPoints(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex) {
    MPointArray points;
    MPlug plug;
    if (!inputPointsTargetPlug(blendShape, targetIndex, itemIndex, plug)) return points;
    MStatus status;
    const MObject data = plug.asMObject(&status);
    if (!status) return points;
    const MFnPointArrayData pointData(data, &status);
    if (status) pointData.copyTo(points);
    return points;
}

MStatus setTargetPoints(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex,
                        const MPointArray& points) {
    MPlug plug;
    MStatus status = inputPointsTargetPlug(blendShape, targetIndex, itemIndex, plug);
    if (!status) return status;
    MFnPointArrayData pointData;
    const MObject data = pointData.create(points, &status);
    if (!status) return status;
    return plug.setValue(data);
}

MIntArray getComponents(const MPlug& plug) {
    MIntArray indices;
    MStatus status;
    const MObject data = plug.asMObject(&status);
    if (!status) return indices;
    const MFnComponentListData list(data, &status);
    if (!status) return indices;
    MIntArray elements;
    for (unsigned int i = 0; i < list.length(); ++i) {
        const MFnSingleIndexedComponent component(list[i], &status);
        if (!status || !component.getElements(elements)) continue;
        for (unsigned int k = 0; k < elements.length(); ++k) indices.append(elements[k]);
    }
    return indices;
}

MIntArray getTargetComponents(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex) {
    MPlug plug;
    if (!inputComponentsTargetPlug(blendShape, targetIndex, itemIndex, plug)) return MIntArray();
    return getComponents(plug);
}

MStatus setTargetComponents(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex,
                            const MIntArray& indices) {
    MPlug plug;
    const MStatus status = inputComponentsTargetPlug(blendShape, targetIndex, itemIndex, plug);
    if (!status) return status;
    std::vector<int> list(indices.length());
    if (!list.empty()) indices.get(list.data());
    const std::string command = core::componentListCommand(plug.name().asChar(), list);
    return MGlobal::executeCommand(MString(command.c_str(), static_cast<int>(command.size())), false, false);
}

MPlug weightsPlug(const MObject& blendShape, int weightMapIndex) {
    if (weightMapIndex < -1) return MPlug();
    const MString path = weightMapIndex == -1
                             ? inputTargetPlug(blendShape).name() + ".baseWeights"
                             : targetGroupPlug(blendShape, static_cast<unsigned int>(weightMapIndex)).name() +
                                   ".targetWeights";
    MPlug plug;
    resolvePlug(path, plug);
    return plug;
}

void getArrayWeights(MPlug weights, MIntArray& indices, MDoubleArray& values) {
    weights.getExistingArrayAttributeIndices(indices);
    values.setLength(indices.length());
    for (unsigned int k = 0; k < indices.length(); ++k)
        values[k] = weights.elementByPhysicalIndex(k).asDouble();
}

MStatus deleteWeights(MPlug weights) {
    MStatus status;
    MFnDoubleArrayData empty;
    const MObject data = empty.create(&status);
    if (!status) return status;
    weights.setValue(data);
    return MS::kSuccess;
}

MPlug getTweakPointsPlug(const MObject& mesh, MStatus& status) {
    const MFnDependencyNode node(mesh, &status);
    if (!status) return MPlug();
    return node.findPlug("pnts", false, &status);
}

MStatus getVertexTweaks(const MObject& mesh, const MIntArray& indices, MPointArray& points) {
    MStatus status;
    const MPlug tweaks = getTweakPointsPlug(mesh, status);
    if (!status) {
        status.pAPIerror(__FILE__, __LINE__);
        return status;
    }
    points.clear();
    for (unsigned int i = 0; i < indices.length(); ++i) {
        if (indices[i] < 0) {
            points.append(MPoint(0.0, 0.0, 0.0));
            continue;
        }
        const MPlug tweak = tweaks.elementByLogicalIndex(static_cast<unsigned int>(indices[i]));
        points.append(
            MPoint(tweak.child(0).asDouble(), tweak.child(1).asDouble(), tweak.child(2).asDouble()));
    }
    return MS::kSuccess;
}

MStatus setVertexTweaks(const MObject& mesh, const MIntArray& indices, const MPointArray& points) {
    MStatus status;
    const MPlug tweaks = getTweakPointsPlug(mesh, status);
    if (!status) {
        status.pAPIerror(__FILE__, __LINE__);
        return status;
    }
    const unsigned int count = indices.length() < points.length() ? indices.length() : points.length();
    for (unsigned int k = 0; k < count; ++k) {
        if (indices[k] < 0) continue;
        const MPlug tweak = tweaks.elementByLogicalIndex(static_cast<unsigned int>(indices[k]));
        tweak.child(0).setDouble(points[k].x);
        tweak.child(1).setDouble(points[k].y);
        tweak.child(2).setDouble(points[k].z);
    }
    return MS::kSuccess;
}

} // namespace common
