// kv_sculptExtractDeltaMesh on skinned meshes: the corrective put back in front of the skin
// reproduces the sculpt; simple poses give the offsets they must; compare mode, bad input, naming,
// shading and undo.
#include "PluginSession.h"

#include "lang/Interpreter.h"

#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MPointArray.h>
#include <maya/MStringArray.h>
#include <maya/MVector.h>

#include <cmath>

namespace {

class SculptExtractTest : public PluginSession {
protected:
    static MPointArray points(const char* mesh) {
        MPointArray result;
        MFnMesh(node(mesh)).getPoints(result);
        return result;
    }

    // Sculpts the duplicate "sculpt": a different offset on every third vertex.
    static MPointArray sculptOffsets(unsigned int count) {
        MPointArray offsets(count, MPoint(0, 0, 0, 0));
        for (unsigned int i = 0; i < count; i += 3)
            offsets[i] = MPoint(0.1 * (i % 5), 0.25, -0.05 * (i % 7), 0);
        return offsets;
    }
    static void sculpt(const MPointArray& offsets) {
        MPointArray p = points("sculpt");
        for (unsigned int i = 0; i < p.length(); ++i)
            p[i] += MVector(offsets[i].x, offsets[i].y, offsets[i].z);
        MFnMesh(node("sculpt")).setPoints(p);
    }

    static void expectNear(const MPointArray& actual, const MPointArray& expected, double tolerance) {
        ASSERT_EQ(actual.length(), expected.length());
        for (unsigned int i = 0; i < actual.length(); ++i)
            EXPECT_LE(actual[i].distanceTo(expected[i]), tolerance)
                << "vertex " << i << ": " << actual[i].x << " " << actual[i].y << " " << actual[i].z;
    }

