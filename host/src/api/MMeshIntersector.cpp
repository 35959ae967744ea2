#include <maya/MDagPath.h>
#include <maya/MIntArray.h>
#include <maya/MMeshIntersector.h>

#include "api/MeshAccess.h"
#include "api/ObjectRef.h"
#include "mesh/ClosestPointCache.h"

MMeshIntersector::MMeshIntersector(void) = default;
MMeshIntersector::~MMeshIntersector(void) = default;

MStatus MMeshIntersector::create(MObject& meshObject, const MMatrix& matrix,
                                 const MIntArray* facesOfInterest) {
    index_.reset();
    // A transform stands for its mesh shape.
    MObject object = meshObject;
    host::NodePtr node = host::nodeOf(meshObject);
    if (node && node->type().transform) {
        MDagPath path(meshObject);
        if (path.extendToShape() == MS::kSuccess) object = path.node();
    }
    std::shared_ptr<const host::MeshData> mesh = host::readMesh(object);
    if (!mesh) return MS::kInvalidParameter;

    // A mesh without usable faces still makes an intersector; its queries find nothing.
    index_ = host::closestPointIndexOf(mesh, matrix == MMatrix::identity ? nullptr : matrix.matrix,
                                       facesOfInterest ? &facesOfInterest->vec() : nullptr);
    return MS::kSuccess;
}

bool MMeshIntersector::isCreated(void) {
    return index_ != nullptr;
}

MStatus MMeshIntersector::getClosestPoint(const MPoint& point, MPointOnMesh& meshPoint,
                                          double maxDistance) const {
    if (!index_) return MS::kFailure;
    MPoint p = point;
    p.cartesianize();
    host::ClosestPointHit hit;
    if (!index_->closestPoint({p.x, p.y, p.z}, maxDistance, hit)) return MS::kFailure;
    meshPoint.hostSet(MFloatPoint(static_cast<float>(hit.point[0]), static_cast<float>(hit.point[1]),
                                  static_cast<float>(hit.point[2])),
                      MFloatVector(hit.normal[0], hit.normal[1], hit.normal[2]), hit.face, hit.triangle,
                      hit.u, hit.v);
    return MS::kSuccess;
}
