#include "engine/Matrix4.h"

#include <maya/MMatrix.h>

#include <ostream>

namespace m4 = talven::matrix4;

const MMatrix MMatrix::identity;

MMatrix::MMatrix(const double m[4][4]) {
    m4::copy(m, matrix);
}

MMatrix::MMatrix(const float m[4][4]) {
    m4::copy(m, matrix);
}

MStatus MMatrix::get(double dest[4][4]) const {
    if (!dest) return MS::kInvalidParameter;
    m4::copy(matrix, dest);
    return MS::kSuccess;
}

MStatus MMatrix::get(float dest[4][4]) const {
    if (!dest) return MS::kInvalidParameter;
    m4::copy(matrix, dest);
    return MS::kSuccess;
}

MMatrix MMatrix::transpose() const {
    MMatrix result;
    m4::transpose(matrix, result.matrix);
    return result;
}

MMatrix& MMatrix::setToIdentity() {
    m4::setIdentity(matrix);
    return *this;
}

MMatrix& MMatrix::setToProduct(const MMatrix& left, const MMatrix& right) {
    m4::multiply(left.matrix, right.matrix, matrix);
    return *this;
}

MMatrix& MMatrix::operator+=(const MMatrix& right) {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) matrix[r][c] += right.matrix[r][c];
    return *this;
}
MMatrix MMatrix::operator+(const MMatrix& right) const {
    return MMatrix(*this) += right;
}

MMatrix& MMatrix::operator-=(const MMatrix& right) {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) matrix[r][c] -= right.matrix[r][c];
    return *this;
}
MMatrix MMatrix::operator-(const MMatrix& right) const {
    return MMatrix(*this) -= right;
}

MMatrix& MMatrix::operator*=(const MMatrix& right) {
    return setToProduct(*this, right);
}
MMatrix MMatrix::operator*(const MMatrix& right) const {
    return MMatrix().setToProduct(*this, right);
}

MMatrix& MMatrix::operator*=(double scale) {
    for (auto& row : matrix)
        for (double& value : row) value *= scale;
    return *this;
}
MMatrix MMatrix::operator*(double scale) const {
    return MMatrix(*this) *= scale;
}
MMatrix operator*(double scale, const MMatrix& right) {
    return right * scale;
}

bool MMatrix::operator==(const MMatrix& other) const {
    return m4::equal(matrix, other.matrix);
}

MMatrix MMatrix::inverse() const {
    MMatrix result;
    m4::inverse(matrix, result.matrix);
    return result;
}

MMatrix MMatrix::adjoint() const {
    MMatrix result;
    m4::adjoint(matrix, result.matrix);
    return result;
}

double MMatrix::det4x4() const {
    return m4::det4x4(matrix);
}
double MMatrix::det3x3() const {
    return m4::det3x3(matrix);
}

bool MMatrix::isEquivalent(const MMatrix& other, double tolerance) const {
    return m4::isEquivalent(matrix, other.matrix, tolerance);
}

std::ostream& operator<<(std::ostream& os, const MMatrix& m) {
    os << "[";
    for (int r = 0; r < 4; ++r) {
        os << (r ? ", [" : "[");
        for (int c = 0; c < 4; ++c) os << (c ? ", " : "") << m.matrix[r][c];
        os << "]";
    }
    return os << "]";
}
