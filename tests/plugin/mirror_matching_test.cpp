// Mirror partners by position and through the vertex order map, and the order map attribute itself.
#include "PluginSession.h"
#include "plugin/mirrorMatching.h"
#include "plugin/vertexOrderMap.h"

#include <maya/MDagPath.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>
#include <maya/MStringArray.h>

#include <algorithm>
#include <cmath>

namespace {

using Ints = std::vector<int>;

class MirrorMatching : public PluginSession {
protected:
    static MDagPath path(const char* name) {
        MSelectionList list;
        list.add(name);
        MDagPath dag;
        list.getDagPath(0, dag);
        return dag;
    }
    static MIntArray allVertices(const MDagPath& mesh) {
        MIntArray all;
        for (int v = 0; v < MFnMesh(mesh).numVertices(); ++v) all.append(v);
        return all;
    }
    static Ints partners(const char* axis, const char* mesh, Ints sources, float tolerance) {
        return common::getMirroredMeshIndices(axis, path(mesh), MIntArray(std::move(sources)), tolerance)
            .vec();
    }
};

// Every partner lies at the source's mirror image, vertices on the plane are their own partners,
// the mesh may be named by its transform or its shapes, and no mesh is left behind.
TEST_F(MirrorMatching, PartnersLieAtTheMirrorImage) {
    must("polySphere -sx 8 -sy 6 -n ball; polySphere -sx 8 -sy 6 -n ballTarget; blendShape -n bs ballTarget "
         "ball");
    MStringArray before, after;
    MGlobal::executeCommand("ls -type mesh", before);
    for (const char* axis : {"x", "y", "z"}) {
        for (const char* name : {"ball", "ballShape", "ballShapeOrig"}) {
            const MDagPath mesh = path(name);
            MFloatPointArray points;
            MFnMesh(mesh).getPoints(points, MSpace::kObject);
            const MIntArray found = common::getMirroredMeshIndices(axis, mesh, allVertices(mesh), 0.001f);
            ASSERT_EQ(found.length(), points.length()) << axis << " " << name;
            const int c = axis[0] - 'x';
            for (unsigned int v = 0; v < points.length(); ++v) {
                MFloatPoint image = points[static_cast<unsigned int>(found[v])];
                image[c] = -image[c];
                EXPECT_LT(image.distanceTo(points[v]), 1e-5f) << axis << " " << name << " " << v;
                if (std::abs(points[v][c]) < 1e-6f) {
                    EXPECT_EQ(found[v], static_cast<int>(v)) << axis << " " << v;
                }
            }
        }
    }
    MGlobal::executeCommand("ls -type mesh", after);
    EXPECT_EQ(after.length(), before.length());
}

// The partner is the first vertex, in face order, of the nearest mirrored face within the
// tolerance, not the nearest vertex.
TEST_F(MirrorMatching, FirstVertexOfTheFaceWithinTolerance) {
    must("polyPlane -n pl -w 2 -h 2 -sx 2 -sy 2"); // 0-2, 3-5, 6-8 mirror pairs; corner 2 has one face
    MFnMesh mesh(path("plShape"));
    MIntArray face;
    for (int f = 0; f < mesh.numPolygons(); ++f) {
        mesh.getPolygonVertices(f, face);
        if (std::find(face.vec().begin(), face.vec().end(), 2) != face.vec().end()) break;
    }
    // Within 1.2 of vertex 0 lie the images of the corner face's vertices but 4.
    const int first = face[0] != 4 ? face[0] : face[1];
    ASSERT_NE(first, 2) << "the face starts at the exact partner: the case shows nothing";
    EXPECT_EQ(partners("x", "plShape", {0}, 1.2f), Ints{first});
    EXPECT_EQ(partners("x", "plShape", {0, 2, 4, 9, -1}, 0.5f), (Ints{2, 0, 4}));
}

TEST_F(MirrorMatching, OrderMapLookupAndCopy) {
    must("polyCube -n box; polyPlane -n pl -sx 2 -sy 2; polyCube -n other; createNode transform -n grp");
    const MDagPath box = path("boxShape");
    const auto lookup = [](const MDagPath& mesh, Ints sources) {
        return common::getMirroredOrderedMeshIndices(mesh, MIntArray(std::move(sources))).vec();
    };
    EXPECT_EQ(lookup(box, {4, 9}), (Ints{-1, -1})); // no map yet
    MPlug plug;
    EXPECT_FALSE(common::findVertexOrderMap(box, plug));
    ASSERT_TRUE(common::createVertexOrderMap(box, plug));
    const Ints map = {7, 6, 5, 4, 3, 2, 1, 0};
    ASSERT_TRUE(common::writeVertexOrderMap(plug, MIntArray(map)));
    EXPECT_EQ(common::readVertexOrderMap(plug).vec(), map);
    // The map decides whatever the geometry says; sources it does not cover get -1.
    EXPECT_EQ(lookup(box, {4, 0, 4, 8, -1, 2147483647}), (Ints{3, 7, 3, -1, -1, -1}));

    // Copies go onto mesh shapes as they stand, whatever their vertex count; the target's map is
    // created when missing and overwritten when present.
    MPlug existing;
    ASSERT_TRUE(common::createVertexOrderMap(path("otherShape"), existing));
    for (const char* target : {"plShape", "otherShape"}) {
        EXPECT_TRUE(common::copyVertexOrderMap(plug, target)) << target;
        MPlug copied;
        ASSERT_TRUE(common::findVertexOrderMap(path(target), copied)) << target;
        EXPECT_EQ(common::readVertexOrderMap(copied).vec(), map) << target;
    }
    for (const char* target : {"pl", "grp", "bogus"}) {
        host::messageLog().clearHistory();
        EXPECT_FALSE(common::copyVertexOrderMap(plug, target)) << target;
        ASSERT_EQ(messages().size(), 1u) << target;
        EXPECT_EQ(messages()[0].text, std::string(target) + " is not a mesh object.");
    }
    ASSERT_TRUE(common::writeVertexOrderMap(plug, MIntArray()));
    EXPECT_EQ(lookup(box, {1}), Ints{-1});
}

TEST_F(MirrorMatching, CountErrors) {
    EXPECT_EQ(std::string(common::mirrorCountError(26719, 0).asChar()),
              "Unable to find 26719 mirrored points. Please increase the tolerance to account for "
              "non-symmetrical points.");
    EXPECT_EQ(std::string(common::mirrorCountError(2, 3).asChar()),
              "Found too many mirrored points. Please reduce the tolerance when working in smaller scale.");
    EXPECT_EQ(common::mirrorCountError(3, 3).length(), 0u);
}

} // namespace
