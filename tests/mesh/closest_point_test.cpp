// Closest-point queries checked against a brute-force search over every triangle.
#include "ClosestPointReference.h"
#include "engine/Scene.h"
#include "mesh/ClosestPointIndex.h"
#include "session/Session.h"

#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MMeshIntersector.h>
#include <maya/MSelectionList.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <thread>

namespace {

using reference::cross;
using reference::dot;
using reference::norm;
using reference::sub;
using Vec = reference::Vec;

// The mesh moved by a matrix, searched triangle by triangle.
struct BruteForce : reference::Mesh {
    BruteForce(const MObject& object, const MMatrix& m) {
        MFnMesh mesh(object);
        MFloatPointArray original;
        mesh.getPoints(original);
        for (unsigned i = 0; i < original.length(); ++i) {
            const MPoint p = MPoint(original[i]) * m;
            points.push_back({p.x, p.y, p.z});
        }
        for (int f = 0; f < mesh.numPolygons(); ++f) {
            MIntArray vertices;
            mesh.getPolygonVertices(f, vertices);
            faces.push_back(vertices.vec());
        }
    }
};

MMatrix matrixOf(const double (&m)[4][4]) {
    return MMatrix(m);
}
const MMatrix kIdentity;
// A rotation about an oblique axis with non-uniform scale and an offset, and a mirroring one.
const MMatrix kAffine = matrixOf({{0.8, 0.6, 0, 0}, {-1.2, 1.6, 0.5, 0}, {0.1, 0, 1.5, 0}, {3, -2, 1, 1}});
const MMatrix kMirror = matrixOf({{-1, 0, 0, 0}, {0, 2, 0, 0}, {0, 0, 1, 0}, {0, 1, 0, 1}});

class ClosestPointTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(host::startSession(host::commandTable(), host::messageLog()));
        host::resetScene();
    }
    static MObject node(const char* name) {
        MSelectionList list;
        MObject object;
        if (list.add(name)) list.getDependNode(0, object);
        return object;
    }
    // A pentagonal prism: two pentagon caps and five quads, centred on the origin.
    static MObject pentagonPrism() {
        MFloatPointArray points;
        for (float y : {-0.7f, 0.7f})
            for (int i = 0; i < 5; ++i)
                points.append(MFloatPoint(std::cos(i * 1.2566371f), y, std::sin(i * 1.2566371f)));
        MIntArray counts(7, 4), connects;
        counts[0] = counts[1] = 5;
        for (int v : {0, 1, 2, 3, 4, 9, 8, 7, 6, 5}) connects.append(v);
        for (int i = 0; i < 5; ++i)
            for (int v : {(i + 1) % 5, i, i + 5, (i + 1) % 5 + 5}) connects.append(v);
        return MFnMesh().create(10, 7, points, counts, connects);
    }
};

std::vector<Vec> randomPoints(const std::vector<Vec>& around, int count, unsigned seed) {
    Vec lo = around[0], hi = around[0];
    for (const Vec& p : around)
        for (int k = 0; k < 3; ++k) lo[k] = std::min(lo[k], p[k]), hi[k] = std::max(hi[k], p[k]);
    std::mt19937 random(seed);
    std::vector<Vec> points;
    for (int i = 0; i < count; ++i) {
        Vec p;
        for (int k = 0; k < 3; ++k) {
            const double margin = 0.5 * (hi[k] - lo[k]) + 0.1;
            p[k] = std::uniform_real_distribution<double>(lo[k] - margin, hi[k] + margin)(random);
        }
        points.push_back(p);
    }
    return points;
}

