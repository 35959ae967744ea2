// Blend shapes: evaluation (weights, weight maps, in-betweens, envelope, live targets), their place
// in mesh history, MFnBlendShapeDeformer / MFnGeometryFilter, the blendShape and pointPosition
// commands, and writing points of deformed and original shapes.
#include "DeformTestSupport.h"

#include <maya/MDagPath.h>
#include <maya/MDoubleArray.h>
#include <maya/MFnBlendShapeDeformer.h>
#include <maya/MFnGeometryFilter.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>
#include <maya/MObjectArray.h>
#include <maya/MPointArray.h>
#include <maya/MStringArray.h>

namespace {

class BlendShapeTest : public DeformTest {
protected:
    // A cube "box" with an empty blend shape "bs" on it.
    static void makeBox() { must("polyCube -n box; blendShape -n bs box"); }

    static host::Plug plug(const std::string& name) { return host::scene().findPlug(name); }
    static host::NodePtr sourceNode(const std::string& destination) {
        return host::scene().sourceOf(plug(destination)).node();
    }
};

// Target 0: vtx[0] (1, 0, 0), vtx[1] (0, 2, 0). Target 1: vtx[1] (0, 0, 4), vtx[2] (1, 1, 1).
const char* const kTwoTargets = "setAttr bs.it[0].itg[0].iti[6000].ict -type componentList 1 vtx[0:1];"
                                "setAttr bs.it[0].itg[0].iti[6000].ipt -type pointArray 2 1 0 0 1 0 2 0 1;"
                                "setAttr bs.it[0].itg[1].iti[6000].ict -type componentList 1 vtx[1:2];"
                                "setAttr bs.it[0].itg[1].iti[6000].ipt -type pointArray 2 0 0 4 1 1 1 1 1;"
                                "setAttr bs.w[0] 0.5; setAttr bs.w[1] 0.25;";

// In-between at 0.5: vtx[0] (1, 0, 0); full target: vtx[0] (4, 0, 0).
const char* const kInBetween = "setAttr bs.it[0].itg[0].iti[5500].ict -type componentList 1 vtx[0];"
                               "setAttr bs.it[0].itg[0].iti[5500].ipt -type pointArray 1 1 0 0 1;"
                               "setAttr bs.it[0].itg[0].iti[6000].ict -type componentList 1 vtx[0];"
                               "setAttr bs.it[0].itg[0].iti[6000].ipt -type pointArray 1 4 0 0 1;";

// vtx[100] is beyond the cube; the third component has no delta left in the point list.
const char* const kOutOfRange =
    "setAttr bs.it[0].itg[0].iti[6000].ict -type componentList 3 vtx[100] vtx[3] vtx[4];"
    "setAttr bs.it[0].itg[0].iti[6000].ipt -type pointArray 2 9 9 9 1 0 0 2 1; setAttr bs.w[0] 1;";

struct EvalCase {
    const char* name;
    const char* data;
    const char* settings;
    int vertex;
    DeformTest::Point offset;
};

void PrintTo(const EvalCase& c, std::ostream* os) {
    *os << c.name;
}

class BlendShapeEvalTest : public BlendShapeTest, public ::testing::WithParamInterface<EvalCase> {};

TEST_P(BlendShapeEvalTest, OffsetsComputedByHand) {
    makeBox();
    const EvalCase& c = GetParam();
    must(std::string(c.data) + c.settings);
    expectNear(offset("boxShape", "boxShapeOrig", c.vertex), c.offset, c.name);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, BlendShapeEvalTest,
    ::testing::Values(
        EvalCase{"two targets v0", kTwoTargets, "", 0, {0.5f, 0, 0}},
        EvalCase{"two targets v1", kTwoTargets, "", 1, {0, 1, 1}},
        EvalCase{"two targets v2", kTwoTargets, "", 2, {0.25f, 0.25f, 0.25f}},
        EvalCase{"unset target weight", kTwoTargets, "setAttr bs.it[0].itg[0].tw[1] 0.5;", 0, {0.5f, 0, 0}},
        EvalCase{"target weight", kTwoTargets, "setAttr bs.it[0].itg[0].tw[1] 0.5;", 1, {0, 0.5f, 1}},
        EvalCase{"base weight 0",
                 kTwoTargets,
                 "setAttr bs.it[0].bw[2] 0; setAttr bs.it[0].bw[5] 0.3;",
                 2,
                 {0, 0, 0}},
        EvalCase{"both maps",
                 kTwoTargets,
                 "setAttr bs.it[0].bw[1] 0.5; setAttr bs.it[0].itg[1].tw[1] 0.5;",
                 1,
                 {0, 0.5f, 0.25f}},
        EvalCase{"envelope", kTwoTargets, "setAttr bs.en 0.5;", 1, {0, 0.5f, 0.5f}},
        EvalCase{"in-between 0.25", kInBetween, "setAttr bs.w[0] 0.25;", 0, {0.5f, 0, 0}},
        EvalCase{"in-between 0.5", kInBetween, "setAttr bs.w[0] 0.5;", 0, {1, 0, 0}},
        EvalCase{"in-between 0.75", kInBetween, "setAttr bs.w[0] 0.75;", 0, {2.5f, 0, 0}},
        EvalCase{"in-between 1.0", kInBetween, "setAttr bs.w[0] 1.0;", 0, {4, 0, 0}},
        EvalCase{"beyond the last item", kInBetween, "setAttr bs.w[0] 1.5;", 0, {7, 0, 0}},
        EvalCase{"negative weight", kInBetween, "setAttr bs.w[0] -0.5;", 0, {-1, 0, 0}},
        EvalCase{"all vertices",
                 "setAttr bs.it[0].itg[0].iti[6000].ict -type componentList 1 vtx[*];",
                 "setAttr bs.it[0].itg[0].iti[6000].ipt -type pointArray 8 0 0 0 1 0 0 0 1 0 0 0 1 0 0 0 1 "
                 "0 0 0 1 0 0 0 1 0 0 0 1 0 7 0 1; setAttr bs.w[0] 1;",
                 7,
                 {0, 7, 0}},
        EvalCase{"index out of range", kOutOfRange, "", 3, {0, 0, 2}},
        EvalCase{"no delta left", kOutOfRange, "", 4, {0, 0, 0}}),
    [](const ::testing::TestParamInfo<EvalCase>& info) { return testName(info.param.name); });

TEST_F(BlendShapeTest, ChangedDeltasAndLiveTargetsAreSeen) {
    makeBox();
    must(kTwoTargets);
    expectNear(offset("boxShape", "boxShapeOrig", 0), {0.5f, 0, 0}, "before");
    must("setAttr bs.it[0].itg[0].iti[6000].ipt -type pointArray 2 3 0 0 1 0 0 0 1");
    expectNear(offset("boxShape", "boxShapeOrig", 0), {1.5f, 0, 0}, "new deltas");
    // A connected mesh overrides the stored deltas and is followed when it changes.
    must("polyCube -n live; setAttr liveShape.pnts[0] 0 0 -2; setAttr bs.w[1] 0");
    must("connectAttr liveShape.worldMesh[0] bs.it[0].itg[0].iti[6000].igt");
    expectNear(offset("boxShape", "boxShapeOrig", 0), {0, 0, -1}, "live target");
    must("setAttr liveShape.pnts[0] 0 0 -4");
    expectNear(offset("boxShape", "boxShapeOrig", 0), {0, 0, -2}, "live target moved");
}

TEST_F(BlendShapeTest, FirstDeformerLeavesAnOriginalSecondGoesAtTheEnd) {
    must("polyCube -n box; setAttr boxShape.pnts[6] 0 1 0");
    const Point tweaked = shown("boxShape", 6);
    must("blendShape -n bs box; blendShape -n late box; blendShape -n early -foc box");
    const host::NodePtr original = engineNode("boxShapeOrig");
    ASSERT_TRUE(original);
    EXPECT_EQ(original->parent(), engineNode("box").get());
    EXPECT_EQ(host::valueAsDouble(plug("boxShapeOrig.io").value()), 1.0);
    // The tweak went into the original: the shape looks the same and keeps no tweaks of its own.
    expectNear(shown("boxShapeOrig", 6), tweaked, "original");
    expectNear(shown("boxShape", 6), tweaked, "shape");
    EXPECT_EQ(plug("boxShape.pnts").numElements(), 0u);
    // Orig -> early -> bs -> late -> shape
    EXPECT_EQ(sourceNode("early.input[0].inputGeometry"), original);
    EXPECT_EQ(sourceNode("bs.input[0].inputGeometry"), engineNode("early"));
    EXPECT_EQ(sourceNode("late.input[0].inputGeometry"), engineNode("bs"));
    EXPECT_EQ(sourceNode("boxShape.inMesh"), engineNode("late"));
    EXPECT_FALSE(engineNode("boxShapeOrig1")) << "only the first deformer makes an original";

    MFnGeometryFilter filter(node("bs"));
    MObjectArray inputs, outputs;
    ASSERT_TRUE(filter.getInputGeometry(inputs));
    ASSERT_TRUE(filter.getOutputGeometry(outputs));
    ASSERT_EQ(inputs.length(), 1u);
    ASSERT_EQ(outputs.length(), 1u);
    EXPECT_EQ(inputs[0], node("boxShapeOrig"));
    EXPECT_EQ(outputs[0], node("boxShape"));
    EXPECT_EQ(filter.numOutputConnections(), 1u);
    MStatus status;
    EXPECT_EQ(filter.indexForOutputShape(node("box"), &status), 0u);
    EXPECT_TRUE(status);
    MDagPath path;
    ASSERT_TRUE(filter.getPathAtIndex(0, path));
    EXPECT_EQ(path.fullPathName(), "|box|boxShape");
    filter.outputShapeAtIndex(1, &status);
    EXPECT_FALSE(status);
}

TEST_F(BlendShapeTest, FunctionSetCreatesAndStoresOnlyMovedVertices) {
    must("polyCube -n box; polyCube -n smile; setAttr smileShape.pnts[2] 0 0.5 0; setAttr smileShape.pnts[5] "
         "1 0 0");
    MFnBlendShapeDeformer fn;
    MStatus status;
    MObject created = fn.create(node("box"), MFnBlendShapeDeformer::kLocalOrigin, &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(fn.object(), created);
    ASSERT_TRUE(fn.addTarget(node("boxShape"), 3, node("smileShape"), 1.0));
    ASSERT_TRUE(fn.addTarget(node("boxShape"), 4, 0.5));
    const std::string bs = MFnDependencyNode(created).name().asChar();
    MStringArray components;
    ASSERT_TRUE(
        MGlobal::executeCommand(("getAttr " + bs + ".it[0].itg[3].iti[6000].ict").c_str(), components));
    ASSERT_EQ(components.length(), 2u);
    EXPECT_EQ(components[0], "vtx[2]");
    EXPECT_EQ(components[1], "vtx[5]");
    MIntArray weights;
    fn.weightIndexList(weights);
    EXPECT_EQ(weights.vec(), (std::vector<int>{3, 4}));
    EXPECT_EQ(fn.weight(3), 0.f);
    EXPECT_TRUE(plug(bs + ".it[0].itg[4].iti[5500].ipt").hasStoredValue());

    ASSERT_TRUE(fn.setWeight(3, 1.f));
    for (int v = 0; v < 8; ++v)
        expectNear(shown("boxShape", v), shown("smileShape", v), "vertex " + std::to_string(v));
    MObjectArray bases;
    ASSERT_TRUE(fn.getBaseObjects(bases));
    ASSERT_EQ(bases.length(), 1u);
    EXPECT_EQ(bases[0], node("boxShape"));

    must("polyPlane -n flat");
    EXPECT_FALSE(fn.addTarget(node("boxShape"), 5, node("flatShape"), 1.0)) << "vertex counts differ";
    EXPECT_EQ(fn.addTarget(node("flatShape"), 5, node("smileShape"), 1.0), MS::kInvalidParameter)
        << "not a base";
    EXPECT_FALSE(fn.addTarget(node("boxShape"), 5, node("smileShape"), 0.0)) << "weight 0 is the base itself";
    ASSERT_TRUE(fn.removeTarget(node("boxShape"), 3, node("smileShape"), 1.0));
    fn.weightIndexList(weights);
    EXPECT_EQ(weights.vec(), (std::vector<int>{4}));
}

TEST_F(BlendShapeTest, CommandNamesChannelsAndAddsTargetsAndInBetweens) {
    must("polyCube -n box; polyCube -n jawOpen; polyCube -n smile; polyCube -n half; polyCube -n other");
    must("setAttr jawOpenShape.pnts[0] 0 -1 0; setAttr halfShape.pnts[0] 0 -0.25 0; setAttr "
         "otherShape.pnts[1] 1 0 0");
    MStringArray result;
    ASSERT_TRUE(MGlobal::executeCommand("blendShape -n face jawOpen smile box", result));
    ASSERT_EQ(result.length(), 1u);
    EXPECT_EQ(result[0], "face");
    MStringArray aliases;
    MGlobal::executeCommand("aliasAttr -q face", aliases);
    EXPECT_EQ(aliases.length(), 4u);
    EXPECT_EQ(aliases[0], "jawOpen");
    EXPECT_EQ(aliases[1], "weight[0]");
    EXPECT_EQ(aliases[2], "smile");
    EXPECT_EQ(aliases[3], "weight[1]");

    must("blendShape -e -ib -t box 0 half 0.5 face");
    must("setAttr face.jawOpen 0.25");
    expectNear(offset("boxShape", "boxShapeOrig", 0), {0, -0.125f, 0}, "half way to the in-between");
    // Without -ib the target replaces what index 0 held.
    must("blendShape -e -t box 0 other 1 face");
    EXPECT_EQ(plug("face.it[0].itg[0].iti").existingIndices(), (std::vector<uint32_t>{6000}));
    expectNear(offset("boxShape", "boxShapeOrig", 1), {0.25f, 0, 0}, "replaced");
    EXPECT_EQ(host::valueAsDouble(plug("face.other").value()), 0.25);

    must("polyCube -n spread; blendShape -n steps -ib half jawOpen spread");
    EXPECT_EQ(plug("steps.it[0].itg[0].iti").existingIndices(), (std::vector<uint32_t>{5500, 6000}));
}

TEST_F(BlendShapeTest, CommandRejectsBadInputWithoutChangingTheScene) {
    must("polyCube -n box; polyPlane -n flat; polyCube -n other; blendShape -n bs box");
    const std::size_t nodes = host::scene().nodes().size();
    struct Bad {
        const char* command;
        const char* message;
    } cases[] = {
        {"blendShape flat box", "does not have the same number of vertices"},
        {"blendShape -e -t box 0 flat 1 bs", "does not have the same number of vertices"},
        {"blendShape -e -t other 0 box 1 bs", "is not deformed by bs"},
        {"blendShape -e -t box 0 other 0 bs", "must not be 0"},
        {"blendShape -e -t box -1 other 1 bs", "invalid target index"},
        {"blendShape -e -t box 0 other 1 box", "is not a blend shape"},
        {"blendShape -t box 0 other 1 box", "-target needs -edit"},
        {"blendShape -w -2 1 box", "invalid weight index"},
        {"blendShape initialShadingGroup", "is not a mesh"},
        {"blendShape -e -t box 0 nothing 1 bs", "No object matches name"},
    };
    for (const Bad& c : cases) {
        EXPECT_FALSE(run(c.command)) << c.command;
        EXPECT_NE(lastError().find(c.message), std::string::npos) << c.command << ": " << lastError();
    }
    EXPECT_EQ(host::scene().nodes().size(), nodes);
    EXPECT_EQ(plug("bs.w").numElements(), 0u);
}

TEST_F(BlendShapeTest, PointPositionInWorldAndObjectSpace) {
    must("polyCube -n box; setAttr box.t 10 0 0; polyCube -n up; setAttr upShape.pnts[3] 0 1 0");
    must("blendShape -n bs -w 0 0.5 up box");
    MDoubleArray p;
    ASSERT_TRUE(MGlobal::executeCommand("pointPosition box.vtx[3]", p));
    EXPECT_EQ(p.vec(), (std::vector<double>{10.5, 1.0, 0.5}));
    ASSERT_TRUE(MGlobal::executeCommand("pointPosition -local boxShape.vtx[3]", p));
    EXPECT_EQ(p.vec(), (std::vector<double>{0.5, 1.0, 0.5}));
    for (const char* bad : {"pointPosition box.vtx[8]", "pointPosition box.vtx[0:1]", "pointPosition box",
                            "pointPosition -l -w box.vtx[0]", "pointPosition"})
        EXPECT_FALSE(run(bad)) << bad;
}

TEST_F(BlendShapeTest, SetPointsOnDeformedShapeBecomeTweaksOnOriginalReevaluate) {
    must("polyCube -n box; polyCube -n up; setAttr upShape.pnts[0] 0 1 0; blendShape -n bs -w 0 1 up box");
    MFnMesh deformed(node("boxShape"));
    MPointArray points;
    deformed.getPoints(points);
    points[0] = MPoint(3, 3, 3);
    ASSERT_TRUE(deformed.setPoints(points));
    MPointArray after;
    deformed.getPoints(after);
    EXPECT_EQ(after[0], MPoint(3, 3, 3));
    EXPECT_EQ(after[1], points[1]);
    EXPECT_EQ(plug("boxShape.pnts").numElements(), 1u) << "only the moved vertex gets a tweak";
    expectNear(shown("boxShapeOrig", 0), {-0.5f, -0.5f, 0.5f}, "original untouched");
    ASSERT_TRUE(deformed.setPoint(1, MPoint(0, 0, 0)));
    expectNear(shown("boxShape", 1), {0, 0, 0}, "single point");

    // Moving the original moves the deformed shape with it; the target still applies on top.
    MFnMesh original(node("boxShapeOrig"));
    MPointArray base;
    original.getPoints(base);
    for (unsigned v = 0; v < base.length(); ++v) base[v].z += 10;
    ASSERT_TRUE(original.setPoints(base));
    expectNear(shown("boxShape", 2), {-0.5f, 0.5f, 10.5f}, "follows the original");
    expectNear(shown("boxShape", 0), {3, 3, 13}, "tweak on top");
}

TEST_F(BlendShapeTest, CycleIsReportedAndDeformerWithoutGeometryIsHarmless) {
    must("polyCube -n box; blendShape -n bs box");
    must("connectAttr -f boxShape.worldMesh[0] bs.input[0].inputGeometry");
    const Point p = shown("boxShape", 0);
    EXPECT_NEAR(p[0], -0.5f, 1e-6) << "the shape falls back to its own geometry";
    bool warned = false;
    for (const auto& m : host::messageLog().history())
        warned = warned || m.text.find("Cycle") != std::string::npos;
    EXPECT_TRUE(warned);

    must("createNode blendShape -n lonely; polyCube -n plain; connectAttr lonely.og[0] plainShape.inMesh");
    expectNear(shown("plainShape", 0), {-0.5f, -0.5f, 0.5f}, "nothing arrives: own geometry");
    MFnBlendShapeDeformer fn(node("lonely"));
    MObjectArray objects;
    ASSERT_TRUE(fn.getBaseObjects(objects));
    EXPECT_EQ(objects.length(), 1u);
    EXPECT_FALSE(fn.addTarget(node("plainShape"), 0, node("boxShape"), 1.0))
        << "no input geometry to take deltas from";
    MFnGeometryFilter filter(node("lonely"));
    ASSERT_TRUE(filter.getInputGeometry(objects));
    EXPECT_EQ(objects.length(), 0u);
    MStatus status;
    EXPECT_TRUE(filter.inputShapeAtIndex(0, &status).isNull());
    EXPECT_FALSE(status);
}

} // namespace
