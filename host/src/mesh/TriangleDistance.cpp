#include "mesh/TriangleDistance.h"

#include <algorithm>
#include <limits>

namespace host {
namespace {

double segmentParameter(const Vec3& p, const Vec3& a, const Vec3& b) {
    const Vec3 ab = b - a;
    const double length2 = dot(ab, ab);
    if (!(length2 > 0.0)) return 0.0;
    return std::clamp(dot(p - a, ab) / length2, 0.0, 1.0);
}

// The closest point of some of the edges: bit 0 of `edges` stands for ab, bit 1 for ac, bit 2 for bc.
TrianglePoint closestOnEdges(const Vec3& p, const Vec3& a, const Vec3& b, const Vec3& c, int edges) {
    TrianglePoint best{};
    double bestDistance2 = std::numeric_limits<double>::infinity();
    const auto consider = [&](const Vec3& from, const Vec3& to, const Vec3& barycentric) {
        const double t = segmentParameter(p, from, to);
        const Vec3 point = from + (to - from) * t;
        const double distance2 = dot(p - point, p - point);
        if (!(distance2 >= bestDistance2)) {
            best = {point, barycentric.x * t + barycentric.y, barycentric.z * t};
            bestDistance2 = distance2;
        }
    };
    // (dv/dt, v at t = 0, dw/dt) along each edge.
    if (edges & 1) consider(a, b, {1.0, 0.0, 0.0});
    if (edges & 2) consider(a, c, {0.0, 0.0, 1.0});
    if (edges & 4) consider(b, c, {-1.0, 1.0, 1.0});
    return best;
}

} // namespace

bool isThin(const Vec3& a, const Vec3& b, const Vec3& c) {
    const Vec3 ab = b - a, ac = c - a, bc = c - b, n = cross(ab, ac);
    const double longest2 = std::max({dot(ab, ab), dot(ac, ac), dot(bc, bc)});
    return !(dot(n, n) >= 1e-2 * longest2 * longest2);
}

TrianglePoint closestOnTriangle(const Vec3& p, const Vec3& a, const Vec3& b, const Vec3& c) {
    const Vec3 ab = b - a, ac = c - a, ap = p - a;
    const double d1 = dot(ab, ap), d2 = dot(ac, ap);
    if (d1 <= 0.0 && d2 <= 0.0) return {a, 0.0, 0.0};
    const Vec3 bp = p - b;
    const double d3 = dot(ab, bp), d4 = dot(ac, bp);
    if (d3 >= 0.0 && d4 <= d3) return {b, 1.0, 0.0};
    const double vc = d1 * d4 - d3 * d2;
    if (vc <= 0.0 && d1 >= 0.0 && d3 <= 0.0 && d1 - d3 > 0.0) {
        const double v = d1 / (d1 - d3);
        return {a + ab * v, v, 0.0};
    }
    const Vec3 cp = p - c;
    const double d5 = dot(ab, cp), d6 = dot(ac, cp);
    if (d6 >= 0.0 && d5 <= d6) return {c, 0.0, 1.0};
    const double vb = d5 * d2 - d1 * d6;
    if (vb <= 0.0 && d2 >= 0.0 && d6 <= 0.0 && d2 - d6 > 0.0) {
        const double w = d2 / (d2 - d6);
        return {a + ac * w, 0.0, w};
    }
    const double va = d3 * d6 - d5 * d4;
    if (va <= 0.0 && d4 - d3 >= 0.0 && d5 - d6 >= 0.0 && (d4 - d3) + (d5 - d6) > 0.0) {
        const double w = (d4 - d3) / ((d4 - d3) + (d5 - d6));
        return {b + (c - b) * w, 1.0 - w, w};
    }
    const double sum = va + vb + vc;
    if (!(va >= 0.0 && vb >= 0.0 && vc >= 0.0 && sum > 0.0)) return closestOnEdges(p, a, b, c, 7);
    const double v = vb / sum, w = vc / sum;
    return {a + ab * v + ac * w, v, w};
}

TrianglePoint closestOnThinTriangle(const Vec3& p, const Vec3& a, const Vec3& b, const Vec3& c) {
    const Vec3 ab = b - a, ac = c - a, n = cross(ab, ac);
    const double area2 = dot(n, n);
    if (!(area2 > 0.0)) return closestOnEdges(p, a, b, c, 7);
    // The areas of the triangles that p's projection makes with each edge, signed and scaled by
    // |n|: all positive when it falls inside, where over the whole they are its barycentric
    // coordinates. Measured from the edges, they keep their accuracy however thin the triangle.
    const Vec3 ap = p - a;
    const double forB = dot(n, cross(a - c, p - c)), forC = dot(n, cross(ab, ap)),
                 forA = dot(n, cross(c - b, p - b));
    if (forA >= 0.0 && forB >= 0.0 && forC >= 0.0)
        return {p - n * (dot(n, ap) / area2), forB / area2, forC / area2};
    // Otherwise the closest point lies on an edge that has the projection on its outer side.
    return closestOnEdges(p, a, b, c, (forC < 0.0 ? 1 : 0) | (forB < 0.0 ? 2 : 0) | (forA < 0.0 ? 4 : 0));
}

} // namespace host
