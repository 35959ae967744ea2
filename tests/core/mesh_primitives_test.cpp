#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <tuple>

#include "core/mesh/MeshTopology.h"
#include "core/mesh/Primitives.h"

using core::PolyMesh;

namespace {

using Point = std::array<double, 3>;

Point pointOf(const PolyMesh& mesh, int v) {
    return {mesh.points[3 * v], mesh.points[3 * v + 1], mesh.points[3 * v + 2]};
}

void expectPoint(const PolyMesh& mesh, int v, Point expected) {
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(pointOf(mesh, v)[i], expected[i], 1e-6) << "vertex " << v << " axis " << i;
}

// Makes a primitive from its options in flag order: 'c' cube (w h d sx sy sz), 'p' plane (w h sx sy),
// 's' sphere (r sx sy).
std::string make(char kind, const std::vector<double>& o, PolyMesh& mesh) {
    if (kind == 'c') return core::makePolyCube({o[0], o[1], o[2], int(o[3]), int(o[4]), int(o[5])}, mesh);
    if (kind == 'p') return core::makePolyPlane({o[0], o[1], int(o[2]), int(o[3])}, mesh);
    return core::makePolySphere({o[0], int(o[1]), int(o[2])}, mesh);
}

std::vector<int> faceOf(const PolyMesh& mesh, int face) {
    int first = 0;
    for (int f = 0; f < face; ++f) first += mesh.faceCounts[f];
    return {mesh.faceConnects.begin() + first, mesh.faceConnects.begin() + first + mesh.faceCounts[face]};
}

} // namespace

TEST(Primitives, DefaultsMatchMayasLayout) {
    PolyMesh cube, plane, sphere;
    ASSERT_EQ(core::makePolyCube({}, cube), "");
    ASSERT_EQ(core::makePolyPlane({}, plane), "");
    ASSERT_EQ(core::makePolySphere({}, sphere), "");

    const std::vector<double> cubePoints = {-0.5, -0.5, 0.5,  0.5,  -0.5, 0.5, -0.5, 0.5,
                                            0.5,  0.5,  0.5,  0.5,  -0.5, 0.5, -0.5, 0.5,
                                            0.5,  -0.5, -0.5, -0.5, -0.5, 0.5, -0.5, -0.5};
    EXPECT_EQ(cube.points, cubePoints);
    EXPECT_EQ(cube.faceCounts, std::vector<int>(6, 4));
    EXPECT_EQ(cube.faceConnects,
              std::vector<int>({0, 1, 3, 2, 2, 3, 5, 4, 4, 5, 7, 6, 6, 7, 1, 0, 1, 7, 5, 3, 6, 0, 2, 4}));

    ASSERT_EQ(plane.numVertices(), 121);
    expectPoint(plane, 0, {-0.5, 0, 0.5});
    expectPoint(plane, 10, {0.5, 0, 0.5});
    expectPoint(plane, 11, {-0.5, 0, 0.4});
    expectPoint(plane, 120, {0.5, 0, -0.5});
    EXPECT_EQ(faceOf(plane, 0), std::vector<int>({0, 1, 12, 11}));
    EXPECT_EQ(faceOf(plane, 99), std::vector<int>({108, 109, 120, 119}));

    ASSERT_EQ(sphere.numVertices(), 382);
    expectPoint(sphere, 0, {0.148778, -0.987688, -0.048341});
    expectPoint(sphere, 4, {0, -0.987688, -0.156435});
    expectPoint(sphere, 19, {0.156435, -0.987688, 0});
    expectPoint(sphere, 380, {0, -1, 0});
    expectPoint(sphere, 381, {0, 1, 0});
    EXPECT_EQ(faceOf(sphere, 0), std::vector<int>({0, 1, 21, 20}));
    EXPECT_EQ(faceOf(sphere, 359), std::vector<int>({359, 340, 360, 379}));
    EXPECT_EQ(faceOf(sphere, 360), std::vector<int>({380, 1, 0}));
    EXPECT_EQ(faceOf(sphere, 399), std::vector<int>({379, 360, 381}));
}

