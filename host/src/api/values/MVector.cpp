#include <maya/MEulerRotation.h>
#include <maya/MFloatPoint.h>
#include <maya/MFloatVector.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MQuaternion.h>
#include <maya/MVector.h>

#include <algorithm>
#include <cmath>
#include <ostream>

const MVector MVector::zero(0.0, 0.0, 0.0);
const MVector MVector::one(1.0, 1.0, 1.0);
const MVector MVector::xAxis(1.0, 0.0, 0.0);
const MVector MVector::yAxis(0.0, 1.0, 0.0);
const MVector MVector::zAxis(0.0, 0.0, 1.0);
const MVector MVector::xNegAxis(-1.0, 0.0, 0.0);
const MVector MVector::yNegAxis(0.0, -1.0, 0.0);
const MVector MVector::zNegAxis(0.0, 0.0, -1.0);

MVector::MVector(const MFloatPoint& src) : x(src.x), y(src.y), z(src.z) {}
MVector::MVector(const MFloatVector& src) : x(src.x), y(src.y), z(src.z) {}
MVector::MVector(const MPoint& src) : x(src.x), y(src.y), z(src.z) {}

MVector MVector::operator^(const MVector& right) const {
    return MVector(y * right.z - z * right.y, z * right.x - x * right.z, x * right.y - y * right.x);
}

MVector& MVector::operator/=(double scalar) {
    return *this = *this / scalar;
}
MVector& MVector::operator*=(double scalar) {
    return *this = *this * scalar;
}
MVector& MVector::operator+=(const MVector& other) {
    return *this = *this + other;
}
MVector& MVector::operator-=(const MVector& other) {
    return *this = *this - other;
}

// A direction ignores the matrix's translation row.
MVector MVector::operator*(const MMatrix& right) const {
    const auto& m = right.matrix;
    return MVector(x * m[0][0] + y * m[1][0] + z * m[2][0], x * m[0][1] + y * m[1][1] + z * m[2][1],
                   x * m[0][2] + y * m[1][2] + z * m[2][2]);
}
MVector& MVector::operator*=(const MMatrix& right) {
    return *this = *this * right;
}

MVector operator*(const MMatrix& left, const MVector& right) {
    const auto& m = left.matrix;
    return MVector(m[0][0] * right.x + m[0][1] * right.y + m[0][2] * right.z,
                   m[1][0] * right.x + m[1][1] * right.y + m[1][2] * right.z,
                   m[2][0] * right.x + m[2][1] * right.y + m[2][2] * right.z);
}

MVector MVector::rotateBy(const MQuaternion& q) const {
    return *this * q.asMatrix();
}
MVector MVector::rotateBy(const MEulerRotation& r) const {
    return *this * r.asMatrix();
}

MVector MVector::rotateBy(MVector::Axis axis, const double angle) const {
    switch (axis) {
    case kXaxis:
        return rotateBy(MQuaternion().setToXAxis(angle));
    case kYaxis:
        return rotateBy(MQuaternion().setToYAxis(angle));
    case kZaxis:
        return rotateBy(MQuaternion().setToZAxis(angle));
    default:
        return *this;
    }
}

MQuaternion MVector::rotateTo(const MVector& target) const {
    return MQuaternion(*this, target);
}

MStatus MVector::get(double dest[3]) const {
    if (!dest) return MS::kInvalidParameter;
    dest[0] = x;
    dest[1] = y;
    dest[2] = z;
    return MS::kSuccess;
}

double MVector::length() const {
    return std::sqrt(x * x + y * y + z * z);
}

// The zero vector has no direction and stays zero.
MVector MVector::normal() const {
    const double len = length();
    return len > 0.0 ? *this / len : *this;
}

MStatus MVector::normalize() {
    *this = normal();
    return MS::kSuccess;
}

double MVector::angle(const MVector& other) const {
    const double lengths = length() * other.length();
    if (lengths == 0.0) return 0.0;
    return std::acos(std::clamp(*this * other / lengths, -1.0, 1.0));
}

bool MVector::isEquivalent(const MVector& other, double tolerance) const {
    return (*this - other).length() <= tolerance;
}

std::ostream& operator<<(std::ostream& os, const MVector& v) {
    return os << "[" << v.x << ", " << v.y << ", " << v.z << "]";
}
