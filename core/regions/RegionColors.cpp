#include "core/regions/RegionColors.h"

#include "core/common/Numbers.h"

#include <array>
#include <cmath>

namespace core {

namespace {

using Rgb = std::array<float, 3>;

// A fully saturated, full-value colour of the hue in degrees.
Rgb hueColor(float hue) {
    hue = std::fmod(hue, 360.0f);
    if (hue < 0.0f) hue += 360.0f;
    if (!(hue >= 0.0f)) hue = 0.0f; // a hue that is not a number shows red
    const float sector = hue / 60.0f;
    const float rising = 1.0f - std::abs(std::fmod(sector, 2.0f) - 1.0f);
    switch (static_cast<int>(sector)) {
    case 0:
        return {1.0f, rising, 0.0f};
    case 1:
        return {rising, 1.0f, 0.0f};
    case 2:
        return {0.0f, 1.0f, rising};
    case 3:
        return {0.0f, rising, 1.0f};
    case 4:
        return {rising, 0.0f, 1.0f};
    default:
        return {1.0f, 0.0f, rising};
    }
}

Rgb mixedColor(const RegionWeights& r) {
    const float w[kRegionCount] = {static_cast<float>(r[0]), static_cast<float>(r[1]),
                                   static_cast<float>(r[2]), static_cast<float>(r[3]),
                                   static_cast<float>(r[4]), static_cast<float>(r[5])};
    return {w[0] + w[1] + w[5], w[2] + w[1] + w[3], w[4] + w[3] + w[5]};
}

// The assigned share of the vertex rounded up to three decimals.
float assignedShare(const RegionWeights& r) {
    const double total = r[0] + r[1] + r[2] + r[3] + r[4] + r[5];
    return static_cast<float>(std::ceil(total * 1000.0) / 1000.0);
}

Rgb rampColor(float s) {
    if (s == 0.0f) return {1.0f, 1.0f, 1.0f};
    if (s >= 1.0f) return {0.0f, 0.0f, 0.0f};
    return hueColor(s * 240.0f);
}

} // namespace

RegionColors regionColors(const RegionMap& map, const RegionLocks& locks, int mode) {
    const std::size_t count = map.vertexCount();
    RegionColors colors;
    colors.rgb.resize(count * 3);
    for (std::size_t v = 0; v < count; ++v) {
        const RegionWeights r = normalizeArray(map.at(v), locks);
        Rgb rgb;
        if (mode == 1) {
            rgb = mixedColor(r);
        } else {
            const float s = assignedShare(r);
            rgb = mode == 0 ? Rgb{1.0f - s, 1.0f - s, 1.0f - s} : rampColor(s);
            if (roundFloat(rgb[0]) != 0.0f || roundFloat(rgb[1]) != 0.0f || roundFloat(rgb[2]) != 0.0f)
                ++colors.partial;
        }
        colors.rgb[v * 3] = rgb[0];
        colors.rgb[v * 3 + 1] = rgb[1];
        colors.rgb[v * 3 + 2] = rgb[2];
    }
    return colors;
}

} // namespace core
