#include "engine/Matrix4.h"

#include <maya/MFloatMatrix.h>

#include <ostream>

namespace m4 = talven::matrix4;

MFloatMatrix::MFloatMatrix(const float m[4][4]) {
    m4::copy(m, matrix);
}

MFloatMatrix::MFloatMatrix(const double m[4][4]) {
    m4::copy(m, matrix);
}

MStatus MFloatMatrix::get(float dest[4][4]) const {
    if (!dest) return MS::kInvalidParameter;
    m4::copy(matrix, dest);
    return MS::kSuccess;
}

MStatus MFloatMatrix::get(double dest[4][4]) const {
    if (!dest) return MS::kInvalidParameter;
    m4::copy(matrix, dest);
    return MS::kSuccess;
}

MFloatMatrix MFloatMatrix::transpose() const {
    MFloatMatrix result;
    m4::transpose(matrix, result.matrix);
    return result;
}

MFloatMatrix& MFloatMatrix::setToIdentity() {
    m4::setIdentity(matrix);
    return *this;
}

MFloatMatrix& MFloatMatrix::setToProduct(const MFloatMatrix& left, const MFloatMatrix& right) {
    m4::multiply(left.matrix, right.matrix, matrix);
    return *this;
}

MFloatMatrix& MFloatMatrix::operator+=(const MFloatMatrix& right) {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) matrix[r][c] += right.matrix[r][c];
    return *this;
}
MFloatMatrix MFloatMatrix::operator+(const MFloatMatrix& right) const {
    return MFloatMatrix(*this) += right;
}

MFloatMatrix& MFloatMatrix::operator-=(const MFloatMatrix& right) {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) matrix[r][c] -= right.matrix[r][c];
    return *this;
}
MFloatMatrix MFloatMatrix::operator-(const MFloatMatrix& right) const {
    return MFloatMatrix(*this) -= right;
}

MFloatMatrix& MFloatMatrix::operator*=(const MFloatMatrix& right) {
    return setToProduct(*this, right);
}
MFloatMatrix MFloatMatrix::operator*(const MFloatMatrix& right) const {
    return MFloatMatrix().setToProduct(*this, right);
}

MFloatMatrix& MFloatMatrix::operator*=(float scale) {
    for (auto& row : matrix)
        for (float& value : row) value *= scale;
    return *this;
}
MFloatMatrix MFloatMatrix::operator*(float scale) const {
    return MFloatMatrix(*this) *= scale;
}
MFloatMatrix operator*(float scale, const MFloatMatrix& right) {
    return right * scale;
}

bool MFloatMatrix::operator==(const MFloatMatrix& other) const {
    return m4::equal(matrix, other.matrix);
}

MFloatMatrix MFloatMatrix::inverse() const {
    MFloatMatrix result;
    m4::inverse(matrix, result.matrix);
    return result;
}

MFloatMatrix MFloatMatrix::adjoint() const {
    MFloatMatrix result;
    m4::adjoint(matrix, result.matrix);
    return result;
}

float MFloatMatrix::det4x4() const {
    return m4::det4x4(matrix);
}
float MFloatMatrix::det3x3() const {
    return m4::det3x3(matrix);
}

bool MFloatMatrix::isEquivalent(const MFloatMatrix& other, float tolerance) const {
    return m4::isEquivalent(matrix, other.matrix, tolerance);
}

std::ostream& operator<<(std::ostream& os, const MFloatMatrix& m) {
    os << "[";
    for (int r = 0; r < 4; ++r) {
        os << (r ? ", [" : "[");
        for (int c = 0; c < 4; ++c) os << (c ? ", " : "") << m.matrix[r][c];
        os << "]";
    }
    return os << "]";
}
