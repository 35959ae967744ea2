#pragma once
// Closest-point-on-surface queries for a polygon mesh. The faces are fan-triangulated (face
// v0..vn-1 gives the triangles (v0, vk, vk+1)) and the triangles laid out along a space-filling
// curve, so that neighbours share cache lines; runs of a few of them are the primitives of an
// Embree scene, and each query walks its BVH with a search sphere that shrinks as closer
// triangles turn up.
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
    // none or the point is not finite. Safe to call from several threads at once.
    bool closestPoint(const std::array<double, 3>& point, double maxDistance, ClosestPointHit& hit) const;
    std::size_t numTriangles() const { return numTriangles_; }

private:
    struct Face {
        int index;
        std::array<float, 3> normal;
    };
    // Triangles per Embree primitive.
    static constexpr std::size_t kClusterSize = 8;
    // Neighbouring triangles side by side, so that one pass tests all their bounding boxes:
    // coordinate c of corner k of triangle i is corners[3 * k + c][i]. A short cluster repeats its
    // last triangle. Each triangle also has the indexed face holding it (a position in faces_)
    // and its place in that face's fan.
    struct Cluster {
        float corners[9][kClusterSize];
        std::uint32_t face[kClusterSize];
        std::uint32_t fanIndex[kClusterSize];
    };
    struct Search;

    void collectTriangles(const ClosestPointMesh& mesh);
    void buildScene();
    void release();
    static void clusterBounds(const RTCBoundsFunctionArguments* args);

    RTCDeviceTy* device_ = nullptr;
    RTCSceneTy* scene_ = nullptr;
    std::vector<Face> faces_;
    // Runs of triangles along a space-filling curve.
    std::vector<Cluster> clusters_;
    std::size_t numTriangles_ = 0;
};

} // namespace host
