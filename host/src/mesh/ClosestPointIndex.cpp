#include "mesh/ClosestPointIndex.h"

#include "mesh/FloatLanes.h"
#include "mesh/MortonCurve.h"
#include "mesh/TriangleDistance.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>

namespace host {
namespace {

constexpr std::int32_t kNone = std::numeric_limits<std::int32_t>::min();
constexpr std::uint32_t kThin = 1u << 31;
// Pending children of a walk at most: fewer than kWidth per level of a tree whose every level
// takes a bit of the 30-bit codes or halves a run of at most 2^32 triangles.
constexpr std::size_t kStackSize = 256;
// Box distances are measured in floats: shrunk by this much they stay at most the true ones.
constexpr float kShrink = 1.f - 1e-5f;
// The leading code bits that pick a bucket of clusters.
constexpr int kBucketBits = 16;
constexpr int kBucketShift = 30 - kBucketBits;

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

// The faces to index: the selected ones that can be, or all that can be.
std::vector<int> indexedFaces(const ClosestPointMesh& mesh, const std::vector<std::size_t>& offsets) {
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
    return selected;
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

// Where a run of codes along the curve splits: at the wall of the largest octree cell inside it,
// or in half when all its codes are equal. Both parts hold something.
std::size_t splitRun(const std::vector<std::uint32_t>& codes, std::size_t begin, std::size_t end) {
    const std::uint32_t first = codes[begin], last = codes[end - 1];
    if (first == last) return begin + (end - begin) / 2;
    std::uint32_t bit = std::uint32_t{1} << 31;
    while (!((first ^ last) & bit)) bit >>= 1;
    return static_cast<std::size_t>(
        std::partition_point(codes.begin() + static_cast<std::ptrdiff_t>(begin),
                             codes.begin() + static_cast<std::ptrdiff_t>(end),
                             [bit](std::uint32_t code) { return !(code & bit); }) -
        codes.begin());
}

} // namespace

struct ClosestPointIndex::Box {
    float lo[3] = {FLT_MAX, FLT_MAX, FLT_MAX};
    float hi[3] = {-FLT_MAX, -FLT_MAX, -FLT_MAX};
    void add(const std::array<float, 3>& p) {
        for (int k = 0; k < 3; ++k) lo[k] = lower(lo[k], p[k]), hi[k] = upper(hi[k], p[k]);
    }
    void add(const Box& box) {
        for (int k = 0; k < 3; ++k) lo[k] = lower(lo[k], box.lo[k]), hi[k] = upper(hi[k], box.hi[k]);
    }
};

struct ClosestPointIndex::Search {
    const ClosestPointIndex& index;
    Vec3 point;
    // The float copy of the point that boxes are measured from, how far it lies from the point,
    // and the search sphere's radius around it: the sphere holds every triangle closer than the
    // best hit, with room for float arithmetic.
    float at[3];
    double slack;
    float radius;
    // The squared limit until something is found, then the squared distance of the best hit.
    double bestDistance2;
    bool found = false;
    std::size_t bestTriangle = 0;
    TrianglePoint best{};

    Search(const ClosestPointIndex& index, const std::array<double, 3>& p, double maxDistance)
        : index(index), point{p[0], p[1], p[2]}, bestDistance2(maxDistance * maxDistance) {
        for (int k = 0; k < 3; ++k) at[k] = static_cast<float>(p[k]);
        const Vec3 rounded = Vec3{at[0], at[1], at[2]} - point;
        slack = std::sqrt(dot(rounded, rounded));
        radius = sphereRadius(maxDistance);
    }

    float sphereRadius(double distance) const { return toFloat((distance + slack) * (1.0 + 1e-6)); }
    bool beyondReach(float gap2) const { return gap2 * kShrink > radius * radius; }
    bool atThePoint() const { return found && bestDistance2 == 0.0; }

