#include "targetItemData.h"

#include "common.h"

#include <maya/MGlobal.h>
#include <maya/MPoint.h>

namespace common {

MStatus fillEmptyTargetComponents(const MObject& blendShape, unsigned int targetIndex,
                                  unsigned int itemIndex) {
    MIntArray first;
    first.append(0);
    const MStatus status = setTargetComponents(blendShape, targetIndex, itemIndex, first);
    if (!status) MGlobal::displayError("Error setting components for empty target.");
    return status;
}

MStatus fillEmptyTargetPoints(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex) {
    MPointArray zero;
    zero.append(MPoint(0.0, 0.0, 0.0, 1.0));
    const MStatus status = setTargetPoints(blendShape, targetIndex, itemIndex, zero);
    if (!status) MGlobal::displayError("Error setting points for empty target.");
    return status;
}

MStatus readTargetFillingEmpty(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex,
                               MIntArray& components, MPointArray& points) {
    components = getTargetComponents(blendShape, targetIndex, itemIndex);
    MStatus status;
    if (components.length() == 0 && !(status = fillEmptyTargetComponents(blendShape, targetIndex, itemIndex)))
        return status;
    points = getTargetPoints(blendShape, targetIndex, itemIndex);
    if (points.length() == 0 && !(status = fillEmptyTargetPoints(blendShape, targetIndex, itemIndex)))
        return status;
    return MS::kSuccess;
}

MStatus writeTarget(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex,
                    const MIntArray& components, const MPointArray& points) {
    MStatus status = setTargetComponents(blendShape, targetIndex, itemIndex, components);
    if (!status) {
        MGlobal::displayError("Error setting components.");
        return status;
    }
    status = setTargetPoints(blendShape, targetIndex, itemIndex, points);
    if (!status) MGlobal::displayError("Error setting points.");
    return status;
}

std::vector<int> toVector(const MIntArray& array) {
    std::vector<int> values(array.length());
    for (unsigned int i = 0; i < array.length(); ++i) values[i] = array[i];
    return values;
}

MIntArray toIntArray(const std::vector<int>& values) {
    return MIntArray(values.data(), static_cast<unsigned int>(values.size()));
}

MPointArray toPointArray(const std::vector<double>& xyz) {
    MPointArray points(static_cast<unsigned int>(xyz.size() / 3));
    for (unsigned int i = 0; i < points.length(); ++i)
        points[i] = MPoint(xyz[3 * i], xyz[3 * i + 1], xyz[3 * i + 2], 1.0);
    return points;
}

std::vector<float> toVector(const MFloatPointArray& points) {
    std::vector<float> xyz(3 * static_cast<std::size_t>(points.length()));
    for (unsigned int i = 0; i < points.length(); ++i) {
        xyz[3 * i] = points[i].x;
        xyz[3 * i + 1] = points[i].y;
        xyz[3 * i + 2] = points[i].z;
    }
    return xyz;
}

} // namespace common
