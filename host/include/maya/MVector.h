#pragma once
// A three-component double vector (a direction: transformed without translation).
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>

class MPoint;
class MFloatPoint;
class MFloatVector;
class MMatrix;
class MQuaternion;
class MEulerRotation;

#define MVector_kTol 1.0e-10

class MVector {
public:
    enum Axis { kXaxis, kYaxis, kZaxis, kWaxis };

    constexpr MVector() : x(0.0), y(0.0), z(0.0) {}
    MVector(const MVector&) = default;
    MVector(const MFloatPoint& src);
    MVector(const MFloatVector& src);
    MVector(const MPoint& src);
    constexpr MVector(double xx, double yy, double zz = 0.0) : x(xx), y(yy), z(zz) {}
    MVector(const double d[3]) : x(d[0]), y(d[1]), z(d[2]) {}
    ~MVector() = default;

    MVector& operator=(const MVector& src) = default;
    double operator()(unsigned int i) const { return (*this)[i]; }
    double& operator()(unsigned int i) { return (*this)[i]; }
    double operator[](unsigned int i) const { return i == 0 ? x : i == 1 ? y : z; }
    double& operator[](unsigned int i) { return i == 0 ? x : i == 1 ? y : z; }

    MVector operator^(const MVector& right) const;
    double operator*(const MVector& right) const { return x * right.x + y * right.y + z * right.z; }
    MVector& operator/=(double scalar);
    MVector operator/(double scalar) const { return MVector(x / scalar, y / scalar, z / scalar); }
    MVector& operator*=(double scalar);
    MVector operator*(double scalar) const { return MVector(x * scalar, y * scalar, z * scalar); }
    MVector operator+(const MVector& other) const { return MVector(x + other.x, y + other.y, z + other.z); }
    MVector& operator+=(const MVector& other);
    MVector operator-() const { return MVector(-x, -y, -z); }
    MVector operator-(const MVector& other) const { return MVector(x - other.x, y - other.y, z - other.z); }
    MVector& operator-=(const MVector& other);
    MVector operator*(const MMatrix& right) const;
    MVector& operator*=(const MMatrix& right);
    bool operator!=(const MVector& other) const { return !(*this == other); }
    bool operator==(const MVector& other) const { return x == other.x && y == other.y && z == other.z; }

    MVector rotateBy(const MQuaternion& q) const;
    MVector rotateBy(const MEulerRotation& r) const;
    MVector rotateBy(MVector::Axis axis, const double angle) const;
    MQuaternion rotateTo(const MVector& target) const;
    MStatus get(double dest[3]) const;
    double length() const;
    MVector normal() const;
    MStatus normalize();
    double angle(const MVector& other) const;
    bool isEquivalent(const MVector& other, double tolerance = MVector_kTol) const;

    friend MVector operator*(int left, const MVector& right) { return right * left; }
    friend MVector operator*(short left, const MVector& right) { return right * left; }
    friend MVector operator*(unsigned int left, const MVector& right) { return right * left; }
    friend MVector operator*(unsigned short left, const MVector& right) { return right * left; }
    friend MVector operator*(float left, const MVector& right) { return right * left; }
    friend MVector operator*(double left, const MVector& right) { return right * left; }
    friend MVector operator*(const MMatrix& left, const MVector& right);
    friend std::ostream& operator<<(std::ostream& os, const MVector& v);

    static const MVector zero;
    static const MVector one;
    static const MVector xAxis;
    static const MVector yAxis;
    static const MVector zAxis;
    static const MVector xNegAxis;
    static const MVector yNegAxis;
    static const MVector zNegAxis;

    double x;
    double y;
    double z;
};
