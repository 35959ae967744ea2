#pragma once
// Closest-point queries on a mesh.
#include <maya/MFloatPoint.h>
#include <maya/MFloatVector.h>
#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MPoint.h>
#include <maya/MStatus.h>

#include <cfloat>
#include <memory>

class MIntArray;

namespace host {
class ClosestPointIndex;
}

class MPointOnMesh {
public:
    MPointOnMesh() = default;
    MPointOnMesh(const MPointOnMesh& other) = default;
    MPointOnMesh& operator=(const MPointOnMesh& other) = default;

    MFloatPoint& getPoint() { return point_; }
    MFloatVector& getNormal() { return normal_; }
    void getBarycentricCoords(float& u, float& v) const {
        u = u_;
        v = v_;
    }
    int faceIndex() const { return faceIndex_; }
    int triangleIndex() const { return triangleIndex_; }

    // Host access, not part of Maya's interface: never used by plugin code.
    void hostSet(const MFloatPoint& point, const MFloatVector& normal, int face, int triangle, float u,
                 float v) {
        point_ = point;
        normal_ = normal;
        faceIndex_ = face;
        triangleIndex_ = triangle;
        u_ = u;
        v_ = v;
    }

private:
    MFloatPoint point_;
    MFloatVector normal_;
    int faceIndex_ = -1;
    int triangleIndex_ = -1;
    float u_ = 0.f, v_ = 0.f;
};

class MMeshIntersector {
public:
    MMeshIntersector(void);
    virtual ~MMeshIntersector(void);

    MStatus create(MObject& meshObject, const MMatrix& matrix = MMatrix::identity,
                   const MIntArray* facesOfInterest = nullptr);
    bool isCreated(void);
    MStatus getClosestPoint(const MPoint& point, MPointOnMesh& meshPoint, double maxDistance = DBL_MAX) const;

private:
    std::shared_ptr<const host::ClosestPointIndex> index_;
};
