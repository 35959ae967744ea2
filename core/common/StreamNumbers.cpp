#include "core/common/StreamNumbers.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace common {

namespace {

// 10^k for k = -4 .. 5, the decimal exponents %g writes without an exponent, and the exact
// integer factors that bring a value of such an exponent to six digits before the point.
constexpr double kPowers[] = {1e-4, 1e-3, 1e-2, 1e-1, 1e0, 1e1, 1e2, 1e3, 1e4, 1e5};
constexpr double kScales[] = {1e9, 1e8, 1e7, 1e6, 1e5, 1e4, 1e3, 1e2, 1e1, 1e0};

char* writeGeneral(char* out, double value) {
    return std::to_chars(out, out + kStreamDoubleChars, value, std::chars_format::general, 6).ptr;
}

// Values from 1e-4 to just below 1e6 (fixed notation) are rounded to six significant digits with
// one exact multiplication; whenever that could round differently from the exact decimal value
// (a fraction near one half, a digit carry out of six digits) the general conversion decides.
bool writeFixed(char*& out, double value) {
    const double magnitude = std::fabs(value);
    if (!(magnitude >= kPowers[0] && magnitude < 1e6)) return false;
    int k = 9;
    while (magnitude < kPowers[k]) --k;
    const double scaled = magnitude * kScales[k]; // correctly rounded, below 2^20
    const double whole = std::floor(scaled);
    const double fraction = scaled - whole;
    if (std::fabs(fraction - 0.5) < 1e-6) return false;
    const std::uint32_t digits = static_cast<std::uint32_t>(whole) + (fraction > 0.5 ? 1u : 0u);
    if (digits < 100000u || digits > 999999u) return false;

    char text[6];
    std::uint32_t rest = digits;
    for (int i = 5; i >= 0; --i) {
        text[i] = static_cast<char>('0' + rest % 10);
        rest /= 10;
    }
    int last = 5; // the last significant digit once trailing zeros are dropped
    while (last > 0 && text[last] == '0') --last;

    char* p = out;
    if (value < 0) *p++ = '-';
    const int exponent = k - 4; // -4 .. 5
    if (exponent >= 0) {
        std::memcpy(p, text, static_cast<std::size_t>(exponent) + 1);
        p += exponent + 1;
        if (last > exponent) {
            *p++ = '.';
            const int count = last - exponent;
            std::memcpy(p, text + exponent + 1, static_cast<std::size_t>(count));
            p += count;
        }
    } else {
        *p++ = '0';
        *p++ = '.';
        for (int i = exponent + 1; i < 0; ++i) *p++ = '0';
        std::memcpy(p, text, static_cast<std::size_t>(last) + 1);
        p += last + 1;
    }
    out = p;
    return true;
}

} // namespace

char* writeStreamDouble(char* out, double value) {
    if (value == 0.0) {
        if (std::signbit(value)) *out++ = '-';
        *out++ = '0';
        return out;
    }
    if (writeFixed(out, value)) return out;
    return writeGeneral(out, value);
}

} // namespace common
