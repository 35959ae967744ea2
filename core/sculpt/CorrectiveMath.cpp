#include "core/sculpt/CorrectiveMath.h"

#include <algorithm>
#include <cmath>

namespace core {

namespace {

Matrix4 identity() {
    Matrix4 m{};
    for (int i = 0; i < 4; ++i) m[i][i] = 1.0;
    return m;
}

bool allFinite(const Matrix4& m) {
    for (const auto& row : m)
        for (double v : row)
            if (!std::isfinite(v)) return false;
    return true;
}

// p · m for a row vector p.
Point4 times(const Point4& p, const Matrix4& m) {
    Point4 out{};
    for (int c = 0; c < 4; ++c) out[c] = p[0] * m[0][c] + p[1] * m[1][c] + p[2] * m[2][c] + p[3] * m[3][c];
    return out;
}

} // namespace

Matrix4 inverseAffine(const Matrix4& m) {
    // The upper 3x3 block by its adjugate; the translation row follows as -t · M⁻¹.
    const double c00 = m[1][1] * m[2][2] - m[1][2] * m[2][1];
    const double c01 = m[1][2] * m[2][0] - m[1][0] * m[2][2];
    const double c02 = m[1][0] * m[2][1] - m[1][1] * m[2][0];
    const double det = m[0][0] * c00 + m[0][1] * c01 + m[0][2] * c02;
    if (det == 0.0 || !std::isfinite(det)) return identity();
    const double s = 1.0 / det;
    Matrix4 inv{};
    inv[0][0] = c00 * s;
    inv[0][1] = (m[0][2] * m[2][1] - m[0][1] * m[2][2]) * s;
    inv[0][2] = (m[0][1] * m[1][2] - m[0][2] * m[1][1]) * s;
    inv[1][0] = c01 * s;
    inv[1][1] = (m[0][0] * m[2][2] - m[0][2] * m[2][0]) * s;
    inv[1][2] = (m[0][2] * m[1][0] - m[0][0] * m[1][2]) * s;
    inv[2][0] = c02 * s;
    inv[2][1] = (m[0][1] * m[2][0] - m[0][0] * m[2][1]) * s;
    inv[2][2] = (m[0][0] * m[1][1] - m[0][1] * m[1][0]) * s;
    for (int c = 0; c < 3; ++c)
        inv[3][c] = -(m[3][0] * inv[0][c] + m[3][1] * inv[1][c] + m[3][2] * inv[2][c]);
    inv[3][3] = 1.0;
    return allFinite(inv) ? inv : identity();
}

std::vector<Point4> offsetPoints(const std::vector<Point4>& points, int axis, double offset) {
    std::vector<Point4> out(points);
    if (axis < 0 || axis > 2) return out;
    for (Point4& p : out) p[static_cast<std::size_t>(axis)] += offset;
    return out;
}

bool pointsDiffer(const std::vector<Point4>& a, const std::vector<Point4>& b) {
    const std::size_t n = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < n; ++i)
        if (a[i] != b[i]) return true;
    return false;
}

std::vector<Point4> correctivePoints(const CorrectiveInput& in) {
    const std::size_t n = std::min({in.sculpt.size(), in.deformed.size(), in.original.size(),
                                    in.probeX.size(), in.probeY.size(), in.probeZ.size()});
    std::vector<Point4> out(n);
    for (std::size_t i = 0; i < n; ++i) {
        const Point4& s = in.deformed[i];
        const Point4* probes[3] = {&in.probeX[i], &in.probeY[i], &in.probeZ[i]};
        Matrix4 a{};
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 3; ++c) a[r][c] = (*probes[r])[c] - s[c];
        a[3] = {s[0], s[1], s[2], 1.0};
        const Point4 local = times(in.sculpt[i], inverseAffine(a));
        // · D, the translation by the original point.
        const Point4& b = in.original[i];
        out[i] = {local[0] + local[3] * b[0], local[1] + local[3] * b[1], local[2] + local[3] * b[2],
                  local[3]};
    }
    return out;
}

} // namespace core