TEST(Primitives, CountsAndOutwardWindingForSubdivisions) {
    struct Case {
        char kind;
        std::vector<double> options;
        int vertices, edges, faces;
    };
    const Case cases[] = {
        {'c', {1, 1, 1, 1, 1, 1}, 8, 12, 6},   {'c', {2, 3, 4, 2, 3, 4}, 54, 104, 52},
        {'c', {1, 1, 1, 3, 1, 2}, 24, 44, 22}, {'c', {1, 1, 1, 1, 5, 1}, 24, 44, 22},
        {'p', {1, 1, 10, 10}, 121, 220, 100},  {'p', {4, 2, 3, 1}, 8, 10, 3},
        {'s', {1, 20, 20}, 382, 780, 400},     {'s', {2, 3, 2}, 5, 9, 6},
        {'s', {1, 8, 5}, 34, 72, 40},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(1, c.kind) + " with " + std::to_string(c.vertices) + " vertices");
        PolyMesh mesh;
        ASSERT_EQ(make(c.kind, c.options, mesh), "");
        core::MeshTopology topo;
        ASSERT_EQ(topo.build(mesh.numVertices(), mesh.faceCounts, mesh.faceConnects), "");
        EXPECT_EQ(topo.numVertices(), c.vertices);
        EXPECT_EQ(topo.numEdges(), c.edges);
        EXPECT_EQ(topo.numFaces(), c.faces);
        const bool closed = c.kind != 'p';
        EXPECT_EQ(c.vertices - c.edges + c.faces, closed ? 2 : 1);

        // Consistent winding: each edge is walked once forwards and, if a second face has it, once backwards.
        std::vector<std::array<int, 2>> walks(topo.numEdges());
        for (int f = 0; f < topo.numFaces(); ++f) {
            const core::IndexRange verts = topo.faceVertices(f), edges = topo.faceEdges(f);
            for (int k = 0; k < edges.size(); ++k)
                ++walks[edges[k]][topo.edgeVertices(edges[k])[0] == verts[k] ? 0 : 1];
        }
        for (int e = 0; e < topo.numEdges(); ++e) {
            EXPECT_EQ(walks[e][0], 1) << "edge " << e;
            EXPECT_EQ(walks[e][1], closed || topo.edgeFaces(e).size() == 2 ? 1 : 0) << "edge " << e;
        }
        // Outward: the face normal points away from the centre (for the plane: upwards).
        for (int f = 0; f < topo.numFaces(); ++f) {
            Point normal{}, centre{};
            const core::IndexRange verts = topo.faceVertices(f);
            for (int k = 0; k < verts.size(); ++k) {
                const Point p = pointOf(mesh, verts[k]), q = pointOf(mesh, verts[(k + 1) % verts.size()]);
                for (int i = 0; i < 3; ++i) {
                    normal[i] += (p[(i + 1) % 3] - q[(i + 1) % 3]) * (p[(i + 2) % 3] + q[(i + 2) % 3]);
                    centre[i] += p[i] / verts.size();
                }
            }
            const double facing =
                closed ? normal[0] * centre[0] + normal[1] * centre[1] + normal[2] * centre[2] : normal[1];
            EXPECT_GT(facing, 0.0) << "face " << f;
        }
    }
}

TEST(Primitives, RejectsBadOptionsAndLeavesTheMeshAlone) {
    const double inf = std::numeric_limits<double>::infinity(),
                 nan = std::numeric_limits<double>::quiet_NaN();
    const std::tuple<char, std::vector<double>, const char*> cases[] = {
        {'c', {0, 1, 1, 1, 1, 1}, "width must be a positive number"},
        {'c', {1, nan, 1, 1, 1, 1}, "height must be"},
        {'c', {1, 1, -2, 1, 1, 1}, "depth must be"},
        {'c', {1, 1, 1, 0, 1, 1}, "subdivisionsX must be between 1 and 100000 (got 0)"},
        {'c', {1, 1, 1, 1, 100001, 1}, "subdivisionsY must be between"},
        {'c', {1, 1, 1, 100000, 100000, 100000}, "the mesh would have 60000000002 vertices"},
        {'p', {inf, 1, 10, 10}, "width must be"},
        {'p', {1, 1, 10, -3}, "subdivisionsY must be between 1"},
        {'p', {1, 1, 5000, 5000}, "at most 16777216 are supported"},
        {'s', {-1, 20, 20}, "radius must be"},
        {'s', {1, 2, 20}, "subdivisionsX must be between 3"},
        {'s', {1, 20, 1}, "subdivisionsY must be between 2"},
        {'s', {1, 100000, 100000}, "the mesh would have"},
    };
    for (const auto& [kind, options, message] : cases) {
        PolyMesh mesh;
        mesh.faceCounts = {7};
        const std::string error = make(kind, options, mesh);
        EXPECT_NE(error.find(message), std::string::npos) << error;
        EXPECT_EQ(mesh.faceCounts, std::vector<int>({7}));
    }
}
