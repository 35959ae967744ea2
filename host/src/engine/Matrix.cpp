#include "engine/Matrix.h"

#include "engine/Matrix4.h"

#include <cmath>

namespace host {

namespace m4 = talven::matrix4;

namespace {

// Rotation about one axis for row vectors (right-handed: about x, y turns towards z).
Matrix axisRotation(int axis, double angle) {
    Matrix r;
    const int p = (axis + 1) % 3, q = (axis + 2) % 3;
    const double c = std::cos(angle), s = std::sin(angle);
    r.m[p][p] = c;
    r.m[p][q] = s;
    r.m[q][p] = -s;
    r.m[q][q] = c;
    return r;
}

} // namespace

Matrix Matrix::operator*(const Matrix& right) const {
    Matrix out;
    m4::multiply(m, right.m, out.m);
    return out;
}

Matrix Matrix::inverse() const {
    Matrix out;
    m4::inverse(m, out.m);
    return out;
}

Matrix Matrix::translation(double x, double y, double z) {
    Matrix t;
    t.m[3][0] = x;
    t.m[3][1] = y;
    t.m[3][2] = z;
    return t;
}

Matrix Matrix::scaling(double x, double y, double z) {
    Matrix s;
    s.m[0][0] = x;
    s.m[1][1] = y;
    s.m[2][2] = z;
    return s;
}

Matrix Matrix::rotation(double x, double y, double z, int order) {
    static const int kAxes[6][3] = {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {0, 2, 1}, {1, 0, 2}, {2, 1, 0}};
    const int* axes = kAxes[order >= 0 && order < 6 ? order : 0];
    const double angles[3] = {x, y, z};
    return axisRotation(axes[0], angles[axes[0]]) * axisRotation(axes[1], angles[axes[1]]) *
           axisRotation(axes[2], angles[axes[2]]);
}

} // namespace host
