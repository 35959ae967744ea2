#include "api/values/perpendicular.h"

#include <maya/MEulerRotation.h>
#include <maya/MMatrix.h>
#include <maya/MQuaternion.h>
#include <maya/MTransformationMatrix.h>
#include <maya/MVector.h>

#include <cmath>

namespace {

using Order = MTransformationMatrix::RotationOrder;

bool isValid(Order order) {
    return order > MTransformationMatrix::kInvalid && order < MTransformationMatrix::kLast;
}

// The two enumerations are one apart, so orders are mapped by name, never by value.
MEulerRotation::RotationOrder toEuler(Order order) {
    switch (order) {
    case MTransformationMatrix::kYZX:
        return MEulerRotation::kYZX;
    case MTransformationMatrix::kZXY:
        return MEulerRotation::kZXY;
    case MTransformationMatrix::kXZY:
        return MEulerRotation::kXZY;
    case MTransformationMatrix::kYXZ:
        return MEulerRotation::kYXZ;
    case MTransformationMatrix::kZYX:
        return MEulerRotation::kZYX;
    default:
        return MEulerRotation::kXYZ;
    }
}

Order fromEuler(MEulerRotation::RotationOrder order) {
    switch (order) {
    case MEulerRotation::kYZX:
        return MTransformationMatrix::kYZX;
    case MEulerRotation::kZXY:
        return MTransformationMatrix::kZXY;
    case MEulerRotation::kXZY:
        return MTransformationMatrix::kXZY;
    case MEulerRotation::kYXZ:
        return MTransformationMatrix::kYXZ;
    case MEulerRotation::kZYX:
        return MTransformationMatrix::kZYX;
    default:
        return MTransformationMatrix::kXYZ;
    }
}

// Scale then shear: rows (sx, 0, 0), (sy*xy, sy, 0), (sz*xz, sz*yz, sz).
MMatrix scaleShearMatrix(const double scale[3], const double shear[3]) {
    MMatrix m;
    m.matrix[0][0] = scale[0];
    m.matrix[1][0] = scale[1] * shear[0];
    m.matrix[1][1] = scale[1];
    m.matrix[2][0] = scale[2] * shear[1];
    m.matrix[2][1] = scale[2] * shear[2];
    m.matrix[2][2] = scale[2];
    return m;
}

MMatrix compose(const double scale[3], const double shear[3], const MEulerRotation& rotation,
                const double translate[3]) {
    MMatrix m = scaleShearMatrix(scale, shear) * rotation.asMatrix();
    for (int c = 0; c < 3; ++c) m.matrix[3][c] = translate[c];
    return m;
}

// Fills the zero axes of a frame (left by zero scales) so that it becomes a rotation again.
void completeFrame(MVector axes[3]) {
    for (int i = 0; i < 3; ++i) {
        if (axes[i] != MVector::zero) continue;
        const MVector& next = axes[(i + 1) % 3];
        const MVector& previous = axes[(i + 2) % 3];
        if (next != MVector::zero && previous != MVector::zero)
            axes[i] = next ^ previous;
        else if (next != MVector::zero)
            axes[i] = talven::perpendicular(next);
        else if (previous != MVector::zero)
            axes[i] = talven::perpendicular(previous);
        else
            axes[i] = i == 0 ? MVector::xAxis : i == 1 ? MVector::yAxis : MVector::zAxis;
    }
}

} // namespace

const MTransformationMatrix MTransformationMatrix::identity;

MTransformationMatrix::MTransformationMatrix(const MMatrix& src) {
    *this = src;
}

// Splits the upper 3x3 part into scale * shear * rotation by Gram-Schmidt on its rows (x first),
// which recovers the components of any S * Sh * R matrix exactly. A mirroring matrix gets all
// three scales negated, which keeps the rotation proper. The rotation is read in xyz order.
MTransformationMatrix& MTransformationMatrix::operator=(const MMatrix& src) {
    MVector rows[3];
    for (int r = 0; r < 3; ++r) rows[r] = MVector(src.matrix[r][0], src.matrix[r][1], src.matrix[r][2]);
    MVector axes[3];
    double scale[3];
    for (int r = 0; r < 3; ++r) {
        MVector rest = rows[r];
        for (int previous = 0; previous < r; ++previous) rest -= (rest * axes[previous]) * axes[previous];
        scale[r] = rest.length();
        axes[r] = rest.normal();
    }
    completeFrame(axes);
    if ((axes[0] ^ axes[1]) * axes[2] < 0.0)
        for (int r = 0; r < 3; ++r) {
            scale[r] = -scale[r];
            axes[r] = -axes[r];
        }
    const auto ratio = [](double value, double by) { return by != 0.0 ? value / by : 0.0; };
    const double shear[3] = {ratio(rows[1] * axes[0], scale[1]), ratio(rows[2] * axes[0], scale[2]),
                             ratio(rows[2] * axes[1], scale[2])};
    MMatrix rotation;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c) rotation.matrix[r][c] = axes[r][static_cast<unsigned int>(c)];

    *this = MTransformationMatrix();
    for (int i = 0; i < 3; ++i) {
        translate_[i] = src.matrix[3][i];
        scale_[i] = scale[i];
        shear_[i] = shear[i];
    }
    setEuler(MEulerRotation::decompose(rotation, MEulerRotation::kXYZ));
    return *this;
}

