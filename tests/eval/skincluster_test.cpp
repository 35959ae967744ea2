// Skin clusters: the joint and skinCluster commands, linear blend skinning, and the weight access
// of MFnSkinCluster (influence order, normalisation, old values, bad input).
#include "engine/MessageLog.h"
#include "engine/Scene.h"
#include "session/Session.h"

#include <maya/MDagPath.h>
#include <maya/MDagPathArray.h>
#include <maya/MDoubleArray.h>
#include <maya/MFloatArray.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnMesh.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MFnSkinCluster.h>
#include <maya/MFnTransform.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MMatrix.h>
#include <maya/MPointArray.h>
#include <maya/MSelectionList.h>

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <string>
#include <vector>

namespace {

class SkinClusterTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(host::startSession(host::commandTable(), host::messageLog()));
        host::resetScene();
        host::messageLog().clearHistory();
    }

    static void must(const std::string& text) {
        ASSERT_TRUE(MGlobal::executeCommand(MString(text.c_str()))) << text;
    }

    static MDagPath path(const char* name) {
        MSelectionList list;
        MDagPath result;
        list.add(name);
        list.getDagPath(0, result);
        return result;
    }
    static MObject node(const char* name) {
        MSelectionList list;
        MObject result;
        list.add(name);
        list.getDependNode(0, result);
        return result;
    }
    static MObject vertices(std::vector<int> indices) {
        MFnSingleIndexedComponent fn;
        MObject component = fn.create(MFn::kMeshVertComponent);
        MIntArray elements(std::move(indices));
        fn.addElements(elements);
        return component;
    }
    static MPointArray points(const char* shape) {
        MPointArray result;
        MFnMesh(path(shape)).getPoints(result);
        return result;
    }
    // Every influence's weight at every vertex, vertex-major.
    static std::vector<double> allWeights(MFnSkinCluster& skin, const char* shape = "boxShape") {
        MDoubleArray weights;
        unsigned count = 0;
        EXPECT_TRUE(skin.getWeights(path(shape), MObject::kNullObj, weights, count));
        return weights.vec();
    }

    // A unit cube "box" bound with -tsb to joints at x = 0, 10 and 20: every vertex on j0.
    static void bindThree() {
        must("polyCube -n box; select -cl; joint -n j0; select -cl; joint -n j1 -p 10 0 0; select -cl;"
             "joint -n j2 -p 20 0 0; skinCluster -n skin -tsb j0 j1 j2 box");
    }
};

TEST_F(SkinClusterTest, JointChainsUnderTheSelectedJointAtWorldPositions) {
    must("joint -n a -o 0 0 90; joint -n b -p 0 3 0; select -cl; joint -n c -p 1 2 3");
    EXPECT_EQ(MFnDagNode(node("b")).parent(0), node("a"));
    EXPECT_EQ(path("c").length(), 1u);
    EXPECT_NEAR(path("b").inclusiveMatrix()(3, 1), 3.0, 1e-12);
    EXPECT_NEAR(path("c").inclusiveMatrix()(3, 2), 3.0, 1e-12);
    // a is turned 90 degrees about z, so b's world offset (0, 3, 0) is along a's own x axis.
    double tx = 0.0;
    MGlobal::executeCommand("getAttr b.tx", tx);
    EXPECT_NEAR(tx, 3.0, 1e-12);
}

TEST_F(SkinClusterTest, BindsWithOriginalShapeMatricesAndClosestJointWeights) {
    must("polyCube -n box -w 4; select -cl; joint -n root; joint -n tip -p 1.5 0 0; joint -n end -p 9 0 0");
    MString name;
    ASSERT_TRUE(MGlobal::executeCommand("skinCluster -mi 3 root box", name));
    EXPECT_EQ(name, "skinCluster1");
    MFnSkinCluster skin(node("skinCluster1"));
    MDagPathArray influences;
    ASSERT_EQ(skin.influenceObjects(influences), 3u); // the whole skeleton below root
    EXPECT_EQ(influences[2].partialPathName(), "end");
    int maxInfluences = 0;
    MGlobal::executeCommand("getAttr skinCluster1.mi", maxInfluences);
    EXPECT_EQ(maxInfluences, 3);
    int intermediate = 0;
    MGlobal::executeCommand("getAttr boxShapeOrig.io", intermediate);
    EXPECT_EQ(intermediate, 1);
    // Vertices at x = -2 are closest to root, those at x = 2 to tip.
    const MPointArray p = points("boxShape");
    const std::vector<double> w = allWeights(skin);
    for (unsigned v = 0; v < p.length(); ++v) {
        EXPECT_EQ(w[v * 3 + (p[v].x < 0 ? 0 : 1)], 1.0) << v;
        EXPECT_EQ(w[v * 3 + 0] + w[v * 3 + 1] + w[v * 3 + 2], 1.0) << v;
    }
    // Bind pose: the mesh is unchanged; moving the end joint moves nothing.
    must("setAttr end.tx 50");
    EXPECT_EQ(points("boxShape")[1], p[1]);
}

