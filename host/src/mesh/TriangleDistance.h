#pragma once
// The closest point of a triangle to a point, in doubles.

namespace host {

struct Vec3 {
    double x, y, z;
};
inline Vec3 operator+(const Vec3& a, const Vec3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vec3 operator-(const Vec3& a, const Vec3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vec3 operator*(const Vec3& a, double s) {
    return {a.x * s, a.y * s, a.z * s};
}
inline double dot(const Vec3& a, const Vec3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Vec3 cross(const Vec3& a, const Vec3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

// A point of a triangle (a, b, c) as a + v (b - a) + w (c - a).
struct TrianglePoint {
    Vec3 point;
    double v, w;
};

// Whether a triangle is so thin (its height under a tenth of its longest side, or no area at all)
// that closestOnTriangle may lose accuracy on it.
bool isThin(const Vec3& a, const Vec3& b, const Vec3& c);

// By the Voronoi regions of the corners, then the edges, then the interior, from dot products of
// the edges: fast, but their differences of products lose digits on thin triangles.
TrianglePoint closestOnTriangle(const Vec3& p, const Vec3& a, const Vec3& b, const Vec3& c);

// The projection onto the triangle's plane when it falls inside, otherwise the closest point of
// the edges (also for triangles without area): slower, accurate on any triangle.
TrianglePoint closestOnThinTriangle(const Vec3& p, const Vec3& a, const Vec3& b, const Vec3& c);

} // namespace host
