#pragma once
// A three-component single-precision vector (a direction: transformed without translation).
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>

class MFloatPoint;
class MFloatMatrix;

#define MFloatVector_kTol 1.0e-5F

class MFloatVector {
public:
    constexpr MFloatVector() : x(0.0F), y(0.0F), z(0.0F) {}
    MFloatVector(const MFloatVector&) = default;
    MFloatVector(const MFloatPoint& src);
    constexpr MFloatVector(float xx, float yy, float zz = 0.0F) : x(xx), y(yy), z(zz) {}
    MFloatVector(const float d[3]) : x(d[0]), y(d[1]), z(d[2]) {}
    ~MFloatVector() = default;

    MFloatVector& operator=(const MFloatVector& src) = default;
    float operator()(unsigned int i) const { return (*this)[i]; }
    float& operator()(unsigned int i) { return (*this)[i]; }
    float operator[](unsigned int i) const { return i == 0 ? x : i == 1 ? y : z; }
    float& operator[](unsigned int i) { return i == 0 ? x : i == 1 ? y : z; }

    MFloatVector operator^(const MFloatVector& right) const;
    float operator*(const MFloatVector& right) const { return x * right.x + y * right.y + z * right.z; }
    MFloatVector& operator/=(float scalar);
    MFloatVector operator/(float scalar) const { return MFloatVector(x / scalar, y / scalar, z / scalar); }
    MFloatVector& operator*=(float scalar);
    MFloatVector operator*(float scalar) const { return MFloatVector(x * scalar, y * scalar, z * scalar); }
    MFloatVector operator+(const MFloatVector& other) const {
        return MFloatVector(x + other.x, y + other.y, z + other.z);
    }
    MFloatVector& operator+=(const MFloatVector& other);
    MFloatVector operator-() const { return MFloatVector(-x, -y, -z); }
    MFloatVector operator-(const MFloatVector& other) const {
        return MFloatVector(x - other.x, y - other.y, z - other.z);
    }
    MFloatVector& operator-=(const MFloatVector& other);
    MFloatVector operator*(const MFloatMatrix& right) const;
    MFloatVector& operator*=(const MFloatMatrix& right);
    bool operator!=(const MFloatVector& other) const { return !(*this == other); }
    bool operator==(const MFloatVector& other) const { return x == other.x && y == other.y && z == other.z; }

    MStatus get(float dest[3]) const;
    float length() const;
    MFloatVector normal() const;
    MStatus normalize();
    float angle(const MFloatVector& other) const;
    bool isEquivalent(const MFloatVector& other, float tolerance = MFloatVector_kTol) const;

    friend MFloatVector operator*(int left, const MFloatVector& right) { return right * float(left); }
    friend MFloatVector operator*(short left, const MFloatVector& right) { return right * float(left); }
    friend MFloatVector operator*(unsigned int left, const MFloatVector& right) {
        return right * float(left);
    }
    friend MFloatVector operator*(unsigned short left, const MFloatVector& right) {
        return right * float(left);
    }
    friend MFloatVector operator*(float left, const MFloatVector& right) { return right * left; }
    friend MFloatVector operator*(double left, const MFloatVector& right) { return right * float(left); }
    friend MFloatVector operator*(const MFloatMatrix& left, const MFloatVector& right);
    friend std::ostream& operator<<(std::ostream& os, const MFloatVector& v);

    static const MFloatVector zero;
    static const MFloatVector one;
    static const MFloatVector xAxis;
    static const MFloatVector yAxis;
    static const MFloatVector zAxis;
    static const MFloatVector xNegAxis;
    static const MFloatVector yNegAxis;
    static const MFloatVector zNegAxis;

    float x;
    float y;
    float z;
};