    void testTriangle(std::size_t t) {
        const Triangle& triangle = index.triangles_[t];
        const std::array<float, 3>* corners[3] = {&index.points_[triangle.corners[0]],
                                                  &index.points_[triangle.corners[1]],
                                                  &index.points_[triangle.corners[2]]};
        // The triangle's box first: most triangles a walk reaches lie outside the sphere.
        float gap2 = 0.f;
        for (int k = 0; k < 3; ++k) {
            const float a = (*corners[0])[k], b = (*corners[1])[k], c = (*corners[2])[k];
            const float lo = lower(lower(a, b), c), hi = upper(upper(a, b), c);
            const float gap = at[k] - lower(upper(at[k], lo), hi);
            gap2 += gap * gap;
        }
        if (beyondReach(gap2)) return;
        const Vec3 a = toVec3(*corners[0]), b = toVec3(*corners[1]), c = toVec3(*corners[2]);
        const TrianglePoint closest = index.fans_[t] & kThin ? closestOnThinTriangle(point, a, b, c)
                                                             : closestOnTriangle(point, a, b, c);
        const Vec3 offset = point - closest.point;
        const double distance2 = dot(offset, offset);
        if (found ? !(distance2 < bestDistance2) : !(distance2 <= bestDistance2)) return;
        found = true;
        bestDistance2 = distance2;
        bestTriangle = t;
        best = closest;
        radius = std::min(radius, sphereRadius(std::sqrt(distance2)));
    }

    void testCluster(std::size_t c) {
        for (std::size_t t = index.clusterStarts_[c]; t < index.clusterStarts_[c + 1] && !atThePoint(); ++t)
            testTriangle(t);
    }

