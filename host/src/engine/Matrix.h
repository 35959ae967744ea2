#pragma once
// The 4x4 double matrix the engine computes transforms and deformations with. Row-major, acting on
// row vectors as Maya's matrices do: p' = p · M, and A · B applies A first. MMatrix wraps the same
// arithmetic (engine/Matrix4.h) for the interface layer.
namespace host {

struct Matrix {
    double m[4][4] = {{1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, 0.0, 0.0, 1.0}};

    Matrix operator*(const Matrix& right) const;
    // The identity for a singular matrix, never infinities.
    Matrix inverse() const;

    static Matrix translation(double x, double y, double z);
    static Matrix scaling(double x, double y, double z);
    // Euler angles in radians; `order` numbers the axis sequences as MEulerRotation does (xyz, yzx,
    // zxy, xzy, yxz, zyx); any other value reads as xyz.
    static Matrix rotation(double x, double y, double z, int order);
};

} // namespace host
