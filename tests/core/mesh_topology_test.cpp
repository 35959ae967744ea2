#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <map>
#include <random>
#include <set>

#include "core/mesh/MeshTopology.h"
#include "core/mesh/Primitives.h"

using core::IndexRange;
using core::MeshTopology;

namespace {

std::vector<int> toVector(IndexRange range) {
    return {range.begin(), range.end()};
}

// Checks every table against a plain rebuild from the faces and the edge list: face edges join the face's
// consecutive vertices, no vertex pair has two edges, and each adjacency row holds exactly the expected
// items in ascending order (vertexVertices following vertexEdges).
void expectConsistent(const MeshTopology& topo) {
    using Rows = std::vector<std::vector<int>>;
    Rows edgeFaces(topo.numEdges()), vertexFaces(topo.numVertices()), vertexEdges(topo.numVertices()),
        vertexVertices(topo.numVertices());
    auto addOnce = [](std::vector<int>& row, int face) {
        if (row.empty() || row.back() != face) row.push_back(face);
    };
    std::set<std::pair<int, int>> pairs;
    for (int e = 0; e < topo.numEdges(); ++e) {
        const auto [a, b] = topo.edgeVertices(e);
        EXPECT_TRUE(pairs.insert(std::minmax(a, b)).second) << "edge " << e;
        vertexEdges[a].push_back(e);
        vertexEdges[b].push_back(e);
        vertexVertices[a].push_back(b);
        vertexVertices[b].push_back(a);
    }
    for (int f = 0; f < topo.numFaces(); ++f) {
        const IndexRange verts = topo.faceVertices(f), edges = topo.faceEdges(f);
        ASSERT_EQ(verts.size(), edges.size());
        for (int k = 0; k < verts.size(); ++k) {
            const int next = verts[(k + 1) % verts.size()];
            EXPECT_EQ(std::minmax(topo.edgeVertices(edges[k])[0], topo.edgeVertices(edges[k])[1]),
                      std::minmax(verts[k], next))
                << "face " << f << " edge " << k;
            addOnce(edgeFaces[edges[k]], f);
            addOnce(vertexFaces[verts[k]], f);
        }
    }
    for (int e = 0; e < topo.numEdges(); ++e)
        EXPECT_EQ(toVector(topo.edgeFaces(e)), edgeFaces[e]) << "edge " << e;
    for (int v = 0; v < topo.numVertices(); ++v) {
        EXPECT_EQ(toVector(topo.vertexFaces(v)), vertexFaces[v]) << "vertex " << v;
        EXPECT_EQ(toVector(topo.vertexEdges(v)), vertexEdges[v]) << "vertex " << v;
        EXPECT_EQ(toVector(topo.vertexVertices(v)), vertexVertices[v]) << "vertex " << v;
    }
}

// Maya ASCII data of a default polyCube: `.ed` pairs and `.fc` signed edge references.
const std::vector<int> kCubeFileEdges = {0, 1, 2, 3, 4, 5, 6, 7, 0, 2, 1, 3,
                                         2, 4, 3, 5, 4, 6, 5, 7, 6, 0, 7, 1};
const std::vector<int> kCubeFileRefs = {0, 5,  -2, -5,  1,   7,   -3, -7, 2,  9, -4, -9,
                                        3, 11, -1, -11, -12, -10, -8, -6, 10, 4, 6,  8};
const std::vector<int> kQuadCounts(6, 4);

} // namespace

