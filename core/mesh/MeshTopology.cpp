#include "core/mesh/MeshTopology.h"

#include <climits>
#include <cstddef>
#include <new>

#include "core/mesh/PairOccurrences.h"

namespace core {

namespace {

// Face vertices and edges are limited so that every adjacency table (vertex edges hold two entries per
// edge) stays addressable with int offsets.
constexpr std::size_t kMaxIndices = INT_MAX / 2;

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

// Lists for every item (vertex or edge) the faces whose rows (`items` laid out by `faceOffsets`) contain
// it, each face once.
void buildItemFaces(CompressedRows& itemFaces, int numItems, const std::vector<int>& faceOffsets,
                    const std::vector<int>& items) {
    std::vector<int> lastFace;
    itemFaces.build(numItems, [&](auto&& emit) {
        lastFace.assign(static_cast<std::size_t>(numItems), -1);
        for (std::size_t f = 0; f + 1 < faceOffsets.size(); ++f) {
            for (int i = faceOffsets[f]; i < faceOffsets[f + 1]; ++i) {
                const int item = items[static_cast<std::size_t>(i)];
                if (lastFace[static_cast<std::size_t>(item)] == int(f)) continue;
                lastFace[static_cast<std::size_t>(item)] = int(f);
                emit(item, int(f));
            }
        }
    });
}

} // namespace

std::string MeshTopology::build(int numVertices, std::vector<int> faceCounts, std::vector<int> faceConnects,
                                unsigned tables) try {
    clear();
    if (std::string error = checkVertexCount(numVertices); !error.empty()) return error;
    if (std::string error = checkFaceCounts(faceCounts, faceConnects.size(), "vertex indices");
        !error.empty())
        return error;

    std::vector<int> offsets = offsetsOf(faceCounts);
    for (std::size_t f = 0; f < faceCounts.size(); ++f) {
        const int n = faceCounts[f];
        const int* v = faceConnects.data() + offsets[f];
        for (int k = 0; k < n; ++k) {
            if (v[k] < 0 || v[k] >= numVertices) return vertexRangeError("face " + str(f), v[k], numVertices);
        }
        for (int k = 0; k < n; ++k) {
            if (v[k] == v[k + 1 == n ? 0 : k + 1])
                return "face " + str(f) + " has a degenerate edge: vertex " + str(v[k]) + " follows itself";
        }
    }

    // Face edge k joins the face's vertices k and k + 1. The first face edge of each vertex pair becomes an
    // edge, numbered in face order and keeping its face's vertex order; a later one of the same pair takes
    // that edge.
    const auto visitFaceEdges = [&](auto&& emit) {
        for (std::size_t f = 0; f < faceCounts.size(); ++f) {
            const int n = faceCounts[f];
            const int* v = faceConnects.data() + offsets[f];
            for (int k = 0; k < n; ++k) emit(v[k], v[k + 1 == n ? 0 : k + 1]);
        }
    };
    std::vector<int> faceEdges;
    firstPairOccurrences(numVertices, faceConnects.size(), visitFaceEdges, faceEdges);
    std::size_t numEdges = 0;
    for (std::size_t i = 0; i < faceEdges.size(); ++i) numEdges += faceEdges[i] == int(i);
    std::vector<int> edgeVertices;
    edgeVertices.reserve(2 * numEdges);
    std::size_t i = 0;
    visitFaceEdges([&](int a, int b) {
        const int first = faceEdges[i];
        if (first == int(i)) {
            faceEdges[i] = static_cast<int>(edgeVertices.size() / 2);
            edgeVertices.push_back(a);
            edgeVertices.push_back(b);
        } else {
            // The first occurrence lies earlier and already holds its edge.
            faceEdges[i] = faceEdges[static_cast<std::size_t>(first)];
        }
        ++i;
    });

    numVertices_ = numVertices;
    faceCounts_ = std::move(faceCounts);
    faces_.assign(std::move(offsets), std::move(faceConnects));
    faceEdges_ = std::move(faceEdges);
    edgeVertices_ = std::move(edgeVertices);
    buildAdjacency(tables);
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

    // Edges are checked in order: the first edge that is wrong on its own or repeats an earlier edge's
    // vertex pair is reported.
    const int numEdges = static_cast<int>(edgeVertices.size() / 2);
    int valid = 0;
    std::string invalid;
    for (; valid < numEdges; ++valid) {
        const int a = edgeVertices[2 * std::size_t(valid)], b = edgeVertices[2 * std::size_t(valid) + 1];
        for (int v : {a, b}) {
            if (invalid.empty() && (v < 0 || v >= numVertices))
                invalid = vertexRangeError("edge " + str(valid), v, numVertices);
        }
        if (invalid.empty() && a == b)
            invalid = "edge " + str(valid) + " joins vertex " + str(a) + " to itself";
        if (!invalid.empty()) break;
    }
    std::vector<int> first;
    firstPairOccurrences(
        numVertices, std::size_t(valid),
        [&](auto&& emit) {
            for (std::size_t e = 0; e < std::size_t(valid); ++e)
                emit(edgeVertices[2 * e], edgeVertices[2 * e + 1]);
        },
        first);
    for (int e = 0; e < valid; ++e) {
        if (first[std::size_t(e)] != e)
            return "edges " + str(first[std::size_t(e)]) + " and " + str(e) + " both join vertices " +
                   str(edgeVertices[2 * std::size_t(e)]) + " and " +
                   str(edgeVertices[2 * std::size_t(e) + 1]);
    }
    if (!invalid.empty()) return invalid;
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

    numVertices_ = numVertices;
    faceCounts_ = faceEdgeCounts;
    faces_.assign(std::move(offsets), std::move(faceConnects));
    faceEdges_ = std::move(faceEdges);
    edgeVertices_ = edgeVertices;
    buildAdjacency(kAllTables);
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

void MeshTopology::release(unsigned tables) {
    if (tables & kEdgeFaces) edgeFaces_ = CompressedRows();
    if (tables & kVertexFaces) vertexFaces_ = CompressedRows();
    if (tables & kVertexEdges) {
        vertexEdges_ = CompressedRows();
        std::vector<int>().swap(vertexVertices_);
    }
}

void MeshTopology::clear() {
    *this = MeshTopology();
}

void MeshTopology::buildAdjacency(unsigned tables) {
    if (tables & kEdgeFaces) buildItemFaces(edgeFaces_, numEdges(), faces_.offsets(), faceEdges_);
    if (tables & kVertexFaces) buildItemFaces(vertexFaces_, numVertices_, faces_.offsets(), faces_.items());
    if (!(tables & kVertexEdges)) return;
    // Each vertex's edges in ascending order, with the vertex across each edge beside it.
    vertexEdges_.build(
        numVertices_,
        [&](auto&& emit) {
            for (std::size_t i = 0; i < edgeVertices_.size(); i += 2) {
                const int a = edgeVertices_[i], b = edgeVertices_[i + 1], edge = static_cast<int>(i / 2);
                emit(a, edge, b);
                emit(b, edge, a);
            }
        },
        vertexVertices_);
}

} // namespace core
