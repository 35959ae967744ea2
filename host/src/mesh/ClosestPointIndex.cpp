#include "mesh/ClosestPointIndex.h"

#include "mesh/FloatLanes.h"
#include "mesh/TriangleDistance.h"

#include <embree3/rtcore.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>

namespace host {
namespace {

// The leading code bits that pick a bucket of clusters.
constexpr int kBucketBits = 18;
constexpr int kBucketShift = 63 - kBucketBits;

Vec3 toVec3(const std::array<float, 3>& p) {
    return {p[0], p[1], p[2]};
}

// Doubles outside the float range become infinities instead of undefined conversions.
float toFloat(double value) {
    if (value > FLT_MAX) return std::numeric_limits<float>::infinity();
    if (value < -FLT_MAX) return -std::numeric_limits<float>::infinity();
    return static_cast<float>(value);
}

// The affine part of a row-vector matrix: p' = p * M.
struct Affine {
    Vec3 rows[4];
    explicit Affine(const double (*m)[4]) {
        for (int r = 0; r < 4; ++r) rows[r] = {m[r][0], m[r][1], m[r][2]};
    }
    Vec3 point(const Vec3& p) const { return rows[0] * p.x + rows[1] * p.y + rows[2] * p.z + rows[3]; }
    // Normals move with the inverse transpose: the cofactors, turned round by a mirroring matrix.
    Vec3 normal(const Vec3& n) const {
        const Vec3 c0 = cross(rows[1], rows[2]), c1 = cross(rows[2], rows[0]), c2 = cross(rows[0], rows[1]);
        const double sign = dot(rows[0], c0) < 0.0 ? -1.0 : 1.0;
        return (c0 * n.x + c1 * n.y + c2 * n.z) * sign;
    }
};

// A float at most `value`: the nearest one less at least a unit in its last place (without the
// branch or the library call of rounding down exactly).
float roundDown(double value) {
    const float nearest = toFloat(value);
    if (nearest == std::numeric_limits<float>::infinity()) return FLT_MAX;
    return nearest - (std::fabs(nearest) * FLT_EPSILON + FLT_MIN);
}

double component(const Vec3& v, int axis) {
    return axis == 0 ? v.x : axis == 1 ? v.y : v.z;
}

// Newell's normal, which also suits non-planar and concave faces.
std::array<float, 3> faceNormal(const ClosestPointMesh& mesh, const int* vertices, int count,
                                const Affine* affine) {
    Vec3 n{0.0, 0.0, 0.0};
    for (int i = 0; i < count; ++i) {
        const Vec3 a = toVec3(mesh.points[vertices[i]]), b = toVec3(mesh.points[vertices[(i + 1) % count]]);
        n = n + Vec3{(a.y - b.y) * (a.z + b.z), (a.z - b.z) * (a.x + b.x), (a.x - b.x) * (a.y + b.y)};
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

// Minimum and maximum by value, which compile to single branch-free instructions.
float lower(float a, float b) {
    return b < a ? b : a;
}
float upper(float a, float b) {
    return a < b ? b : a;
}

// The position of the smallest of n values.
template <std::size_t n> std::size_t smallest(const float (&values)[n]) {
    std::size_t best = 0;
    for (std::size_t i = 1; i < n; ++i) best = values[i] < values[best] ? i : best;
    return best;
}

// The third axis of a cluster's frame, computed alike when the boxes are measured and when a
// point is brought into the frame.
void frameAxis(const float (&axes)[2][3], float (&third)[3]) {
    third[0] = axes[0][1] * axes[1][2] - axes[0][2] * axes[1][1];
    third[1] = axes[0][2] * axes[1][0] - axes[0][0] * axes[1][2];
    third[2] = axes[0][0] * axes[1][1] - axes[0][1] * axes[1][0];
}

} // namespace

struct ClosestPointIndex::Search {
    const ClosestPointIndex& index;
    Vec3 point;
    // The float copy of the point handed to Embree, with the search sphere's radius: the sphere
    // holds every triangle closer than the best hit, with room for float arithmetic.
    RTCPointQuery query;
    // How far the float copy lies from the point.
    double slack;
    // The squared limit until something is found, then the squared distance of the best hit.
    double bestDistance2;
    bool found = false;
    // The best hit's cluster and its place there, and the point on it.
    std::size_t cluster = 0, clusterSlot = 0;
    TrianglePoint best{};
    // The clusters measured before the walk, which it need not measure again.
    std::size_t seeds[2];
    int numSeeds = 0;

    Search(const ClosestPointIndex& index, const std::array<double, 3>& p, double maxDistance)
        : index(index), point{p[0], p[1], p[2]}, bestDistance2(maxDistance * maxDistance) {
        query.x = static_cast<float>(p[0]);
        query.y = static_cast<float>(p[1]);
        query.z = static_cast<float>(p[2]);
        query.time = 0.f;
        const Vec3 rounded = Vec3{query.x, query.y, query.z} - point;
        slack = std::sqrt(dot(rounded, rounded));
        query.radius = sphereRadius(maxDistance);
    }

    float sphereRadius(double distance) const { return toFloat((distance + slack) * (1.0 + 1e-6)); }

    // The point in a cluster's frame, with an allowance far above the rounding of these lines.
    struct Local {
        float p[3];
        float allowance;
    };
    Local local(const ClusterFrame& frame) const {
        const float v[3] = {query.x - frame.origin[0], query.y - frame.origin[1], query.z - frame.origin[2]};
        float third[3];
        frameAxis(frame.axes, third);
        const float* axes[3] = {frame.axes[0], frame.axes[1], third};
        Local result;
        for (int k = 0; k < 3; ++k) result.p[k] = axes[k][0] * v[0] + axes[k][1] * v[1] + axes[k][2] * v[2];
        result.allowance = 1e-5f * (std::fabs(v[0]) + std::fabs(v[1]) + std::fabs(v[2]));
        return result;
    }

    // The squared distance from the point to a box along axis k, at most the true one.
    static float boxGap(const Local& at, float lo, float hi, int k) {
        // Clamping into the box, rather than branching on the side, keeps this branch-free.
        const float gap = at.p[k] - lower(upper(at.p[k], lo - at.allowance), hi + at.allowance);
        return gap * gap;
    }
    // The axes are orthonormal only to float precision.
    static constexpr float kShrink = 1.f - 1e-5f;

    // The squared distance from the point to the box of a cluster's triangles, at most the true one.
    static float frameGap(const ClusterFrame& frame, const Local& at) {
        float gap = 0.f;
        for (int k = 0; k < 3; ++k) gap += boxGap(at, frame.lo[k], frame.hi[k], k);
        return gap * kShrink;
    }
    // Measures the triangles of a cluster whose boxes reach into the sphere, the nearest box
    // first: its triangle most likely shrinks the sphere for the others. The cluster's own box
    // is tried first, in the one cache line of its frame.
    void testCluster(std::size_t c, float& radius) {
        const ClusterFrame& frame = index.frames_[c];
        testCluster(c, local(frame), radius);
    }
    // The same, with the point already brought into the cluster's frame.
    void testCluster(std::size_t c, const Local& at, float& radius) {
        // Nothing beats a hit at the point itself.
        if (found && bestDistance2 == 0.0) return;
        const ClusterFrame& frame = index.frames_[c];
        if (frameGap(frame, at) > radius * radius) return;
        const Cluster& body = index.clusters_[c];
        static_assert(kClusterSize % kLanes == 0, "whole lanes per cluster");
        float gaps[kClusterSize];
        for (std::size_t first = 0; first < kClusterSize; first += kLanes) {
            const float* const lo[3] = {body.lo[0] + first, body.lo[1] + first, body.lo[2] + first};
            const float* const hi[3] = {body.hi[0] + first, body.hi[1] + first, body.hi[2] + first};
            const FloatLanes sum = squaredBoxGaps(at.p, lo, hi, at.allowance) * kShrink;
            std::memcpy(gaps + first, &sum, sizeof sum);
        }
        const std::size_t first = smallest(gaps);
        if (!(gaps[first] <= radius * radius)) return;
        testTriangle(c, first, frame.thin, radius);
        for (std::size_t i = 0; i < kClusterSize; ++i)
            if (i != first && gaps[i] <= radius * radius) testTriangle(c, i, frame.thin, radius);
    }

    void testTriangle(std::size_t c, std::size_t slot, std::uint32_t thin, float& radius) {
        const float* corners = index.clusters_[c].corners[slot];
        const auto corner = [&](int j) {
            return Vec3{corners[3 * j], corners[3 * j + 1], corners[3 * j + 2]};
        };
        const TrianglePoint closest = thin >> slot & 1u
                                          ? closestOnThinTriangle(point, corner(0), corner(1), corner(2))
                                          : closestOnTriangle(point, corner(0), corner(1), corner(2));
        const Vec3 offset = point - closest.point;
        const double distance2 = dot(offset, offset);
        if (found ? !(distance2 < bestDistance2) : !(distance2 <= bestDistance2)) return;
        found = true;
        bestDistance2 = distance2;
        cluster = c;
        clusterSlot = slot;
        best = closest;
        radius = std::min(radius, sphereRadius(std::sqrt(distance2)));
    }

    // Seeds the search with the clusters either side of the point on the curve, the nearest
    // first, then walks the scene.
    void run() {
        const double p[3] = {point.x, point.y, point.z};
        const std::uint64_t code = index.curve_.code(p);
        const std::uint64_t bucket = code >> kBucketShift;
        const auto codes = index.clusterCodes_.begin();
        const auto next =
            static_cast<std::size_t>(std::upper_bound(codes + index.codeBuckets_[bucket],
                                                      codes + index.codeBuckets_[bucket + 1], code) -
                                     codes);
        if (next > 0) seeds[numSeeds++] = next - 1;
        if (next < index.clusters_.size()) seeds[numSeeds++] = next;
        // The nearer seed first; each is brought into its frame once.
        Local at[2];
        float gaps[2];
        for (int i = 0; i < numSeeds; ++i) {
            const ClusterFrame& frame = index.frames_[seeds[i]];
            at[i] = local(frame);
            gaps[i] = frameGap(frame, at[i]);
        }
        if (numSeeds == 2 && gaps[1] < gaps[0]) {
            std::swap(seeds[0], seeds[1]);
            std::swap(at[0], at[1]);
        }
        for (int i = 0; i < numSeeds; ++i) testCluster(seeds[i], at[i], query.radius);
        if (!(found && bestDistance2 == 0.0)) {
            RTCPointQueryContext context;
            rtcInitPointQueryContext(&context);
            rtcPointQuery(index.scene_, &query, &context, &Search::visit, this);
        }
    }

    // The best hit's triangle, as a position on the curve (a short cluster repeats its last one).
    std::size_t triangle() const {
        return std::min<std::size_t>(index.clusterStarts_[cluster] + clusterSlot,
                                     index.clusterStarts_[cluster + 1] - 1);
    }

    static bool visit(RTCPointQueryFunctionArguments* args) {
        Search& search = *static_cast<Search*>(args->userPtr);
        if (std::find(search.seeds, search.seeds + search.numSeeds, args->primID) !=
            search.seeds + search.numSeeds)
            return false;
        const float radius = args->query->radius;
        search.testCluster(args->primID, args->query->radius);
        return args->query->radius < radius;
    }
};

ClosestPointIndex::ClosestPointIndex(const ClosestPointMesh& mesh) {
    std::vector<Corners> corners = collectTriangles(mesh);
    if (corners.empty()) return;
    MortonCurve::Order order;
    {
        std::vector<std::array<float, 3>> centres(corners.size());
        for (std::size_t t = 0; t < corners.size(); ++t)
            for (int axis = 0; axis < 3; ++axis)
                centres[t][axis] = (corners[t][0][axis] + corners[t][1][axis] + corners[t][2][axis]) / 3.f;
        curve_ = MortonCurve(centres);
        order = curve_.sort(centres);
    }
    // The triangles in curve order, read in that order from here on.
    {
        std::vector<Corners> sortedCorners(corners.size());
        std::vector<Source> sortedSources(sources_.size());
        for (std::size_t t = 0; t < corners.size(); ++t) {
            sortedCorners[t] = corners[order.positions[t]];
            sortedSources[t] = sources_[order.positions[t]];
        }
        corners.swap(sortedCorners);
        sources_.swap(sortedSources);
    }
    clusters_.reserve(corners.size() / (kClusterSize / 2) + 1);
    frames_.reserve(clusters_.capacity());
    cluster(corners, order.codes, 0, corners.size());
    clusterStarts_.push_back(static_cast<std::uint32_t>(corners.size()));
    codeBuckets_.resize((std::size_t{1} << kBucketBits) + 1);
    std::size_t c = 0;
    for (std::size_t bucket = 0; bucket < codeBuckets_.size(); ++bucket) {
        while (c < clusterCodes_.size() && clusterCodes_[c] >> kBucketShift < bucket) ++c;
        codeBuckets_[bucket] = static_cast<std::uint32_t>(c);
    }
    buildScene();
    clusterBoxes_ = {};
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
    sources_.clear();
    frames_.clear();
    clusters_.clear();
    clusterStarts_.clear();
    clusterCodes_.clear();
    codeBuckets_.clear();
}

std::vector<ClosestPointIndex::Corners> ClosestPointIndex::collectTriangles(const ClosestPointMesh& mesh) {
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
    if (fanSize == 0 || fanSize > std::numeric_limits<std::uint32_t>::max() / 2) return {};

    std::optional<Affine> affine;
    if (mesh.matrix) affine.emplace(mesh.matrix);
    const Affine* transform = affine ? &*affine : nullptr;
    std::vector<std::array<float, 3>> moved;
    const std::array<float, 3>* points = mesh.points;
    if (transform) {
        moved.resize(mesh.numPoints);
        for (std::size_t i = 0; i < mesh.numPoints; ++i) {
            const Vec3 p = transform->point(toVec3(mesh.points[i]));
            moved[i] = {toFloat(p.x), toFloat(p.y), toFloat(p.z)};
        }
        points = moved.data();
    }

    // Fan triangles with finite corners.
    std::vector<Corners> corners;
    corners.reserve(fanSize);
    sources_.reserve(fanSize);
    faces_.reserve(selected.size());
    for (int f : selected) {
        const int* v = mesh.faceConnects + offsets[f];
        const auto face = static_cast<std::uint32_t>(faces_.size());
        faces_.push_back({f, faceNormal(mesh, v, mesh.faceCounts[f], transform)});
        for (int k = 1; k + 1 < mesh.faceCounts[f]; ++k) {
            const auto &a = points[v[0]], &b = points[v[k]], &c = points[v[k + 1]];
            if (!isFinite(a) || !isFinite(b) || !isFinite(c)) continue;
            corners.push_back({a, b, c});
            sources_.push_back({face, static_cast<std::uint32_t>(k - 1)});
        }
    }
    return corners;
}

// Cuts a run of triangles along the curve where it crosses the wall of the largest octree cell
// inside the run, or in half when all its codes are equal, until a part lies in a small cell;
// such a part is cut into consecutive clusters. Each cut takes a bit of the codes or halves the
// run, so the recursion is at most 64 + 32 deep.
void ClosestPointIndex::cluster(const std::vector<Corners>& corners, const std::vector<std::uint64_t>& codes,
                                std::size_t begin, std::size_t end) {
    if (end - begin <= 4 * kClusterSize) {
        for (std::size_t first = begin; first < end; first += kClusterSize)
            addCluster(corners, codes, first, std::min(end, first + kClusterSize));
        return;
    }
    const std::uint64_t first = codes[begin], last = codes[end - 1];
    std::size_t middle = begin + (end - begin) / 2;
    if (first != last) {
        std::uint64_t bit = std::uint64_t{1} << 63;
        while (!((first ^ last) & bit)) bit >>= 1;
        middle = static_cast<std::size_t>(
            std::partition_point(codes.begin() + begin, codes.begin() + end,
                                 [bit](std::uint64_t code) { return !(code & bit); }) -
            codes.begin());
    }
    cluster(corners, codes, begin, middle);
    cluster(corners, codes, middle, end);
}

void ClosestPointIndex::addCluster(const std::vector<Corners>& corners,
                                   const std::vector<std::uint64_t>& codes, std::size_t begin,
                                   std::size_t end) {
    clusterStarts_.push_back(static_cast<std::uint32_t>(begin));
    clusterCodes_.push_back(codes[begin]);
    ClusterFrame& frame = frames_.emplace_back();
    Cluster& cluster = clusters_.emplace_back();
    const auto triangle = [&](std::size_t slot) -> const Corners& {
        return corners[std::min(begin + slot, end - 1)];
    };
    // The frame: the origin at the mean corner, the last axis along the summed area normals and
    // the others across it (any pair will do for triangles without area).
    Vec3 origin{0.0, 0.0, 0.0}, normal{0.0, 0.0, 0.0};
    for (std::size_t slot = 0; slot < end - begin; ++slot) {
        const Vec3 a = toVec3(triangle(slot)[0]), b = toVec3(triangle(slot)[1]),
                   c = toVec3(triangle(slot)[2]);
        origin = origin + (a + b + c) * (1.0 / (3.0 * static_cast<double>(end - begin)));
        normal = normal + cross(b - a, c - a);
    }
    const double length = std::sqrt(dot(normal, normal));
    normal = length > 0.0 && std::isfinite(length) ? normal * (1.0 / length) : Vec3{0.0, 0.0, 1.0};
    Vec3 across = cross(normal, std::fabs(normal.x) < 0.5 ? Vec3{1.0, 0.0, 0.0} : Vec3{0.0, 1.0, 0.0});
    across = across * (1.0 / std::sqrt(dot(across, across)));
    const Vec3 axes[2] = {across, cross(normal, across)};
    for (int k = 0; k < 3; ++k) {
        frame.origin[k] = toFloat(component(origin, k));
        for (int j = 0; j < 2; ++j) frame.axes[j][k] = static_cast<float>(component(axes[j], k));
    }
    float third[3];
    frameAxis(frame.axes, third);
    const Vec3 keptAxes[3] = {{frame.axes[0][0], frame.axes[0][1], frame.axes[0][2]},
                              {frame.axes[1][0], frame.axes[1][1], frame.axes[1][2]},
                              {third[0], third[1], third[2]}};
    // The boxes are measured in doubles from the float origin and axes kept, and rounded outwards,
    // so that every corner lies inside its box.
    const Vec3 keptOrigin{frame.origin[0], frame.origin[1], frame.origin[2]};
    const float inf = std::numeric_limits<float>::infinity();
    std::array<float, 6> box{inf, inf, inf, -inf, -inf, -inf};
    for (int k = 0; k < 3; ++k) {
        frame.lo[k] = inf;
        frame.hi[k] = -inf;
    }
    frame.thin = 0;
    for (std::size_t slot = 0; slot < kClusterSize; ++slot) {
        const Corners& t = triangle(slot);
        for (int k = 0; k < 3; ++k) {
            double lo = std::numeric_limits<double>::infinity(), hi = -lo;
            for (int j = 0; j < 3; ++j) {
                const double along = dot(toVec3(t[j]) - keptOrigin, keptAxes[k]);
                lo = std::min(lo, along);
                hi = std::max(hi, along);
                cluster.corners[slot][3 * j + k] = t[j][k];
                box[k] = std::min(box[k], t[j][k]);
                box[3 + k] = std::max(box[3 + k], t[j][k]);
            }
            cluster.lo[k][slot] = roundDown(lo);
            cluster.hi[k][slot] = -roundDown(-hi);
            frame.lo[k] = std::min(frame.lo[k], cluster.lo[k][slot]);
            frame.hi[k] = std::max(frame.hi[k], cluster.hi[k][slot]);
        }
        if (isThin(toVec3(t[0]), toVec3(t[1]), toVec3(t[2]))) frame.thin |= 1u << slot;
    }
    clusterBoxes_.push_back(box);
}

void ClosestPointIndex::clusterBounds(const RTCBoundsFunctionArguments* args) {
    const std::array<float, 6>& box =
        static_cast<const ClosestPointIndex*>(args->geometryUserPtr)->clusterBoxes_[args->primID];
    *args->bounds_o = {box[0], box[1], box[2], 0.f, box[3], box[4], box[5], 0.f};
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
    Search search(*this, point, maxDistance);
    search.run();
    if (!search.found) return false;

    const Source& source = sources_[search.triangle()];
    const Face& face = faces_[source.face];
    hit.point = {search.best.point.x, search.best.point.y, search.best.point.z};
    hit.distance = std::sqrt(search.bestDistance2);
    hit.face = face.index;
    hit.triangle = static_cast<int>(source.fanIndex);
    hit.u = static_cast<float>(1.0 - search.best.v - search.best.w);
    hit.v = static_cast<float>(search.best.v);
    hit.normal = face.normal;
    return true;
}

} // namespace host