TEST(MeshTopology, NumbersEdgesInFaceOrderKeepingTheCreatingFacesDirection) {
    struct Case {
        core::PolyMesh mesh;
        std::vector<int> edges;
        std::vector<std::vector<int>> faceEdges;
    };
    core::PolyMesh cube, plane;
    ASSERT_EQ(core::makePolyCube({}, cube), "");
    ASSERT_EQ(core::makePolyPlane({1.0, 1.0, 2, 2}, plane), "");
    const Case cases[] = {
        {cube,
         {0, 1, 1, 3, 3, 2, 2, 0, 3, 5, 5, 4, 4, 2, 5, 7, 7, 6, 6, 4, 7, 1, 0, 6},
         {{0, 1, 2, 3}, {2, 4, 5, 6}, {5, 7, 8, 9}, {8, 10, 0, 11}, {10, 7, 4, 1}, {11, 3, 6, 9}}},
        {plane,
         {0, 1, 1, 4, 4, 3, 3, 0, 1, 2, 2, 5, 5, 4, 4, 7, 7, 6, 6, 3, 5, 8, 8, 7},
         {{0, 1, 2, 3}, {4, 5, 6, 1}, {2, 7, 8, 9}, {6, 10, 11, 7}}},
    };
    for (const Case& c : cases) {
        MeshTopology topo;
        ASSERT_EQ(topo.build(c.mesh.numVertices(), c.mesh.faceCounts, c.mesh.faceConnects), "");
        EXPECT_EQ(topo.edgeVertexList(), c.edges);
        for (int f = 0; f < topo.numFaces(); ++f) EXPECT_EQ(toVector(topo.faceEdges(f)), c.faceEdges[f]);
        expectConsistent(topo);
    }
}

TEST(MeshTopology, AdjacencyIsConsistentOnPrimitivesAndOddFaces) {
    core::PolyMesh cube, sphere;
    ASSERT_EQ(core::makePolyCube({1, 2, 3, 2, 3, 4}, cube), "");
    ASSERT_EQ(core::makePolySphere({1.0, 7, 5}, sphere), "");
    for (const core::PolyMesh* mesh : {&cube, &sphere}) {
        MeshTopology topo;
        ASSERT_EQ(topo.build(mesh->numVertices(), mesh->faceCounts, mesh->faceConnects), "");
        expectConsistent(topo);
    }
    // A face passing vertex 0 twice, edge {4, 5} shared by three faces and an unused vertex 7.
    MeshTopology odd;
    ASSERT_EQ(odd.build(8, {5, 3, 3, 3}, {0, 1, 2, 0, 3, 4, 5, 1, 4, 5, 2, 5, 4, 6}), "");
    expectConsistent(odd);
    EXPECT_EQ(toVector(odd.vertexFaces(0)), std::vector<int>({0}));
    EXPECT_EQ(toVector(odd.edgeFaces(4)), std::vector<int>({1, 2, 3}));
    EXPECT_TRUE(odd.vertexEdges(7).empty());
    EXPECT_TRUE(odd.faceVertices(4).empty());
    EXPECT_EQ(odd.edgeVertices(-1), (std::array<int, 2>{-1, -1}));
}

TEST(MeshTopology, RejectsBadFaceLists) {
    struct Case {
        int numVertices;
        std::vector<int> counts, connects;
        const char* message;
    };
    const Case cases[] = {
        {-1, {}, {}, "vertex count -1 is negative"},
        {INT_MAX, {3}, {0, 1, 2}, "at most 1073741823 vertices are supported"},
        {4, {3, 2}, {0, 1, 2, 0, 1}, "face 1 has 2 vertex indices; a face needs at least 3"},
        {4, {3, -7}, {0, 1, 2}, "face 1 has -7 vertex indices"},
        {4, {3}, {0, 1, 2, 3}, "add up to 3 vertex indices, but 4 were given"},
        {4, {INT_MAX, INT_MAX, INT_MAX}, {0, 1, 2}, "add up to 6442450941 vertex indices, but 3"},
        {4, {3}, {0, 1, 4}, "face 0 uses vertex 4, but the mesh has 4 vertices"},
        {4, {3, 3}, {0, 1, 2, 0, INT_MIN, 2}, "face 1 uses vertex -2147483648"},
        {4, {3}, {0, 1, 1}, "face 0 has a degenerate edge: vertex 1 follows itself"},
        {4, {4}, {0, 1, 2, 0}, "vertex 0 follows itself"},
    };
    for (const Case& c : cases) {
        MeshTopology topo;
        ASSERT_EQ(topo.build(4, {3}, {0, 1, 2}), "");
        const std::string error = topo.build(c.numVertices, c.counts, c.connects);
        EXPECT_NE(error.find(c.message), std::string::npos) << error;
        EXPECT_EQ(topo.numFaces() + topo.numEdges() + topo.numVertices(), 0) << "left empty after: " << error;
    }
}

