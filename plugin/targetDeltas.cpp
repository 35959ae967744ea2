#include "targetDeltas.h"

#include "common.h"

#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MPoint.h>

namespace common {

core::TargetDeltas toTargetDeltas(const MIntArray& components, const MPointArray& points) {
    core::TargetDeltas deltas;
    deltas.components.resize(components.length());
    if (components.length()) components.get(deltas.components.data());
    deltas.deltas.resize(points.length());
    for (unsigned int i = 0; i < points.length(); ++i) {
        const MPoint& p = points[i];
        deltas.deltas[i] = core::Delta{p.x, p.y, p.z, p.w};
    }
    return deltas;
}

MPointArray toPointArray(const std::vector<core::Delta>& deltas) {
    MPointArray points(static_cast<unsigned int>(deltas.size()));
    for (unsigned int i = 0; i < points.length(); ++i) {
        const core::Delta& d = deltas[i];
        points[i] = MPoint(d.x, d.y, d.z, d.w);
    }
    return points;
}

int axisNumber(const MString& axis) {
    return axis == "y" ? 1 : axis == "z" ? 2 : 0;
}

std::vector<float> axisCoordinates(const MDagPath& mesh, int axis) {
    std::vector<float> coordinates;
    MFloatPointArray points;
    if (!mesh.isValid() || !MFnMesh(mesh).getPoints(points, MSpace::kObject)) return coordinates;
    coordinates.resize(points.length());
    for (unsigned int v = 0; v < points.length(); ++v)
        coordinates[v] = points[v][static_cast<unsigned int>(axis)];
    return coordinates;
}

} // namespace common