TEST_F(ClosestPointTest, MatchesBruteForceOnEveryFaceKindAndMatrix) {
    struct Shape {
        const char* script; // empty: the pentagonal prism
        bool closedAroundOrigin;
    };
    const Shape shapes[] = {{"polySphere -sx 30 -sy 20 -n shape", true},
                            {"polyPlane -w 3 -h 2 -sx 7 -sy 5 -n shape", false},
                            {"polyCube -w 2 -h 1 -d 3 -n shape", true},
                            {"", true}};
    for (const Shape& shape : shapes) {
        for (const MMatrix* matrix : {&kIdentity, &kAffine, &kMirror}) {
            SetUp();
            MObject object =
                *shape.script && MGlobal::executeCommand(shape.script) ? node("shape") : pentagonPrism();
            const BruteForce reference(object, *matrix);
            MMeshIntersector intersector;
            ASSERT_TRUE(intersector.create(object, *matrix)) << shape.script;
            const MPoint centre = MPoint() * *matrix;
            for (const Vec& p : randomPoints(reference.points, 300, 7)) {
                const std::string where = std::string(shape.script) + " at " + std::to_string(p[0]) + " " +
                                          std::to_string(p[1]) + " " + std::to_string(p[2]);
                MPointOnMesh hit;
                ASSERT_TRUE(intersector.getClosestPoint(MPoint(p[0], p[1], p[2]), hit)) << where;
                const MFloatPoint& q = hit.getPoint();
                const Vec onMesh{q.x, q.y, q.z};
                const double expected = reference.closest(p);
                EXPECT_NEAR(norm(sub(p, onMesh)), expected, 1e-5) << where;
                EXPECT_NEAR(reference.distance(p, hit.faceIndex(), hit.triangleIndex()), expected, 1e-5)
                    << where;

                float u, v;
                hit.getBarycentricCoords(u, v);
                const auto abc = reference.triangle(hit.faceIndex(), hit.triangleIndex());
                for (int k = 0; k < 3; ++k)
                    EXPECT_NEAR(u * abc[0][k] + v * abc[1][k] + (1 - u - v) * abc[2][k], onMesh[k], 1e-5)
                        << where;

                const MFloatVector& n = hit.getNormal();
                const Vec normal{n.x, n.y, n.z}, e1 = sub(abc[1], abc[0]), e2 = sub(abc[2], abc[0]);
                EXPECT_NEAR(norm(normal), 1.0, 1e-5) << where;
                EXPECT_NEAR(dot(normal, e1) / norm(e1), 0.0, 1e-4) << where;
                EXPECT_NEAR(dot(normal, e2) / norm(e2), 0.0, 1e-4) << where;
                if (shape.closedAroundOrigin) {
                    EXPECT_GT(dot(normal, sub(onMesh, {centre.x, centre.y, centre.z})), 0.0)
                        << where << " faces in";
                }
            }
        }
    }
}

TEST_F(ClosestPointTest, MaxDistanceAndFacesOfInterestLimitTheSearch) {
    MGlobal::executeCommand("polySphere -sx 30 -sy 20 -n ball");
    MObject ball = node("ball");
    const BruteForce reference(ball, kIdentity);
    MIntArray faces;
    for (int f : {-1, 3, 17, 200, 201, 599, 600, 100000}) faces.append(f);
    const std::vector<int> valid{3, 17, 200, 201, 599};
    MMeshIntersector all, some;
    ASSERT_TRUE(all.create(ball));
    ASSERT_TRUE(some.create(ball, kIdentity, &faces));
    for (const Vec& p : randomPoints(reference.points, 100, 11)) {
        const MPoint point(p[0], p[1], p[2]);
        const double d = reference.closest(p);
        MPointOnMesh hit;
        EXPECT_TRUE(all.getClosestPoint(point, hit, d * 1.001 + 1e-6));
        EXPECT_FALSE(all.getClosestPoint(point, hit, d * 0.999 - 1e-6));
        EXPECT_FALSE(all.getClosestPoint(point, hit, -1.0));
        EXPECT_FALSE(all.getClosestPoint(point, hit, std::nan("")));

        ASSERT_TRUE(some.getClosestPoint(point, hit));
        EXPECT_NE(std::find(valid.begin(), valid.end(), hit.faceIndex()), valid.end()) << hit.faceIndex();
        const MFloatPoint& q = hit.getPoint();
        EXPECT_NEAR(norm(sub(p, {q.x, q.y, q.z})), reference.closest(p, valid), 1e-5);
    }
}

TEST_F(ClosestPointTest, WhatCannotBeSearchedFails) {
    MGlobal::executeCommand("createNode mesh -n emptyShape; createNode transform -n bare; polyCube -n box");
    MObject empty = node("emptyShape"), bare = node("bare"), box = node("box"), none;
    MPointOnMesh hit;
    MMeshIntersector intersector;
    EXPECT_FALSE(intersector.isCreated());
    EXPECT_FALSE(intersector.getClosestPoint(MPoint(), hit));

    ASSERT_TRUE(intersector.create(empty));
    EXPECT_FALSE(intersector.getClosestPoint(MPoint(), hit));
    MIntArray noFaces(1, 6);
    ASSERT_TRUE(intersector.create(box, kIdentity, &noFaces));
    EXPECT_FALSE(intersector.getClosestPoint(MPoint(), hit));
    for (MObject* object : {&bare, &none}) {
        ASSERT_TRUE(intersector.create(box));
        EXPECT_FALSE(intersector.create(*object));
        EXPECT_FALSE(intersector.isCreated());
        EXPECT_FALSE(intersector.getClosestPoint(MPoint(), hit));
    }
}

