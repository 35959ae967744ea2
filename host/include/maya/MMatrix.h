#pragma once
// A 4x4 double matrix, row-major, acting on row vectors (p' = p * M) as Maya's does.
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>

#define MMatrix_kTol 1.0e-10

class MMatrix {
public:
    // The default matrix is the identity.
    constexpr MMatrix()
        : matrix{{1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, 0.0, 0.0, 1.0}} {}
    MMatrix(const MMatrix& src) = default;
    MMatrix(const double m[4][4]);
    MMatrix(const float m[4][4]);
    ~MMatrix() = default;

    MMatrix& operator=(const MMatrix&) = default;
    double operator()(unsigned int row, unsigned int col) const { return matrix[row & 3][col & 3]; }
    double& operator()(unsigned int row, unsigned int col) { return matrix[row & 3][col & 3]; }
    const double* operator[](unsigned int row) const { return matrix[row & 3]; }
    double* operator[](unsigned int row) { return matrix[row & 3]; }
    MStatus get(double dest[4][4]) const;
    MStatus get(float dest[4][4]) const;

    MMatrix transpose() const;
    MMatrix& setToIdentity();
    MMatrix& setToProduct(const MMatrix& left, const MMatrix& right);
    MMatrix& operator+=(const MMatrix& right);
    MMatrix operator+(const MMatrix& right) const;
    MMatrix& operator-=(const MMatrix& right);
    MMatrix operator-(const MMatrix& right) const;
    MMatrix& operator*=(const MMatrix& right);
    MMatrix operator*(const MMatrix& right) const;
    MMatrix& operator*=(double);
    MMatrix operator*(double) const;
    bool operator==(const MMatrix& other) const;
    bool operator!=(const MMatrix& other) const { return !(*this == other); }

    MMatrix inverse() const;
    MMatrix adjoint() const;
    double det4x4() const;
    double det3x3() const;
    bool isEquivalent(const MMatrix& other, double tolerance = MMatrix_kTol) const;

    friend MMatrix operator*(double, const MMatrix& right);
    friend std::ostream& operator<<(std::ostream& os, const MMatrix& m);

    static const MMatrix identity;

    double matrix[4][4];
};
