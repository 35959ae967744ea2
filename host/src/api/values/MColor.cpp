#include <maya/MColor.h>

#include <algorithm>
#include <cmath>
#include <ostream>

namespace {

// Components given as fractions of their full range; a hue fraction becomes degrees.
MColor fromFractions(MColor::MColorType model, float c1, float c2, float c3, float alpha) {
    MColor color;
    color.set(model, model == MColor::kHSV ? c1 * 360.0F : c1, c2, c3, alpha);
    return color;
}

} // namespace

const MColor MColor::kOpaqueBlack(0.0F, 0.0F, 0.0F, 1.0F);

MColor::MColor(MColorType colorModel, unsigned char c1, unsigned char c2, unsigned char c3,
               unsigned char alpha)
    : MColor(fromFractions(colorModel, c1 / 255.0F, c2 / 255.0F, c3 / 255.0F, alpha / 255.0F)) {}

MColor::MColor(MColorType colorModel, unsigned short c1, unsigned short c2, unsigned short c3,
               unsigned short alpha)
    : MColor(fromFractions(colorModel, c1 / 65535.0F, c2 / 65535.0F, c3 / 65535.0F, alpha / 65535.0F)) {}

MColor::MColor(MColorType colorModel, float c1, float c2, float c3, float alpha) : MColor() {
    set(colorModel, c1, c2, c3, alpha);
}

MColor::MColor(MColorType colorModel, double c1, double c2, double c3, double alpha) : MColor() {
    set(colorModel, static_cast<float>(c1), static_cast<float>(c2), static_cast<float>(c3),
        static_cast<float>(alpha));
}

bool MColor::set(MColorType colorModel, float c1, float c2, float c3, float alpha) {
    switch (colorModel) {
    case kRGB:
        *this = MColor(c1, c2, c3, alpha);
        return true;
    case kCMY:
    case kCMYK:
        *this = MColor(1.0F - c1, 1.0F - c2, 1.0F - c3, alpha);
        return true;
    case kHSV: {
        float hue = std::fmod(c1, 360.0F);
        if (hue < 0.0F) hue += 360.0F;
        if (!(hue >= 0.0F)) hue = 0.0F; // a hue that is not a number reads as red
        const float chroma = c3 * c2;
        const float sector = hue / 60.0F;
        const float second = chroma * (1.0F - std::abs(std::fmod(sector, 2.0F) - 1.0F));
        const float low = c3 - chroma;
        const float table[6][3] = {{chroma, second, 0.0F}, {second, chroma, 0.0F}, {0.0F, chroma, second},
                                   {0.0F, second, chroma}, {second, 0.0F, chroma}, {chroma, 0.0F, second}};
        const int index = std::clamp(static_cast<int>(sector), 0, 5);
        *this = MColor(table[index][0] + low, table[index][1] + low, table[index][2] + low, alpha);
        return true;
    }
    }
    return false;
}

bool MColor::get(MColorType colorModel, float& c1, float& c2, float& c3) const {
    switch (colorModel) {
    case kRGB:
        c1 = r;
        c2 = g;
        c3 = b;
        return true;
    case kCMY:
    case kCMYK:
        c1 = 1.0F - r;
        c2 = 1.0F - g;
        c3 = 1.0F - b;
        return true;
    case kHSV: {
        const float high = std::max({r, g, b});
        const float delta = high - std::min({r, g, b});
        float hue = 0.0F;
        if (delta > 0.0F) {
            if (high == r)
                hue = 60.0F * std::fmod((g - b) / delta, 6.0F);
            else if (high == g)
                hue = 60.0F * ((b - r) / delta + 2.0F);
            else
                hue = 60.0F * ((r - g) / delta + 4.0F);
            if (hue < 0.0F) hue += 360.0F;
        }
        c1 = hue;
        c2 = high > 0.0F ? delta / high : 0.0F;
        c3 = high;
        return true;
    }
    }
    return false;
}

bool MColor::get(MColorType colorModel, float& c1, float& c2, float& c3, float& alpha) const {
    if (!get(colorModel, c1, c2, c3)) return false;
    alpha = a;
    return true;
}

MColor& MColor::operator+=(const MColor& other) {
    return *this = *this + other;
}
MColor MColor::operator+(const MColor& other) const {
    return MColor(r + other.r, g + other.g, b + other.b, a + other.a);
}
MColor& MColor::operator-=(const MColor& other) {
    return *this = *this - other;
}
MColor MColor::operator-(const MColor& other) const {
    return MColor(r - other.r, g - other.g, b - other.b, a - other.a);
}
MColor& MColor::operator*=(float scalar) {
    return *this = *this * scalar;
}
MColor MColor::operator*(float scalar) const {
    return MColor(r * scalar, g * scalar, b * scalar, a * scalar);
}
MColor& MColor::operator*=(const MColor& other) {
    return *this = *this * other;
}
MColor MColor::operator*(const MColor& other) const {
    return MColor(r * other.r, g * other.g, b * other.b, a * other.a);
}
MColor& MColor::operator/=(float scalar) {
    return *this = *this / scalar;
}
MColor MColor::operator/(float scalar) const {
    return MColor(r / scalar, g / scalar, b / scalar, a / scalar);
}

bool MColor::isEquivalent(const MColor& other, float tolerance) const {
    return std::abs(r - other.r) <= tolerance && std::abs(g - other.g) <= tolerance &&
           std::abs(b - other.b) <= tolerance && std::abs(a - other.a) <= tolerance;
}

std::ostream& operator<<(std::ostream& os, const MColor& c) {
    return os << "[" << c.r << ", " << c.g << ", " << c.b << ", " << c.a << "]";
}