TEST_F(SkinClusterTest, LinearBlendOfTwoJointsOneTurned90Degrees) {
    must("polyCube -n box; select -cl; joint -n j0; select -cl; joint -n j1 -p 2 0 0; "
         "skinCluster -tsb -n skin j0 j1 box");
    MFnSkinCluster skin(node("skin"));
    MIntArray both(std::vector<int>{0, 1});
    MDoubleArray halves(std::vector<double>(16, 0.5));
    ASSERT_TRUE(skin.setWeights(path("boxShape"), MObject::kNullObj, both, halves, false));
    const double quarterTurn[3] = {0.0, 0.0, M_PI / 2};
    MFnTransform(path("j1")).setRotation(quarterTurn, MTransformationMatrix::kXYZ);
    // j0 keeps p; j1 turns p about (2, 0, 0): (x, y, z) -> (2 - y, x - 2, z). Half of each.
    const MPointArray before = points("boxShapeOrig");
    const MPointArray after = points("boxShape");
    ASSERT_EQ(after.length(), 8u);
    for (unsigned v = 0; v < 8; ++v) {
        const MPoint& q = before[v];
        EXPECT_NEAR(after[v].x, (q.x - q.y + 2) / 2, 1e-6) << v;
        EXPECT_NEAR(after[v].y, (q.x + q.y - 2) / 2, 1e-6) << v;
        EXPECT_NEAR(after[v].z, q.z, 1e-6) << v;
    }
    EXPECT_NEAR(after[3].x, 1.0, 1e-6); // vertex (0.5, 0.5, 0.5)
    EXPECT_NEAR(after[3].y, -0.5, 1e-6);
    // The envelope blends with the input; a vertex without weights goes to the origin.
    must("setAttr skin.envelope 0.5; removeMultiInstance skin.wl[0]");
    EXPECT_NEAR(points("boxShape")[3].x, (0.5 + 1.0) / 2, 1e-6);
    EXPECT_NEAR(points("boxShape")[0].x, -0.25, 1e-6);
}

TEST_F(SkinClusterTest, MeshAwayFromTheOriginFollowsItsJointOnce) {
    must("polyCube -n box; setAttr box.tx 5; select -cl; joint -n j0 -p 5 0 0; skinCluster j0 box");
    const MPointArray bindPose = points("boxShape");
    EXPECT_EQ(bindPose[0], points("boxShapeOrig")[0]);
    must("setAttr j0.ty 2");
    EXPECT_NEAR(points("boxShape")[0].y, bindPose[0].y + 2, 1e-6);
    EXPECT_NEAR(points("boxShape")[0].x, bindPose[0].x, 1e-6);
}