TEST(ClosestPointIndex, SurvivesDegenerateAndBrokenFaces) {
    const double nan = std::nan(""), inf = std::numeric_limits<double>::infinity();
    const std::vector<std::array<float, 3>> points{{0, 0, 0}, {1, 0, 0}, {2, 0, 0},
                                                   {0, 0, 0}, {0, 5, 0}, {nan, 0, 0}};
    struct Case {
        const char* name;
        std::vector<int> counts, connects;
        Vec query;
        int face;        // -1: nothing found
        double distance; // to the closest point
    };
    const Case cases[] = {
        {"collinear triangle", {3}, {0, 1, 2}, {1.5, 1, 0}, 0, 1.0},
        {"repeated vertex", {3}, {0, 3, 1}, {0.5, 0, -2}, 0, 2.0},
        {"single point", {3}, {0, 3, 0}, {0, 3, 4}, 0, 5.0},
        {"skips short and out-of-range faces", {2, 3, 3}, {0, 4, 0, 1, 9, 0, 1, 4}, {0, 6, 0}, 2, 1.0},
        {"skips a face past the connects", {3, 4}, {0, 1, 4, 0, 1, 2}, {0, 6, 0}, 0, 1.0},
        {"negative count ends the faces", {3, -1, 3}, {0, 1, 4, 0, 1, 2}, {0, 6, 0}, 0, 1.0},
        {"not-a-number vertex", {3, 3}, {5, 1, 4, 0, 1, 2}, {1, -1, 0}, 1, 1.0},
        {"no faces", {}, {}, {0, 0, 0}, -1, 0},
        {"only broken faces", {1, 3}, {0, 0, 1, 7}, {0, 0, 0}, -1, 0},
        {"not-a-number query", {3}, {0, 1, 4}, {nan, 0, 0}, -1, 0},
        {"query beyond float range", {3}, {0, 1, 4}, {1e300, 0, 0}, -1, 0},
        {"infinite query", {3}, {0, 1, 4}, {0, -inf, 0}, -1, 0},
    };
    for (const Case& c : cases) {
        host::ClosestPointMesh mesh;
        mesh.points = points.data();
        mesh.numPoints = points.size();
        mesh.faceCounts = c.counts.data();
        mesh.numFaces = c.counts.size();
        mesh.faceConnects = c.connects.data();
        mesh.numConnects = c.connects.size();
        const host::ClosestPointIndex index(mesh);
        host::ClosestPointHit hit;
        const bool found = index.closestPoint(c.query, inf, hit);
        EXPECT_EQ(found, c.face >= 0) << c.name;
        if (!found) continue;
        EXPECT_EQ(hit.face, c.face) << c.name;
        EXPECT_NEAR(hit.distance, c.distance, 1e-9) << c.name;
        EXPECT_NEAR(norm(sub(c.query, hit.point)), c.distance, 1e-9) << c.name;
    }
}

TEST_F(ClosestPointTest, ConcurrentQueriesAgreeWithSequentialOnes) {
    MGlobal::executeCommand("polySphere -sx 40 -sy 30 -n ball");
    MObject ball = node("ball");
    MMeshIntersector intersector;
    ASSERT_TRUE(intersector.create(ball, kAffine));
    const std::vector<Vec> queries = randomPoints(BruteForce(ball, kAffine).points, 4000, 3);
    auto faceOf = [&](const Vec& p) {
        MPointOnMesh hit;
        return intersector.getClosestPoint(MPoint(p[0], p[1], p[2]), hit) ? hit.faceIndex() : -1;
    };
    std::vector<int> sequential, concurrent(queries.size());
    for (const Vec& p : queries) sequential.push_back(faceOf(p));
    std::vector<std::thread> threads;
    for (std::size_t t = 0; t < 4; ++t)
        threads.emplace_back([&, t] {
            for (std::size_t i = t; i < queries.size(); i += 4) concurrent[i] = faceOf(queries[i]);
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(concurrent, sequential);
}

} // namespace
