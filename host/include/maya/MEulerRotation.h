#pragma once
// Three rotation angles in radians about x, y and z, applied in the given order: for row vectors
// the kXYZ matrix is Rx * Ry * Rz, so x is applied first.
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>

class MVector;
class MMatrix;
class MQuaternion;

#define MEulerRotation_kTol 1.0e-10

class MEulerRotation {
public:
    enum RotationOrder { kXYZ = 0, kYZX, kZXY, kXZY, kYXZ, kZYX };

    constexpr MEulerRotation() : x(0.0), y(0.0), z(0.0), order(kXYZ) {}
    MEulerRotation(const MEulerRotation& src) = default;
    MEulerRotation(const MVector& v, RotationOrder ord = kXYZ);
    constexpr MEulerRotation(double xx, double yy, double zz, RotationOrder ord = kXYZ)
        : x(xx), y(yy), z(zz), order(ord) {}
    ~MEulerRotation() = default;

    MEulerRotation& operator=(const MEulerRotation& src) = default;
    MEulerRotation& operator=(const MQuaternion& q);
    MEulerRotation& operator=(const MMatrix& m);
    MEulerRotation& operator=(const MVector& v);
    MEulerRotation& setValue(const MVector& v, RotationOrder ord = kXYZ);
    MEulerRotation& setValue(double xx, double yy, double zz, RotationOrder ord = kXYZ);

    MQuaternion asQuaternion() const;
    MMatrix asMatrix() const;
    MVector asVector() const;
    double operator[](unsigned int i) const { return i == 0 ? x : i == 1 ? y : z; }

    // Angle-wise sums and differences, in this rotation's order.
    MEulerRotation operator+(const MEulerRotation& other) const;
    MEulerRotation& operator+=(const MEulerRotation& other);
    MEulerRotation operator-(const MEulerRotation& other) const;
    MEulerRotation& operator-=(const MEulerRotation& other);
    MEulerRotation operator-() const { return MEulerRotation(-x, -y, -z, order); }
    // Composition: this rotation followed by the other, expressed in this rotation's order.
    MEulerRotation operator*(const MEulerRotation& other) const;
    MEulerRotation operator*(const MQuaternion& other) const;
    MEulerRotation operator*(double other) const {
        return MEulerRotation(x * other, y * other, z * other, order);
    }
    MEulerRotation& operator*=(const MEulerRotation& other);
    MEulerRotation& operator*=(const MQuaternion& other);
    MEulerRotation& operator*=(double other);
    bool operator==(const MEulerRotation& other) const {
        return x == other.x && y == other.y && z == other.z && order == other.order;
    }
    bool operator!=(const MEulerRotation& other) const { return !(*this == other); }
    bool isEquivalent(const MEulerRotation& other, double tolerance = MEulerRotation_kTol) const;
    bool isZero(double tolerance = MEulerRotation_kTol) const;

    MEulerRotation inverse() const;
    MEulerRotation& invertIt();
    MEulerRotation reorder(RotationOrder ord) const;
    MEulerRotation& reorderIt(RotationOrder ord);
    MEulerRotation bound() const;
    MEulerRotation& boundIt(const MEulerRotation& src);
    MEulerRotation& boundIt();
    MEulerRotation alternateSolution() const;
    MEulerRotation& setToAlternateSolution(const MEulerRotation& src);
    MEulerRotation& setToAlternateSolution();
    MEulerRotation closestSolution(const MEulerRotation& dst) const;
    MEulerRotation& setToClosestSolution(const MEulerRotation& src, const MEulerRotation& dst);
    MEulerRotation& setToClosestSolution(const MEulerRotation& dst);
    MEulerRotation closestCut(const MEulerRotation& dst) const;
    MEulerRotation& setToClosestCut(const MEulerRotation& src, const MEulerRotation& dst);
    MEulerRotation& setToClosestCut(const MEulerRotation& dst);

    static MEulerRotation decompose(const MMatrix& matrix, RotationOrder ord);

    friend MEulerRotation operator*(double scale, const MEulerRotation& other) { return other * scale; }
    friend std::ostream& operator<<(std::ostream& os, const MEulerRotation& rotation);

    static const MEulerRotation identity;

    double x;
    double y;
    double z;
    RotationOrder order;
};
