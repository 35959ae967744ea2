#include "api/values/perpendicular.h"

#include <maya/MEulerRotation.h>
#include <maya/MMatrix.h>
#include <maya/MQuaternion.h>
#include <maya/MVector.h>

#include <algorithm>
#include <cmath>
#include <ostream>

const MQuaternion MQuaternion::identity(0.0, 0.0, 0.0, 1.0);

// The shortest rotation taking direction a to direction b.
MQuaternion::MQuaternion(const MVector& a, const MVector& b) : MQuaternion(a, b, 1.0) {}

MQuaternion::MQuaternion(const MVector& a, const MVector& b, double angleFactor) : MQuaternion() {
    if (a.length() == 0.0 || b.length() == 0.0) return;
    const double angle = a.angle(b);
    MVector axis = a ^ b;
    if (axis.length() == 0.0) {
        if (a * b > 0.0) return;
        axis = talven::perpendicular(a);
    }
    setAxisAngle(axis, angle * angleFactor);
}

MQuaternion::MQuaternion(double angle, const MVector& axisb) : MQuaternion() {
    setAxisAngle(axisb, angle);
}

// Rows are normalised first so that a uniform scale in the matrix does not matter.
MQuaternion& MQuaternion::operator=(const MMatrix& matrix) {
    double m[3][3];
    for (int r = 0; r < 3; ++r) {
        const double len = MVector(matrix.matrix[r][0], matrix.matrix[r][1], matrix.matrix[r][2]).length();
        for (int c = 0; c < 3; ++c) m[r][c] = len > 0.0 ? matrix.matrix[r][c] / len : matrix.matrix[r][c];
    }
    // Row-vector matrix: m is the transpose of the usual column-vector rotation. The largest of w, x,
    // y, z is found from the diagonal and the others from it, which keeps the division well away
    // from zero for any rotation; a degenerate matrix gives the identity.
    const double trace = m[0][0] + m[1][1] + m[2][2];
    int largest = 3;
    double best = trace;
    for (int i = 0; i < 3; ++i)
        if (2.0 * m[i][i] - trace > best) {
            best = 2.0 * m[i][i] - trace;
            largest = i;
        }
    const double s = 2.0 * std::sqrt(std::max(0.0, 1.0 + best));
    if (!(s > 1.0e-12)) return setToIdentity();
    const double diff[3] = {m[1][2] - m[2][1], m[2][0] - m[0][2], m[0][1] - m[1][0]};
    double q[4];
    q[3] = largest == 3 ? 0.25 * s : diff[largest] / s;
    for (int i = 0; i < 3; ++i) {
        if (largest == 3)
            q[i] = diff[i] / s;
        else if (i == largest)
            q[i] = 0.25 * s;
        else
            q[i] = (m[i][largest] + m[largest][i]) / s;
    }
    *this = MQuaternion(q);
    return normalizeIt();
}

MQuaternion& MQuaternion::operator=(const MEulerRotation& matrix) {
    return *this = matrix.asQuaternion();
}

MMatrix MQuaternion::asMatrix() const {
    const MQuaternion q = normal();
    const double xx = q.x * q.x, yy = q.y * q.y, zz = q.z * q.z;
    const double xy = q.x * q.y, xz = q.x * q.z, yz = q.y * q.z;
    const double xw = q.x * q.w, yw = q.y * q.w, zw = q.z * q.w;
    const double rows[4][4] = {{1.0 - 2.0 * (yy + zz), 2.0 * (xy + zw), 2.0 * (xz - yw), 0.0},
                               {2.0 * (xy - zw), 1.0 - 2.0 * (xx + zz), 2.0 * (yz + xw), 0.0},
                               {2.0 * (xz + yw), 2.0 * (yz - xw), 1.0 - 2.0 * (xx + yy), 0.0},
                               {0.0, 0.0, 0.0, 1.0}};
    return MMatrix(rows);
}

MEulerRotation MQuaternion::asEulerRotation() const {
    return MEulerRotation::decompose(asMatrix(), MEulerRotation::kXYZ);
}