TEST_F(SkinClusterTest, InfluencesInLogicalIndexOrderAndWeightsByPosition) {
    must("polyCube -n box; select -cl; joint -n a; select -cl; joint -n b; createNode skinCluster -n skin;"
         "connectAttr b.wm[0] skin.ma[5]; connectAttr a.wm[0] skin.ma[2];"
         "connectAttr box|boxShape.outMesh skin.ip[0].ig; createNode mesh -n out -p box;"
         "connectAttr skin.og[0] out.inMesh; setAttr skin.wl[1].w[5] 0.75; setAttr skin.wl[1].w[2] 0.25");
    MFnSkinCluster skin(node("skin"));
    MDagPathArray influences;
    ASSERT_EQ(skin.influenceObjects(influences), 2u);
    EXPECT_EQ(influences[0].partialPathName(), "a");
    EXPECT_EQ(skin.indexForInfluenceObject(path("b")), 5u);
    MDoubleArray weights;
    unsigned count = 0;
    ASSERT_TRUE(skin.getWeights(path("out"), vertices({1, 0}), weights, count));
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(weights.vec(), (std::vector<double>{0.25, 0.75, 0.0, 0.0}));
    MIntArray onlyB(std::vector<int>{1});
    ASSERT_TRUE(skin.getWeights(path("out"), vertices({1}), onlyB, weights));
    EXPECT_EQ(weights.vec(), std::vector<double>{0.75});
    MStatus status;
    skin.indexForInfluenceObject(path("box"), &status);
    EXPECT_EQ(status, MS::kInvalidParameter);
}

TEST_F(SkinClusterTest, SetWeightsNormalisesTheInfluencesItDoesNotChange) {
    struct Case {
        const char* what;
        std::vector<double> start; // vertex 0's three weights before
        std::vector<int> influences;
        std::vector<double> values;
        bool normalize;
        std::vector<double> expected;
    };
    const Case cases[] = {
        {"others take the rest", {1, 0, 0}, {1, 2}, {0.2, 0.2}, true, {0.6, 0.2, 0.2}},
        {"values equal to the stored ones are rescaled",
         {0.2, 0.3, 0.5},
         {0, 1, 2},
         {0.6, 0.3, 0.5},
         true,
         {0.6, 0.15, 0.25}},
        {"nothing else to rescale: the set values are", {0, 1, 0}, {1}, {0.4}, true, {0, 1, 0}},
        {"set values above 1 push the others out", {1, 0, 0}, {1, 2}, {0.8, 0.8}, true, {0, 0.5, 0.5}},
        {"without normalisation values are kept", {1, 0, 0}, {1}, {0.3}, false, {1, 0.3, 0}},
        {"clearing the only weight leaves the vertex empty", {1, 0, 0}, {0}, {0}, true, {0, 0, 0}},
    };
    for (const Case& c : cases) {
        host::resetScene();
        bindThree();
        MFnSkinCluster skin(node("skin"));
        MIntArray all(std::vector<int>{0, 1, 2});
        MDoubleArray start(c.start);
        ASSERT_TRUE(skin.setWeights(path("boxShape"), vertices({0}), all, start, false)) << c.what;
        MIntArray influences(c.influences);
        MDoubleArray values(c.values), old;
        ASSERT_TRUE(skin.setWeights(path("boxShape"), vertices({0}), influences, values, c.normalize, &old))
            << c.what;
        const std::vector<double> w = allWeights(skin);
        for (int j = 0; j < 3; ++j) EXPECT_NEAR(w[j], c.expected[j], 1e-12) << c.what << " influence " << j;
        ASSERT_EQ(old.length(), c.influences.size()) << c.what;
        for (std::size_t k = 0; k < c.influences.size(); ++k)
            EXPECT_EQ(old[k], c.start[c.influences[k]]) << c.what;
        EXPECT_EQ(w[3], 1.0) << c.what; // vertex 1 untouched
    }
}

TEST_F(SkinClusterTest, SingleInfluenceAndFloatVariants) {
    bindThree();
    MFnSkinCluster skin(node("skin"));
    MFloatArray old;
    ASSERT_TRUE(skin.setWeights(path("box"), vertices({2, 5}), 2u, 0.25f, true, &old));
    EXPECT_EQ(old.vec(), (std::vector<float>{0.f, 0.f}));
    MFloatArray weights;
    unsigned count = 0;
    ASSERT_TRUE(skin.getWeights(path("boxShape"), vertices({5}), weights, count));
    EXPECT_EQ(weights.vec(), (std::vector<float>{0.75f, 0.f, 0.25f}));
    // Float values that round-trip the stored doubles count as unchanged.
    MIntArray all(std::vector<int>{0, 1, 2});
    MFloatArray values(std::vector<float>{0.75f, 0.5f, 0.25f});
    ASSERT_TRUE(skin.setWeights(path("boxShape"), vertices({5}), all, values));
    MDoubleArray row;
    ASSERT_TRUE(skin.getWeights(path("boxShape"), vertices({5}), 1u, row));
    EXPECT_EQ(row.vec(), std::vector<double>{0.5});
    EXPECT_NEAR(allWeights(skin)[15], 0.375, 1e-7);
}

