#include "core/mesh/MeshTopology.h"

#include <climits>
#include <cstddef>
#include <new>

#include "core/mesh/EdgeMap.h"

namespace core {

namespace {

// Face vertices and edges are limited so that every adjacency table (vertex edges hold two entries per
// edge) stays addressable with int offsets.
constexpr std::size_t kMaxIndices = INT_MAX / 2;

// How many face vertices ahead the edge numbering prefetches hash slots.
constexpr std::size_t kPrefetchDistance = 16;

std::string str(long long value) {
    return std::to_string(value);
}

// Checks that every face lists at least three items and that the counts add up to `total`.
std::string checkFaceCounts(const std::vector<int>& counts, std::size_t total, const char* items) {
    if (counts.size() > kMaxIndices || total > kMaxIndices)
        return "the mesh is too large: at most " + str(kMaxIndices) + " face " + items + " are supported";
    long long sum = 0;
    for (std::size_t f = 0; f < counts.size(); ++f) {
        if (counts[f] < 3)
            return "face " + str(f) + " has " + str(counts[f]) + " " + items + "; a face needs at least 3";
        sum += counts[f];
    }
    if (sum != static_cast<long long>(total))
        return "the face counts add up to " + str(sum) + " " + items + ", but " + str(total) + " were given";
    return {};
}

std::string checkVertexCount(int numVertices) {
    if (numVertices < 0) return "the vertex count " + str(numVertices) + " is negative";
    if (static_cast<std::size_t>(numVertices) > kMaxIndices)
        return "the mesh is too large: at most " + str(kMaxIndices) + " vertices are supported";
    return {};
}

// Memory runs out only for meshes near the size limits; the caller gets a message, not an exception.
const char* const kOutOfMemory = "not enough memory for the mesh topology";

std::vector<int> offsetsOf(const std::vector<int>& counts) {
    std::vector<int> offsets(counts.size() + 1, 0);
    for (std::size_t f = 0; f < counts.size(); ++f) offsets[f + 1] = offsets[f] + counts[f];
    return offsets;
}

std::string vertexRangeError(const std::string& user, int vertex, int numVertices) {
    return user + " uses vertex " + str(vertex) + ", but the mesh has " + str(numVertices) + " vertices";
}

// Lists for every item (vertex or edge) the faces whose rows in `faceItems` contain it, each face once.
void buildItemFaces(CompressedRows& itemFaces, int numItems, const CompressedRows& faceItems) {
    std::vector<int> lastFace;
    itemFaces.build(numItems, [&](auto&& emit) {
        lastFace.assign(static_cast<std::size_t>(numItems), -1);
        for (int f = 0; f < faceItems.numRows(); ++f) {
            for (int item : faceItems.row(f)) {
                if (lastFace[item] == f) continue;
                lastFace[item] = f;
                emit(item, f);
            }
        }
    });
}

// Lists for every vertex, in ascending edge order, either its edges or the vertices across them.
void buildVertexRows(CompressedRows& rows, int numVertices, const std::vector<int>& edgeVertices,
                     bool otherEnd) {
    rows.build(numVertices, [&](auto&& emit) {
        for (std::size_t i = 0; i < edgeVertices.size(); i += 2) {
            const int a = edgeVertices[i], b = edgeVertices[i + 1], edge = static_cast<int>(i / 2);
            emit(a, otherEnd ? b : edge);
            emit(b, otherEnd ? a : edge);
        }
    });
}

} // namespace

std::string MeshTopology::build(int numVertices, const std::vector<int>& faceCounts,
                                const std::vector<int>& faceConnects) try {
    clear();
    if (std::string error = checkVertexCount(numVertices); !error.empty()) return error;
    if (std::string error = checkFaceCounts(faceCounts, faceConnects.size(), "vertex indices");
        !error.empty())
        return error;

    std::vector<int> offsets = offsetsOf(faceCounts);
    std::vector<int> faceEdges(faceConnects.size());
    std::vector<int> edgeVertices;
    edgeVertices.reserve(faceConnects.size());
    EdgeMap edgeMap(faceConnects.size() / 2);
    for (std::size_t f = 0; f < faceCounts.size(); ++f) {
        const int n = faceCounts[f];
        const int* v = faceConnects.data() + offsets[f];
        for (int k = 0; k < n; ++k) {
            if (v[k] < 0 || v[k] >= numVertices) return vertexRangeError("face " + str(f), v[k], numVertices);
        }
        for (int k = 0; k < n; ++k) {
            const std::size_t ahead = static_cast<std::size_t>(offsets[f] + k) + kPrefetchDistance;
            if (ahead + 1 < faceConnects.size())
                edgeMap.prefetch(faceConnects[ahead], faceConnects[ahead + 1]);
            const int a = v[k], b = v[k + 1 == n ? 0 : k + 1];
            if (a == b)
                return "face " + str(f) + " has a degenerate edge: vertex " + str(a) + " follows itself";
            const int newEdge = static_cast<int>(edgeVertices.size() / 2);
            const int edge = edgeMap.findOrInsert(a, b, newEdge);
            if (edge == newEdge) {
                edgeVertices.push_back(a);
                edgeVertices.push_back(b);
            }
            faceEdges[static_cast<std::size_t>(offsets[f] + k)] = edge;
        }
    }

    faceCounts_ = faceCounts;
    faces_.assign(offsets, faceConnects);
    faceEdges_.assign(std::move(offsets), std::move(faceEdges));
    edgeVertices_ = std::move(edgeVertices);
    buildAdjacency(numVertices);
    return {};
} catch (const std::bad_alloc&) {
    clear();
    return kOutOfMemory;
}

std::string MeshTopology::buildFromEdges(int numVertices, const std::vector<int>& edgeVertices,
                                         const std::vector<int>& faceEdgeCounts,
                                         const std::vector<int>& faceEdgeRefs) try {
    clear();
    if (std::string error = checkVertexCount(numVertices); !error.empty()) return error;
    if (edgeVertices.size() % 2 != 0)
        return "the edge list holds " + str(edgeVertices.size()) +
               " vertex indices, which is not a list of pairs";
    if (edgeVertices.size() / 2 > kMaxIndices)
        return "the mesh is too large: at most " + str(kMaxIndices) + " edges are supported";

    const int numEdges = static_cast<int>(edgeVertices.size() / 2);
    EdgeMap edgeMap(static_cast<std::size_t>(numEdges));
    for (int e = 0; e < numEdges; ++e) {
        const int a = edgeVertices[2 * e], b = edgeVertices[2 * e + 1];
        for (int v : {a, b}) {
            if (v < 0 || v >= numVertices) return vertexRangeError("edge " + str(e), v, numVertices);
        }
        if (a == b) return "edge " + str(e) + " joins vertex " + str(a) + " to itself";
        const int first = edgeMap.findOrInsert(a, b, e);
        if (first != e)
            return "edges " + str(first) + " and " + str(e) + " both join vertices " + str(a) + " and " +
                   str(b);
    }
    if (std::string error = checkFaceCounts(faceEdgeCounts, faceEdgeRefs.size(), "edge references");
        !error.empty())
        return error;

    // A face's vertices are the start vertices of its edges as walked; each edge must end where the next
    // one starts, the last one where the first one starts.
    std::vector<int> offsets = offsetsOf(faceEdgeCounts);
    std::vector<int> faceConnects(faceEdgeRefs.size());
    std::vector<int> faceEdges(faceEdgeRefs.size());
    std::vector<int> ends(faceEdgeRefs.size());
    for (std::size_t f = 0; f < faceEdgeCounts.size(); ++f) {
        const int n = faceEdgeCounts[f];
        const std::size_t first = static_cast<std::size_t>(offsets[f]);
        for (std::size_t i = first; i < first + static_cast<std::size_t>(n); ++i) {
            const int ref = faceEdgeRefs[i];
            const bool reversed = ref < 0;
            const int edge = reversed ? -(ref + 1) : ref;
            if (edge >= numEdges)
                return "face " + str(f) + " refers to edge " + str(edge) + (reversed ? " (reversed)" : "") +
                       ", but the mesh has " + str(numEdges) + " edges";
            faceEdges[i] = edge;
            faceConnects[i] = edgeVertices[2 * edge + (reversed ? 1 : 0)];
            ends[i] = edgeVertices[2 * edge + (reversed ? 0 : 1)];
        }
        for (int k = 0; k < n; ++k) {
            const std::size_t i = first + static_cast<std::size_t>(k);
            const std::size_t next = first + static_cast<std::size_t>((k + 1) % n);
            if (ends[i] != faceConnects[next])
                return "face " + str(f) + " is not a closed chain of edges: edge " + str(faceEdges[i]) +
                       " ends at vertex " + str(ends[i]) + ", but edge " + str(faceEdges[next]) +
                       " starts at vertex " + str(faceConnects[next]);
        }
    }

    faceCounts_ = faceEdgeCounts;
    faces_.assign(offsets, std::move(faceConnects));
    faceEdges_.assign(std::move(offsets), std::move(faceEdges));
    edgeVertices_ = edgeVertices;
    buildAdjacency(numVertices);
    return {};
} catch (const std::bad_alloc&) {
    clear();
    return kOutOfMemory;
}

std::array<int, 2> MeshTopology::edgeVertices(int edge) const {
    if (edge < 0 || edge >= numEdges()) return {-1, -1};
    return {edgeVertices_[2 * static_cast<std::size_t>(edge)],
            edgeVertices_[2 * static_cast<std::size_t>(edge) + 1]};
}

void MeshTopology::clear() {
    *this = MeshTopology();
}

void MeshTopology::buildAdjacency(int numVertices) {
    buildItemFaces(edgeFaces_, numEdges(), faceEdges_);
    buildItemFaces(vertexFaces_, numVertices, faces_);
    buildVertexRows(vertexEdges_, numVertices, edgeVertices_, false);
    buildVertexRows(vertexVertices_, numVertices, edgeVertices_, true);
}

} // namespace core
