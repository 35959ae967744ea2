#pragma once
// Brute-force closest-point distances for checking the index: every fan triangle of every face,
// measured in doubles with plain geometry (plane projection when it falls inside, otherwise the
// nearest edge).
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace reference {

using Vec = std::array<double, 3>;
inline Vec sub(const Vec& a, const Vec& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
inline double dot(const Vec& a, const Vec& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
inline Vec cross(const Vec& a, const Vec& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
inline double norm(const Vec& a) {
    return std::sqrt(dot(a, a));
}

inline double segmentDistance(const Vec& p, const Vec& a, const Vec& b) {
    const Vec ab = sub(b, a);
    const double t = dot(ab, ab) > 0 ? std::clamp(dot(sub(p, a), ab) / dot(ab, ab), 0.0, 1.0) : 0.0;
    return norm(sub(p, {a[0] + t * ab[0], a[1] + t * ab[1], a[2] + t * ab[2]}));
}

inline double triangleDistance(const Vec& p, const Vec& a, const Vec& b, const Vec& c) {
    const Vec n = cross(sub(b, a), sub(c, a));
    const double edges =
        std::min({segmentDistance(p, a, b), segmentDistance(p, b, c), segmentDistance(p, c, a)});
    if (dot(n, n) == 0) return edges;
    const double height = dot(sub(p, a), n) / norm(n);
    const Vec q = {p[0] - height * n[0] / norm(n), p[1] - height * n[1] / norm(n),
                   p[2] - height * n[2] / norm(n)};
    const bool inside = dot(n, cross(sub(b, a), sub(q, a))) >= 0 &&
                        dot(n, cross(sub(c, b), sub(q, b))) >= 0 && dot(n, cross(sub(a, c), sub(q, c))) >= 0;
    return inside ? std::fabs(height) : edges;
}

// A mesh as points and faces (vertex lists).
struct Mesh {
    std::vector<Vec> points;
    std::vector<std::vector<int>> faces;

    std::array<Vec, 3> triangle(int face, int t) const {
        const std::vector<int>& v = faces.at(face);
        return {points.at(v.at(0)), points.at(v.at(t + 1)), points.at(v.at(t + 2))};
    }
    double distance(const Vec& p, int face, int t) const {
        const auto abc = triangle(face, t);
        return triangleDistance(p, abc[0], abc[1], abc[2]);
    }
    // The distance to the closest face among `among` (all when empty).
    double closest(const Vec& p, const std::vector<int>& among = {}) const {
        double best = std::numeric_limits<double>::infinity();
        for (std::size_t f = 0; f < faces.size(); ++f) {
            if (!among.empty() && std::find(among.begin(), among.end(), int(f)) == among.end()) continue;
            for (int t = 0; t + 2 < int(faces[f].size()); ++t) best = std::min(best, distance(p, int(f), t));
        }
        return best;
    }
};

} // namespace reference
