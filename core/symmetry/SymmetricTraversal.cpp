#include "core/symmetry/SymmetricTraversal.h"

#include <cstddef>

namespace core {

void getOrderedFaceEdges(int a, int b, IndexRange faceEdges, const std::vector<int>& faceEdgeVertices,
                         std::vector<int>& orderedEdges, std::vector<int>& orderedFrom,
                         std::vector<int>& orderedTo, std::vector<int>& remaining) {
    orderedEdges.clear();
    orderedFrom.clear();
    orderedTo.clear();
    const int n = faceEdges.size();
    remaining.resize(std::size_t(n));
    for (int k = 0; k < n; ++k) remaining[std::size_t(k)] = k;
    for (int sweep = 0; sweep < n; ++sweep) {
        int next = -1;
        std::size_t kept = 0;
        for (std::size_t r = 0; r < remaining.size(); ++r) {
            const int k = remaining[r];
            const int v0 = faceEdgeVertices[2 * std::size_t(k)];
            const int v1 = faceEdgeVertices[2 * std::size_t(k) + 1];
            if ((v0 == a && v1 == b) || (v0 == b && v1 == a)) {
                orderedEdges.push_back(faceEdges[k]);
                orderedFrom.push_back(a);
                orderedTo.push_back(b);
                continue;
            }
            remaining[kept++] = k;
            if (v0 == b) next = v1;
            if (v1 == b) next = v0;
        }
        remaining.resize(kept);
        if (next == -1) {
            a = -1;
            b = -1;
        } else {
            a = b;
            b = next;
        }
    }
}

int getOppositeEdgeFace(int face, IndexRange edgeFaces) {
    for (int other : edgeFaces)
        if (other != face) return other;
    return -1;
}

Traversal traverseMesh(const MeshTopology& topology, int startFace, int a, int b, int shellFaceCount) {
    Traversal result;
    if (startFace < 0 || startFace >= topology.numFaces()) return result;
    std::vector<char> vertexVisited(std::size_t(topology.numVertices()), 0);
    std::vector<char> faceVisited(std::size_t(topology.numFaces()), 0);
    faceVisited[std::size_t(startFace)] = 1;
    std::vector<int> faceQueue{startFace}, fromQueue{a}, toQueue{b};
    const std::size_t expected = shellFaceCount > 0 ? std::size_t(shellFaceCount) : 0;
    faceQueue.reserve(expected);
    fromQueue.reserve(expected);
    toQueue.reserve(expected);
    result.order.reserve(expected);

    std::vector<int> edgeVertices, orderedEdges, orderedFrom, orderedTo, remaining;
    const auto visit = [&](int vertex) {
        if (vertex < 0 || vertexVisited[std::size_t(vertex)]) return;
        vertexVisited[std::size_t(vertex)] = 1;
        result.order.push_back(vertex);
    };
    for (std::size_t i = 0; i < expected; ++i) {
        if (i >= faceQueue.size()) return result;
        const int face = faceQueue[i];
        const IndexRange edges = topology.faceEdges(face);
        // Edge k of a face joins its corners k and k + 1. Reading the ends from the face's own row, not
        // from the edge table, saves a scattered read per edge; the ordering takes either vertex order.
        const IndexRange corners = topology.faceVertices(face);
        edgeVertices.clear();
        for (int k = 0; k < corners.size(); ++k) {
            edgeVertices.push_back(corners[k]);
            edgeVertices.push_back(corners[(k + 1) % corners.size()]);
        }
        getOrderedFaceEdges(fromQueue[i], toQueue[i], edges, edgeVertices, orderedEdges, orderedFrom,
                            orderedTo, remaining);
        for (std::size_t k = 0; k < orderedEdges.size(); ++k) {
            visit(orderedFrom[k]);
            visit(orderedTo[k]);
            const int across = getOppositeEdgeFace(face, topology.edgeFaces(orderedEdges[k]));
            if (across == -1 || faceVisited[std::size_t(across)]) continue;
            faceVisited[std::size_t(across)] = 1;
            faceQueue.push_back(across);
            fromQueue.push_back(orderedFrom[k]);
            toQueue.push_back(orderedTo[k]);
        }
    }
    result.complete = true;
    return result;
}

} // namespace core
