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

namespace {

// How far ahead in the face queue the walk starts loading a face's offset and, later, its rows: faces are
// queued in breadth-first order, scattered over the mesh, and overlapping their cache misses is what makes
// walking a large shell fast.
constexpr std::size_t kOffsetAhead = 16;
constexpr std::size_t kRowsAhead = 8;

void prefetch(const void* address) {
#if defined(__GNUC__)
    __builtin_prefetch(address);
#else
    (void)address;
#endif
}

// The common case of getOrderedFaceEdges without its sweeps: in a face whose corners all differ and that
// has (a, b) as an edge, the ordering walks round the face from that edge in the direction a to b. Calls
// emit(across, from, to) for each edge in walking order with the face across it (`faces`, one per face
// edge); false (nothing emitted) for any other face.
template <class Emit> bool walkSimpleFace(int a, int b, IndexRange corners, IndexRange faces, Emit&& emit) {
    const int n = corners.size();
    int entry = -1;
    bool forward = true;
    for (int k = 0; k < n; ++k) {
        const int v = corners[k];
        for (int j = k + 1; j < n; ++j)
            if (corners[j] == v) return false;
        const int w = corners[k + 1 == n ? 0 : k + 1];
        if ((v == a && w == b) || (v == b && w == a)) {
            entry = k;
            forward = v == a;
        }
    }
    if (entry == -1) return false;
    for (int step = 0, k = entry; step < n; ++step) {
        const int next = k + 1 == n ? 0 : k + 1;
        if (forward) {
            emit(faces[k], corners[k], corners[next]);
            k = next;
        } else {
            emit(faces[k], corners[next], corners[k]);
            k = k == 0 ? n - 1 : k - 1;
        }
    }
    return true;
}

} // namespace

std::vector<int> getFacesAcross(const MeshTopology& topology) {
    std::vector<int> across(topology.faceConnects().size());
    std::size_t i = 0;
    for (int face = 0; face < topology.numFaces(); ++face)
        for (int edge : topology.faceEdges(face))
            across[i++] = getOppositeEdgeFace(face, topology.edgeFaces(edge));
    return across;
}

Traversal::Traversal(const MeshTopology& topology)
    : vertexVisited_(std::size_t(topology.numVertices()), 0),
      faceVisited_(std::size_t(topology.numFaces()), 0) {
    order.reserve(std::size_t(topology.numVertices()));
    queue_.reserve(std::size_t(topology.numFaces()));
}

void traverseMesh(const MeshTopology& topology, const std::vector<int>& facesAcross, int startFace, int a,
                  int b, int shellFaceCount, Traversal& walk) {
    walk.order.clear();
    walk.complete = false;
    std::vector<Traversal::Entry>& queue = walk.queue_;
    queue.clear();
    if (startFace < 0 || startFace >= topology.numFaces() ||
        walk.faceVisited_.size() != std::size_t(topology.numFaces()) ||
        walk.vertexVisited_.size() != std::size_t(topology.numVertices()) ||
        facesAcross.size() != topology.faceConnects().size())
        return;
    std::vector<char>& vertexVisited = walk.vertexVisited_;
    std::vector<char>& faceVisited = walk.faceVisited_;
    faceVisited[std::size_t(startFace)] = 1;
    queue.push_back({startFace, a, b});

    const auto visit = [&](int vertex) {
        if (vertex < 0 || vertexVisited[std::size_t(vertex)]) return;
        vertexVisited[std::size_t(vertex)] = 1;
        walk.order.push_back(vertex);
    };
    const std::size_t expected = shellFaceCount > 0 ? std::size_t(shellFaceCount) : 0;
    std::size_t i = 0;
    const std::vector<int>& offsets = topology.faceOffsets();
    for (; i < expected && i < queue.size(); ++i) {
        if (i + kOffsetAhead < queue.size()) prefetch(&offsets[std::size_t(queue[i + kOffsetAhead].face)]);
        if (i + kRowsAhead < queue.size()) {
            const std::size_t first = std::size_t(offsets[std::size_t(queue[i + kRowsAhead].face)]);
            prefetch(topology.faceConnects().data() + first);
            prefetch(facesAcross.data() + first);
        }
        const Traversal::Entry current = queue[i];
        const auto walkEdge = [&](int across, int from, int to) {
            visit(from);
            visit(to);
            if (across == -1 || faceVisited[std::size_t(across)]) return;
            faceVisited[std::size_t(across)] = 1;
            queue.push_back({across, from, to});
        };
        const IndexRange corners = topology.faceVertices(current.face);
        const int* acrossFirst = facesAcross.data() + (corners.begin() - topology.faceConnects().data());
        if (walkSimpleFace(current.from, current.to, corners, {acrossFirst, acrossFirst + corners.size()},
                           walkEdge))
            continue;
        // Edge k of a face joins its corners k and k + 1. Reading the ends from the face's own row, not
        // from the edge table, saves a scattered read per edge; the ordering takes either vertex order.
        std::vector<int>& ends = walk.edgeVertices_;
        ends.clear();
        for (int k = 0; k < corners.size(); ++k) {
            ends.push_back(corners[k]);
            ends.push_back(corners[(k + 1) % corners.size()]);
        }
        getOrderedFaceEdges(current.from, current.to, topology.faceEdges(current.face), ends,
                            walk.orderedEdges_, walk.orderedFrom_, walk.orderedTo_, walk.remaining_);
        for (std::size_t k = 0; k < walk.orderedEdges_.size(); ++k)
            walkEdge(getOppositeEdgeFace(current.face, topology.edgeFaces(walk.orderedEdges_[k])),
                     walk.orderedFrom_[k], walk.orderedTo_[k]);
    }
    walk.complete = i == expected;
    // Leave the flags cleared for the next walk.
    for (int vertex : walk.order) vertexVisited[std::size_t(vertex)] = 0;
    for (const Traversal::Entry& entry : queue) faceVisited[std::size_t(entry.face)] = 0;
}

} // namespace core