    // Measures the clusters either side of the point on the curve, then walks the tree, the
    // nearest child of each node first, until nothing left can hold a closer triangle; nothing
    // beats a hit at the point itself.
    void run() {
        const double p[3] = {point.x, point.y, point.z};
        const std::uint32_t code = index.curve_.code(p);
        const auto codes = index.clusterCodes_.begin();
        const auto next = static_cast<std::size_t>(
            std::upper_bound(codes + index.codeBuckets_[code >> kBucketShift],
                             codes + index.codeBuckets_[(code >> kBucketShift) + 1], code) -
            codes);
        // Measured now, these need not be again in the walk.
        const std::size_t seeds[2] = {next - 1, next};
        if (next > 0) testCluster(seeds[0]);
        if (next < index.clusterCodes_.size()) testCluster(seeds[1]);
        struct Pending {
            std::int32_t child;
            float gap2;
        };
        Pending stack[kStackSize];
        std::size_t top = 0;
        stack[top++] = {index.root_, 0.f};
        while (top > 0 && !atThePoint()) {
            const Pending pending = stack[--top];
            if (beyondReach(pending.gap2)) continue;
            if (pending.child < 0) {
                const auto cluster = static_cast<std::size_t>(~pending.child);
                if (cluster != seeds[0] && cluster != seeds[1]) testCluster(cluster);
                continue;
            }
            const Node& node = index.nodes_[static_cast<std::size_t>(pending.child)];
            const float* const lo[3] = {node.lo[0], node.lo[1], node.lo[2]};
            const float* const hi[3] = {node.hi[0], node.hi[1], node.hi[2]};
            static_assert(kWidth == kLanes, "one lane per child");
            const FloatLanes lanes = squaredBoxGaps(at, lo, hi, 0.f);
            float gaps[kWidth];
            std::memcpy(gaps, &lanes, sizeof gaps);
            // The children within reach, pushed farthest first so that the nearest comes next.
            Pending reached[kWidth];
            std::size_t count = 0;
            for (std::size_t i = 0; i < kWidth; ++i) {
                if (node.children[i] == kNone || beyondReach(gaps[i])) continue;
                std::size_t place = count++;
                for (; place > 0 && reached[place - 1].gap2 < gaps[i]; --place)
                    reached[place] = reached[place - 1];
                reached[place] = {node.children[i], gaps[i]};
            }
            for (std::size_t i = 0; i < count; ++i) stack[top++] = reached[i];
        }
    }
};

ClosestPointIndex::ClosestPointIndex(const ClosestPointMesh& mesh) : root_(kNone) {
    const std::vector<std::size_t> offsets = faceOffsets(mesh);
    const std::vector<int> selected = indexedFaces(mesh, offsets);
    std::size_t fanSize = 0;
    for (int f : selected) fanSize += static_cast<std::size_t>(mesh.faceCounts[f] - 2);
    if (fanSize == 0 || fanSize > std::numeric_limits<std::uint32_t>::max() / 2 ||
        mesh.numPoints > std::numeric_limits<std::uint32_t>::max())
        return;

    std::optional<Affine> affine;
    if (mesh.matrix) affine.emplace(mesh.matrix);
    const Affine* transform = affine ? &*affine : nullptr;
    if (transform) {
        ownPoints_.resize(mesh.numPoints);
        for (std::size_t i = 0; i < mesh.numPoints; ++i) {
            const Vec3 p = transform->point(toVec3(mesh.points[i]));
            ownPoints_[i] = {toFloat(p.x), toFloat(p.y), toFloat(p.z)};
        }
    } else if (!mesh.owner) {
        ownPoints_.assign(mesh.points, mesh.points + mesh.numPoints);
    }
    owner_ = transform ? nullptr : mesh.owner;
    points_ = owner_ ? mesh.points : ownPoints_.data();

    // The faces along the curve through their centres.
    MortonCurve::Order order;
    {
        std::vector<std::array<float, 3>> centres(selected.size());
        for (std::size_t i = 0; i < selected.size(); ++i) {
            const int f = selected[i];
            const int* v = mesh.faceConnects + offsets[static_cast<std::size_t>(f)];
            double sum[3] = {0.0, 0.0, 0.0};
            for (int k = 0; k < mesh.faceCounts[f]; ++k)
                for (int axis = 0; axis < 3; ++axis) sum[axis] += points_[v[k]][axis];
            for (int axis = 0; axis < 3; ++axis) centres[i][axis] = toFloat(sum[axis] / mesh.faceCounts[f]);
        }
        curve_ = MortonCurve(centres);
        order = curve_.sort(centres);
    }

    // Their fan triangles with finite corners, in that order.
    std::vector<std::uint32_t> codes;
    codes.reserve(fanSize);
    triangles_.reserve(fanSize);
    fans_.reserve(fanSize);
    faces_.reserve(selected.size());
    for (std::size_t i = 0; i < order.positions.size(); ++i) {
        const int f = selected[order.positions[i]];
        const int count = mesh.faceCounts[f];
        const int* v = mesh.faceConnects + offsets[static_cast<std::size_t>(f)];
        const auto face = static_cast<std::uint32_t>(faces_.size());
        faces_.push_back({f, faceNormal(mesh, v, count, transform)});
        for (int k = 1; k + 1 < count; ++k) {
            const auto &a = points_[v[0]], &b = points_[v[k]], &c = points_[v[k + 1]];
            if (!isFinite(a) || !isFinite(b) || !isFinite(c)) continue;
            triangles_.push_back({{static_cast<std::uint32_t>(v[0]), static_cast<std::uint32_t>(v[k]),
                                   static_cast<std::uint32_t>(v[k + 1])},
                                  face});
            fans_.push_back(static_cast<std::uint32_t>(k - 1) |
                            (isThin(toVec3(a), toVec3(b), toVec3(c)) ? kThin : 0u));
            codes.push_back(order.codes[i]);
        }
    }
    order = {};
    if (triangles_.empty()) return;
    clusterStarts_.reserve(triangles_.size() / (kClusterSize / 2) + 2);
    clusterCodes_.reserve(clusterStarts_.capacity());
    nodes_.reserve(triangles_.size() / (kClusterSize * 2) + 1);
    Box box;
    root_ = buildTree(codes, 0, triangles_.size(), box);
    clusterStarts_.push_back(static_cast<std::uint32_t>(triangles_.size()));
    codeBuckets_.resize((std::size_t{1} << kBucketBits) + 1);
    std::size_t c = 0;
    for (std::size_t bucket = 0; bucket < codeBuckets_.size(); ++bucket) {
        while (c < clusterCodes_.size() && clusterCodes_[c] >> kBucketShift < bucket) ++c;
        codeBuckets_[bucket] = static_cast<std::uint32_t>(c);
    }
}

// A run of triangles that fits in a cluster becomes one; a longer run becomes a node whose
// children split it twice along the curve (into consecutive clusters when it is short).
std::int32_t ClosestPointIndex::buildTree(const std::vector<std::uint32_t>& codes, std::size_t begin,
                                          std::size_t end, Box& box) {
    if (end - begin <= kClusterSize) return addCluster(codes, begin, end, box);
    std::size_t bounds[kWidth + 1] = {begin};
    std::size_t parts = 0;
    if (end - begin <= kWidth * kClusterSize) {
        for (std::size_t first = begin; first < end; first += kClusterSize)
            bounds[++parts] = std::min(end, first + kClusterSize);
    } else {
        const std::size_t middle = splitRun(codes, begin, end);
        for (const auto& [from, to] : {std::pair{begin, middle}, std::pair{middle, end}}) {
            if (to - from > kClusterSize) bounds[++parts] = splitRun(codes, from, to);
            bounds[++parts] = to;
        }
    }
    const auto node = static_cast<std::int32_t>(nodes_.size());
    nodes_.emplace_back();
    for (std::size_t i = 0; i < kWidth; ++i) {
        Node& fresh = nodes_.back();
        fresh.children[i] = kNone;
        for (int k = 0; k < 3; ++k) fresh.lo[k][i] = FLT_MAX, fresh.hi[k][i] = -FLT_MAX;
    }
    for (std::size_t i = 0; i < parts; ++i) {
        Box part;
        const std::int32_t child = buildTree(codes, bounds[i], bounds[i + 1], part);
        Node& self = nodes_[static_cast<std::size_t>(node)];
        self.children[i] = child;
        for (int k = 0; k < 3; ++k) self.lo[k][i] = part.lo[k], self.hi[k][i] = part.hi[k];
        box.add(part);
    }
    return node;
}

std::int32_t ClosestPointIndex::addCluster(const std::vector<std::uint32_t>& codes, std::size_t begin,
                                           std::size_t end, Box& box) {
    const auto cluster = static_cast<std::int32_t>(clusterStarts_.size());
    clusterStarts_.push_back(static_cast<std::uint32_t>(begin));
    clusterCodes_.push_back(codes[begin]);
    for (std::size_t t = begin; t < end; ++t)
        for (std::uint32_t corner : triangles_[t].corners) box.add(points_[corner]);
    return ~cluster;
}

bool ClosestPointIndex::closestPoint(const std::array<double, 3>& point, double maxDistance,
                                     ClosestPointHit& hit) const {
    if (root_ == kNone || !(maxDistance >= 0.0)) return false;
    for (double c : point)
        if (!(std::fabs(c) <= FLT_MAX)) return false;
    Search search(*this, point, maxDistance);
    search.run();
    if (!search.found) return false;

    const Face& face = faces_[triangles_[search.bestTriangle].face];
    hit.point = {search.best.point.x, search.best.point.y, search.best.point.z};
    hit.distance = std::sqrt(search.bestDistance2);
    hit.face = face.index;
    hit.triangle = static_cast<int>(fans_[search.bestTriangle] & ~kThin);
    hit.u = static_cast<float>(1.0 - search.best.v - search.best.w);
    hit.v = static_cast<float>(search.best.v);
    hit.normal = face.normal;
    return true;
}

} // namespace host
