// Matrix outputs of transforms and joints against matrices worked out by hand, and the cost of
// deep chains counted in local matrix computations.
#include "../commands/CommandTestSupport.h"
#include "engine/TransformMatrix.h"

#include <string>

namespace {

using builtin_test::BuiltinCommandTest;
using Doubles = std::vector<double>;

const Doubles kIdentity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

void expectMatrix(const Doubles& actual, const Doubles& expected, const std::string& context) {
    ASSERT_EQ(actual.size(), 16u) << context;
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_NEAR(actual[i], expected[i], 1e-9) << context << " element " << i;
}

Doubles product(const Doubles& a, const Doubles& b) {
    Doubles out(16, 0.0);
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            for (int k = 0; k < 4; ++k) out[r * 4 + c] += a[r * 4 + k] * b[k * 4 + c];
    return out;
}

TEST_F(BuiltinCommandTest, MatrixOutputsMatchHandComputedMatrices) {
    ASSERT_TRUE(run(
        // scale 2, rotate x 90, translate (1 2 3)
        "createNode transform -n srt; setAttr srt.t 1 2 3; setAttr srt.rx 90; setAttr srt.s 2 2 2;"
        // the same angles in two rotate orders
        "createNode transform -n xyz; setAttr xyz.r 90 90 0;"
        "createNode transform -n zyx; setAttr zyx.r 90 90 0; setAttr zyx.ro 5;"
        // rotate z 90 about a pivot at (1 0 0)
        "createNode transform -n pivot; setAttr pivot.rp 1 0 0; setAttr pivot.rz 90;"
        // a joint chain: orient z 90 on the root, scale 2 undone on the child by its inverse scale
        "createNode joint -n j1; setAttr j1.tx 1; setAttr j1.joz 90; setAttr j1.s 2 2 2;"
        "createNode joint -n j2 -p j1; connectAttr j1.s j2.is; setAttr j2.tx 2;"
        // a child that does not inherit its parent's transform
        "createNode transform -n loose -p srt; setAttr loose.tx 5; setAttr loose.it 0;"));
    struct Case {
        const char* plug;
        Doubles expected;
    };
    const Case cases[] = {
        {"srt.m", {2, 0, 0, 0, 0, 0, 2, 0, 0, -2, 0, 0, 1, 2, 3, 1}},
        {"srt.wm", {2, 0, 0, 0, 0, 0, 2, 0, 0, -2, 0, 0, 1, 2, 3, 1}},
        {"srt.worldMatrix[0]", {2, 0, 0, 0, 0, 0, 2, 0, 0, -2, 0, 0, 1, 2, 3, 1}},
        {"srt.pm", kIdentity},
        {"xyz.m", {0, 0, -1, 0, 1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 0, 1}},
        {"zyx.m", {0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 0, 1}},
        {"pivot.m", {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 1, -1, 0, 1}},
        {"j1.wm", {0, 2, 0, 0, -2, 0, 0, 0, 0, 0, 2, 0, 1, 0, 0, 1}},
        {"j2.m", {0.5, 0, 0, 0, 0, 0.5, 0, 0, 0, 0, 0.5, 0, 2, 0, 0, 1}},
        {"j2.wm", {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 1, 4, 0, 1}},
        {"j2.pm", {0, 2, 0, 0, -2, 0, 0, 0, 0, 0, 2, 0, 1, 0, 0, 1}},
        {"loose.wm", {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 0, 0, 1}},
    };
    for (const Case& c : cases) expectMatrix(doubles(std::string("getAttr ") + c.plug), c.expected, c.plug);

    // Inverses multiply back to the identity.
    for (const char* node : {"srt", "zyx", "pivot", "j2"}) {
        const std::string n = node;
        expectMatrix(product(doubles("getAttr " + n + ".m"), doubles("getAttr " + n + ".im")), kIdentity,
                     n + ".im");
        expectMatrix(product(doubles("getAttr " + n + ".wm"), doubles("getAttr " + n + ".wim")), kIdentity,
                     n + ".wim");
        expectMatrix(product(doubles("getAttr " + n + ".pm"), doubles("getAttr " + n + ".pim")), kIdentity,
                     n + ".pim");
    }
}

TEST_F(BuiltinCommandTest, MatrixOutputsFollowChangesUpTheChain) {
    ASSERT_TRUE(run("createNode transform -n a; createNode transform -n b -p a; setAttr b.tx 1;"
                    "createNode transform -n drive; connectAttr drive.ty a.ty;"));
    expectMatrix(doubles("getAttr b.wm"), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 1}, "before");
    ASSERT_TRUE(run("setAttr a.tz 3; setAttr drive.ty 2"));
    expectMatrix(doubles("getAttr b.wm"), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1}, "after");
    ASSERT_TRUE(run("parent -r b drive"));
    expectMatrix(doubles("getAttr b.wm"), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 2, 0, 1}, "reparented");
    // Reading the local matrix first must not leave the world matrix behind.
    ASSERT_TRUE(run("setAttr b.tx 4; getAttr b.m"));
    expectMatrix(doubles("getAttr b.wm"), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 4, 2, 0, 1},
                 "local read first");
    // A parent moved with its children carries them along.
    ASSERT_TRUE(run("parent -r drive a"));
    expectMatrix(doubles("getAttr b.wm"), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 4, 4, 3, 1}, "subtree moved");
    // Plugs that are not matrix outputs keep their stored values.
    ASSERT_TRUE(run("addAttr -ln extra -at matrix b"));
    expectMatrix(doubles("getAttr b.extra"), kIdentity, "dynamic matrix");
}

// Building a chain one level at a time must cost about the same per level however deep the chain
// already is: each level's matrices come from the cache, not from the whole chain again.
TEST_F(BuiltinCommandTest, DeepChainsComputeEachLocalMatrixAboutOnce) {
    auto chainCost = [&](int n, bool joints) {
        host::resetScene();
        const uint64_t before = host::localMatrixComputations();
        std::string text = joints ? "createNode joint -n c0;" : "createNode transform -n c0;";
        EXPECT_TRUE(run(text));
        for (int i = 1; i < n; ++i) {
            const std::string self = "c" + std::to_string(i), parent = "c" + std::to_string(i - 1);
            text = joints ? "createNode joint -n " + self + " -p " + parent + "; connectAttr " + parent +
                                ".s " + self + ".is; setAttr " + self + ".tx 1;"
                          : "createNode transform -n " + self + "; setAttr " + self + ".tx 1; parent " +
                                self + " " + parent + ";";
            text += "getAttr " + self + ".wm";
            EXPECT_TRUE(run(text)) << lastError();
        }
        const Doubles end = doubles("getAttr c" + std::to_string(n - 1) + ".wm");
        EXPECT_NEAR(end.size() == 16 ? end[12] : 0.0, joints ? n - 1 : 1.0, 1e-6);
        return static_cast<double>(host::localMatrixComputations() - before);
    };
    for (bool joints : {true, false}) {
        const double small = chainCost(100, joints), large = chainCost(400, joints);
        // Linear growth gives a ratio of 4; recomputing the chain per level would give 16.
        EXPECT_LT(large / small, 6.0)
            << (joints ? "joint" : "parent") << " chain: " << small << " then " << large;
    }
}

} // namespace