    static std::string lastError() {
        const std::vector<host::Message> all = messages();
        for (auto it = all.rbegin(); it != all.rend(); ++it)
            if (it->kind == host::MessageKind::Error) return it->text;
        return {};
    }
};

TEST_F(SculptExtractTest, CorrectiveInFrontOfTheSkinReproducesTheSculpt) {
    // An arm along x bent by 50 degrees at the middle joint.
    must("polyCube -n arm -w 4 -sx 8 -h 0.5 -d 0.5; select -cl; joint -n shoulder -p -2 0 0;"
         "joint -n elbow -p 0 0 0; skinCluster -n skin shoulder arm; setAttr elbow.rz 50");
    must("duplicate -n sculpt arm");
    sculpt(sculptOffsets(points("arm").length()));
    const MPointArray sculpted = points("sculpt");
    const MPointArray original = points("armShapeOrig");

    MString name;
    ASSERT_TRUE(run("kv_sculptExtractDeltaMesh -m arm -om armShapeOrig sculpt", name)) << allMessages();
    EXPECT_EQ(name, "sculpt_corrective");
    expectNear(points("armShapeOrig"), original, 0.0); // the probes leave no trace

    must("blendShape -foc -n fix sculpt_corrective arm; setAttr fix.w[0] 1");
    expectNear(points("arm"), sculpted, 1e-4);
}

TEST_F(SculptExtractTest, SimplePosesGiveTheOffsetInRestSpace) {
    const struct {
        const char* pose;
        MVector translation; // of every point
        double scale;        // about the origin
    } cases[] = {
        {"", MVector(0, 0, 0), 1.0},
        {"setAttr j0.t 1 -2 3", MVector(1, -2, 3), 1.0},
        {"setAttr j0.s 2 2 2", MVector(0, 0, 0), 2.0},
    };
    for (const auto& c : cases) {
        host::resetScene();
        must("polyCube -n box -sx 2; select -cl; joint -n j0; skinCluster -n skin j0 box");
        if (*c.pose) must(c.pose);
        must("duplicate -n sculpt box");
        const MPointArray base = points("boxShapeOrig");
        const MPointArray offsets = sculptOffsets(base.length());
        sculpt(offsets);
        ASSERT_TRUE(run("kv_sculptExtractDeltaMesh -m box -om boxShapeOrig sculpt")) << allMessages();
        // The offset comes back undone by the pose: the translation drops out, the scale divides.
        MPointArray expected(base);
        for (unsigned int i = 0; i < base.length(); ++i)
            expected[i] += MVector(offsets[i].x, offsets[i].y, offsets[i].z) / c.scale;
        expectNear(points("sculpt_corrective"), expected, 1e-5);
        // Without a pose the corrective is the sculpt; translated, the sculpt minus the translation.
        if (c.scale == 1.0) {
            MPointArray shifted = points("sculpt");
            for (unsigned int i = 0; i < shifted.length(); ++i) shifted[i] -= c.translation;
            expectNear(points("sculpt_corrective"), shifted, 1e-5);
        }
    }
}

TEST_F(SculptExtractTest, CollapsedVerticesStayFinite) {
    must("polyCube -n box; select -cl; joint -n j0; skinCluster -n skin j0 box; setAttr j0.s 0 0 0");
    must("duplicate -n sculpt box");
    sculpt(sculptOffsets(8));
    ASSERT_TRUE(run("kv_sculptExtractDeltaMesh -m box -om boxShapeOrig sculpt")) << allMessages();
    // Every axis collapses, so the identity stands in for the inverse: sculpt point + original point.
    const MPointArray result = points("sculpt_corrective"), base = points("boxShapeOrig"),
                      t = points("sculpt");
    for (unsigned int i = 0; i < result.length(); ++i) {
        EXPECT_TRUE(std::isfinite(result[i].x) && std::isfinite(result[i].y) && std::isfinite(result[i].z));
        EXPECT_LT(result[i].distanceTo(base[i] + MVector(t[i])), 1e-6);
    }
}

TEST_F(SculptExtractTest, CompareModeExtractsOnlyADifference) {
    must("polyCube -n box; select -cl; joint -n j0; skinCluster -n skin j0 box; setAttr j0.ry 30");
    must("duplicate -n sculpt box");
    int none = 0;
    ASSERT_TRUE(run("kv_sculptExtractDeltaMesh -c -m box -om boxShapeOrig sculpt", none));
    EXPECT_EQ(none, -1);
    EXPECT_EQ(lastError(), "No shape extracted. Both meshes are identical.");
    EXPECT_TRUE(node("sculpt_corrective").isNull());
    // Without -compare identical meshes give a copy of the original shape.
    MString name;
    ASSERT_TRUE(run("kv_sculptExtractDeltaMesh -m box -om boxShapeOrig sculpt", name));
    expectNear(points(name.asChar()), points("boxShapeOrig"), 1e-5);

    sculpt(sculptOffsets(8));
    ASSERT_TRUE(run("kv_sculptExtractDeltaMesh -compare -m box -om boxShapeOrig sculpt", name));
    EXPECT_EQ(name, "sculpt_corrective1");
}

TEST_F(SculptExtractTest, BadInputIsReported) {
    must("polyCube -n box; select -cl; joint -n j0; skinCluster -n skin j0 box; duplicate -n sculpt box;"
         "polyPlane -n plane; select -cl");
    const struct {
        const char* command;
        bool ok;
        const char* error;
    } cases[] = {
        {"kv_sculptExtractDeltaMesh -m box -om boxShapeOrig", false, "No target mesh provided."},
        {"kv_sculptExtractDeltaMesh sculpt", false, "Mesh flag and target node must be defined."},
        {"kv_sculptExtractDeltaMesh -m j0 -om boxShapeOrig sculpt", false, "j0 is not a mesh object."},
        {"kv_sculptExtractDeltaMesh -m box -om boxShapeOrig skin", false, "skin is not a mesh object."},
        {"kv_sculptExtractDeltaMesh -m ghost -om boxShapeOrig sculpt", false, "ghost is not a mesh object."},
        {"kv_sculptExtractDeltaMesh -m box -om boxShapeOrig plane", true,
         "No shape extracted. The intermediate shape has a different vertex count."},
        {"kv_sculptExtractDeltaMesh -m plane -om boxShapeOrig sculpt", true,
         "No shape extracted. The intermediate shape has a different vertex count."},
    };
    for (const auto& c : cases) {
        host::messageLog().clearHistory();
        EXPECT_EQ(run(c.command), c.ok) << c.command;
        EXPECT_EQ(lastError(), c.error) << c.command;
    }
    EXPECT_TRUE(node("sculpt_corrective").isNull());
    EXPECT_TRUE(node("plane_corrective").isNull());
}

TEST_F(SculptExtractTest, CorrectiveIsShadedFoundWithoutOriginalAndUndone) {
    must("polyCube -n box; select -cl; joint -n j0; skinCluster -n skin j0 box; duplicate -n sculpt box");
    sculpt(sculptOffsets(8));
    // The original shape is found as kv_meshEvaluate -i finds it.
    // Through the interpreter, as a user types it, so that the command goes on the undo queue.
    host::CommandResult name;
    ASSERT_TRUE(host::interpreter().execute("kv_sculptExtractDeltaMesh -m box sculpt", name))
        << allMessages();
    EXPECT_EQ(std::get<std::string>(name), "sculpt_corrective");
    const MString shape = MFnDependencyNode(MFnDagNode(node("sculpt_corrective")).child(0)).name();
    MStringArray members;
    ASSERT_TRUE(run("sets -q initialShadingGroup", members));
    bool shaded = false;
    for (unsigned int i = 0; i < members.length(); ++i) shaded = shaded || members[i] == shape;
    EXPECT_TRUE(shaded) << shape << " is not in initialShadingGroup";

    must("undo");
    EXPECT_TRUE(node("sculpt_corrective").isNull());
    must("redo");
    EXPECT_FALSE(node("sculpt_corrective").isNull());
}

} // namespace
