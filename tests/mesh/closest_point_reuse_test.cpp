// Intersectors share the index built for a mesh version: every new intersector must still answer on
// the geometry, matrix and faces it was created with, however the mesh changed in between.
#include "ClosestPointReference.h"
#include "engine/Scene.h"
#include "session/Session.h"

#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MMatrix.h>
#include <maya/MMeshIntersector.h>
#include <maya/MSelectionList.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using Vec = reference::Vec;

// The distance from p to the closest point an intersector finds on `object` moved by `matrix`,
// against the brute-force distance over all (or the given) faces.
void expectFreshAnswers(MObject object, const MMatrix& matrix, const MIntArray* faces,
                        const std::string& what) {
    MFnMesh mesh(object);
    reference::Mesh brute;
    MFloatPointArray points;
    mesh.getPoints(points);
    for (unsigned i = 0; i < points.length(); ++i) {
        const MPoint p = MPoint(points[i]) * matrix;
        brute.points.push_back({p.x, p.y, p.z});
    }
    for (int f = 0; f < mesh.numPolygons(); ++f) {
        MIntArray vertices;
        mesh.getPolygonVertices(f, vertices);
        brute.faces.push_back(vertices.vec());
    }
    MMeshIntersector intersector;
    ASSERT_TRUE(intersector.create(object, matrix, faces)) << what;
    for (const Vec& p : {Vec{0.3, 1.4, -0.2}, Vec{-2.0, 0.1, 0.4}, Vec{0.05, -0.9, 1.7}}) {
        MPointOnMesh hit;
        ASSERT_TRUE(intersector.getClosestPoint(MPoint(p[0], p[1], p[2]), hit)) << what;
        const MFloatPoint& q = hit.getPoint();
        const double expected = faces ? brute.closest(p, faces->vec()) : brute.closest(p);
        EXPECT_NEAR(reference::norm(reference::sub(p, {q.x, q.y, q.z})), expected, 1e-5) << what;
    }
}

TEST(ClosestPointReuse, EachIntersectorAnswersOnItsOwnMeshVersionMatrixAndFaces) {
    ASSERT_TRUE(host::startSession(host::commandTable(), host::messageLog()));
    host::resetScene();
    MGlobal::executeCommand("polySphere -sx 12 -sy 8 -n ball");
    MSelectionList list;
    list.add("ballShape");
    MObject ball;
    list.getDependNode(0, ball);
    const double mirrorX[4][4] = {{-1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    const MMatrix identity, mirror(mirrorX);
    MIntArray someFaces;
    for (int f : {0, 5, 40, 41}) someFaces.append(f);

    const auto moveAll = [&] {
        MFloatPointArray points;
        MFnMesh(ball).getPoints(points);
        for (unsigned i = 0; i < points.length(); ++i)
            points[i] = MFloatPoint(points[i].x + 0.5f, points[i].y * 2.f, points[i].z);
        MFnMesh(ball).setPoints(points);
    };
    const auto moveOne = [&] { MFnMesh(ball).setPoint(3, MPoint(2.0, -1.0, 0.5)); };
    const auto tweak = [&] { MGlobal::executeCommand("move -r 0 0 0.7 ballShape.vtx[0:20]"); };
    const struct {
        const char* name;
        std::function<void()> edit;
    } edits[] = {{"unchanged", [] {}},
                 {"all points moved", moveAll},
                 {"one point moved", moveOne},
                 {"vertices moved by a command", tweak}};
    // Each edit is searched with every matrix and face choice in turn, so that an index kept from
    // the step before would answer wrongly if it were reused.
    const MIntArray* const faceChoices[] = {nullptr, &someFaces};
    for (const auto& edit : edits) {
        edit.edit();
        for (const MMatrix* matrix : {&identity, &mirror})
            for (const MIntArray* faces : faceChoices)
                expectFreshAnswers(ball, *matrix, faces,
                                   std::string(edit.name) + (matrix == &mirror ? ", mirrored" : "") +
                                       (faces ? ", some faces" : ""));
    }
}

} // namespace