TEST_F(SkinClusterTest, BadArgumentsChangeNothing) {
    bindThree();
    must("polyCube -n other");
    MFnSkinCluster skin(node("skin"));
    const std::vector<double> before = allWeights(skin);
    MFnSingleIndexedComponent edges;
    const MObject edgeComponent = edges.create(MFn::kMeshEdgeComponent);
    struct Case {
        const char* what;
        const char* shape;
        MObject component;
        std::vector<int> influences;
        std::size_t valueCount;
        bool readable; // only the values are wrong
    };
    const Case cases[] = {
        {"vertex past the end", "boxShape", vertices({3, 8}), {0}, 2, false},
        {"not a component", "boxShape", node("boxShape"), {0}, 1, false},
        {"edge component", "boxShape", edgeComponent, {0}, 8, false},
        {"influence past the end", "boxShape", vertices({0}), {3}, 1, false},
        {"negative influence", "boxShape", vertices({0}), {-1}, 1, false},
        {"repeated influence", "boxShape", vertices({0}), {1, 1}, 2, false},
        {"too few values", "boxShape", vertices({0, 1}), {0}, 1, true},
        {"mesh not deformed by it", "otherShape", vertices({0}), {0}, 1, false},
    };
    for (const Case& c : cases) {
        MIntArray influences(c.influences);
        MDoubleArray values(static_cast<unsigned>(c.valueCount), 0.5), old(2u, 7.0), read;
        EXPECT_EQ(skin.setWeights(path(c.shape), c.component, influences, values, true, &old),
                  MS::kInvalidParameter)
            << c.what;
        EXPECT_EQ(old.vec(), std::vector<double>(2, 7.0)) << c.what;
        EXPECT_EQ(skin.getWeights(path(c.shape), c.component, influences, read),
                  c.readable ? MS::kSuccess : MS::kInvalidParameter)
            << c.what;
    }
    EXPECT_EQ(allWeights(skin), before);
    EXPECT_FALSE(MGlobal::executeCommand("skinCluster j0 j1"));
    EXPECT_FALSE(MGlobal::executeCommand("skinCluster other"));  // no influence
    EXPECT_FALSE(MGlobal::executeCommand("skinCluster j2 box")); // already bound
}

// Maya-written scenes: every skinned mesh evaluates to finite points without messages.
TEST_F(SkinClusterTest, SkinnedMeshesOfMayaScenesEvaluate) {
    for (const char* file : {"bindTransformsExport.ma", "UsdExportSkeletonWithIdentityBindPose.ma"}) {
        const std::string name = std::string(TALVEN_DATA_DIR) + "/maya-ascii/" + file;
        if (!std::ifstream(name)) GTEST_SKIP() << name << " is not there";
        ASSERT_TRUE(MGlobal::executeCommand(MString(("file -f -o \"" + name + "\"").c_str()))) << file;
        host::messageLog().clearHistory();
        int skinned = 0;
        for (const char* shape : {"lfShape", "rtShape", "pCubeShape1"}) {
            if (!host::scene().findNode(shape)) continue;
            const MPointArray p = points(shape);
            EXPECT_GT(p.length(), 0u) << shape;
            for (unsigned v = 0; v < p.length(); ++v)
                ASSERT_TRUE(std::isfinite(p[v].x) && std::isfinite(p[v].y) && std::isfinite(p[v].z))
                    << shape << v;
            ++skinned;
        }
        EXPECT_GT(skinned, 0) << file;
        EXPECT_TRUE(host::messageLog().history().empty()) << file;
    }
    // The identity-bind-pose cube follows joint1, which stands at (5, 5, 0).
    EXPECT_NEAR(points("pCubeShape1")[0].x, points("pCubeShape1Orig")[0].x + 5, 1e-6);
    EXPECT_NEAR(points("pCubeShape1")[0].y, points("pCubeShape1Orig")[0].y + 5, 1e-6);
}

} // namespace