// A zero axis gives the identity.
MQuaternion& MQuaternion::setAxisAngle(const MVector& axis, double theta) {
    const MVector unit = axis.normal();
    if (unit.length() == 0.0) return setToIdentity();
    const double s = std::sin(0.5 * theta);
    *this = MQuaternion(unit.x * s, unit.y * s, unit.z * s, std::cos(0.5 * theta));
    return *this;
}

// The identity rotation reports the x axis and angle 0; a zero quaternion has no rotation at all.
bool MQuaternion::getAxisAngle(MVector& axis, double& theta) const {
    const double len = std::sqrt(x * x + y * y + z * z + w * w);
    if (len == 0.0) return false;
    const MVector vec(x / len, y / len, z / len);
    const double sinHalf = vec.length();
    theta = 2.0 * std::atan2(sinHalf, w / len);
    axis = sinHalf > 0.0 ? vec / sinHalf : MVector::xAxis;
    return true;
}

MQuaternion& MQuaternion::setToIdentity() {
    return *this = identity;
}
MQuaternion& MQuaternion::setToXAxis(double theta) {
    return setAxisAngle(MVector::xAxis, theta);
}
MQuaternion& MQuaternion::setToYAxis(double theta) {
    return setAxisAngle(MVector::yAxis, theta);
}
MQuaternion& MQuaternion::setToZAxis(double theta) {
    return setAxisAngle(MVector::zAxis, theta);
}

MStatus MQuaternion::get(double dest[4]) const {
    if (!dest) return MS::kInvalidParameter;
    for (unsigned int i = 0; i < 4; ++i) dest[i] = (*this)[i];
    return MS::kSuccess;
}

MQuaternion MQuaternion::operator+(const MQuaternion& other) const {
    return MQuaternion(x + other.x, y + other.y, z + other.z, w + other.w);
}

MQuaternion MQuaternion::operator-(const MQuaternion& other) const {
    return MQuaternion(x - other.x, y - other.y, z - other.z, w - other.w);
}

// this * other rotates by this first, then by other: the Hamilton product other ⊗ this.
MQuaternion MQuaternion::operator*(const MQuaternion& other) const {
    const MQuaternion& a = other;
    const MQuaternion& b = *this;
    return MQuaternion(
        a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y, a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
        a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z);
}

MQuaternion& MQuaternion::operator*=(const MQuaternion& rhs) {
    return *this = *this * rhs;
}

MQuaternion& MQuaternion::negateIt() {
    return *this = -*this;
}

bool MQuaternion::isEquivalent(const MQuaternion& other, double tolerance) const {
    return std::abs(x - other.x) <= tolerance && std::abs(y - other.y) <= tolerance &&
           std::abs(z - other.z) <= tolerance && std::abs(w - other.w) <= tolerance;
}

MQuaternion& MQuaternion::scaleIt(double scale) {
    return *this = scale * *this;
}

// A zero quaternion cannot be normalised and is returned as it is.
MQuaternion MQuaternion::normal() const {
    const double len = std::sqrt(x * x + y * y + z * z + w * w);
    return len > 0.0 ? MQuaternion(x / len, y / len, z / len, w / len) : *this;
}

MQuaternion& MQuaternion::normalizeIt() {
    return *this = normal();
}
MQuaternion& MQuaternion::conjugateIt() {
    return *this = conjugate();
}

// A zero quaternion has no inverse and is returned as it is.
MQuaternion MQuaternion::inverse() const {
    const double norm = x * x + y * y + z * z + w * w;
    return norm > 0.0 ? (1.0 / norm) * conjugate() : *this;
}

MQuaternion& MQuaternion::invertIt() {
    return *this = inverse();
}

MQuaternion operator*(double scale, const MQuaternion& other) {
    return MQuaternion(scale * other.x, scale * other.y, scale * other.z, scale * other.w);
}

std::ostream& operator<<(std::ostream& os, const MQuaternion& q) {
    return os << "[" << q.x << ", " << q.y << ", " << q.z << ", " << q.w << "]";
}
