#include <maya/MFloatMatrix.h>
#include <maya/MFloatPoint.h>
#include <maya/MFloatVector.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

#include <cmath>
#include <ostream>

namespace {

// The cartesian position; a point at infinity (w = 0) is left as it is.
MFloatVector cartesian(const MFloatPoint& p) {
    if (p.w == 1.0F || p.w == 0.0F) return MFloatVector(p.x, p.y, p.z);
    return MFloatVector(p.x / p.w, p.y / p.w, p.z / p.w);
}

} // namespace

const MFloatPoint MFloatPoint::origin(0.0F, 0.0F, 0.0F, 1.0F);

MFloatPoint::MFloatPoint(const MFloatVector& src) : x(src.x), y(src.y), z(src.z), w(1.0F) {}

MStatus MFloatPoint::get(float dest[4]) const {
    if (!dest) return MS::kInvalidParameter;
    for (unsigned int i = 0; i < 4; ++i) dest[i] = (*this)[i];
    return MS::kSuccess;
}

MStatus MFloatPoint::get(double dest[4]) const {
    if (!dest) return MS::kInvalidParameter;
    for (unsigned int i = 0; i < 4; ++i) dest[i] = (*this)[i];
    return MS::kSuccess;
}

MStatus MFloatPoint::setCast(const MPoint& srcpt) {
    *this = MFloatPoint(static_cast<float>(srcpt.x), static_cast<float>(srcpt.y), static_cast<float>(srcpt.z),
                        static_cast<float>(srcpt.w));
    return MS::kSuccess;
}

MStatus MFloatPoint::setCast(const MVector& src) {
    *this = MFloatPoint(static_cast<float>(src.x), static_cast<float>(src.y), static_cast<float>(src.z));
    return MS::kSuccess;
}

MFloatVector MFloatPoint::operator-(const MFloatPoint& other) const {
    return cartesian(*this) - cartesian(other);
}
MFloatPoint MFloatPoint::operator+(const MFloatVector& other) const {
    return MFloatPoint(x + other.x, y + other.y, z + other.z, w);
}
MFloatPoint MFloatPoint::operator-(const MFloatVector& other) const {
    return MFloatPoint(x - other.x, y - other.y, z - other.z, w);
}
MFloatPoint& MFloatPoint::operator+=(const MFloatVector& vector) {
    return *this = *this + vector;
}
MFloatPoint& MFloatPoint::operator-=(const MFloatVector& vector) {
    return *this = *this - vector;
}

MFloatPoint MFloatPoint::operator*(const MFloatMatrix& right) const {
    MFloatPoint result;
    for (unsigned int c = 0; c < 4; ++c)
        result[c] =
            x * right.matrix[0][c] + y * right.matrix[1][c] + z * right.matrix[2][c] + w * right.matrix[3][c];
    return result;
}
MFloatPoint& MFloatPoint::operator*=(const MFloatMatrix& right) {
    return *this = *this * right;
}

MFloatPoint operator*(const MFloatMatrix& left, const MFloatPoint& right) {
    MFloatPoint result;
    for (unsigned int r = 0; r < 4; ++r) {
        const float* row = left.matrix[r];
        result[r] = row[0] * right.x + row[1] * right.y + row[2] * right.z + row[3] * right.w;
    }
    return result;
}

MFloatPoint& MFloatPoint::cartesianize() {
    if (w == 0.0F) return *this;
    *this = MFloatPoint(x / w, y / w, z / w, 1.0F);
    return *this;
}

MFloatPoint& MFloatPoint::rationalize() {
    if (w == 0.0F) return *this;
    *this = MFloatPoint(x / w, y / w, z / w, w);
    return *this;
}

MFloatPoint& MFloatPoint::homogenize() {
    *this = MFloatPoint(x * w, y * w, z * w, w);
    return *this;
}

float MFloatPoint::distanceTo(const MFloatPoint& other) const {
    return (*this - other).length();
}

bool MFloatPoint::isEquivalent(const MFloatPoint& other, float tolerance) const {
    return distanceTo(other) <= tolerance;
}

std::ostream& operator<<(std::ostream& os, const MFloatPoint& p) {
    return os << "[" << p.x << ", " << p.y << ", " << p.z << ", " << p.w << "]";
}
