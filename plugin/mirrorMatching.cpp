#include "mirrorMatching.h"

#include "vertexOrderMap.h"

#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MFnTransform.h>
#include <maya/MMatrix.h>
#include <maya/MMeshIntersector.h>
#include <maya/MPlug.h>
#include <maya/MPoint.h>
#include <maya/MTransformationMatrix.h>

#include <limits>
#include <vector>

namespace common {

namespace {

// The reflection that negates the axis coordinate in object space.
MMatrix reflectionMatrix(const MString& axis) {
    double scale[3] = {1.0, 1.0, 1.0};
    if (axis == "x") scale[0] = -1.0;
    if (axis == "y") scale[1] = -1.0;
    if (axis == "z") scale[2] = -1.0;
    MTransformationMatrix transformation;
    transformation.setScale(scale, MSpace::kTransform);
    return transformation.asMatrix();
}

// Start of each face's vertices in the connect list, plus one past the last.
std::vector<unsigned int> faceOffsets(const MIntArray& counts) {
    std::vector<unsigned int> offsets(counts.length() + 1, 0);
    for (unsigned int f = 0; f < counts.length(); ++f)
        offsets[f + 1] = offsets[f] + static_cast<unsigned int>(counts[f] > 0 ? counts[f] : 0);
    return offsets;
}

} // namespace

MIntArray getMirroredMeshIndices(const MString& axis, const MDagPath& meshPath, const MIntArray& sources,
                                 float tolerance) {
    MIntArray partners;
    MStatus status;
    MDagPath mesh(meshPath);
    if (mesh.node().hasFn(MFn::kTransform) && !mesh.extendToShape()) return partners;

    MDagPath parentPath(mesh);
    parentPath.pop();
    double scale[3] = {1.0, 1.0, 1.0};
    MFnTransform(parentPath).getScale(scale);

    MFnMesh meshFn(mesh, &status);
    if (!status) return partners;
    MFloatPointArray points;
    MIntArray counts, connects;
    if (!meshFn.getPoints(points, MSpace::kObject) || !meshFn.getVertices(counts, connects)) return partners;
    const std::vector<unsigned int> offsets = faceOffsets(counts);

    // The intersector sees the mesh reflected across the axis plane; negating a coordinate is exact,
    // so the reflected points below equal the ones it indexes without a mirrored copy of the mesh.
    MObject shape = mesh.node();
    MMeshIntersector intersector;
    if (!intersector.create(shape, reflectionMatrix(axis))) return partners;
    // Any other axis string reflects nothing, as its identity matrix does.
    const unsigned int axisIndex = axis == "x" ? 0 : axis == "y" ? 1 : axis == "z" ? 2 : 3;
    const float inverseScale = static_cast<float>(1.0 / ((scale[0] + scale[1] + scale[2]) / 3.0));
    const float scaledTolerance = inverseScale * tolerance;
    const double toleranceSquared = static_cast<double>(scaledTolerance) * scaledTolerance;
    const double maxDistance = std::numeric_limits<double>::max();
    MPointOnMesh onMesh;
    for (unsigned int k = 0; k < sources.length(); ++k) {
        const int s = sources[k];
        if (s < 0 || static_cast<unsigned int>(s) >= points.length()) continue;
        const MPoint p(points[static_cast<unsigned int>(s)]);
        if (!intersector.getClosestPoint(p, onMesh, maxDistance)) continue;
        const int face = onMesh.faceIndex();
        if (face < 0 || static_cast<unsigned int>(face) >= counts.length()) continue;
        for (unsigned int c = offsets[face]; c < offsets[face + 1] && c < connects.length(); ++c) {
            const int v = connects[c];
            if (v < 0 || static_cast<unsigned int>(v) >= points.length()) continue;
            const MFloatPoint& q = points[static_cast<unsigned int>(v)];
            const float reflected[3] = {axisIndex == 0 ? -q.x : q.x, axisIndex == 1 ? -q.y : q.y,
                                        axisIndex == 2 ? -q.z : q.z};
            const double dx = p.x - reflected[0], dy = p.y - reflected[1], dz = p.z - reflected[2];
            if (toleranceSquared > dx * dx + dy * dy + dz * dz) {
                partners.append(v);
                break;
            }
        }
    }
    return partners;
}

MIntArray getMirroredOrderedMeshIndices(const MDagPath& mesh, const MIntArray& sources) {
    MIntArray partners(sources.length(), -1);
    MPlug plug;
    if (!findVertexOrderMap(mesh, plug)) return partners;
    const MIntArray map = readVertexOrderMap(plug);
    for (unsigned int k = 0; k < sources.length(); ++k) {
        const int s = sources[k];
        if (s >= 0 && static_cast<unsigned int>(s) < map.length())
            partners[k] = map[static_cast<unsigned int>(s)];
    }
    return partners;
}

MString mirrorCountError(unsigned int sources, unsigned int partners) {
    if (partners < sources) {
        MString missing;
        missing += static_cast<int>(sources - partners);
        return "Unable to find " + missing + " mirrored points." +
               " Please increase the tolerance to account for non-symmetrical points.";
    }
    if (partners > sources)
        return MString("Found too many mirrored points.") +
               " Please reduce the tolerance when working in smaller scale.";
    return MString();
}

} // namespace common
