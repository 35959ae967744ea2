#include "mesh/ClosestPointIndex.h"

#include <embree3/rtcore.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace host {
namespace {

struct V3 {
    double x, y, z;
};
V3 operator+(const V3& a, const V3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
V3 operator-(const V3& a, const V3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
V3 operator*(const V3& a, double s) {
    return {a.x * s, a.y * s, a.z * s};
}
double dot(const V3& a, const V3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
V3 cross(const V3& a, const V3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
V3 toV3(const std::array<float, 3>& p) {
    return {p[0], p[1], p[2]};
}

// Doubles outside the float range become infinities instead of undefined conversions.
float toFloat(double value) {
    if (value > FLT_MAX) return std::numeric_limits<float>::infinity();
    if (value < -FLT_MAX) return -std::numeric_limits<float>::infinity();
    return static_cast<float>(value);
}

// A point of a triangle (a, b, c) as a + v (b - a) + w (c - a).
struct TrianglePoint {
    V3 point;
    double v, w;
};

double segmentParameter(const V3& p, const V3& a, const V3& b) {
    const V3 ab = b - a;
    const double length2 = dot(ab, ab);
    if (!(length2 > 0.0)) return 0.0;
    return std::clamp(dot(p - a, ab) / length2, 0.0, 1.0);
}

// The closest point on the triangle's edges: the answer for triangles without area, and a safe
// one wherever rounding leaves the interior test undecided.
TrianglePoint closestOnEdges(const V3& p, const V3& a, const V3& b, const V3& c) {
    const double tab = segmentParameter(p, a, b), tac = segmentParameter(p, a, c),
                 tbc = segmentParameter(p, b, c);
    const TrianglePoint candidates[] = {
        {a + (b - a) * tab, tab, 0.0}, {a + (c - a) * tac, 0.0, tac}, {b + (c - b) * tbc, 1.0 - tbc, tbc}};
    const TrianglePoint* best = &candidates[0];
    double bestDistance2 = dot(p - best->point, p - best->point);
    for (const TrianglePoint& candidate : candidates) {
        const double distance2 = dot(p - candidate.point, p - candidate.point);
        if (distance2 < bestDistance2) {
            best = &candidate;
            bestDistance2 = distance2;
        }
    }
    return *best;
}

// Closest point on a triangle by its Voronoi regions: vertices, then edges, then the interior.
TrianglePoint closestOnTriangle(const V3& p, const V3& a, const V3& b, const V3& c) {
    const V3 ab = b - a, ac = c - a, ap = p - a;
    const double d1 = dot(ab, ap), d2 = dot(ac, ap);
    if (d1 <= 0.0 && d2 <= 0.0) return {a, 0.0, 0.0};
    const V3 bp = p - b;
    const double d3 = dot(ab, bp), d4 = dot(ac, bp);
    if (d3 >= 0.0 && d4 <= d3) return {b, 1.0, 0.0};
    const double vc = d1 * d4 - d3 * d2;
    if (vc <= 0.0 && d1 >= 0.0 && d3 <= 0.0 && d1 - d3 > 0.0) {
        const double v = d1 / (d1 - d3);
        return {a + ab * v, v, 0.0};
    }
    const V3 cp = p - c;
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
    if (!(va >= 0.0 && vb >= 0.0 && vc >= 0.0 && sum > 0.0)) return closestOnEdges(p, a, b, c);
    const double v = vb / sum, w = vc / sum;
    return {a + ab * v + ac * w, v, w};
}

// The affine part of a row-vector matrix: p' = p * M.
struct Affine {
    V3 rows[4];
    explicit Affine(const double (*m)[4]) {
        for (int r = 0; r < 4; ++r) rows[r] = {m[r][0], m[r][1], m[r][2]};
    }
    V3 point(const V3& p) const { return rows[0] * p.x + rows[1] * p.y + rows[2] * p.z + rows[3]; }
    // Normals move with the inverse transpose: the cofactors, turned round by a mirroring matrix.
    V3 normal(const V3& n) const {
        const V3 c0 = cross(rows[1], rows[2]), c1 = cross(rows[2], rows[0]), c2 = cross(rows[0], rows[1]);
        const double sign = dot(rows[0], c0) < 0.0 ? -1.0 : 1.0;
        return (c0 * n.x + c1 * n.y + c2 * n.z) * sign;
    }
};

// Newell's normal, which also suits non-planar and concave faces.
std::array<float, 3> faceNormal(const ClosestPointMesh& mesh, const int* vertices, int count,
                                const Affine* affine) {
    V3 n{0.0, 0.0, 0.0};
    for (int i = 0; i < count; ++i) {
        const V3 a = toV3(mesh.points[vertices[i]]), b = toV3(mesh.points[vertices[(i + 1) % count]]);
        n = n + V3{(a.y - b.y) * (a.z + b.z), (a.z - b.z) * (a.x + b.x), (a.x - b.x) * (a.y + b.y)};
    }
    if (affine) n = affine->normal(n);
    const double length = std::sqrt(dot(n, n));
    if (!(length > 0.0) || !std::isfinite(length)) return {0.f, 0.f, 0.f};
    return {static_cast<float>(n.x / length), static_cast<float>(n.y / length),
            static_cast<float>(n.z / length)};
}

// Where each face's vertices start in the connects, or npos for faces that cannot be indexed.
constexpr std::size_t npos = ~std::size_t{0};
std::vector<std::size_t> faceOffsets(const ClosestPointMesh& mesh) {
    std::vector<std::size_t> offsets(mesh.numFaces, npos);
    std::size_t offset = 0;
    for (std::size_t f = 0; f < mesh.numFaces; ++f) {
        const int count = mesh.faceCounts[f];
        if (count < 0 || offset + static_cast<std::size_t>(count) > mesh.numConnects) break;
        const int* vertices = mesh.faceConnects + offset;
        const bool valid = count >= 3 && std::all_of(vertices, vertices + count, [&](int v) {
                               return v >= 0 && static_cast<std::size_t>(v) < mesh.numPoints;
                           });
        if (valid) offsets[f] = offset;
        offset += static_cast<std::size_t>(count);
    }
    return offsets;
}

bool isFinite(const std::array<float, 3>& p) {
    return std::isfinite(p[0]) && std::isfinite(p[1]) && std::isfinite(p[2]);
}

// Interleaves the low 10 bits of x with two zero bits each.
std::uint32_t spreadBits(std::uint32_t x) {
    x &= 0x3ff;
    x = (x | (x << 16)) & 0x030000ff;
    x = (x | (x << 8)) & 0x0300f00f;
    x = (x | (x << 4)) & 0x030c30c3;
    return (x | (x << 2)) & 0x09249249;
}

// Stable radix sort on the upper 32 bits.
void sortByHighBits(std::vector<std::uint64_t>& keys) {
    std::vector<std::uint64_t> sorted(keys.size());
    for (int shift = 32; shift < 64; shift += 8) {
        std::array<std::size_t, 257> starts{};
        for (std::uint64_t key : keys) ++starts[((key >> shift) & 0xff) + 1];
        for (std::size_t digit = 0; digit < 256; ++digit) starts[digit + 1] += starts[digit];
        for (std::uint64_t key : keys) sorted[starts[(key >> shift) & 0xff]++] = key;
        keys.swap(sorted);
    }
}

// Positions in the order of a Morton curve through their bounding box.
std::vector<std::uint32_t> mortonOrder(const std::vector<std::array<float, 3>>& positions) {
    std::array<float, 3> lo{}, hi{};
    if (!positions.empty()) lo = hi = positions[0];
    for (const auto& p : positions)
        for (int k = 0; k < 3; ++k) lo[k] = std::min(lo[k], p[k]), hi[k] = std::max(hi[k], p[k]);
    std::array<double, 3> scale{};
    for (int k = 0; k < 3; ++k) scale[k] = hi[k] > lo[k] ? 1023.0 / (double(hi[k]) - lo[k]) : 0.0;
    std::vector<std::uint64_t> keys(positions.size());
    for (std::size_t i = 0; i < positions.size(); ++i) {
        std::uint32_t code = 0;
        for (int k = 0; k < 3; ++k) {
            const double cell = std::clamp((double(positions[i][k]) - lo[k]) * scale[k], 0.0, 1023.0);
            code |= spreadBits(static_cast<std::uint32_t>(cell)) << k;
        }
        keys[i] = std::uint64_t{code} << 32 | i;
    }
    sortByHighBits(keys);
    std::vector<std::uint32_t> order(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) order[i] = static_cast<std::uint32_t>(keys[i]);
    return order;
}

} // namespace

struct ClosestPointIndex::Search {
    const ClosestPointIndex& index;
    V3 point;
    // How far the float copy of the point handed to Embree lies from the point.
    double slack;
    // The squared limit until something is found, then the squared distance of the best hit.
    double bestDistance2;
    bool found = false;
    const Cluster* cluster = nullptr;
    std::size_t slot = 0;
    TrianglePoint best{};

    // The sphere radius that keeps every triangle closer than `distance` in the search, with room
    // for float arithmetic.
    float radius(double distance) const { return toFloat((distance + slack) * (1.0 + 1e-6)); }

    static V3 corner(const Cluster& cluster, std::size_t i, int k) {
        return {cluster.corners[3 * k][i], cluster.corners[3 * k + 1][i], cluster.corners[3 * k + 2][i]};
    }

    static bool visit(RTCPointQueryFunctionArguments* args) {
        Search& search = *static_cast<Search*>(args->userPtr);
        const Cluster& cluster = search.index.clusters_[args->primID];
        // Squared distances from the query's float point to the triangles' bounding boxes.
        const float q[3] = {args->query->x, args->query->y, args->query->z};
        float gaps[kClusterSize];
        for (std::size_t i = 0; i < kClusterSize; ++i) {
            float sum = 0.f;
            for (int c = 0; c < 3; ++c) {
                const float a = cluster.corners[c][i], b = cluster.corners[3 + c][i],
                            d = cluster.corners[6 + c][i];
                // Clamping into the box, rather than branching on the side, keeps this branch-free.
                const float inside =
                    std::min(std::max(q[c], std::min(std::min(a, b), d)), std::max(std::max(a, b), d));
                sum += (q[c] - inside) * (q[c] - inside);
            }
            gaps[i] = sum;
        }
        bool closer = false;
        for (std::size_t i = 0; i < kClusterSize; ++i) {
            const float radius = args->query->radius;
            if (gaps[i] > radius * radius) continue;
            const TrianglePoint closest = closestOnTriangle(search.point, corner(cluster, i, 0),
                                                            corner(cluster, i, 1), corner(cluster, i, 2));
            const V3 offset = search.point - closest.point;
            const double distance2 = dot(offset, offset);
            if (search.found ? !(distance2 < search.bestDistance2) : !(distance2 <= search.bestDistance2))
                continue;
            search.found = closer = true;
            search.bestDistance2 = distance2;
            search.cluster = &cluster;
            search.slot = i;
            search.best = closest;
            args->query->radius = std::min(radius, search.radius(std::sqrt(distance2)));
        }
        return closer;
    }
};

ClosestPointIndex::ClosestPointIndex(const ClosestPointMesh& mesh) {
    collectTriangles(mesh);
    if (!clusters_.empty()) buildScene();
    if (!scene_) release();
}

ClosestPointIndex::~ClosestPointIndex() {
    release();
}

void ClosestPointIndex::release() {
    if (scene_) rtcReleaseScene(scene_);
    if (device_) rtcReleaseDevice(device_);
    scene_ = nullptr;
    device_ = nullptr;
    faces_.clear();
    clusters_.clear();
    numTriangles_ = 0;
}

void ClosestPointIndex::collectTriangles(const ClosestPointMesh& mesh) {
    const std::vector<std::size_t> offsets = faceOffsets(mesh);
    std::vector<int> selected;
    if (mesh.faces) {
        for (std::size_t i = 0; i < mesh.numSelectedFaces; ++i) {
            const int f = mesh.faces[i];
            if (f >= 0 && static_cast<std::size_t>(f) < mesh.numFaces && offsets[f] != npos)
                selected.push_back(f);
        }
    } else {
        for (std::size_t f = 0; f < mesh.numFaces; ++f)
            if (offsets[f] != npos) selected.push_back(static_cast<int>(f));
    }
    std::size_t fanSize = 0;
    for (int f : selected) fanSize += static_cast<std::size_t>(mesh.faceCounts[f] - 2);
    if (fanSize == 0 || fanSize > std::numeric_limits<std::uint32_t>::max()) return;

    std::optional<Affine> affine;
    if (mesh.matrix) affine.emplace(mesh.matrix);
    const Affine* transform = affine ? &*affine : nullptr;
    std::vector<std::array<float, 3>> moved;
    const std::array<float, 3>* points = mesh.points;
    if (transform) {
        moved.resize(mesh.numPoints);
        for (std::size_t i = 0; i < mesh.numPoints; ++i) {
            const V3 p = transform->point(toV3(mesh.points[i]));
            moved[i] = {toFloat(p.x), toFloat(p.y), toFloat(p.z)};
        }
        points = moved.data();
    }

    // Fan triangles with finite corners, with their centres.
    struct Corners {
        int a, b, c;
        std::uint32_t face, fanIndex;
    };
    std::vector<Corners> corners;
    std::vector<std::array<float, 3>> centres;
    faces_.reserve(selected.size());
    for (int f : selected) {
        const int* v = mesh.faceConnects + offsets[f];
        const auto face = static_cast<std::uint32_t>(faces_.size());
        faces_.push_back({f, faceNormal(mesh, v, mesh.faceCounts[f], transform)});
        for (int k = 1; k + 1 < mesh.faceCounts[f]; ++k) {
            const auto &a = points[v[0]], &b = points[v[k]], &c = points[v[k + 1]];
            if (!isFinite(a) || !isFinite(b) || !isFinite(c)) continue;
            corners.push_back({v[0], v[k], v[k + 1], face, static_cast<std::uint32_t>(k - 1)});
            centres.push_back(
                {(a[0] + b[0] + c[0]) / 3.f, (a[1] + b[1] + c[1]) / 3.f, (a[2] + b[2] + c[2]) / 3.f});
        }
    }
    const std::vector<std::uint32_t> order = mortonOrder(centres);
    numTriangles_ = order.size();
    clusters_.resize((numTriangles_ + kClusterSize - 1) / kClusterSize);
    for (std::size_t i = 0; i < clusters_.size() * kClusterSize; ++i) {
        const Corners& c = corners[order[std::min(i, numTriangles_ - 1)]];
        Cluster& cluster = clusters_[i / kClusterSize];
        const std::size_t slot = i % kClusterSize;
        const int vertices[3] = {c.a, c.b, c.c};
        for (int k = 0; k < 3; ++k)
            for (int axis = 0; axis < 3; ++axis)
                cluster.corners[3 * k + axis][slot] = points[vertices[k]][axis];
        cluster.face[slot] = c.face;
        cluster.fanIndex[slot] = c.fanIndex;
    }
}

void ClosestPointIndex::clusterBounds(const RTCBoundsFunctionArguments* args) {
    const Cluster& cluster =
        static_cast<const ClosestPointIndex*>(args->geometryUserPtr)->clusters_[args->primID];
    float lo[3], hi[3];
    for (int axis = 0; axis < 3; ++axis) {
        lo[axis] = hi[axis] = cluster.corners[axis][0];
        for (int k = 0; k < 3; ++k)
            for (std::size_t i = 0; i < kClusterSize; ++i) {
                lo[axis] = std::min(lo[axis], cluster.corners[3 * k + axis][i]);
                hi[axis] = std::max(hi[axis], cluster.corners[3 * k + axis][i]);
            }
    }
    *args->bounds_o = {lo[0], lo[1], lo[2], 0.f, hi[0], hi[1], hi[2], 0.f};
}

void ClosestPointIndex::buildScene() {
    device_ = rtcNewDevice(nullptr);
    if (!device_) return;
    RTCScene scene = rtcNewScene(device_);
    RTCGeometry geometry = rtcNewGeometry(device_, RTC_GEOMETRY_TYPE_USER);
    if (!scene || !geometry) {
        if (scene) rtcReleaseScene(scene);
        return;
    }
    rtcSetGeometryUserPrimitiveCount(geometry, static_cast<unsigned>(clusters_.size()));
    rtcSetGeometryUserData(geometry, this);
    rtcSetGeometryBoundsFunction(geometry, &ClosestPointIndex::clusterBounds, nullptr);
    rtcCommitGeometry(geometry);
    rtcAttachGeometry(scene, geometry);
    rtcReleaseGeometry(geometry);
    rtcCommitScene(scene);
    if (rtcGetDeviceError(device_) == RTC_ERROR_NONE)
        scene_ = scene;
    else
        rtcReleaseScene(scene);
}

bool ClosestPointIndex::closestPoint(const std::array<double, 3>& point, double maxDistance,
                                     ClosestPointHit& hit) const {
    if (!scene_ || !(maxDistance >= 0.0)) return false;
    for (double c : point)
        if (!(std::fabs(c) <= FLT_MAX)) return false;
    RTCPointQuery query;
    query.x = static_cast<float>(point[0]);
    query.y = static_cast<float>(point[1]);
    query.z = static_cast<float>(point[2]);
    query.time = 0.f;
    const V3 p{point[0], point[1], point[2]};
    const V3 rounded = V3{query.x, query.y, query.z} - p;
    Search search{*this, p, std::sqrt(dot(rounded, rounded)), maxDistance * maxDistance};
    query.radius = search.radius(maxDistance);
    RTCPointQueryContext context;
    rtcInitPointQueryContext(&context);
    rtcPointQuery(scene_, &query, &context, &Search::visit, &search);
    if (!search.found) return false;

    const Face& face = faces_[search.cluster->face[search.slot]];
    hit.point = {search.best.point.x, search.best.point.y, search.best.point.z};
    hit.distance = std::sqrt(search.bestDistance2);
    hit.face = face.index;
    hit.triangle = static_cast<int>(search.cluster->fanIndex[search.slot]);
    hit.u = static_cast<float>(1.0 - search.best.v - search.best.w);
    hit.v = static_cast<float>(search.best.v);
    hit.normal = face.normal;
    return true;
}

} // namespace host
