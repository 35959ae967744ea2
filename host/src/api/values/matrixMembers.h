#pragma once
// The member definitions MMatrix and MFloatMatrix share: the two classes differ only in their
// scalar type, and every operation is one call into the engine's 4x4 matrix functions.
#include "engine/Matrix4.h"

#include <ostream>

#define TALVEN_DEFINE_MATRIX_MEMBERS(Matrix, Scalar)                                                         \
    Matrix::Matrix(const double m[4][4]) {                                                                   \
        talven::matrix4::copy(m, matrix);                                                                    \
    }                                                                                                        \
    Matrix::Matrix(const float m[4][4]) {                                                                    \
        talven::matrix4::copy(m, matrix);                                                                    \
    }                                                                                                        \
    MStatus Matrix::get(double dest[4][4]) const {                                                           \
        if (!dest) return MS::kInvalidParameter;                                                             \
        talven::matrix4::copy(matrix, dest);                                                                 \
        return MS::kSuccess;                                                                                 \
    }                                                                                                        \
    MStatus Matrix::get(float dest[4][4]) const {                                                            \
        if (!dest) return MS::kInvalidParameter;                                                             \
        talven::matrix4::copy(matrix, dest);                                                                 \
        return MS::kSuccess;                                                                                 \
    }                                                                                                        \
    Matrix Matrix::transpose() const {                                                                       \
        Matrix result;                                                                                       \
        talven::matrix4::transpose(matrix, result.matrix);                                                   \
        return result;                                                                                       \
    }                                                                                                        \
    Matrix& Matrix::setToIdentity() {                                                                        \
        talven::matrix4::setIdentity(matrix);                                                                \
        return *this;                                                                                        \
    }                                                                                                        \
    Matrix& Matrix::setToProduct(const Matrix& left, const Matrix& right) {                                  \
        talven::matrix4::multiply(left.matrix, right.matrix, matrix);                                        \
        return *this;                                                                                        \
    }                                                                                                        \
    Matrix& Matrix::operator+=(const Matrix& right) {                                                        \
        for (int r = 0; r < 4; ++r)                                                                          \
            for (int c = 0; c < 4; ++c) matrix[r][c] += right.matrix[r][c];                                  \
        return *this;                                                                                        \
    }                                                                                                        \
    Matrix Matrix::operator+(const Matrix& right) const {                                                    \
        return Matrix(*this) += right;                                                                       \
    }                                                                                                        \
    Matrix& Matrix::operator-=(const Matrix& right) {                                                        \
        for (int r = 0; r < 4; ++r)                                                                          \
            for (int c = 0; c < 4; ++c) matrix[r][c] -= right.matrix[r][c];                                  \
        return *this;                                                                                        \
    }                                                                                                        \
    Matrix Matrix::operator-(const Matrix& right) const {                                                    \
        return Matrix(*this) -= right;                                                                       \
    }                                                                                                        \
    Matrix& Matrix::operator*=(const Matrix& right) {                                                        \
        return setToProduct(*this, right);                                                                   \
    }                                                                                                        \
    Matrix Matrix::operator*(const Matrix& right) const {                                                    \
        return Matrix().setToProduct(*this, right);                                                          \
    }                                                                                                        \
    Matrix& Matrix::operator*=(Scalar scale) {                                                               \
        for (auto& row : matrix)                                                                             \
            for (Scalar & value : row) value *= scale;                                                       \
        return *this;                                                                                        \
    }                                                                                                        \
    Matrix Matrix::operator*(Scalar scale) const {                                                           \
        return Matrix(*this) *= scale;                                                                       \
    }                                                                                                        \
    Matrix operator*(Scalar scale, const Matrix& right) {                                                    \
        return right * scale;                                                                                \
    }                                                                                                        \
    bool Matrix::operator==(const Matrix& other) const {                                                     \
        return talven::matrix4::equal(matrix, other.matrix);                                                 \
    }                                                                                                        \
    Matrix Matrix::inverse() const {                                                                         \
        Matrix result;                                                                                       \
        talven::matrix4::inverse(matrix, result.matrix);                                                     \
        return result;                                                                                       \
    }                                                                                                        \
    Matrix Matrix::adjoint() const {                                                                         \
        Matrix result;                                                                                       \
        talven::matrix4::adjoint(matrix, result.matrix);                                                     \
        return result;                                                                                       \
    }                                                                                                        \
    Scalar Matrix::det4x4() const {                                                                          \
        return talven::matrix4::det4x4(matrix);                                                              \
    }                                                                                                        \
    Scalar Matrix::det3x3() const {                                                                          \
        return talven::matrix4::det3x3(matrix);                                                              \
    }                                                                                                        \
    bool Matrix::isEquivalent(const Matrix& other, Scalar tolerance) const {                                 \
        return talven::matrix4::isEquivalent(matrix, other.matrix, tolerance);                               \
    }                                                                                                        \
    std::ostream& operator<<(std::ostream& os, const Matrix& m) {                                            \
        os << "[";                                                                                           \
        for (int r = 0; r < 4; ++r) {                                                                        \
            os << (r ? ", [" : "[");                                                                         \
            for (int c = 0; c < 4; ++c) os << (c ? ", " : "") << m.matrix[r][c];                             \
            os << "]";                                                                                       \
        }                                                                                                    \
        return os << "]";                                                                                    \
    }
