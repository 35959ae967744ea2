// The topological mirror map of whole meshes: shells symmetric in themselves, mirrored shell pairs,
// shuffled numbering, bent halves, and the cases the mapping must refuse or report.
#include "core/mesh/Primitives.h"
#include "core/symmetry/PositionalSymmetry.h"
#include "tests/support/SymmetricMeshes.h"
#include "tests/support/SymmetryPipeline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numeric>
#include <tuple>

namespace {

using symmetric::Mesh;

// A polySphere is symmetric across x = 0; partners are found by matching rounded mirrored positions.
Mesh sphere(int sx, int sy) {
    Mesh mesh;
    core::makePolySphere({1.0, sx, sy}, mesh.mesh);
    std::map<std::tuple<long, long, long>, int> at;
    const auto key = [&](int v, double sign) {
        const double* p = &mesh.mesh.points[3 * std::size_t(v)];
        return std::make_tuple(std::lround(sign * p[0] * 1e6), std::lround(p[1] * 1e6),
                               std::lround(p[2] * 1e6));
    };
    for (int v = 0; v < mesh.mesh.numVertices(); ++v) at[key(v, 1.0)] = v;
    for (int v = 0; v < mesh.mesh.numVertices(); ++v) mesh.partner.push_back(at.at(key(v, -1.0)));
    return mesh;
}

struct Shape {
    const char* name;
    Mesh mesh;
    int mappedEntries; // shells symmetric in themselves plus mirrored pairs
};

std::vector<Shape> shapes() {
    const Mesh quads = symmetric::symmetrize(symmetric::halfGrid(4, 3, 0.0, 0.0, 1));
    const Mesh mixed = symmetric::symmetrize(symmetric::halfGrid(6, 5, 0.4, 0.2, 2));
    const Mesh pair = symmetric::mirroredPair(symmetric::halfGrid(3, 2, 0.3, 0.3, 3), 20.0);
    Mesh ball = sphere(8, 6);
    for (std::size_t v = 0; v < ball.partner.size(); ++v) ball.mesh.points[3 * v + 2] += 10.0;
    const Mesh three = symmetric::merge(symmetric::merge(mixed, pair), ball);
    return {{"quads", quads, 1},
            {"triangles and n-gons", mixed, 1},
            {"poles", sphere(12, 7), 1},
            {"mirrored pair", pair, 1},
            {"three kinds of shells", three, 3}};
}

// On meshes symmetric by construction, whatever their numbering, the map is the true partner map, and
// bending one half afterwards leaves it unchanged.
TEST(SymmetryMapping, MapEqualsTheTruePartnersAndIgnoresBending) {
    for (const Shape& shape : shapes()) {
        for (unsigned int seed : {0u, 7u, 42u}) {
            const Mesh mesh = seed == 0 ? shape.mesh : symmetric::shuffle(shape.mesh, seed);
            const symmetric::MappingRun run = symmetric::mapMesh(mesh.mesh);
            ASSERT_TRUE(run.ok) << shape.name << " " << seed;
            EXPECT_FALSE(run.errors) << shape.name << " " << seed;
            EXPECT_EQ(run.mappedShells, shape.mappedEntries) << shape.name;
            EXPECT_EQ(run.map, mesh.partner) << shape.name << " " << seed;

            core::PolyMesh bent = mesh.mesh;
            symmetric::bendPositiveSide(bent, 0.05, 10.0); // mirrored pairs lie beyond x = 10
            const symmetric::MappingRun again = symmetric::mapMesh(bent);
            EXPECT_EQ(again.map, run.map) << shape.name << " " << seed << " bent";
        }
    }
}

// Two mirrored shells of equal face count whose second face differs (a quad against a triangle): the two
// walks reach different vertex counts and the run stops.
TEST(SymmetryMapping, AsymmetricTopologyStopsTheRun) {
    core::PolyMesh mesh;
    mesh.points = {3, 0,  0, 4, 0,  0, 5, 0,  0, 3, 1,  0, 4, 1,  0, 5, 1,
                   0, -3, 0, 0, -4, 0, 0, -5, 0, 0, -3, 1, 0, -4, 1, 0};
    mesh.faceCounts = {4, 4, 4, 3};
    mesh.faceConnects = {0, 1, 4, 3, 1, 2, 5, 4, 9, 10, 7, 6, 7, 10, 8};
    const symmetric::MappingRun run = symmetric::mapMesh(mesh);
    EXPECT_FALSE(run.ok);
    EXPECT_EQ(run.report.lines,
              (std::vector<std::string>{
                  "I Shell index: 0", "I Pass counts: 6, 5",
                  "E Remapping failed because the two passes have a different vertex count."}));
}

// Shells that cannot be given start components leave the errors flag raised and their vertices
// unmapped, with the reasons shown at verbose level 1.
TEST(SymmetryMapping, UnresolvedShellsAreReported) {
    const Mesh centred = symmetric::symmetrize(symmetric::halfGrid(2, 2, 0.0, 0.0, 1));
    core::PolyMesh offPlane = symmetric::halfGrid(2, 2, 0.0, 0.0, 1);
    for (std::size_t v = 0; v < std::size_t(offPlane.numVertices()); ++v) offPlane.points[3 * v] += 10.0;
    Mesh lone;
    lone.mesh = offPlane;
    lone.partner.assign(std::size_t(offPlane.numVertices()), -1);
    // One quad at x from x0 to x0 + 1.
    const auto quad = [](double x0) {
        Mesh mesh;
        mesh.mesh.points = {x0, 0, 0, x0 + 1, 0, 0, x0 + 1, 1, 0, x0, 1, 0};
        mesh.mesh.faceCounts = {4};
        mesh.mesh.faceConnects = {0, 1, 2, 3};
        mesh.partner.assign(4, -1);
        return mesh;
    };
    // Four shells of one face: the first one's mirrored box centre falls into two others.
    const Mesh crowd =
        symmetric::merge(symmetric::merge(symmetric::merge(quad(3), quad(-4)), quad(-4)), quad(20));

    struct Case {
        const char* name;
        Mesh mesh;
        std::vector<std::string> lines;
    } cases[] = {
        {"off the plane",
         symmetric::merge(centred, lone),
         {"I One or more shells have been found with no provided symmetry components and no centered "
          "vertices.",
          "I Use the following command to indicate the affected shell:",
          "I polySelect -extendToShell 8 shape;", "I 1 of 2 shells verified."}},
        {"overlapping pairs",
         crowd,
         {"I Some paired shells have an overlap which is too large.",
          "I Use the following command/s to indicate the affected shell/s:",
          "I polySelect -extendToShell 0 shape;", "I polySelect -extendToShell 1 shape;",
          "I polySelect -extendToShell 2 shape;", "I Some paired shells have an overlap which is too large.",
          "I Use the following command/s to indicate the affected shell/s:",
          "I polySelect -extendToShell 3 shape;", "I 0 of 4 shells verified."}},
    };
    for (const Case& c : cases) {
        const symmetric::MappingRun run = symmetric::mapMesh(c.mesh.mesh, 0.0001, 1);
        EXPECT_TRUE(run.ok) << c.name;
        EXPECT_TRUE(run.errors) << c.name;
        EXPECT_EQ(run.report.lines, c.lines) << c.name;
        for (std::size_t v = 0; v < run.map.size(); ++v) {
            if (c.mesh.partner[v] != -1) continue;
            EXPECT_EQ(run.map[v], -1) << c.name << " " << v;
        }
    }
}

TEST(SymmetryMapping, VerboseTwoDescribesShellsAndComponents) {
    const Mesh mesh = symmetric::symmetrize(symmetric::halfGrid(1, 1, 0.0, 0.0, 1));
    const symmetric::MappingRun run = symmetric::mapMesh(mesh.mesh, 0.0001, 2);
    EXPECT_EQ(
        run.report.lines,
        (std::vector<std::string>{
            "I Shell: 0  Start ID: 0  Faces: 2  Vertices: 6  Face ID: -1  Vertex ID: 2  BBox min: -1 0 0  "
            "BBox max: 1 1 0  ",
            "I 1 of 1 shells verified.",
            "I Components:  Face1: 0  Face2: 1  Vertex1: 2  Vertex2: 0  Shell Face Size: 2  Shell Vertex "
            "Size: 6  "}));
}

TEST(PositionalSymmetry, PartnersTestedSideAndSuggestedTolerance) {
    Mesh mesh = symmetric::symmetrize(symmetric::halfGrid(3, 2, 0.3, 0.0, 5));
    symmetric::Prepared prepared(mesh.mesh);
    std::vector<int> all(static_cast<std::size_t>(mesh.mesh.numVertices()));
    std::iota(all.begin(), all.end(), 0);
    // The mesh is its own mirror image, so the closest face on the mirrored copy is the mirror face.
    const auto closest = [&](const std::array<double, 3>& p) {
        return prepared.closestFace({-p[0], p[1], p[2]});
    };
    symmetric::RecordingReport report;
    for (bool direction : {true, false}) {
        std::vector<int> map(all.size(), -1);
        const core::PositionalCheck check = core::checkPositionalSymmetry(
            prepared.topology, prepared.points, 0, direction, 0.001, all, closest, map, report);
        EXPECT_TRUE(check.asymmetrical.empty());
        EXPECT_EQ(map, mesh.partner);
        EXPECT_DOUBLE_EQ(check.smallestCentreEdge, 1.0);
    }
    // Displacing a vertex of the tested (negative) side beyond the tolerance makes it asymmetrical.
    const int moved = mesh.partner[5];
    prepared.points[3 * std::size_t(moved) + 1] += 0.01;
    std::vector<int> map(all.size(), -1);
    const core::PositionalCheck check = core::checkPositionalSymmetry(prepared.topology, prepared.points, 0,
                                                                      true, 0.001, all, closest, map, report);
    EXPECT_EQ(check.asymmetrical, std::vector<int>{moved});
    EXPECT_TRUE(report.lines.empty());

    struct Side {
        double x;
        bool direction, tested;
    } sides[] = {{-0.1, true, true},      {0.1, true, false},      {-0.000004, true, false},
                 {-0.000006, true, true}, {0.000006, false, true}, {0.0, false, false}};
    for (const Side& s : sides) EXPECT_EQ(core::onTestedSide(s.x, s.direction), s.tested) << s.x;
}

TEST(PositionalSymmetry, ApplyingAMapRebuildsTheTestedSide) {
    const Mesh mesh = symmetric::symmetrize(symmetric::halfGrid(2, 1, 0.0, 0.0, 1));
    std::vector<double> points = mesh.mesh.points;
    for (std::size_t v = 0; v < points.size() / 3; ++v)
        if (points[3 * v] < 0) points[3 * v + 2] = 7.0; // spoil the negative side
    std::vector<int> map = mesh.partner;
    map[map.size() - 1] = -1; // an unmapped vertex keeps its position
    core::applyOrderMap(points, map, 0, true);
    for (std::size_t v = 0; v + 1 < points.size() / 3; ++v)
        for (std::size_t c = 0; c < 3; ++c)
            EXPECT_DOUBLE_EQ(points[3 * v + c], mesh.mesh.points[3 * v + c]) << v;
    EXPECT_EQ(points.back(), 7.0);
}

} // namespace
