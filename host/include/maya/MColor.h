#pragma once
// An RGBA colour with float components, normally in [0, 1].
#include <maya/MTypes.h>

#include <iosfwd>

class MColor {
public:
    enum MColorType { kRGB, kHSV, kCMY, kCMYK };

    constexpr MColor() : r(0.0F), g(0.0F), b(0.0F), a(1.0F) {}
    MColor(const MColor& src) = default;
    constexpr MColor(float rr, float gg, float bb = 0.0, float aa = 1.0) : r(rr), g(gg), b(bb), a(aa) {}
    MColor(const float d[3]) : r(d[0]), g(d[1]), b(d[2]), a(1.0F) {}
    // Black with the given alpha.
    constexpr MColor(float alpha) : r(0.0F), g(0.0F), b(0.0F), a(alpha) {}
    // Integer components are read as fractions of their type's full range.
    MColor(MColorType colorModel, unsigned char c1, unsigned char c2, unsigned char c3,
           unsigned char alpha = 255U);
    MColor(MColorType colorModel, unsigned short c1, unsigned short c2, unsigned short c3,
           unsigned short alpha = 65535U);
    MColor(MColorType colorModel, float c1, float c2, float c3, float alpha = 1.0);
    MColor(MColorType colorModel, double c1, double c2, double c3, double alpha = 1.0);
    ~MColor() = default;

    MColor& operator=(const MColor& src) = default;
    float operator()(unsigned int i) const { return (*this)[i]; }
    float& operator()(unsigned int i) { return (*this)[i]; }
    float operator[](unsigned int i) const { return i == 0 ? r : i == 1 ? g : i == 2 ? b : a; }
    float& operator[](unsigned int i) { return i == 0 ? r : i == 1 ? g : i == 2 ? b : a; }

    // Hue is in degrees [0, 360), the other components in [0, 1]. kCMYK reads and writes like kCMY
    // (no separate black component).
    bool set(MColorType colorModel, float c1, float c2, float c3, float alpha = 1.0);
    bool get(MColorType colorModel, float& c1, float& c2, float& c3) const;
    bool get(MColorType colorModel, float& c1, float& c2, float& c3, float& alpha) const;

    MColor& operator+=(const MColor& other);
    MColor operator+(const MColor& other) const;
    MColor& operator-=(const MColor& other);
    MColor operator-(const MColor& other) const;
    MColor operator-() const { return MColor(-r, -g, -b, -a); }
    MColor& operator*=(float scalar);
    MColor operator*(float scalar) const;
    MColor& operator*=(const MColor& other);
    MColor operator*(const MColor& other) const;
    MColor& operator/=(float scalar);
    MColor operator/(float scalar) const;
    bool operator==(const MColor& other) const {
        return r == other.r && g == other.g && b == other.b && a == other.a;
    }
    bool operator!=(const MColor& other) const { return !(*this == other); }
    bool isEquivalent(const MColor& other, float tolerance = 1.0e-5F) const;

    friend MColor operator*(float scalar, const MColor& other) { return other * scalar; }
    friend std::ostream& operator<<(std::ostream& os, const MColor& c);

    static const MColor kOpaqueBlack;

    float r;
    float g;
    float b;
    float a;
};
