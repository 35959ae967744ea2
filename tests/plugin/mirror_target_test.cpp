// kv_blendShapeMirrorTarget: the three modes and flip with their undo, matching by position and by
// order map, skip lists, tweak meshes and bad input.
#include "MirrorTargetSession.h"

#include <algorithm>

namespace {

using host::CommandResult;

class MirrorTarget : public MirrorTargetSession {
protected:
    // +X side (vertex 2), the centre (4) and -X side (0).
    const Target source = {{2, {1, 2, 3}}, {4, {0.5, 1, 0}}, {0, {7, 0, 0}}};
    const Target other = {{5, {9, 9, 9}}};
    void SetUp() override {
        MirrorTargetSession::SetUp();
        makeDeformedPlane();
        must("polyPlane -n other -w 2 -h 2 -sx 2 -sy 2; createNode transform -n group; select -cl");
        setTarget(0, source);
        setTarget(1, other);
    }
    static Target sorted(Target t) {
        std::sort(t.begin(), t.end());
        return t;
    }
};

TEST_F(MirrorTarget, ModesWriteAndUndoRestores) {
    const Target symmetric = {{0, {-1, 2, 3}}, {4, {0, 1, 0}}, {2, {1, 2, 3}}};
    const struct {
        std::string arguments;
        unsigned int written;
        Target edited, undone;
    } cases[] = {
        {"-om pl", 0, symmetric, source},
        {"-om pl -dir 0", 0, {{4, {0, 1, 0}}, {2, {-7, 0, 0}}, {0, {7, 0, 0}}}, source},
        {"-om pl -ax z",
         0,
         {{8, {1, 2, -3}}, {4, {0.5, 1, 0}}, {6, {7, 0, 0}}, {2, {1, 2, 3}}, {0, {7, 0, 0}}},
         source},
        // Another destination gets the source's data back on undo, not its own.
        {"-om pl -ti 1", 1, symmetric, source},
        // Apply: every delta mirrored, centre ones unchanged; undo restores the destination.
        {"-om pl -t 2 -ti 1", 1, {{0, {-1, 2, 3}}, {4, {-0.5, 1, 0}}, {2, {-7, 0, 0}}}, other},
        // Flip runs with the direction inverted: every delta moves to its partner.
        {"-om pl -f 1", 0, {{0, {-1, 2, 3}}, {4, {0, 1, 0}}, {2, {-7, 0, 0}}}, source},
        {"-om pl -f 1 -t 2 -ti 1", 1, {{0, {-1, 2, 3}}, {4, {-0.5, 1, 0}}, {2, {-7, 0, 0}}}, other},
        // Skip list: garbage names are ignored; with the order map it is ignored as a whole.
        {"-om pl -sc \"garbage pl.vtx[zz] pl.vtx[2] vtx[4]\"",
         0,
         {{4, {0, 1, 0}}},
         {{4, {0.5, 1, 0}}, {0, {7, 0, 0}}}},
        {"-om pl -ob pl -sc \"pl.vtx[2]\"", 0, symmetric, source},
        // A negative tolerance matches as its size does, but its centre band reaches past the plane.
        {"-om pl -tol -0.001", 0, {{0, {-1, 2, 3}}, {2, {1, 2, 3}}}, source},
    };
    setOrderMap("plShape", {2, 1, 0, 5, 4, 3, 8, 7, 6});
    for (const auto& c : cases) {
        setTarget(0, source);
        setTarget(1, other);
        clearMessages();
        EXPECT_EQ(mirror(c.arguments), CommandResult(1)) << c.arguments;
        EXPECT_EQ(target(c.written), c.edited) << c.arguments;
        EXPECT_TRUE(errors().empty()) << c.arguments << "\n" << allMessages();
        exec("undo");
        EXPECT_EQ(target(c.written), c.undone) << "undo " << c.arguments;
        if (c.written == 1) {
            EXPECT_EQ(target(0), source) << c.arguments;
        }
    }
}

TEST_F(MirrorTarget, MirroredThenFlippedTwiceReturnsToItself) {
    mirror("-om pl");
    const Target symmetric = sorted(target(0));
    mirror("-om pl -f 1");
    EXPECT_EQ(sorted(target(0)), symmetric);
    exec("undo; redo"); // the redo flips with the direction inverted once more
    EXPECT_EQ(sorted(target(0)), symmetric);
    mirror("-om pl -f 1");
    EXPECT_EQ(sorted(target(0)), symmetric);

    // Applied in place, a flip moves every delta; twice it gives the target back.
    const Target asymmetric = {{2, {1, 2, 3}}, {3, {4, 5, 6}}, {4, {0.5, 1, 0}}};
    setTarget(0, asymmetric);
    mirror("-om pl -f 1 -t 2");
    EXPECT_EQ(sorted(target(0)), sorted({{0, {-1, 2, 3}}, {5, {-4, 5, 6}}, {4, {-0.5, 1, 0}}}));
    mirror("-om pl -f 1 -t 2");
    EXPECT_EQ(sorted(target(0)), asymmetric);
    // In mode 0 a source-side delta whose partner had none also stays where it is.
    mirror("-om pl -f 1");
    EXPECT_EQ(sorted(target(0)), sorted({{0, {-1, 2, 3}}, {3, {4, 5, 6}}, {4, {0, 1, 0}}, {5, {-4, 5, 6}}}));
}

TEST_F(MirrorTarget, CopyCreatesTargetsAndUndoRemovesThem) {
    const Target copied = {{0, {-1, 2, 3}}, {4, {-0.5, 1, 0}}};
    const unsigned int channels = weightCount();
    EXPECT_EQ(mirror("-om pl -m pl -t 1 -ti 3 -tn mirrored"), CommandResult(1));
    EXPECT_EQ(target(3), copied);
    EXPECT_EQ(exec("aliasAttr -q bs.mirrored"), CommandResult(std::string("weight[3]")));
    EXPECT_TRUE(node("mirrored").isNull()); // the duplicate is gone
    exec("undo");
    EXPECT_EQ(weightCount(), channels);
    EXPECT_TRUE(components(3).empty());
    exec("aliasAttr -q bs.mirrored", false);

    // In-betweens, read from and written to the same item: 5500 at weight 0.5; 4500 wraps to a huge
    // weight that the host turns back into item 4500. Undo removes the item only.
    for (const unsigned int item : {5500u, 4500u}) {
        setTarget(0, source, item);
        const std::string arguments = "-om pl -m pl -t 1 -ib 1 -ti 1 -tn half -tit " + std::to_string(item);
        EXPECT_EQ(mirror(arguments), CommandResult(1)) << arguments;
        EXPECT_EQ(target(1, item), copied) << arguments;
        EXPECT_EQ(target(1), other);
        exec("undo");
        EXPECT_TRUE(components(1, item).empty()) << arguments;
        EXPECT_EQ(target(1), other);
    }

    // A node of that name exists: the host names the duplicate, and so the target, apart.
    EXPECT_EQ(mirror("-om pl -m pl -t 1 -ti 3 -tn shape"), CommandResult(1));
    EXPECT_EQ(exec("aliasAttr -q bs.shape1"), CommandResult(std::string("weight[3]")));
    exec("undo");
    exec("aliasAttr -q bs.shape1", false);
    EXPECT_EQ(exec("aliasAttr -q bs.shape"), CommandResult(std::string("weight[0]")));
}

TEST_F(MirrorTarget, OrderMapsAndTweakMeshes) {
    must("polyPlane -n tw -w 2 -h 2 -sx 2 -sy 2");
    setOrderMap("plShape", {2, 1, 0, 5, 4, 3, 8, 7, 6});
    setOrderMap("otherShape", {2, 1, 0, 5, 4, 3, 8, 7, 6});
    const std::array<double, 3> zero = {0, 0, 0};
    // A tweak mesh after a separate order mesh receives the deltas; undo takes them back.
    EXPECT_EQ(mirror("-om pl -ob other -tm tw -t 2 -ti 1"), CommandResult(1));
    EXPECT_EQ(tweak("twShape", 0), (std::array<double, 3>{-1, 2, 3}));
    EXPECT_EQ(tweak("twShape", 4), (std::array<double, 3>{-0.5, 1, 0}));
    exec("undo");
    EXPECT_EQ(tweak("twShape", 0), zero);
    // Without a separate order mesh the tweak mesh takes the order mesh's place: no tweaks.
    EXPECT_EQ(mirror("-om pl -tm tw -t 2 -ti 1"), CommandResult(1));
    EXPECT_EQ(tweak("twShape", 0), zero);

    // A map too short for the mesh, and entries outside it: those deltas are not mirrored.
    const struct {
        std::vector<int> map;
        Target edited;
    } cases[] = {
        {{2, 1, 0, 5}, {{0, {-1, 2, 3}}, {2, {1, 2, 3}}, {4, {0.5, 1, 0}}}},
        {{-1, 1, 99, 5, 4, 3, 8, 7, 6}, {{4, {0, 1, 0}}, {2, {1, 2, 3}}}},
    };
    for (const auto& c : cases) {
        setTarget(0, source);
        setOrderMap("plShape", c.map);
        clearMessages();
        EXPECT_EQ(mirror("-om pl -ob pl"), CommandResult(1));
        EXPECT_EQ(target(0), c.edited);
        EXPECT_EQ(infos(), Lines{"Skipped 1 asymmetrical components."});
    }
}

TEST_F(MirrorTarget, BadInputChangesNothing) {
    must("delete shape");
    const std::size_t nodes = host::scene().nodes().size();
    const unsigned int channels = weightCount();
    const std::string unmatched = "Unable to find 3 mirrored points. Please increase the tolerance to "
                                  "account for non-symmetrical points.";
    const struct {
        std::string arguments;
        std::string error;
    } cases[] = {
        {"-om pl -ax X", "The axis string is not correcty defined. Use x, y, or z."},
        {"-ax x", "The original mesh is not defined."},
        {"-om bs", "bs is not a mesh object."},
        {"-om nothing", "nothing is not a mesh object."},
        {"-om group", "group has no shape node."},
        {"-om pl -tm group", "group has no shape node."},
        {"-om pl -tol 0", unmatched},
        {"-om pl -tm pl", unmatched}, // one node named twice: no mesh slot is filled
        {"-om pl -t 1 -m pl -ti 4 -tn shape", "bs already has a target or attribute named shape."},
        {"-om pl -t 1 -m pl -ti 4 -tn envelope", "bs already has a target or attribute named envelope."},
    };
    for (const auto& c : cases) {
        clearMessages();
        EXPECT_EQ(mirror(c.arguments), CommandResult(0)) << c.arguments;
        EXPECT_EQ(errors(), Lines{c.error}) << c.arguments;
        EXPECT_EQ(target(0), source) << c.arguments;
        EXPECT_EQ(weightCount(), channels) << c.arguments;
        EXPECT_EQ(host::scene().nodes().size(), nodes) << c.arguments;
    }
    clearMessages();
    exec("kv_blendShapeMirrorTarget -om pl", false);
    EXPECT_EQ(errors(), Lines{"No blend shape node provided."});
    clearMessages();
    exec("kv_blendShapeMirrorTarget -om pl pl", false);
    EXPECT_EQ(errors(), Lines{"The node is not a blend shape node."});
}

} // namespace
