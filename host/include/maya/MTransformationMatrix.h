#pragma once
// A transformation kept as its components: scale, shear, rotation (Euler angles with an order) and
// translation. As a matrix for row vectors it is S * Sh * R * T (scale first, translation last).
// Pivots are not kept: they stay at the origin. With no pivots and no parent every space gives the
// same values, so the space arguments are accepted and not used.
#include <maya/MSpace.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

class MEulerRotation;
class MMatrix;
class MQuaternion;
class MVector;

#define MTransformationMatrix_kTol 1.0e-10

class MTransformationMatrix {
public:
    // One off from MEulerRotation::RotationOrder: never cast one into the other.
    enum RotationOrder { kInvalid, kXYZ, kYZX, kZXY, kXZY, kYXZ, kZYX, kLast };

    MTransformationMatrix() = default;
    MTransformationMatrix(const MTransformationMatrix& src) = default;
    MTransformationMatrix(const MMatrix& src);
    ~MTransformationMatrix() = default;

    MTransformationMatrix& operator=(const MTransformationMatrix& src) = default;
    MTransformationMatrix& operator=(const MMatrix& src);

    MMatrix asMatrix() const;
    MMatrix asMatrix(double percent) const;
    MMatrix asMatrixInverse() const;
    MMatrix asScaleMatrix() const;
    MMatrix asRotateMatrix() const;

    MStatus getScale(double scale[3], MSpace::Space space) const;
    MStatus setScale(const double scale[3], MSpace::Space space);

    MQuaternion rotation() const;
    MEulerRotation eulerRotation() const;
    MStatus getRotationQuaternion(double& x, double& y, double& z, double& w) const;
    MStatus setRotationQuaternion(double x, double y, double z, double w);
    MStatus getRotation(double rotation[3], RotationOrder& order) const;
    MStatus setRotation(const double rotation[3], RotationOrder order);
    RotationOrder rotationOrder(MStatus* ReturnStatus = NULL) const;
    MStatus reorderRotation(const RotationOrder& order);

    MVector getTranslation(MSpace::Space space, MStatus* ReturnStatus = NULL) const;
    MVector translation(MSpace::Space space, MStatus* ReturnStatus = NULL) const;
    MStatus setTranslation(const MVector& vector, MSpace::Space space);
    MStatus addTranslation(const MVector& vector, MSpace::Space space);

    MStatus getShear(double shear[3], MSpace::Space space) const;
    MStatus setShear(const double shear[3], MSpace::Space space);

    bool isEquivalent(const MTransformationMatrix& other,
                      double tolerance = MTransformationMatrix_kTol) const;
    bool operator==(const MTransformationMatrix& other) const { return isEquivalent(other); }
    bool operator!=(const MTransformationMatrix& other) const { return !isEquivalent(other); }

    static const MTransformationMatrix identity;

private:
    void setEuler(const MEulerRotation& rotation);

    double translate_[3] = {0.0, 0.0, 0.0};
    double rotate_[3] = {0.0, 0.0, 0.0}; // radians, about x, y, z
    RotationOrder order_ = kXYZ;
    double scale_[3] = {1.0, 1.0, 1.0};
    double shear_[3] = {0.0, 0.0, 0.0}; // xy, xz, yz
};
