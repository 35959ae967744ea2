#include <maya/MFloatMatrix.h>
#include <maya/MFloatPoint.h>
#include <maya/MFloatVector.h>

#include <algorithm>
#include <cmath>
#include <ostream>

const MFloatVector MFloatVector::zero(0.0F, 0.0F, 0.0F);
const MFloatVector MFloatVector::one(1.0F, 1.0F, 1.0F);
const MFloatVector MFloatVector::xAxis(1.0F, 0.0F, 0.0F);
const MFloatVector MFloatVector::yAxis(0.0F, 1.0F, 0.0F);
const MFloatVector MFloatVector::zAxis(0.0F, 0.0F, 1.0F);
const MFloatVector MFloatVector::xNegAxis(-1.0F, 0.0F, 0.0F);
const MFloatVector MFloatVector::yNegAxis(0.0F, -1.0F, 0.0F);
const MFloatVector MFloatVector::zNegAxis(0.0F, 0.0F, -1.0F);

MFloatVector::MFloatVector(const MFloatPoint& src) : x(src.x), y(src.y), z(src.z) {}

MFloatVector MFloatVector::operator^(const MFloatVector& right) const {
    return MFloatVector(y * right.z - z * right.y, z * right.x - x * right.z, x * right.y - y * right.x);
}

MFloatVector& MFloatVector::operator/=(float scalar) {
    return *this = *this / scalar;
}
MFloatVector& MFloatVector::operator*=(float scalar) {
    return *this = *this * scalar;
}
MFloatVector& MFloatVector::operator+=(const MFloatVector& other) {
    return *this = *this + other;
}
MFloatVector& MFloatVector::operator-=(const MFloatVector& other) {
    return *this = *this - other;
}

// A direction ignores the matrix's translation row.
MFloatVector MFloatVector::operator*(const MFloatMatrix& right) const {
    const auto& m = right.matrix;
    return MFloatVector(x * m[0][0] + y * m[1][0] + z * m[2][0], x * m[0][1] + y * m[1][1] + z * m[2][1],
                        x * m[0][2] + y * m[1][2] + z * m[2][2]);
}
MFloatVector& MFloatVector::operator*=(const MFloatMatrix& right) {
    return *this = *this * right;
}

MFloatVector operator*(const MFloatMatrix& left, const MFloatVector& right) {
    const auto& m = left.matrix;
    return MFloatVector(m[0][0] * right.x + m[0][1] * right.y + m[0][2] * right.z,
                        m[1][0] * right.x + m[1][1] * right.y + m[1][2] * right.z,
                        m[2][0] * right.x + m[2][1] * right.y + m[2][2] * right.z);
}

MStatus MFloatVector::get(float dest[3]) const {
    if (!dest) return MS::kInvalidParameter;
    dest[0] = x;
    dest[1] = y;
    dest[2] = z;
    return MS::kSuccess;
}

float MFloatVector::length() const {
    return std::sqrt(x * x + y * y + z * z);
}

// The zero vector has no direction and stays zero.
MFloatVector MFloatVector::normal() const {
    const float len = length();
    return len > 0.0F ? *this / len : *this;
}

MStatus MFloatVector::normalize() {
    *this = normal();
    return MS::kSuccess;
}

float MFloatVector::angle(const MFloatVector& other) const {
    const float lengths = length() * other.length();
    if (lengths == 0.0F) return 0.0F;
    return std::acos(std::clamp(*this * other / lengths, -1.0F, 1.0F));
}

bool MFloatVector::isEquivalent(const MFloatVector& other, float tolerance) const {
    return (*this - other).length() <= tolerance;
}

std::ostream& operator<<(std::ostream& os, const MFloatVector& v) {
    return os << "[" << v.x << ", " << v.y << ", " << v.z << "]";
}
