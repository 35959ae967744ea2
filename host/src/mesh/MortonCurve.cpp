#include "mesh/MortonCurve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace host {
namespace {

constexpr double kCells = (1 << 10) - 1;

// Interleaves the low 10 bits of x with two zero bits each.
std::uint32_t spreadBits(std::uint32_t x) {
    x &= 0x3ff;
    x = (x | x << 16) & 0x30000ff;
    x = (x | x << 8) & 0x300f00f;
    x = (x | x << 4) & 0x30c30c3;
    return (x | x << 2) & 0x9249249;
}

} // namespace

MortonCurve::MortonCurve(const std::vector<std::array<float, 3>>& positions) {
    // The box of the finite positions; the others take the nearest cells.
    const double inf = std::numeric_limits<double>::infinity();
    std::array<double, 3> hi{-inf, -inf, -inf};
    lo_ = {inf, inf, inf};
    for (const auto& p : positions) {
        if (!std::isfinite(p[0]) || !std::isfinite(p[1]) || !std::isfinite(p[2])) continue;
        for (int k = 0; k < 3; ++k)
            lo_[k] = std::min<double>(lo_[k], p[k]), hi[k] = std::max<double>(hi[k], p[k]);
    }
    for (int k = 0; k < 3; ++k) {
        if (!(hi[k] >= lo_[k])) lo_[k] = hi[k] = 0.0;
        scale_[k] = hi[k] > lo_[k] ? kCells / (hi[k] - lo_[k]) : 0.0;
    }
}

std::uint32_t MortonCurve::code(const double (&p)[3]) const {
    std::uint32_t code = 0;
    for (int k = 0; k < 3; ++k) {
        // With the constants first, a not-a-number coordinate lands in cell 0.
        const double cell = std::min(kCells, std::max(0.0, (p[k] - lo_[k]) * scale_[k]));
        code |= spreadBits(static_cast<std::uint32_t>(cell)) << k;
    }
    return code;
}

MortonCurve::Order MortonCurve::sort(const std::vector<std::array<float, 3>>& positions) const {
    const std::size_t n = positions.size();
    Order sorted{std::vector<std::uint32_t>(n), std::vector<std::uint32_t>(n)};
    for (std::size_t i = 0; i < n; ++i) {
        const double p[3] = {positions[i][0], positions[i][1], positions[i][2]};
        sorted.codes[i] = code(p);
        sorted.positions[i] = static_cast<std::uint32_t>(i);
    }
    // Least significant digit first radix sort, skipping digits that are the same throughout.
    Order buffer{std::vector<std::uint32_t>(n), std::vector<std::uint32_t>(n)};
    for (int shift = 0; shift < 32; shift += 8) {
        std::array<std::size_t, 257> starts{};
        for (std::uint32_t c : sorted.codes) ++starts[((c >> shift) & 0xff) + 1];
        if (std::find(starts.begin(), starts.end(), n) != starts.end()) continue;
        for (std::size_t digit = 0; digit < 256; ++digit) starts[digit + 1] += starts[digit];
        for (std::size_t i = 0; i < n; ++i) {
            const std::size_t to = starts[(sorted.codes[i] >> shift) & 0xff]++;
            buffer.codes[to] = sorted.codes[i];
            buffer.positions[to] = sorted.positions[i];
        }
        std::swap(sorted, buffer);
    }
    return sorted;
}

} // namespace host
