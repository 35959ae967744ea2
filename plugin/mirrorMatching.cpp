#include "mirrorMatching.h"

#include "vertexOrderMap.h"

#include <maya/MFloatPointArray.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MFnTransform.h>
#include <maya/MGlobal.h>
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
    const MMatrix reflection = reflectionMatrix(axis);

    MDagPath parentPath(mesh);
    parentPath.pop();
    double scale[3] = {1.0, 1.0, 1.0};
    MFnTransform(parentPath).getScale(scale);

    MFnMesh meshFn(mesh, &status);
    if (!status) return partners;
    MObject parent = parentPath.node();
    MFnMesh copyFn;
    MObject copy = copyFn.copy(mesh.node(), parent, &status);
    if (!status) return partners;
    copyFn.setObject(copy);
    MFnDependencyNode(copy).findPlug("intermediateObject", false).setValue(true);

    MFloatPointArray points;
    meshFn.getPoints(points, MSpace::kObject);
    MFloatPointArray mirrored(points.length());
    for (unsigned int i = 0; i < points.length(); ++i) mirrored[i].setCast(MPoint(points[i]) * reflection);
    copyFn.setPoints(mirrored, MSpace::kObject);

    MIntArray counts, connects;
    copyFn.getVertices(counts, connects);
    const std::vector<unsigned int> offsets = faceOffsets(counts);

    MMeshIntersector intersector;
    status = intersector.create(copy, MMatrix::identity);
    if (status) {
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
                if (v < 0 || static_cast<unsigned int>(v) >= mirrored.length()) continue;
                const MFloatPoint& q = mirrored[static_cast<unsigned int>(v)];
                const double dx = p.x - q.x, dy = p.y - q.y, dz = p.z - q.z;
                if (toleranceSquared > dx * dx + dy * dy + dz * dz) {
                    partners.append(v);
                    break;
                }
            }
        }
    }
    MGlobal::deleteNode(copy);
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
