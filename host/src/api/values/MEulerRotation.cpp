#include "engine/Matrix.h"

#include <maya/MEulerRotation.h>
#include <maya/MMatrix.h>
#include <maya/MQuaternion.h>
#include <maya/MVector.h>

#include <cmath>
#include <ostream>

namespace {

const double kPi = 3.14159265358979323846;

// The axes of an order, first applied first, and whether they are a cyclic permutation of x, y, z.
struct Axes {
    int i, j, k;
    bool even;
};

// An order value outside the enumeration reads as xyz.
Axes axesOf(MEulerRotation::RotationOrder order) {
    switch (order) {
    case MEulerRotation::kYZX:
        return {1, 2, 0, true};
    case MEulerRotation::kZXY:
        return {2, 0, 1, true};
    case MEulerRotation::kXZY:
        return {0, 2, 1, false};
    case MEulerRotation::kYXZ:
        return {1, 0, 2, false};
    case MEulerRotation::kZYX:
        return {2, 1, 0, false};
    default:
        return {0, 1, 2, true};
    }
}

// The same axes taken in the opposite sequence: the order of the inverse rotation.
MEulerRotation::RotationOrder reversed(MEulerRotation::RotationOrder order) {
    switch (order) {
    case MEulerRotation::kYZX:
        return MEulerRotation::kXZY;
    case MEulerRotation::kZXY:
        return MEulerRotation::kYXZ;
    case MEulerRotation::kXZY:
        return MEulerRotation::kYZX;
    case MEulerRotation::kYXZ:
        return MEulerRotation::kZXY;
    case MEulerRotation::kZYX:
        return MEulerRotation::kXYZ;
    default:
        return MEulerRotation::kZYX;
    }
}

MQuaternion axisQuaternion(int axis, double angle) {
    MQuaternion q;
    q[static_cast<unsigned int>(axis)] = std::sin(0.5 * angle);
    q.w = std::cos(0.5 * angle);
    return q;
}

// An angle moved by whole turns to within [-pi, pi].
double bounded(double angle) {
    return std::abs(angle) <= kPi ? angle : std::remainder(angle, 2.0 * kPi);
}

// An angle moved by whole turns to be as close as possible to target.
double closestTo(double angle, double target) {
    return angle + 2.0 * kPi * std::round((target - angle) / (2.0 * kPi));
}

double distance(const MEulerRotation& a, const MEulerRotation& b) {
    return std::abs(a.x - b.x) + std::abs(a.y - b.y) + std::abs(a.z - b.z);
}

} // namespace

const MEulerRotation MEulerRotation::identity(0.0, 0.0, 0.0, kXYZ);

MEulerRotation::MEulerRotation(const MVector& v, RotationOrder ord) : x(v.x), y(v.y), z(v.z), order(ord) {}

// Assigning a quaternion or matrix keeps this rotation's order.
MEulerRotation& MEulerRotation::operator=(const MQuaternion& q) {
    return *this = decompose(q.asMatrix(), order);
}
MEulerRotation& MEulerRotation::operator=(const MMatrix& m) {
    return *this = decompose(m, order);
}
MEulerRotation& MEulerRotation::operator=(const MVector& v) {
    return setValue(v.x, v.y, v.z, order);
}

MEulerRotation& MEulerRotation::setValue(const MVector& v, RotationOrder ord) {
    return setValue(v.x, v.y, v.z, ord);
}

MEulerRotation& MEulerRotation::setValue(double xx, double yy, double zz, RotationOrder ord) {
    x = xx;
    y = yy;
    z = zz;
    order = ord;
    return *this;
}

MQuaternion MEulerRotation::asQuaternion() const {
    const Axes a = axesOf(order);
    return axisQuaternion(a.i, (*this)[a.i]) * axisQuaternion(a.j, (*this)[a.j]) *
           axisQuaternion(a.k, (*this)[a.k]);
}

MMatrix MEulerRotation::asMatrix() const {
    return MMatrix(host::Matrix::rotation(x, y, z, order).m);
}

MVector MEulerRotation::asVector() const {
    return MVector(x, y, z);
}

MEulerRotation MEulerRotation::operator+(const MEulerRotation& other) const {
    return MEulerRotation(x + other.x, y + other.y, z + other.z, order);
}
MEulerRotation& MEulerRotation::operator+=(const MEulerRotation& other) {
    return *this = *this + other;
}
MEulerRotation MEulerRotation::operator-(const MEulerRotation& other) const {
    return MEulerRotation(x - other.x, y - other.y, z - other.z, order);
}
MEulerRotation& MEulerRotation::operator-=(const MEulerRotation& other) {
    return *this = *this - other;
}

MEulerRotation MEulerRotation::operator*(const MEulerRotation& other) const {
    return decompose(asMatrix() * other.asMatrix(), order);
}
MEulerRotation MEulerRotation::operator*(const MQuaternion& other) const {
    return decompose(asMatrix() * other.asMatrix(), order);
}
MEulerRotation& MEulerRotation::operator*=(const MEulerRotation& other) {
    return *this = *this * other;
}
MEulerRotation& MEulerRotation::operator*=(const MQuaternion& other) {
    return *this = *this * other;
}
MEulerRotation& MEulerRotation::operator*=(double other) {
    return *this = *this * other;
}

bool MEulerRotation::isEquivalent(const MEulerRotation& other, double tolerance) const {
    return order == other.order && std::abs(x - other.x) <= tolerance && std::abs(y - other.y) <= tolerance &&
           std::abs(z - other.z) <= tolerance;
}

