// Tweak nodes: vlist offsets added to the geometry of their index, absolute positions, envelope,
// and a tweak in one chain with a blend shape.
#include "DeformTestSupport.h"

namespace {

class TweakTest : public DeformTest {
protected:
    // "src" feeds tweak "tw" as geometry 0, whose result "box" shows.
    static void makeChain() {
        must("polyCube -n src; polyCube -n box; createNode tweak -n tw");
        must("connectAttr srcShape.worldMesh[0] tw.input[0].inputGeometry; connectAttr tw.og[0] "
             "boxShape.inMesh");
    }
};

struct TweakCase {
    const char* name;
    const char* settings;
    int vertex;
    DeformTest::Point offset;
};

void PrintTo(const TweakCase& c, std::ostream* os) {
    *os << c.name;
}

class TweakEvalTest : public TweakTest, public ::testing::WithParamInterface<TweakCase> {};

TEST_P(TweakEvalTest, OffsetsComputedByHand) {
    makeChain();
    const TweakCase& c = GetParam();
    must(c.settings);
    expectNear(offset("boxShape", "srcShape", c.vertex), c.offset, c.name);
}

// srcShape vertex 1 is at (0.5, -0.5, 0.5).
INSTANTIATE_TEST_SUITE_P(
    Cases, TweakEvalTest,
    ::testing::Values(
        TweakCase{"relative", "setAttr tw.vlist[0].vertex[1] 1 2 3", 1, {1, 2, 3}},
        TweakCase{"other vertex untouched", "setAttr tw.vlist[0].vertex[1] 1 2 3", 0, {0, 0, 0}},
        TweakCase{"envelope", "setAttr tw.vlist[0].vertex[1] 1 2 3; setAttr tw.en 0.5", 1, {0.5f, 1, 1.5f}},
        TweakCase{"absolute", "setAttr tw.rtw 0; setAttr tw.vlist[0].vertex[1] 1 2 3", 1, {0.5f, 2.5f, 2.5f}},
        TweakCase{"absolute, half",
                  "setAttr tw.rtw 0; setAttr tw.en 0.5; setAttr tw.vlist[0].vertex[1] 1 2 3",
                  1,
                  {0.25f, 1.25f, 1.25f}},
        TweakCase{"another geometry's list", "setAttr tw.vlist[1].vertex[1] 1 2 3", 1, {0, 0, 0}},
        TweakCase{"beyond the mesh", "setAttr tw.vlist[0].vertex[50] 1 2 3", 7, {0, 0, 0}},
        TweakCase{"one axis", "setAttr tw.vlist[0].vertex[2].yVertex 4", 2, {0, 4, 0}}),
    [](const ::testing::TestParamInfo<TweakCase>& info) { return testName(info.param.name); });

TEST_F(TweakTest, TweakBeforeBlendShapeBothApply) {
    makeChain();
    must("polyCube -n up; setAttr upShape.pnts[1] 0 1 0; setAttr tw.vlist[0].vertex[1] 1 0 0");
    // The blend shape goes after the tweak; its deltas were taken against the tweaked input.
    must("blendShape -n bs -w 0 0.5 up box");
    EXPECT_EQ(host::scene().sourceOf(host::scene().findPlug("bs.input[0].inputGeometry")).node(),
              engineNode("tw"));
    const Point up = offset("upShape", "srcShape", 1);
    expectNear(offset("boxShape", "srcShape", 1), {1.f + 0.5f * (up[0] - 1.f), 0.5f * up[1], 0}, "chain");
    must("setAttr tw.en 0");
    expectNear(offset("boxShape", "srcShape", 1), {0.5f * (up[0] - 1.f), 0.5f * up[1], 0}, "tweak off");
}

TEST_F(TweakTest, TweakWithoutInputLeavesTheShapeAlone) {
    must("polyCube -n box; createNode tweak -n tw; connectAttr tw.og[0] boxShape.inMesh");
    must("setAttr tw.vlist[0].vertex[0] 5 5 5");
    expectNear(shown("boxShape", 0), {-0.5f, -0.5f, 0.5f}, "own geometry");
}

} // namespace
