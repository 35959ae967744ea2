// Topology queries, face edge ordering and the single walk of the topological symmetry mapping.
#include "core/symmetry/SymmetricTraversal.h"
#include "core/symmetry/TopologyQueries.h"
#include "tests/support/SymmetryPipeline.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Ints = std::vector<int>;

core::IndexRange range(const Ints& values) {
    return {values.data(), values.data() + values.size()};
}

// Two quads side by side: 0 1 2 / 3 4 5 (bottom row 0 1 2, top row 3 4 5), faces 0 = 0 1 4 3, 1 = 1 2 5 4.
core::PolyMesh strip() {
    core::PolyMesh mesh;
    mesh.points = {0, 0, 0, 1, 0, 0, 2, 0, 0, 0, 1, 0, 1, 1, 0, 2, 1, 0};
    mesh.faceCounts = {4, 4};
    mesh.faceConnects = {0, 1, 4, 3, 1, 2, 5, 4};
    return mesh;
}

TEST(SymmetryQueries, EdgeDirectionFollowsTheFaceOrder) {
    const Ints face = {3, 7, 9, 2};
    struct Case {
        Ints face;
        int a, b, expected;
    } cases[] = {{face, 2, 3, 1}, {face, 3, 2, -1}, {face, 3, 7, 1}, {face, 7, 3, -1},
                 {face, 3, 9, 0}, {face, 5, 3, 0},  {{}, 1, 2, 0}};
    for (const Case& c : cases)
        EXPECT_EQ(core::getEdgeDirection(range(c.face), c.a, c.b), c.expected) << c.a << " " << c.b;
}

TEST(SymmetryQueries, DuplicatesPairUpInOrder) {
    struct Case {
        Ints values, kept, duplicates;
    } cases[] = {{{4, 6, 4, 8, 6, 6}, {8, 6}, {4, 6}},
                 {{4, 4, 4, 4}, {}, {4, 4}},
                 {{1, 2, 3}, {1, 2, 3}, {}},
                 {{5, 5, 5}, {5}, {5}},
                 {{}, {}, {}}};
    for (const Case& c : cases) {
        Ints duplicates;
        EXPECT_EQ(core::removeIntArrayDuplicates(c.values, duplicates), c.kept);
        EXPECT_EQ(duplicates, c.duplicates);
    }
}

TEST(SymmetryQueries, EdgeFacesOfBorderAndInteriorEdges) {
    symmetric::Prepared strip2(strip());
    symmetric::RecordingReport report;
    int face1 = 0, face2 = 0;
    const int inner = core::getEdgeByVertex(strip2.topology, 1, 4);
    ASSERT_NE(inner, -1);
    EXPECT_TRUE(core::getConnectedEdgeFaces(strip2.topology, inner, face1, face2, report));
    EXPECT_EQ(face1, 0);
    EXPECT_EQ(face2, 1);
    EXPECT_FALSE(core::getConnectedEdgeFaces(strip2.topology, core::getEdgeByVertex(strip2.topology, 0, 1),
                                             face1, face2, report));
    EXPECT_EQ(face1, -1);
    EXPECT_FALSE(core::getConnectedEdgeFaces(strip2.topology, 99, face1, face2, report));
    EXPECT_EQ(report.lines, (std::vector<std::string>{"W The symmetry edge must be connected to two faces.",
                                                      "W The symmetry edge is not connected to any faces."}));
    EXPECT_EQ(core::getEdgeByVertex(strip2.topology, 0, 5), -1);
    // Edges 0-1, 3-0 and 5-4 are visited (every 3rd of the 7 edges: 0, 3, 6), all of length 1.
    EXPECT_DOUBLE_EQ(core::averageEdgeLength(strip2.topology, strip2.points, 3), 1.0);
    EXPECT_TRUE(std::isnan(core::averageEdgeLength(core::MeshTopology(), {}, 5)));
}

// Faces are listed from the entry edge in the entry direction, whatever the edges' stored order.
TEST(SymmetryQueries, FaceEdgesAreOrderedFromTheEntryEdge) {
    struct Case {
        Ints faceVertices; // the face's corners; its edges are (k, k + 1), stored in this order
        bool flipStored;   // store every edge's vertices the other way round
        int a, b;
        Ints from, to;
    } cases[] = {
        {{10, 11, 12, 13}, false, 11, 12, {11, 12, 13, 10}, {12, 13, 10, 11}},
        {{10, 11, 12, 13}, true, 12, 11, {12, 11, 10, 13}, {11, 10, 13, 12}},
        {{10, 11, 12}, false, 10, 11, {10, 11, 12}, {11, 12, 10}},
        {{1, 2, 3, 4, 5}, true, 4, 5, {4, 5, 1, 2, 3}, {5, 1, 2, 3, 4}},
        {{1, 2, 3, 4}, false, 1, 3, {3, 4, 1}, {4, 1, 2}}, // no edge 1-3: the walk goes on from 3
    };
    for (const Case& c : cases) {
        const int n = int(c.faceVertices.size());
        Ints edges, ends;
        for (int k = 0; k < n; ++k) {
            edges.push_back(100 + k);
            const int v0 = c.faceVertices[std::size_t(k)], v1 = c.faceVertices[std::size_t((k + 1) % n)];
            ends.push_back(c.flipStored ? v1 : v0);
            ends.push_back(c.flipStored ? v0 : v1);
        }
        Ints ordered, from, to, scratch;
        core::getOrderedFaceEdges(c.a, c.b, range(edges), ends, ordered, from, to, scratch);
        EXPECT_EQ(from, c.from) << c.a << " " << c.b;
        EXPECT_EQ(to, c.to) << c.a << " " << c.b;
        EXPECT_EQ(ordered.size(), c.from.size());
    }
}

