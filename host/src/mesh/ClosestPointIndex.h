#pragma once
// Closest-point-on-surface queries for a polygon mesh. The faces are fan-triangulated (face
// v0..vn-1 gives the triangles (v0, vk, vk+1)) and laid out along a Morton curve through their
// centres; the run of triangles is cut where the curve crosses octree cell walls into clusters
// of a few neighbours, and a four-way tree of boxes follows the same cuts, so that it is built in
// the one pass that makes the clusters.
//
// A query first measures the clusters either side of the point on the curve, which mostly gives
// a search sphere barely larger than the answer, then walks the tree nearest box first with that
// sphere, shrinking it as closer triangles turn up, and measures exactly only the triangles whose
// own boxes reach into it.
//
// On big meshes a build costs mostly the memory it touches, so the index keeps per triangle
// only its three vertex indices, its face and its place in the face's fan, and reads the mesh's
// points in place when the caller keeps them alive.
#include "mesh/MortonCurve.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

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
    // Keeps `points` alive and unchanged for as long as it lives; the index then reads them in
    // place rather than copying them (unless a matrix moves them). Null: the index copies.
    std::shared_ptr<const void> owner;
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
    ClosestPointIndex(const ClosestPointIndex&) = delete;
    ClosestPointIndex& operator=(const ClosestPointIndex&) = delete;

    // The closest point of the surface within maxDistance (infinity allowed); false when there is
    // none or the point is not finite. Where several triangles are equally close, any of them may
    // give the answer. Safe to call from several threads at once.
    bool closestPoint(const std::array<double, 3>& point, double maxDistance, ClosestPointHit& hit) const;
    std::size_t numTriangles() const { return triangles_.size(); }

private:
    struct Face {
        int index;
        std::array<float, 3> normal;
    };
    // A triangle's corners (vertex indices) and the indexed face holding it (a position in faces_).
    struct Triangle {
        std::uint32_t corners[3];
        std::uint32_t face;
    };
    // Triangles per cluster at most, and children per tree node.
    static constexpr std::size_t kClusterSize = 8;
    static constexpr std::size_t kWidth = 4;
    // A tree node: child i lies in the box lo[k][i]..hi[k][i] along axis k. A child is a node
    // (its index) or a cluster (the complement of its index, below zero); unused places hold kNone.
    struct Node {
        float lo[3][kWidth];
        float hi[3][kWidth];
        std::int32_t children[kWidth];
    };
    struct Box;
    struct Search;

    std::int32_t buildTree(const std::vector<std::uint32_t>& codes, std::size_t begin, std::size_t end,
                           Box& box);
    std::int32_t addCluster(const std::vector<std::uint32_t>& codes, std::size_t begin, std::size_t end,
                            Box& box);

    std::shared_ptr<const void> owner_;
    std::vector<std::array<float, 3>> ownPoints_;
    const std::array<float, 3>* points_ = nullptr;
    std::vector<Face> faces_;
    // The triangles along the curve, and for each its place in its face's fan (with kThin set for
    // a triangle too thin for the fast exact measure).
    std::vector<Triangle> triangles_;
    std::vector<std::uint32_t> fans_;
    // Where each cluster's run of triangles starts, and where the last one ends; with the curve
    // code at each start, to find the clusters beside a point.
    std::vector<std::uint32_t> clusterStarts_;
    std::vector<std::uint32_t> clusterCodes_;
    // For each value of the codes' leading bits, the first cluster whose code starts with that
    // value or a later one (and one past the end), which narrows the search for a code to a few
    // clusters.
    std::vector<std::uint32_t> codeBuckets_;
    MortonCurve curve_;
    std::vector<Node> nodes_;
    std::int32_t root_;
};

} // namespace host
