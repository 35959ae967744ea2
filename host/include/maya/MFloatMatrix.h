#pragma once
// A 4x4 single-precision matrix, row-major, acting on row vectors (p' = p * M) as Maya's does.
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>

#define MFloatMatrix_kTol 1.0e-5F

class MFloatMatrix {
public:
    // The default matrix is the identity.
    constexpr MFloatMatrix()
        : matrix{{1.0F, 0.0F, 0.0F, 0.0F},
                 {0.0F, 1.0F, 0.0F, 0.0F},
                 {0.0F, 0.0F, 1.0F, 0.0F},
                 {0.0F, 0.0F, 0.0F, 1.0F}} {}
    MFloatMatrix(const MFloatMatrix& src) = default;
    MFloatMatrix(const float m[4][4]);
    MFloatMatrix(const double m[4][4]);
    ~MFloatMatrix() = default;

    MFloatMatrix& operator=(const MFloatMatrix&) = default;
    float operator()(unsigned int row, unsigned int col) const { return matrix[row & 3][col & 3]; }
    float& operator()(unsigned int row, unsigned int col) { return matrix[row & 3][col & 3]; }
    const float* operator[](unsigned int row) const { return matrix[row & 3]; }
    float* operator[](unsigned int row) { return matrix[row & 3]; }
    MStatus get(float dest[4][4]) const;
    MStatus get(double dest[4][4]) const;

    MFloatMatrix transpose() const;
    MFloatMatrix& setToIdentity();
    MFloatMatrix& setToProduct(const MFloatMatrix& left, const MFloatMatrix& right);
    MFloatMatrix& operator+=(const MFloatMatrix& right);
    MFloatMatrix operator+(const MFloatMatrix& right) const;
    MFloatMatrix& operator-=(const MFloatMatrix& right);
    MFloatMatrix operator-(const MFloatMatrix& right) const;
    MFloatMatrix& operator*=(const MFloatMatrix& right);
    MFloatMatrix operator*(const MFloatMatrix& right) const;
    MFloatMatrix& operator*=(float);
    MFloatMatrix operator*(float) const;
    bool operator==(const MFloatMatrix& other) const;
    bool operator!=(const MFloatMatrix& other) const { return !(*this == other); }

    MFloatMatrix inverse() const;
    MFloatMatrix adjoint() const;
    float det4x4() const;
    float det3x3() const;
    bool isEquivalent(const MFloatMatrix& other, float tolerance = MFloatMatrix_kTol) const;

    friend MFloatMatrix operator*(float, const MFloatMatrix& right);
    friend std::ostream& operator<<(std::ostream& os, const MFloatMatrix& m);

    float matrix[4][4];
};
