#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/mesh/CompressedRows.h"

namespace core {

// Topology of a polygon mesh: faces, edges numbered the way Maya numbers them, and face, edge and vertex
// adjacency stored as compressed rows. Accessors return an empty range for an index outside the mesh.
//
// Adjacency order: edgeFaces and vertexFaces list faces in ascending face order; vertexEdges lists edges
// in ascending edge order and vertexVertices(v)[i] is the other end of vertexEdges(v)[i]. A face that
// passes a vertex or an edge twice is listed once for it.
class MeshTopology {
public:
    // The adjacency tables built besides faces, face edges and edge vertices, so that a caller that reads
    // only some of them does not pay for the others; a table not built reads as empty rows.
    enum Tables : unsigned {
        kEdgeFaces = 1u,
        kVertexFaces = 2u,
        kVertexEdges = 4u, // with vertexVertices
        kAllTables = 7u,
    };

    // Builds from the vertex count of each face and the face vertex indices, face after face (both kept,
    // so pass them moved when the caller has no further use for them). Edges are numbered in face order:
    // edge (v[k], v[k+1]) of a face gets the next index unless the unordered pair was seen before, and
    // keeps the vertex order of the face that created it. Returns an empty string on success, otherwise
    // what is wrong with the input; on failure the topology is left empty.
    std::string build(int numVertices, std::vector<int> faceCounts, std::vector<int> faceConnects,
                      unsigned tables = kAllTables);

    // Builds from explicit edges and faces as Maya ASCII stores them: `edgeVertices` holds v0 v1 per edge,
    // a face lists `faceEdgeCounts[f]` signed edge references where r >= 0 walks edge r from v0 to v1 and
    // r < 0 walks edge -r-1 from v1 to v0. The given edge order is the edge numbering; edges used by no
    // face are kept. Returns an empty string on success; on failure the topology is left empty.
    std::string buildFromEdges(int numVertices, const std::vector<int>& edgeVertices,
                               const std::vector<int>& faceEdgeCounts, const std::vector<int>& faceEdgeRefs);

    // Drops the given adjacency tables, which read as empty rows from then on, so that later work reuses
    // their memory.
    void release(unsigned tables);

    int numVertices() const { return numVertices_; }
    int numEdges() const { return static_cast<int>(edgeVertices_.size() / 2); }
    int numFaces() const { return faces_.numRows(); }

    const std::vector<int>& faceCounts() const { return faceCounts_; }
    const std::vector<int>& faceConnects() const { return faces_.items(); }
    // Where each face's vertices start in faceConnects (numFaces + 1 entries, the last one its size).
    const std::vector<int>& faceOffsets() const { return faces_.offsets(); }
    // Both vertices of every edge, edge after edge.
    const std::vector<int>& edgeVertexList() const { return edgeVertices_; }

    IndexRange faceVertices(int face) const { return faces_.row(face); }
    // Edge k of a face joins its vertices k and k + 1.
    IndexRange faceEdges(int face) const { return faces_.row(face, faceEdges_); }
    // {-1, -1} for an edge outside the mesh.
    std::array<int, 2> edgeVertices(int edge) const;
    IndexRange edgeFaces(int edge) const { return edgeFaces_.row(edge); }
    IndexRange vertexFaces(int vertex) const { return vertexFaces_.row(vertex); }
    IndexRange vertexEdges(int vertex) const { return vertexEdges_.row(vertex); }
    IndexRange vertexVertices(int vertex) const { return vertexEdges_.row(vertex, vertexVertices_); }

private:
    void clear();
    void buildAdjacency(unsigned tables);

    int numVertices_ = 0;
    std::vector<int> faceCounts_;
    CompressedRows faces_;
    std::vector<int> faceEdges_; // laid out like the face vertices

    std::vector<int> edgeVertices_;
    CompressedRows edgeFaces_;
    CompressedRows vertexFaces_;
    CompressedRows vertexEdges_;
    std::vector<int> vertexVertices_; // laid out like the vertex edges
};

} // namespace core
