// The index's answers against a brute-force search, for points on, near and far from meshes that
// stress its pruning: dense and curved, tiny triangles beside huge ones, far from the origin,
// coincident sheets, moved by a matrix and limited to some faces.
#include "ClosestPointReference.h"
#include "mesh/ClosestPointIndex.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using reference::Vec;

struct TestMesh {
    explicit TestMesh(std::string name) : name(std::move(name)) {}

    std::string name;
    std::vector<std::array<float, 3>> points;
    std::vector<int> counts, connects;

    int addPoint(double x, double y, double z) {
        points.push_back({float(x), float(y), float(z)});
        return int(points.size()) - 1;
    }
    void addFace(std::initializer_list<int> vertices) {
        counts.push_back(int(vertices.size()));
        connects.insert(connects.end(), vertices);
    }
    // An n x n grid of quads over `size`, lifted by `lift(u, v)`, with its corner at `at`.
    template <class Lift> void addGrid(int n, double size, const Vec& at, Lift lift) {
        const int first = int(points.size());
        for (int j = 0; j <= n; ++j)
            for (int i = 0; i <= n; ++i)
                addPoint(at[0] + size * i / n, at[1] + lift(double(i) / n, double(j) / n),
                         at[2] + size * j / n);
        for (int j = 0; j < n; ++j)
            for (int i = 0; i < n; ++i) {
                const int v = first + j * (n + 1) + i;
                addFace({v, v + 1, v + n + 2, v + n + 1});
            }
    }
    host::ClosestPointMesh input() const {
        host::ClosestPointMesh mesh;
        mesh.points = points.data();
        mesh.numPoints = points.size();
        mesh.faceCounts = counts.data();
        mesh.numFaces = counts.size();
        mesh.faceConnects = connects.data();
        mesh.numConnects = connects.size();
        return mesh;
    }
    // The same geometry for the brute-force search, moved by a row-vector matrix and rounded to
    // floats as the index stores it.
    reference::Mesh reference(const double (*m)[4] = nullptr) const {
        reference::Mesh mesh;
        for (const auto& p : points) {
            Vec q{p[0], p[1], p[2]};
            if (m)
                for (int c = 0; c < 3; ++c)
                    q[c] = float(p[0] * m[0][c] + p[1] * m[1][c] + p[2] * m[2][c] + m[3][c]);
            mesh.points.push_back(q);
        }
        for (std::size_t f = 0, offset = 0; f < counts.size(); offset += counts[f++])
            mesh.faces.emplace_back(connects.begin() + offset, connects.begin() + offset + counts[f]);
        return mesh;
    }
};

TestMesh sphere(int around, int down) {
    TestMesh mesh{"sphere"};
    const double pi = 3.14159265358979;
    for (int j = 1; j < down; ++j)
        for (int i = 0; i < around; ++i)
            mesh.addPoint(std::sin(pi * j / down) * std::cos(2 * pi * i / around), -std::cos(pi * j / down),
                          std::sin(pi * j / down) * std::sin(2 * pi * i / around));
    const int bottom = mesh.addPoint(0, -1, 0), top = mesh.addPoint(0, 1, 0);
    for (int j = 0; j + 2 < down; ++j)
        for (int i = 0; i < around; ++i) {
            const int v = j * around + i, next = j * around + (i + 1) % around;
            mesh.addFace({v, next, next + around, v + around});
        }
    for (int i = 0; i < around; ++i) {
        mesh.addFace({bottom, (i + 1) % around, i});
        mesh.addFace({top, (down - 2) * around + i, (down - 2) * around + (i + 1) % around});
    }
    return mesh;
}

std::vector<TestMesh> stressMeshes() {
    std::vector<TestMesh> meshes{sphere(40, 30)};
    TestMesh mixed{"tiny triangles beside huge ones"};
    mixed.addGrid(1, 2000.0, {-1000, 0, -1000}, [](double, double) { return 0.0; });
    mixed.addGrid(24, 0.02, {0.3, 0, -0.2}, [](double u, double v) { return 1e-4 + 2e-3 * u * v; });
    const int a = mixed.addPoint(-500, 0.5, 3), b = mixed.addPoint(500, 0.5, 3),
              c = mixed.addPoint(0, 0.5, 3.0001);
    mixed.addFace({a, b, c});
    TestMesh far{"far from the origin"};
    far.addGrid(20, 2.0, {1e4, -2e4, 3e4},
                [](double u, double v) { return 0.3 * std::sin(7 * u) * std::cos(5 * v); });
    TestMesh sheets{"coincident sheets"};
    for (int copy = 0; copy < 2; ++copy)
        sheets.addGrid(12, 1.0, {0, 0, 0}, [](double u, double v) { return 0.2 * u * u - 0.1 * v; });
    meshes.push_back(mixed);
    meshes.push_back(far);
    meshes.push_back(sheets);
    return meshes;
}

