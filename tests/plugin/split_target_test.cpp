// kv_blendShapeSplitTarget: the weight ramp, the centre band of a hard split, the halved centre
// deltas of the base weights with their undo, and bad input.
#include "MirrorTargetSession.h"

namespace {

using host::CommandResult;

// Weights are stored in single precision.
double stored32(double w) {
    return static_cast<float>(w);
}

class SplitTarget : public MirrorTargetSession {
protected:
    void SetUp() override {
        MirrorTargetSession::SetUp();
        makeDeformedPlane();
        setTarget(0, every({1, 2, 3}));
    }
    static Target every(std::array<double, 3> delta) {
        Target all;
        for (int v = 0; v < 9; ++v) all.emplace_back(v, delta);
        return all;
    }
    static CommandResult split(const std::string& arguments, bool expectOk = true) {
        return exec("kv_blendShapeSplitTarget -om plShape " + arguments + " bs", expectOk);
    }
    // One weight per column of the plane (x = -1, 0, 1), the same on every row.
    static Map columns(double negative, double centre, double positive) {
        Map map;
        for (int v = 0; v < 9; ++v) map[v] = stored32(v % 3 == 0 ? negative : v % 3 == 1 ? centre : positive);
        return map;
    }
};

TEST_F(SplitTarget, RampAndCentreBand) {
    const double ramp = 0.49995; // 1 - (0.5001 - 0) / 1.0001, rounded to five decimals
    const struct {
        std::string arguments;
        Map weights;
    } cases[] = {
        {"-iv 1", columns(0, 0.5, 1)},
        {"-iv -1", columns(1, 0.5, 0)},
        {"-iv 1 -b 0.5", columns(0, ramp, 1)},
        {"-iv 1 -b 0.5 -c 1", columns(0, 0, ramp)},
        {"-iv -1 -b 0.5 -c -1", columns(1, 1, ramp)},
        {"-b 0.5", columns(ramp, ramp, ramp)}, // side 0: every vertex counts as on the plane
        {"-b 0", columns(0, 0.5, 0)},          // the band goes by the real coordinate
        {"-iv 1 -tol 0", columns(0, 0, 1)},    // no band: the centre sits at the foot of the ramp
        {"-iv 1 -ax z", {{0, 1}, {1, 1}, {2, 1}, {3, 0.5}, {4, 0.5}, {5, 0.5}, {6, 0}, {7, 0}, {8, 0}}},
        {"-iv 1 -b 0.00000499", columns(0, 0.5, 1)}, // rounds to a hard split
    };
    for (const auto& c : cases) {
        store({{0, 0.25}});
        EXPECT_EQ(split(c.arguments), CommandResult(1)) << c.arguments;
        EXPECT_EQ(stored(), c.weights) << c.arguments;
        exec("undo"); // weights are not restored
        EXPECT_EQ(stored(), c.weights) << c.arguments;
        EXPECT_EQ(target(0), every({1, 2, 3})) << c.arguments;
    }
}

TEST_F(SplitTarget, ComponentsOfAllItemsOnceAndOthersCleared) {
    setTarget(1, {{2, {1, 0, 0}}, {1, {1, 0, 0}}});
    setTarget(1, {{1, {1, 0, 0}}, {5, {1, 0, 0}}}, 5500);
    store({{0, 0.25}, {4, 0.5}}, 1);
    EXPECT_EQ(split("-i 1 -iv 1"), CommandResult(1));
    EXPECT_EQ(stored(1), (Map{{1, 0.5}, {2, 1}, {5, 1}}));
    // An item without data gets vertex 0 written to it but is split with what it had.
    setTarget(2, {});
    EXPECT_EQ(split("-i 2 -iv 1"), CommandResult(1));
    EXPECT_EQ(components(2), std::vector<int>{0});
    EXPECT_EQ(stored(2), Map{});
}

TEST_F(SplitTarget, HardSplitOfBaseWeightsHalvesCentreDeltasUntilUndo) {
    const Target deltas = {{1, {2, 4, 6}}, {2, {1, 1, 1}}, {0, {3, 0, 0}}};
    setTarget(0, deltas);
    EXPECT_EQ(split("-i -1 -iv 1"), CommandResult(1));
    EXPECT_EQ(target(0), (Target{{1, {0, 2, 3}}, {2, {1, 1, 1}}, {0, {3, 0, 0}}}));
    EXPECT_EQ(stored(-1), (Map{{0, 0}, {1, 1}, {2, 1}}));
    exec("undo");
    EXPECT_EQ(target(0), deltas);
    EXPECT_EQ(stored(-1), (Map{{0, 0}, {1, 1}, {2, 1}}));
    // With a ramp the deltas stay.
    EXPECT_EQ(split("-i -1 -iv 1 -b 0.5"), CommandResult(1));
    EXPECT_EQ(target(0), deltas);
}

// Two copies of a target split to opposite sides add up to the whole target at every vertex.
TEST_F(SplitTarget, OppositeHardSplitsAddUp) {
    setTarget(1, every({1, 2, 3}));
    split("-i 0 -iv 1");
    split("-i 1 -iv -1");
    const Map left = stored(0), right = stored(1);
    ASSERT_EQ(left.size(), 9u);
    ASSERT_EQ(right.size(), 9u);
    for (int v = 0; v < 9; ++v) EXPECT_EQ(left.at(v) + right.at(v), 1.0) << v;
}

TEST_F(SplitTarget, BadInputChangesNothing) {
    const struct {
        std::string command, error;
    } cases[] = {
        {"kv_blendShapeSplitTarget -iv 1 bs", "The original mesh is not defined."},
        {"kv_blendShapeSplitTarget -om pl bs", "pl is not a mesh object."},
        {"kv_blendShapeSplitTarget -om nothing bs", "nothing is not a mesh object."},
        {"kv_blendShapeSplitTarget -om plShape -ax Y bs",
         "The axis string is not correcty defined. Use x, y, or z."},
        {"kv_blendShapeSplitTarget -om plShape -i -2 bs",
         "No weight map has the index -2; use -1 for the base weights or a target index."},
    };
    for (const auto& c : cases) {
        store({{0, 0.25}});
        clearMessages();
        EXPECT_EQ(exec(c.command), CommandResult(0)) << c.command;
        EXPECT_EQ(errors(), Lines{c.error}) << c.command;
        EXPECT_EQ(stored(), (Map{{0, 0.25}})) << c.command;
    }
    clearMessages();
    exec("kv_blendShapeSplitTarget -om plShape plShape", false);
    EXPECT_EQ(errors(), Lines{"The node is not a blend shape node."});
}

} // namespace
