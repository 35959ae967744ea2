// The walk against its step-by-step definition: every face's edges ordered by getOrderedFaceEdges from the
// edges' stored vertices, and each edge's faces read from the topology. The walk takes shortcuts for faces
// whose corners all differ and reads the faces across edges from a table; on odd faces (corners passed
// twice, starts through a vertex pair that is no edge of the face) it must still give the same order.
#include "core/symmetry/SymmetricTraversal.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Ints = std::vector<int>;

core::Traversal definedWalk(const core::MeshTopology& topology, int startFace, int a, int b, int faceCount) {
    core::Traversal result(topology);
    Ints vertexVisited(std::size_t(topology.numVertices()), 0),
        faceVisited(std::size_t(topology.numFaces()), 0);
    Ints faceQueue{startFace}, fromQueue{a}, toQueue{b};
    faceVisited[std::size_t(startFace)] = 1;
    Ints ends, ordered, from, to, scratch;
    for (int i = 0; i < faceCount; ++i) {
        if (i >= int(faceQueue.size())) return result;
        const int face = faceQueue[std::size_t(i)];
        ends.clear();
        for (int edge : topology.faceEdges(face))
            for (int v : topology.edgeVertices(edge)) ends.push_back(v);
        core::getOrderedFaceEdges(fromQueue[std::size_t(i)], toQueue[std::size_t(i)],
                                  topology.faceEdges(face), ends, ordered, from, to, scratch);
        for (std::size_t k = 0; k < ordered.size(); ++k) {
            for (int v : {from[k], to[k]}) {
                if (v < 0 || vertexVisited[std::size_t(v)]) continue;
                vertexVisited[std::size_t(v)] = 1;
                result.order.push_back(v);
            }
            const int across = core::getOppositeEdgeFace(face, topology.edgeFaces(ordered[k]));
            if (across == -1 || faceVisited[std::size_t(across)]) continue;
            faceVisited[std::size_t(across)] = 1;
            faceQueue.push_back(across);
            fromQueue.push_back(from[k]);
            toQueue.push_back(to[k]);
        }
    }
    result.complete = true;
    return result;
}

TEST(SymmetryWalk, MatchesTheStepByStepWalkOnRandomMeshes) {
    std::mt19937 random(2024);
    const auto pick = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(random); };
    int compared = 0, oddFaces = 0;
    for (int iteration = 0; iteration < 400; ++iteration) {
        // Few vertices and many faces: shared and non-manifold edges, and faces passing a corner twice.
        const int numVertices = pick(4, 10);
        Ints counts, connects;
        for (int f = pick(1, 12); f > 0; --f) {
            const int n = pick(3, 6);
            counts.push_back(n);
            const std::size_t first = connects.size();
            for (int k = 0; k < n; ++k) {
                int v = pick(0, numVertices - 1);
                while ((k > 0 && v == connects.back()) || (k + 1 == n && v == connects[first]))
                    v = pick(0, numVertices - 1);
                connects.push_back(v);
            }
        }
        core::MeshTopology topology;
        if (!topology.build(numVertices, counts, connects).empty()) continue;
        for (int f = 0; f < topology.numFaces(); ++f) {
            const core::IndexRange corners = topology.faceVertices(f);
            for (int j = 0; j < corners.size(); ++j)
                for (int k = j + 1; k < corners.size(); ++k) oddFaces += corners[j] == corners[k];
        }
        const Ints across = core::getFacesAcross(topology);
        // One walk state for all walks over this mesh, as the mapping reuses it.
        core::Traversal walk(topology);
        for (int start = 0; start < 6; ++start) {
            const int face = pick(0, topology.numFaces() - 1);
            const core::IndexRange corners = topology.faceVertices(face);
            const int k = pick(0, corners.size() - 1);
            int a = corners[k], b = corners[(k + 1) % corners.size()];
            if (pick(0, 1)) std::swap(a, b);
            if (pick(0, 4) == 0) b = pick(0, numVertices - 1); // often no edge of the face
            const int faceCount = pick(0, topology.numFaces() + 1);
            core::traverseMesh(topology, across, face, a, b, faceCount, walk);
            const core::Traversal expected = definedWalk(topology, face, a, b, faceCount);
            EXPECT_EQ(walk.order, expected.order) << "iteration " << iteration << " face " << face;
            EXPECT_EQ(walk.complete, expected.complete) << "iteration " << iteration << " face " << face;
            ++compared;
        }
    }
    EXPECT_GT(compared, 1000);
    EXPECT_GT(oddFaces, 50);
}

} // namespace