MMatrix MTransformationMatrix::asMatrix() const {
    return compose(scale_, shear_, eulerRotation(), translate_);
}

// Each component is taken the given fraction of the way from rest: translation, shear and the
// rotation angles from 0, scale from 1.
MMatrix MTransformationMatrix::asMatrix(double percent) const {
    double scale[3], shear[3], translate[3];
    for (int i = 0; i < 3; ++i) {
        scale[i] = 1.0 + (scale_[i] - 1.0) * percent;
        shear[i] = shear_[i] * percent;
        translate[i] = translate_[i] * percent;
    }
    return compose(scale, shear, eulerRotation() * percent, translate);
}

MMatrix MTransformationMatrix::asMatrixInverse() const {
    return asMatrix().inverse();
}
MMatrix MTransformationMatrix::asScaleMatrix() const {
    return scaleShearMatrix(scale_, shear_);
}
MMatrix MTransformationMatrix::asRotateMatrix() const {
    return eulerRotation().asMatrix();
}

MStatus MTransformationMatrix::getScale(double scale[3], MSpace::Space) const {
    if (!scale) return MS::kInvalidParameter;
    for (int i = 0; i < 3; ++i) scale[i] = scale_[i];
    return MS::kSuccess;
}

MStatus MTransformationMatrix::setScale(const double scale[3], MSpace::Space) {
    if (!scale) return MS::kInvalidParameter;
    for (int i = 0; i < 3; ++i) scale_[i] = scale[i];
    return MS::kSuccess;
}

MQuaternion MTransformationMatrix::rotation() const {
    return eulerRotation().asQuaternion();
}

MEulerRotation MTransformationMatrix::eulerRotation() const {
    return MEulerRotation(rotate_[0], rotate_[1], rotate_[2], toEuler(order_));
}

void MTransformationMatrix::setEuler(const MEulerRotation& rotation) {
    rotate_[0] = rotation.x;
    rotate_[1] = rotation.y;
    rotate_[2] = rotation.z;
    order_ = fromEuler(rotation.order);
}

MStatus MTransformationMatrix::getRotationQuaternion(double& x, double& y, double& z, double& w) const {
    const MQuaternion q = rotation();
    x = q.x;
    y = q.y;
    z = q.z;
    w = q.w;
    return MS::kSuccess;
}

// The rotation order stays; the angles are the quaternion's principal solution in it.
MStatus MTransformationMatrix::setRotationQuaternion(double x, double y, double z, double w) {
    setEuler(MEulerRotation::decompose(MQuaternion(x, y, z, w).asMatrix(), toEuler(order_)));
    return MS::kSuccess;
}

MStatus MTransformationMatrix::getRotation(double rotation[3], RotationOrder& order) const {
    if (!rotation) return MS::kInvalidParameter;
    for (int i = 0; i < 3; ++i) rotation[i] = rotate_[i];
    order = order_;
    return MS::kSuccess;
}

MStatus MTransformationMatrix::setRotation(const double rotation[3], RotationOrder order) {
    if (!rotation || !isValid(order)) return MS::kInvalidParameter;
    setEuler(MEulerRotation(rotation[0], rotation[1], rotation[2], toEuler(order)));
    return MS::kSuccess;
}

MTransformationMatrix::RotationOrder MTransformationMatrix::rotationOrder(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return order_;
}

// Keeps the rotation and expresses it in the new order.
MStatus MTransformationMatrix::reorderRotation(const RotationOrder& order) {
    if (!isValid(order)) return MS::kInvalidParameter;
    setEuler(eulerRotation().reorder(toEuler(order)));
    return MS::kSuccess;
}

MVector MTransformationMatrix::getTranslation(MSpace::Space space, MStatus* ReturnStatus) const {
    return translation(space, ReturnStatus);
}

MVector MTransformationMatrix::translation(MSpace::Space, MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return MVector(translate_);
}

MStatus MTransformationMatrix::setTranslation(const MVector& vector, MSpace::Space) {
    vector.get(translate_);
    return MS::kSuccess;
}

MStatus MTransformationMatrix::addTranslation(const MVector& vector, MSpace::Space) {
    (MVector(translate_) + vector).get(translate_);
    return MS::kSuccess;
}

MStatus MTransformationMatrix::getShear(double shear[3], MSpace::Space) const {
    if (!shear) return MS::kInvalidParameter;
    for (int i = 0; i < 3; ++i) shear[i] = shear_[i];
    return MS::kSuccess;
}

MStatus MTransformationMatrix::setShear(const double shear[3], MSpace::Space) {
    if (!shear) return MS::kInvalidParameter;
    for (int i = 0; i < 3; ++i) shear_[i] = shear[i];
    return MS::kSuccess;
}

bool MTransformationMatrix::isEquivalent(const MTransformationMatrix& other, double tolerance) const {
    return asMatrix().isEquivalent(other.asMatrix(), tolerance);
}
