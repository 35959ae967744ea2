// Undo of kv_blendShapeEditWeights: per mode, what it restores and what it deliberately leaves.
// Undo writes the saved elements back one by one, so elements an edit created elsewhere stay. The
// undo of skin cluster transfers and of freeze paint is tested with those.
#include "EditWeightsSession.h"

namespace {

using host::CommandResult;

class EditWeightsUndo : public EditWeightsSession {
protected:
    const Map start = {{0, 0.25}, {2, 0.75}, {4, 0.375}};
    void SetUp() override {
        EditWeightsSession::SetUp();
        makePlane();
    }
};

TEST_F(EditWeightsUndo, PerMode) {
    const std::string one = " -fn \"" + writeFile("one.txt", "1 0.5\n") + "\"";
    const Map flipped = {{0, 0.75}, {2, 0.25}, {4, 0.375}};
    const struct {
        std::string selection, arguments;
        Map edited, undone;
    } cases[] = {
        {"", "-sw -wi 3 -w 0.5", {{3, 0.5}}, {{0, 0.25}, {2, 0.75}, {3, 0.5}, {4, 0.375}}},
        {"", "-iv -om pl", everyVertex(0, {{0, 0.75}, {2, 0.25}, {4, 0.625}}), everyVertex(0, start)},
        {"", "-m -dir 0 -om pl", {{0, 0.25}, {2, 0.25}, {4, 0.375}}, start},
        {"", "-t -om pl", {{0, 0.25}}, start},
        {"", "-del", {}, start},
        {"select pl", "-fl 0.5 -om pl", everyVertex(0.5), everyVertex(0.5, start)},
        // Not restored:
        {"", "-flp -om pl", flipped, flipped},
        {"", "-im" + one, {{1, 0.5}}, {{1, 0.5}}},
        {"", "-aw -om pl" + one, {}, {}},
        {"", "-sub -om pl" + one, everyVertex(0, {{1, 0.5}}), everyVertex(0, {{1, 0.5}})},
        {"", "-ex -fn \"" + file("out.txt") + "\"", start, start},
    };
    for (const auto& c : cases) {
        store(start);
        must(c.selection.empty() ? "select -cl" : c.selection);
        edit(c.arguments + " bs");
        EXPECT_EQ(stored(), c.edited) << c.arguments;
        exec("undo");
        EXPECT_EQ(stored(), c.undone) << "undo " << c.arguments;
    }
    EXPECT_TRUE(std::filesystem::exists(file("out.txt")));
    // Redo runs the edit again from what the command kept.
    store(start);
    edit("-m -dir 0 -om pl bs");
    exec("undo; redo");
    EXPECT_EQ(stored(), (Map{{0, 0.25}, {2, 0.25}, {4, 0.375}}));
    EXPECT_TRUE(errors().empty()) << allMessages();
}

class EditWeightsFreezeUndo : public EditWeightsSession {
protected:
    const Deltas original = {{0, 1, 0}, {0, 2, 0}, {0, 3, 0}, {0, 4, 0}};
    const Deltas inbetween = {{2, 0, 0}, {4, 0, 0}};
    void SetUp() override {
        EditWeightsSession::SetUp();
        makeBlendShape(); // target 0, item 6000: vertices 0, 1, 2, 7 moved up by 1, 2, 3, 4
        must("setAttr bs.it[0].itg[0].iti[5500].ict -type componentList 2 vtx[7] vtx[1]");
        setInbetween();
        store({{1, 0.5}, {7, 0.25}});
    }
    static void setInbetween() {
        must("setAttr bs.it[0].itg[0].iti[5500].ipt -type pointArray 2 2 0 0 1 4 0 0 1");
    }
};

// Undo puts back the map and the deltas of the last item frozen (6000 here), written to the item
// that -ti names; other items stay frozen.
TEST_F(EditWeightsFreezeUndo, RestoresTheLastItemIntoTheNamedItem) {
    const Deltas frozen = {{0, 1, 0}, {0, 1, 0}, {0, 3, 0}, {0, 1, 0}};
    EXPECT_EQ(edit("-f bs"), CommandResult(true));
    EXPECT_EQ(deltas(0), frozen);
    exec("undo");
    EXPECT_EQ(stored(), (Map{{1, 0.5}, {7, 0.25}}));
    EXPECT_EQ(deltas(0), original);
    EXPECT_EQ(deltas(0, 5500), (Deltas{{0.5, 0, 0}, {2, 0, 0}}));

    setInbetween();
    EXPECT_EQ(edit("-f -ti 5500 bs"), CommandResult(true));
    exec("undo");
    EXPECT_EQ(deltas(0), frozen);
    EXPECT_EQ(components(0, 5500), (std::vector<int>{0, 1, 2, 7}));
    EXPECT_EQ(deltas(0, 5500), original);
    EXPECT_TRUE(errors().empty()) << allMessages();
}

// Undo of a freeze that froze no item must not write the copy it never took.
TEST_F(EditWeightsFreezeUndo, UndoOfAFreezeThatFrozeNothingKeepsTheTargets) {
    for (const std::string arguments : {"-f bs", "-f -i -1 bs", "-f -i 3 bs"}) {
        must("setAttr bs.it[0].itg[0].iti[6000].ict -type componentList 2 vtx[0:2] vtx[7]");
        must("setAttr bs.it[0].itg[0].iti[6000].ipt -type pointArray 4 0 1 0 1 0 2 0 1 0 3 0 1 0 4 0 1");
        store({});             // -f: an empty map is refused
        store({{1, 0.5}}, -1); // -i -1: base weights are refused
        store({{1, 0.5}}, 3);  // -i 3: a target without items only has its map cleared
        edit(arguments);
        exec("undo");
        EXPECT_EQ(deltas(0), original) << arguments;
        EXPECT_EQ(components(0), (std::vector<int>{0, 1, 2, 7})) << arguments;
        EXPECT_EQ(deltas(0, 5500), inbetween) << arguments;
        EXPECT_EQ(common::targetItems(node("bs"), 3).length(), 0u) << arguments;
    }
}

} // namespace
