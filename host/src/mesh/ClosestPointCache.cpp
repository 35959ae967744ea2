#include "mesh/ClosestPointCache.h"

#include <algorithm>
#include <array>
#include <mutex>

namespace host {

namespace {

using Matrix = std::array<double, 16>;

struct Entry {
    std::shared_ptr<const MeshData> mesh;
    Matrix matrix;
    bool allFaces;
    std::vector<int> faces;
    std::shared_ptr<const ClosestPointIndex> index;
};

// Two entries serve a mesh searched both as it is and reflected; more would keep several
// multi-megabyte indices alive for little gain.
constexpr std::size_t kEntries = 2;

struct Cache {
    std::mutex mutex;
    std::vector<Entry> entries; // most recently used first
};

Cache& cache() {
    static Cache instance;
    return instance;
}

Matrix flatten(const double (*matrix)[4]) {
    Matrix flat{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    if (matrix)
        for (int r = 0; r < 4; ++r)
            for (int c = 0; c < 4; ++c) flat[std::size_t(4 * r + c)] = matrix[r][c];
    return flat;
}

std::shared_ptr<const ClosestPointIndex> build(const std::shared_ptr<const MeshData>& mesh,
                                               const double (*matrix)[4], const std::vector<int>* faces) {
    ClosestPointMesh input;
    input.points = mesh->points.data();
    input.numPoints = mesh->points.size();
    input.faceCounts = mesh->faceCounts.data();
    input.numFaces = mesh->faceCounts.size();
    input.faceConnects = mesh->faceConnects.data();
    input.numConnects = mesh->faceConnects.size();
    // Shared mesh data is never changed, so the index may read its points in place.
    input.owner = mesh;
    input.matrix = matrix;
    if (faces) {
        input.faces = faces->data();
        input.numSelectedFaces = faces->size();
    }
    return std::make_shared<const ClosestPointIndex>(input);
}

} // namespace

std::shared_ptr<const ClosestPointIndex> closestPointIndexOf(const std::shared_ptr<const MeshData>& mesh,
                                                             const double (*matrix)[4],
                                                             const std::vector<int>* faces) {
    const Matrix flat = flatten(matrix);
    Cache& kept = cache();
    {
        std::lock_guard<std::mutex> lock(kept.mutex);
        const auto same = [&](const Entry& entry) {
            return entry.mesh == mesh && entry.matrix == flat && entry.allFaces == (faces == nullptr) &&
                   (!faces || entry.faces == *faces);
        };
        const auto found = std::find_if(kept.entries.begin(), kept.entries.end(), same);
        if (found != kept.entries.end()) {
            std::rotate(kept.entries.begin(), found, found + 1);
            return kept.entries.front().index;
        }
    }
    // Built outside the lock: building takes long and may run beside other searches.
    Entry entry{mesh, flat, faces == nullptr, faces ? *faces : std::vector<int>(),
                build(mesh, matrix, faces)};
    std::shared_ptr<const ClosestPointIndex> index = entry.index;
    std::lock_guard<std::mutex> lock(kept.mutex);
    kept.entries.insert(kept.entries.begin(), std::move(entry));
    if (kept.entries.size() > kEntries) kept.entries.resize(kEntries);
    return index;
}

void clearClosestPointIndices() {
    Cache& kept = cache();
    std::lock_guard<std::mutex> lock(kept.mutex);
    kept.entries.clear();
}

} // namespace host
