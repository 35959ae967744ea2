#include <maya/MFloatPoint.h>
#include <maya/MFloatVector.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

#include <cmath>
#include <ostream>

namespace {

// The cartesian position; a point at infinity (w = 0) is left as it is.
MVector cartesian(const MPoint& p) {
    if (p.w == 1.0 || p.w == 0.0) return MVector(p.x, p.y, p.z);
    return MVector(p.x / p.w, p.y / p.w, p.z / p.w);
}

} // namespace

const MPoint MPoint::origin(0.0, 0.0, 0.0, 1.0);

MPoint::MPoint(const MVector& src) : x(src.x), y(src.y), z(src.z), w(1.0) {}
MPoint::MPoint(const MFloatPoint& srcpt) : x(srcpt.x), y(srcpt.y), z(srcpt.z), w(srcpt.w) {}
MPoint::MPoint(const MFloatVector& src) : x(src.x), y(src.y), z(src.z), w(1.0) {}

MStatus MPoint::get(double dest[4]) const {
    if (!dest) return MS::kInvalidParameter;
    for (unsigned int i = 0; i < 4; ++i) dest[i] = (*this)[i];
    return MS::kSuccess;
}

MStatus MPoint::get(float dest[4]) const {
    if (!dest) return MS::kInvalidParameter;
    for (unsigned int i = 0; i < 4; ++i) dest[i] = static_cast<float>((*this)[i]);
    return MS::kSuccess;
}

MVector MPoint::operator-(const MPoint& other) const {
    return cartesian(*this) - cartesian(other);
}
MPoint MPoint::operator+(const MVector& other) const {
    return MPoint(x + other.x, y + other.y, z + other.z, w);
}
MPoint MPoint::operator-(const MVector& other) const {
    return MPoint(x - other.x, y - other.y, z - other.z, w);
}
MPoint& MPoint::operator+=(const MVector& vector) {
    return *this = *this + vector;
}
MPoint& MPoint::operator-=(const MVector& vector) {
    return *this = *this - vector;
}

MPoint MPoint::operator*(const MMatrix& right) const {
    MPoint result;
    for (unsigned int c = 0; c < 4; ++c)
        result[c] =
            x * right.matrix[0][c] + y * right.matrix[1][c] + z * right.matrix[2][c] + w * right.matrix[3][c];
    return result;
}
MPoint& MPoint::operator*=(const MMatrix& right) {
    return *this = *this * right;
}

MPoint operator*(const MMatrix& left, const MPoint& right) {
    MPoint result;
    for (unsigned int r = 0; r < 4; ++r) {
        const double* row = left.matrix[r];
        result[r] = row[0] * right.x + row[1] * right.y + row[2] * right.z + row[3] * right.w;
    }
    return result;
}

MPoint& MPoint::cartesianize() {
    if (w == 0.0) return *this;
    *this = MPoint(x / w, y / w, z / w, 1.0);
    return *this;
}

MPoint& MPoint::rationalize() {
    if (w == 0.0) return *this;
    *this = MPoint(x / w, y / w, z / w, w);
    return *this;
}

MPoint& MPoint::homogenize() {
    *this = MPoint(x * w, y * w, z * w, w);
    return *this;
}

double MPoint::distanceTo(const MPoint& other) const {
    return (*this - other).length();
}

bool MPoint::isEquivalent(const MPoint& other, double tolerance) const {
    return distanceTo(other) <= tolerance;
}

std::ostream& operator<<(std::ostream& os, const MPoint& p) {
    return os << "[" << p.x << ", " << p.y << ", " << p.z << ", " << p.w << "]";
}
