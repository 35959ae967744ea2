#pragma once
// Closest-point-on-surface queries for a polygon mesh. The faces are fan-triangulated (face
// v0..vn-1 gives the triangles (v0, vk, vk+1)) and the triangles laid out along a Morton curve,
// cut into clusters of a few neighbours where the curve crosses octree cell walls. Each cluster
// measures its triangles in a frame of its own whose last axis follows their mean normal, so
// that the boxes around them in that frame stay thin where the surface is smooth, however it
// is turned. The clusters are the primitives of an Embree scene.
//
// A query first measures the clusters either side of the point on the curve, which gives a
// search sphere barely larger than the answer, then walks the scene's tree with that sphere,
// shrinking it as closer triangles turn up. A cluster the walk reaches is measured by the box
// around all its triangles in its frame before anything else of it is read; only triangles
// whose own boxes reach into the sphere are measured exactly.
#include "mesh/MortonCurve.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

struct RTCBoundsFunctionArguments;
struct RTCDeviceTy;
struct RTCSceneTy;

namespace host {

// The geometry to index, as plain arrays. Faces that are degenerate (fewer than three vertices)
// or refer to missing vertices or connects are left out.
struct ClosestPointMesh {
    const std::array<float, 3>* points = nullptr;
    std::size_t numPoints = 0;
    const int* faceCounts = nullptr;
    std::size_t numFaces = 0;
    const int* faceConnects = nullptr;
    std::size_t numConnects = 0;
    // Moves the points before indexing (row vectors: p' = p * M); null for none.
    const double (*matrix)[4] = nullptr;
    // The faces to index (indices outside the mesh are skipped); null for all of them.
    const int* faces = nullptr;
    std::size_t numSelectedFaces = 0;
};

struct ClosestPointHit {
    std::array<double, 3> point{};
    double distance = 0.0;
    int face = -1;
    // The fan triangle within the face: triangle t has the vertices (v0, vt+1, vt+2).
    int triangle = -1;
    // point = u * v0 + v * vt+1 + (1 - u - v) * vt+2.
    float u = 0.f, v = 0.f;
    // The face's unit normal in the space of the matrix; zero for a face without area.
    std::array<float, 3> normal{};
};

class ClosestPointIndex {
public:
    explicit ClosestPointIndex(const ClosestPointMesh& mesh);
    ~ClosestPointIndex();
    ClosestPointIndex(const ClosestPointIndex&) = delete;
    ClosestPointIndex& operator=(const ClosestPointIndex&) = delete;

    // The closest point of the surface within maxDistance (infinity allowed); false when there is
    // none or the point is not finite. Where several triangles are equally close, any of them may
    // give the answer. Safe to call from several threads at once.
    bool closestPoint(const std::array<double, 3>& point, double maxDistance, ClosestPointHit& hit) const;
    std::size_t numTriangles() const { return sources_.size(); }

private:
    struct Face {
        int index;
        std::array<float, 3> normal;
    };
    // Where a triangle comes from: the indexed face holding it (a position in faces_) and its
    // place in that face's fan.
    struct Source {
        std::uint32_t face, fanIndex;
    };
    // A triangle's corners, as collected.
    using Corners = std::array<std::array<float, 3>, 3>;
    // Triangles per cluster at most.
    static constexpr std::size_t kClusterSize = 8;
    // A cluster's frame and the box of all its triangles in that frame, in one cache line, so
    // that a cluster out of reach costs a single read. The frame is an origin and two orthonormal
    // axes; the third (frameAxis) is their cross product, along the triangles' mean normal. Bit i
    // of thin tells whether triangle i is thin.
    struct alignas(64) ClusterFrame {
        float origin[3];
        float axes[2][3];
        float lo[3], hi[3];
        std::uint32_t thin;
    };
    // Neighbouring triangles side by side: triangle i lies in the box lo[k][i]..hi[k][i] along
    // axis k of the cluster's frame, and its corners are corners[i] (corner j's coordinate c at
    // 3 * j + c). A short cluster repeats its last triangle.
    struct Cluster {
        float lo[3][kClusterSize];
        float hi[3][kClusterSize];
        float corners[kClusterSize][9];
    };
    struct Search;

    std::vector<Corners> collectTriangles(const ClosestPointMesh& mesh);
    // Both take the triangles and their codes in curve order.
    void cluster(const std::vector<Corners>& corners, const std::vector<std::uint64_t>& codes,
                 std::size_t begin, std::size_t end);
    void addCluster(const std::vector<Corners>& corners, const std::vector<std::uint64_t>& codes,
                    std::size_t begin, std::size_t end);
    void buildScene();
    void release();
    static void clusterBounds(const RTCBoundsFunctionArguments* args);

    RTCDeviceTy* device_ = nullptr;
    RTCSceneTy* scene_ = nullptr;
    std::vector<Face> faces_;
    // The triangles along the curve.
    std::vector<Source> sources_;
    std::vector<ClusterFrame> frames_;
    std::vector<Cluster> clusters_;
    // Where each cluster's run of triangles starts, and where the last one ends; with the curve
    // code at each start, to find the clusters beside a point.
    std::vector<std::uint32_t> clusterStarts_;
    std::vector<std::uint64_t> clusterCodes_;
    // For each value of the codes' leading bits, the first cluster whose code starts with that
    // value or a later one (and one past the end), which narrows the search for a code to a few
    // clusters.
    std::vector<std::uint32_t> codeBuckets_;
    MortonCurve curve_;
    // Each cluster's bounding box (lo, hi), while Embree builds its tree.
    std::vector<std::array<float, 6>> clusterBoxes_;
};

} // namespace host
