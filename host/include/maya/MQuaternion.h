#pragma once
// A rotation quaternion (x, y, z, w). Products compose like the matching matrices: the rotation of
// a * b is a's followed by b's.
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>

class MVector;
class MMatrix;
class MEulerRotation;

#define MQuaternion_kTol 1.0e-10

class MQuaternion {
public:
    constexpr MQuaternion() : x(0.0), y(0.0), z(0.0), w(1.0) {}
    MQuaternion(const MQuaternion& src) = default;
    constexpr MQuaternion(double xx, double yy, double zz, double ww) : x(xx), y(yy), z(zz), w(ww) {}
    MQuaternion(const double q[4]) : x(q[0]), y(q[1]), z(q[2]), w(q[3]) {}
    MQuaternion(const MVector& a, const MVector& b);
    MQuaternion(const MVector& a, const MVector& b, double angleFactor);
    MQuaternion(double angle, const MVector& axisb);
    ~MQuaternion() = default;

    MQuaternion& operator=(const MQuaternion& src) = default;
    MQuaternion& operator=(const MMatrix& matrix);
    MQuaternion& operator=(const MEulerRotation& matrix);
    MMatrix asMatrix() const;
    MEulerRotation asEulerRotation() const;
    MQuaternion& setAxisAngle(const MVector& axis, double theta);
    bool getAxisAngle(MVector& axis, double& theta) const;
    MQuaternion& setToIdentity();
    MQuaternion& setToXAxis(double theta);
    MQuaternion& setToYAxis(double theta);
    MQuaternion& setToZAxis(double theta);
    MStatus get(double dest[4]) const;
    double operator[](unsigned int i) const { return i == 0 ? x : i == 1 ? y : i == 2 ? z : w; }
    double& operator[](unsigned int i) { return i == 0 ? x : i == 1 ? y : i == 2 ? z : w; }

    MQuaternion operator+(const MQuaternion& other) const;
    MQuaternion operator*(const MQuaternion& other) const;
    MQuaternion& operator*=(const MQuaternion& rhs);
    MQuaternion operator-(const MQuaternion& other) const;
    MQuaternion operator-() const { return MQuaternion(-x, -y, -z, -w); }
    MQuaternion& negateIt();
    bool operator==(const MQuaternion& other) const {
        return x == other.x && y == other.y && z == other.z && w == other.w;
    }
    bool operator!=(const MQuaternion& other) const { return !(*this == other); }
    bool isEquivalent(const MQuaternion& other, double tolerance = MQuaternion_kTol) const;
    MQuaternion& scaleIt(double scale);
    MQuaternion normal() const;
    MQuaternion& normalizeIt();
    MQuaternion conjugate() const { return MQuaternion(-x, -y, -z, w); }
    MQuaternion& conjugateIt();
    MQuaternion inverse() const;
    MQuaternion& invertIt();

    friend MQuaternion operator*(double scale, const MQuaternion& other);
    friend std::ostream& operator<<(std::ostream& os, const MQuaternion& q);

    static const MQuaternion identity;

    double x;
    double y;
    double z;
    double w;
};