// Points on the mesh's vertices, on its triangles lifted off them by distances of every scale,
// and all around its bounding box.
std::vector<Vec> queries(const reference::Mesh& mesh, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<Vec> points;
    for (std::size_t v = 0; v < mesh.points.size(); v += 1 + mesh.points.size() / 60)
        points.push_back(mesh.points[v]);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    for (double lift : {0.0, 1e-7, 1e-5, 1e-3, 1e-1}) {
        for (int k = 0; k < 40; ++k) {
            const auto& face = mesh.faces[random() % mesh.faces.size()];
            const auto abc = mesh.triangle(int(&face - mesh.faces.data()), int(random() % (face.size() - 2)));
            double u = unit(random), v = unit(random);
            if (u + v > 1) u = 1 - u, v = 1 - v;
            const Vec n = reference::cross(reference::sub(abc[1], abc[0]), reference::sub(abc[2], abc[0]));
            const double length = reference::norm(n) > 0 ? reference::norm(n) : 1.0;
            const double side = k % 2 ? lift : -lift;
            Vec p;
            for (int c = 0; c < 3; ++c)
                p[c] = abc[0][c] + u * (abc[1][c] - abc[0][c]) + v * (abc[2][c] - abc[0][c]) +
                       side * n[c] / length;
            points.push_back(p);
        }
    }
    Vec lo = mesh.points[0], hi = lo;
    for (const Vec& p : mesh.points)
        for (int c = 0; c < 3; ++c) lo[c] = std::min(lo[c], p[c]), hi[c] = std::max(hi[c], p[c]);
    for (int k = 0; k < 60; ++k) {
        Vec p;
        for (int c = 0; c < 3; ++c) p[c] = lo[c] + (hi[c] - lo[c] + 1) * (3 * unit(random) - 1);
        points.push_back(p);
    }
    return points;
}

// The hit is a closest point: as far from the query as the brute-force answer, on the triangle
// it names, which is itself that close.
void expectClosest(const host::ClosestPointIndex& index, const reference::Mesh& mesh, const Vec& p,
                   const std::vector<int>& among, const std::string& where) {
    host::ClosestPointHit hit;
    ASSERT_TRUE(index.closestPoint(p, std::numeric_limits<double>::infinity(), hit)) << where;
    const double expected = mesh.closest(p, among);
    const double tolerance = 1e-9 * (1 + std::fabs(p[0]) + std::fabs(p[1]) + std::fabs(p[2]) + expected);
    EXPECT_NEAR(hit.distance, expected, tolerance) << where;
    EXPECT_NEAR(reference::norm(reference::sub(p, hit.point)), hit.distance, tolerance) << where;
    ASSERT_GE(hit.face, 0) << where;
    EXPECT_NEAR(mesh.distance(p, hit.face, hit.triangle), expected, tolerance) << where;
    if (!among.empty()) {
        EXPECT_NE(std::find(among.begin(), among.end(), hit.face), among.end()) << where;
    }
}

TEST(ClosestPointSpeedPath, MatchesBruteForceOnNearAndFarFromStressMeshes) {
    for (const TestMesh& mesh : stressMeshes()) {
        const host::ClosestPointIndex index(mesh.input());
        const reference::Mesh brute = mesh.reference();
        for (const Vec& p : queries(brute, 3))
            expectClosest(index, brute, p, {},
                          mesh.name + " at " + std::to_string(p[0]) + " " + std::to_string(p[1]) + " " +
                              std::to_string(p[2]));
    }
}

TEST(ClosestPointSpeedPath, MatchesBruteForceWithMatrixAndSelectedFaces) {
    const TestMesh mesh = sphere(36, 24);
    // Turned, stretched, mirrored and moved away.
    const double matrix[4][4] = {{0.8, 0.6, 0, 0}, {-1.2, 1.6, 0.5, 0}, {-0.1, 0, -1.5, 0}, {30, -20, 10, 1}};
    std::vector<int> faces;
    for (int f = 0; f < int(mesh.counts.size()); f += 3) faces.push_back(f);
    host::ClosestPointMesh input = mesh.input();
    input.matrix = matrix;
    input.faces = faces.data();
    input.numSelectedFaces = faces.size();
    const host::ClosestPointIndex index(input);
    const reference::Mesh brute = mesh.reference(matrix);
    // Mirrored vertices in vertex order, as the mirroring commands ask, then the general mix.
    std::vector<Vec> points;
    for (const Vec& v : brute.points) points.push_back({60 - v[0], v[1], v[2]});
    for (const Vec& p : queries(brute, 5)) points.push_back(p);
    for (const Vec& p : points)
        expectClosest(index, brute, p, faces,
                      "at " + std::to_string(p[0]) + " " + std::to_string(p[1]) + " " + std::to_string(p[2]));
}

} // namespace
