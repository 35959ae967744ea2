#pragma once
// A homogeneous point (x, y, z, w) in double precision; w is 1 for a cartesian point.
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>

class MVector;
class MFloatPoint;
class MFloatVector;
class MMatrix;

#define MPoint_kTol 1.0e-10

class MPoint {
public:
    constexpr MPoint() : x(0.0), y(0.0), z(0.0), w(1.0) {}
    MPoint(const MPoint&) = default;
    MPoint(const MVector& src);
    MPoint(const MFloatPoint& srcpt);
    MPoint(const MFloatVector& src);
    constexpr MPoint(double xx, double yy, double zz = 0.0, double ww = 1.0) : x(xx), y(yy), z(zz), w(ww) {}
    MPoint(const double d[4]) : x(d[0]), y(d[1]), z(d[2]), w(d[3]) {}
    MPoint(const float d[4]) : x(d[0]), y(d[1]), z(d[2]), w(d[3]) {}
    ~MPoint() = default;

    MStatus get(double dest[4]) const;
    MStatus get(float dest[4]) const;
    double operator()(unsigned int i) const { return (*this)[i]; }
    double& operator()(unsigned int i) { return (*this)[i]; }
    double operator[](unsigned int i) const { return i == 0 ? x : i == 1 ? y : i == 2 ? z : w; }
    double& operator[](unsigned int i) { return i == 0 ? x : i == 1 ? y : i == 2 ? z : w; }

    MVector operator-(const MPoint& other) const;
    MPoint operator+(const MVector& other) const;
    MPoint operator-(const MVector& other) const;
    MPoint& operator+=(const MVector& vector);
    MPoint& operator-=(const MVector& vector);
    MPoint operator*(const double scale) const { return MPoint(x * scale, y * scale, z * scale, w); }
    MPoint operator/(const double scale) const { return MPoint(x / scale, y / scale, z / scale, w); }
    MPoint operator*(const MMatrix& right) const;
    MPoint& operator*=(const MMatrix& right);
    bool operator==(const MPoint& other) const {
        return x == other.x && y == other.y && z == other.z && w == other.w;
    }
    bool operator!=(const MPoint& other) const { return !(*this == other); }
    MPoint& operator=(const MPoint& src) = default;

    MPoint& cartesianize();
    MPoint& rationalize();
    MPoint& homogenize();
    double distanceTo(const MPoint& other) const;
    bool isEquivalent(const MPoint& other, double tolerance = MPoint_kTol) const;

    friend MPoint operator*(const MMatrix& left, const MPoint& right);
    friend std::ostream& operator<<(std::ostream& os, const MPoint& p);

    static const MPoint origin;

    double x;
    double y;
    double z;
    double w;
};
