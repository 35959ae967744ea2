#pragma once
// A homogeneous point (x, y, z, w) in single precision; w is 1 for a cartesian point.
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>

class MPoint;
class MVector;
class MFloatVector;
class MFloatMatrix;

#define MFloatPoint_kTol 1.0e-5

class MFloatPoint {
public:
    constexpr MFloatPoint() : x(0.0F), y(0.0F), z(0.0F), w(1.0F) {}
    MFloatPoint(const MFloatPoint&) = default;
    MFloatPoint(const MFloatVector& src);
    constexpr MFloatPoint(float xx, float yy, float zz = 0.0F, float ww = 1.0F)
        : x(xx), y(yy), z(zz), w(ww) {}
    MFloatPoint(const float d[4]) : x(d[0]), y(d[1]), z(d[2]), w(d[3]) {}
    MFloatPoint(const double d[4])
        : x(static_cast<float>(d[0])), y(static_cast<float>(d[1])), z(static_cast<float>(d[2])),
          w(static_cast<float>(d[3])) {}
    ~MFloatPoint() = default;

    MStatus get(float dest[4]) const;
    MStatus get(double dest[4]) const;
    MStatus setCast(const MPoint& srcpt);
    MStatus setCast(const MVector& src);
    float operator()(unsigned int i) const { return (*this)[i]; }
    float& operator()(unsigned int i) { return (*this)[i]; }
    float operator[](unsigned int i) const { return i == 0 ? x : i == 1 ? y : i == 2 ? z : w; }
    float& operator[](unsigned int i) { return i == 0 ? x : i == 1 ? y : i == 2 ? z : w; }

    MFloatVector operator-(const MFloatPoint& other) const;
    MFloatPoint operator+(const MFloatVector& other) const;
    MFloatPoint operator-(const MFloatVector& other) const;
    MFloatPoint& operator+=(const MFloatVector& vector);
    MFloatPoint& operator-=(const MFloatVector& vector);
    MFloatPoint operator*(const float scale) const { return MFloatPoint(x * scale, y * scale, z * scale, w); }
    MFloatPoint operator/(const float scale) const { return MFloatPoint(x / scale, y / scale, z / scale, w); }
    MFloatPoint operator*(const MFloatMatrix& right) const;
    MFloatPoint& operator*=(const MFloatMatrix& right);
    bool operator==(const MFloatPoint& other) const {
        return x == other.x && y == other.y && z == other.z && w == other.w;
    }
    bool operator!=(const MFloatPoint& other) const { return !(*this == other); }
    MFloatPoint& operator=(const MFloatPoint& src) = default;

    MFloatPoint& cartesianize();
    MFloatPoint& rationalize();
    MFloatPoint& homogenize();
    float distanceTo(const MFloatPoint& other) const;
    bool isEquivalent(const MFloatPoint& other, float tolerance = MFloatPoint_kTol) const;

    friend MFloatPoint operator*(const MFloatMatrix& left, const MFloatPoint& right);
    friend std::ostream& operator<<(std::ostream& os, const MFloatPoint& p);

    static const MFloatPoint origin;

    float x;
    float y;
    float z;
    float w;
};