TEST(MeshTopology, BuildsFromSignedEdgesKeepingTheFileNumbering) {
    core::PolyMesh cube;
    ASSERT_EQ(core::makePolyCube({}, cube), "");
    MeshTopology topo;
    ASSERT_EQ(topo.buildFromEdges(8, kCubeFileEdges, kQuadCounts, kCubeFileRefs), "");
    EXPECT_EQ(topo.faceConnects(), cube.faceConnects);
    EXPECT_EQ(topo.faceCounts(), kQuadCounts);
    EXPECT_EQ(topo.edgeVertexList(), kCubeFileEdges);
    EXPECT_EQ(toVector(topo.faceEdges(0)), std::vector<int>({0, 5, 1, 4}));
    EXPECT_EQ(toVector(topo.faceEdges(4)), std::vector<int>({11, 9, 7, 5}));
    EXPECT_EQ(toVector(topo.edgeFaces(5)), std::vector<int>({0, 4}));
    expectConsistent(topo);
}

TEST(MeshTopology, RejectsBadSignedEdgeData) {
    struct Case {
        std::vector<int> edges, counts, refs;
        const char* message;
    };
    const std::vector<int> triangle = {0, 1, 1, 2, 2, 0};
    const Case cases[] = {
        {{0, 1, 2}, {}, {}, "holds 3 vertex indices, which is not a list of pairs"},
        {{0, 1, 1, 9}, {}, {}, "edge 1 uses vertex 9, but the mesh has 8 vertices"},
        {{0, 1, 3, 3}, {}, {}, "edge 1 joins vertex 3 to itself"},
        {{0, 1, 2, 3, 1, 0}, {}, {}, "edges 0 and 2 both join vertices 1 and 0"},
        // The first fault in edge order is reported, whichever kind it is.
        {{2, 3, 0, 1, 3, 2, 4, 9, 1, 0}, {}, {}, "edges 0 and 2 both join vertices 3 and 2"},
        {{2, 3, 4, 9, 3, 2}, {}, {}, "edge 1 uses vertex 9"},
        {triangle, {3}, {0, 1, 3}, "face 0 refers to edge 3, but the mesh has 3 edges"},
        {triangle, {3}, {0, 1, -4}, "face 0 refers to edge 3 (reversed)"},
        {triangle, {3}, {0, 1, INT_MIN}, "refers to edge 2147483647 (reversed)"},
        {triangle,
         {3},
         {0, -2, 2},
         "face 0 is not a closed chain of edges: edge 0 ends at vertex 1, but edge 1 starts at vertex 2"},
        {triangle, {2, 1}, {0, 1, 2}, "face 0 has 2 edge references"},
        {triangle, {3}, {0, 1}, "add up to 3 edge references, but 2"},
    };
    for (const Case& c : cases) {
        MeshTopology topo;
        const std::string error = topo.buildFromEdges(8, c.edges, c.counts, c.refs);
        EXPECT_NE(error.find(c.message), std::string::npos) << error;
        EXPECT_EQ(topo.numEdges(), 0);
    }
}