bool MEulerRotation::isZero(double tolerance) const {
    return std::abs(x) <= tolerance && std::abs(y) <= tolerance && std::abs(z) <= tolerance;
}

// Rx(a) Ry(b) Rz(c) is undone by Rz(-c) Ry(-b) Rx(-a): negated angles in the reversed order.
MEulerRotation MEulerRotation::inverse() const {
    return MEulerRotation(-x, -y, -z, reversed(order));
}
MEulerRotation& MEulerRotation::invertIt() {
    return *this = inverse();
}

MEulerRotation MEulerRotation::reorder(RotationOrder ord) const {
    return MEulerRotation(*this).reorderIt(ord);
}

// The same order keeps the angles as they are; another order gets the principal solution.
MEulerRotation& MEulerRotation::reorderIt(RotationOrder ord) {
    if (ord != order) *this = decompose(asMatrix(), ord);
    return *this;
}

MEulerRotation MEulerRotation::bound() const {
    return MEulerRotation(bounded(x), bounded(y), bounded(z), order);
}
MEulerRotation& MEulerRotation::boundIt(const MEulerRotation& src) {
    return *this = src.bound();
}
MEulerRotation& MEulerRotation::boundIt() {
    return *this = bound();
}

// R1(a) R2(b) R3(c) equals R1(a + pi) R2(pi - b) R3(c + pi) for any three distinct axes.
MEulerRotation MEulerRotation::alternateSolution() const {
    const Axes a = axesOf(order);
    double angle[3] = {x, y, z};
    angle[a.i] += kPi;
    angle[a.j] = kPi - angle[a.j];
    angle[a.k] += kPi;
    return MEulerRotation(angle[0], angle[1], angle[2], order).bound();
}
MEulerRotation& MEulerRotation::setToAlternateSolution(const MEulerRotation& src) {
    return *this = src.alternateSolution();
}
MEulerRotation& MEulerRotation::setToAlternateSolution() {
    return *this = alternateSolution();
}

// Of this solution and the alternate one, each moved by whole turns towards dst, the nearer.
MEulerRotation MEulerRotation::closestSolution(const MEulerRotation& dst) const {
    const MEulerRotation cut = closestCut(dst);
    const MEulerRotation alternate = alternateSolution().closestCut(dst);
    return distance(alternate, dst) < distance(cut, dst) ? alternate : cut;
}
MEulerRotation& MEulerRotation::setToClosestSolution(const MEulerRotation& src, const MEulerRotation& dst) {
    return *this = src.closestSolution(dst);
}
MEulerRotation& MEulerRotation::setToClosestSolution(const MEulerRotation& dst) {
    return *this = closestSolution(dst);
}

MEulerRotation MEulerRotation::closestCut(const MEulerRotation& dst) const {
    return MEulerRotation(closestTo(x, dst.x), closestTo(y, dst.y), closestTo(z, dst.z), order);
}
MEulerRotation& MEulerRotation::setToClosestCut(const MEulerRotation& src, const MEulerRotation& dst) {
    return *this = src.closestCut(dst);
}
MEulerRotation& MEulerRotation::setToClosestCut(const MEulerRotation& dst) {
    return *this = closestCut(dst);
}

// Principal solution: the middle angle lies in [-pi/2, pi/2], the others in [-pi, pi]. Rows are
// normalised first, so a scaled rotation decomposes like the rotation. At gimbal lock (middle angle
// +-pi/2) only the sum or difference of the outer angles is fixed; the last one is then 0.
MEulerRotation MEulerRotation::decompose(const MMatrix& matrix, RotationOrder ord) {
    double m[3][3];
    for (int r = 0; r < 3; ++r) {
        const MVector row(matrix.matrix[r][0], matrix.matrix[r][1], matrix.matrix[r][2]);
        const double len = row.length();
        for (int c = 0; c < 3; ++c) m[r][c] = len > 0.0 ? row[c] / len : row[c];
    }
    const Axes a = axesOf(ord);
    const double s = a.even ? 1.0 : -1.0;
    const int i = a.i, j = a.j, k = a.k;
    // Adding +0 turns negative zeros into zeros, so angles lie in (-pi, pi] and never read "-0".
    const auto angleOf = [](double sine, double cosine) { return std::atan2(sine + 0.0, cosine + 0.0); };
    double angle[3];
    const double cosMiddle = std::hypot(m[i][i], m[i][j]);
    angle[j] = angleOf(-s * m[i][k], cosMiddle);
    if (cosMiddle > 1.0e-12) {
        angle[i] = angleOf(s * m[j][k], m[k][k]);
        angle[k] = angleOf(s * m[i][j], m[i][i]);
    } else {
        angle[i] = angleOf(-s * m[k][j], m[j][j]);
        angle[k] = 0.0;
    }
    return MEulerRotation(angle[0], angle[1], angle[2], ord);
}

std::ostream& operator<<(std::ostream& os, const MEulerRotation& rotation) {
    static const char* const names[] = {"xyz", "yzx", "zxy", "xzy", "yxz", "zyx"};
    const int index =
        rotation.order >= MEulerRotation::kXYZ && rotation.order <= MEulerRotation::kZYX ? rotation.order : 0;
    return os << "[" << rotation.x << ", " << rotation.y << ", " << rotation.z << ", " << names[index] << "]";
}