TEST(SymmetryQueries, WalkOrdersVerticesByFirstVisit) {
    symmetric::Prepared two(strip());
    struct Case {
        int face, a, b, faceCount;
        Ints order;
        bool complete;
    } cases[] = {
        {0, 0, 1, 1, {0, 1, 4, 3}, true},       // one quad: a, b, then around from b
        {0, 1, 0, 1, {1, 0, 3, 4}, true},       // entered the other way: the opposite direction
        {0, 0, 1, 2, {0, 1, 4, 3, 5, 2}, true}, // the neighbour is entered through 1-4 and walked on from 4
        {1, 5, 4, 2, {5, 4, 1, 2, 0, 3}, true},
        {0, 0, 1, 3, {0, 1, 4, 3, 5, 2}, false}, // more faces asked for than the shell has
    };
    // One walk's state serves every case: each walk leaves it ready for the next.
    core::Traversal walk(two.topology);
    const std::vector<int> across = core::getFacesAcross(two.topology);
    for (const Case& c : cases) {
        core::traverseMesh(two.topology, across, c.face, c.a, c.b, c.faceCount, walk);
        EXPECT_EQ(walk.order, c.order) << c.face << " " << c.a << " " << c.b;
        EXPECT_EQ(walk.complete, c.complete);
    }
    core::traverseMesh(two.topology, across, 7, 0, 1, 1, walk);
    EXPECT_FALSE(walk.complete);
}

TEST(SymmetryQueries, ShellsAreNumberedByTheirLowestFace) {
    core::PolyMesh mesh = strip();
    // A lone triangle (face 2) and a quad (face 3) joined to the strip's second face through edge 2-5.
    mesh.points.insert(mesh.points.end(), {5, 0, 0, 6, 0, 0, 5, 1, 0, 3, 0, 0, 3, 1, 0});
    mesh.faceCounts.insert(mesh.faceCounts.end(), {3, 4});
    mesh.faceConnects.insert(mesh.faceConnects.end(), {6, 7, 8, 2, 9, 10, 5});
    symmetric::Prepared prepared(mesh);
    ASSERT_EQ(prepared.shells->numShells(), 2);
    EXPECT_EQ(Ints(prepared.shells->faces(0).begin(), prepared.shells->faces(0).end()), (Ints{0, 1, 3}));
    EXPECT_EQ(Ints(prepared.shells->faces(1).begin(), prepared.shells->faces(1).end()), (Ints{2}));
    EXPECT_EQ(prepared.shells->shellOf(3), 0);
    EXPECT_EQ(prepared.shells->shellOf(4), -1);
}

// The centre vertex is the vertex nearest the plane, also for a shell lying wholly off it; a user-given
// shell is not scanned.
TEST(SymmetryQueries, ShellDataFindsTheVertexNearestThePlane) {
    core::PolyMesh mesh = strip();
    for (std::size_t v = 0; v < 6; ++v) mesh.points[3 * v] += 0.5; // x from 0.5 to 2.5
    symmetric::Prepared prepared(mesh);
    symmetric::RecordingReport report;
    std::vector<int> seen(6, 0);
    core::ShellData data = core::getShellData(prepared.mesh(), 0, 0, {}, 0.001, seen, report);
    EXPECT_EQ(data.centreVertex, 0);
    EXPECT_EQ(data.faceCount, 2);
    EXPECT_EQ(data.vertexCount, 6);
    EXPECT_EQ(data.boxMin, (std::array<double, 3>{0.5, 0, 0}));
    EXPECT_EQ(data.boxMax, (std::array<double, 3>{2.5, 1, 0}));
    std::fill(seen.begin(), seen.end(), 0);
    data = core::getShellData(prepared.mesh(), 0, 0, {{0}, {1}}, 0.001, seen, report);
    EXPECT_EQ(data.userFace, 1);
    EXPECT_EQ(data.vertexCount, 0);
    EXPECT_EQ(data.centreVertex, -1);
}

} // namespace