TEST(MeshTopology, RandomInputNeverCrashesAndSignedEdgesRoundTrip) {
    std::mt19937 random(12345);
    auto pick = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(random); };
    auto value = [&](int lo, int hi) {
        return pick(0, 25) == 0 ? std::vector<int>{INT_MIN, -1, INT_MAX}[pick(0, 2)] : pick(lo, hi);
    };
    int built = 0;
    for (int iteration = 0; iteration < 3000; ++iteration) {
        const int numVertices = pick(-1, 12);
        std::vector<int> counts(pick(0, 6)), connects, refs;
        long long sum = 0;
        for (int& n : counts) sum += (n = value(2, 6));
        const long long length = pick(0, 3) > 0 && sum >= 0 && sum < 100 ? sum : pick(0, 30);
        for (long long i = 0; i < length; ++i) connects.push_back(value(0, 12));
        for (long long i = 0; i < length; ++i) refs.push_back(value(-8, 8));

        MeshTopology garbage;
        garbage.buildFromEdges(numVertices, connects, counts, refs);
        MeshTopology topo;
        if (!topo.build(numVertices, counts, connects).empty()) continue;
        ++built;
        expectConsistent(topo);
        // Edges are numbered as the face edges first meet each vertex pair, in that face's vertex order.
        std::map<std::pair<int, int>, int> numbering;
        for (int f = 0; f < topo.numFaces(); ++f) {
            const IndexRange verts = topo.faceVertices(f);
            for (int k = 0; k < verts.size(); ++k) {
                const int a = verts[k], b = verts[(k + 1) % verts.size()];
                const auto known = numbering.emplace(std::minmax(a, b), int(numbering.size()));
                if (known.second) {
                    EXPECT_EQ(topo.edgeVertices(known.first->second), (std::array<int, 2>{a, b}));
                }
                EXPECT_EQ(topo.faceEdges(f)[k], known.first->second) << "face " << f << " edge " << k;
            }
        }
        // The same mesh written as signed edges reads back identically.
        refs.clear();
        for (int f = 0; f < topo.numFaces(); ++f) {
            const IndexRange verts = topo.faceVertices(f), edges = topo.faceEdges(f);
            for (int k = 0; k < edges.size(); ++k)
                refs.push_back(topo.edgeVertices(edges[k])[0] == verts[k] ? edges[k] : -edges[k] - 1);
        }
        MeshTopology fromEdges;
        ASSERT_EQ(fromEdges.buildFromEdges(numVertices, topo.edgeVertexList(), counts, refs), "");
        EXPECT_EQ(fromEdges.faceConnects(), topo.faceConnects());
        for (int f = 0; f < topo.numFaces(); ++f)
            EXPECT_EQ(toVector(fromEdges.faceEdges(f)), toVector(topo.faceEdges(f)));
    }
    EXPECT_GT(built, 100);
}

// Building some tables or releasing others leaves exactly those tables empty; everything else reads as in a
// full build.
TEST(MeshTopology, TablesCanBeLeftOutOrReleased) {
    core::PolyMesh mesh;
    ASSERT_EQ(core::makePolyCube({1, 1, 1, 2, 1, 1}, mesh), "");
    MeshTopology full;
    ASSERT_EQ(full.build(mesh.numVertices(), mesh.faceCounts, mesh.faceConnects), "");
    using T = MeshTopology::Tables;
    for (unsigned kept = 0; kept <= MeshTopology::kAllTables; ++kept) {
        for (bool release : {false, true}) {
            MeshTopology topo;
            ASSERT_EQ(topo.build(mesh.numVertices(), mesh.faceCounts, mesh.faceConnects,
                                 release ? unsigned(MeshTopology::kAllTables) : kept),
                      "");
            if (release) topo.release(MeshTopology::kAllTables & ~kept);
            ASSERT_EQ(topo.numVertices(), full.numVertices());
            ASSERT_EQ(topo.numEdges(), full.numEdges());
            for (int f = 0; f < full.numFaces(); ++f)
                EXPECT_EQ(toVector(topo.faceEdges(f)), toVector(full.faceEdges(f)));
            const auto expect = [&](T table, IndexRange got, IndexRange all) {
                EXPECT_EQ(toVector(got), (kept & table) ? toVector(all) : std::vector<int>{})
                    << "kept " << kept << " release " << release;
            };
            for (int e = 0; e < full.numEdges(); ++e)
                expect(MeshTopology::kEdgeFaces, topo.edgeFaces(e), full.edgeFaces(e));
            for (int v = 0; v < full.numVertices(); ++v) {
                expect(MeshTopology::kVertexFaces, topo.vertexFaces(v), full.vertexFaces(v));
                expect(MeshTopology::kVertexEdges, topo.vertexEdges(v), full.vertexEdges(v));
                expect(MeshTopology::kVertexEdges, topo.vertexVertices(v), full.vertexVertices(v));
            }
        }
    }
}
