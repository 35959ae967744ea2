// kv_blendShapeSetInbetweenPosition: moving an item's data to another item number, onto an
// occupied item, from an empty item, and undo.
#include "TargetEditSession.h"

namespace {

using host::CommandResult;

class SetInbetweenPosition : public TargetEditSession {
protected:
    // Target 0 of "bs": item 6000 holds vertices 0, 1, 2, 7; item 5500 holds vertex 3.
    void SetUp() override {
        TargetEditSession::SetUp();
        makeBlendShapeWithInbetween();
    }
    static CommandResult move(const std::string& arguments) {
        return exec("kv_blendShapeSetInbetweenPosition " + arguments + " bs");
    }
    static std::vector<int> items(unsigned int target = 0) {
        return common::targetItems(node("bs"), target).vec();
    }
};

TEST_F(SetInbetweenPosition, MovesTheItemData) {
    const struct {
        const char* arguments;
        std::vector<int> items;
        unsigned int at;
        std::vector<int> components;
    } cases[] = {
        {"-sp 5500 -tp 5250", {5250, 6000}, 5250, {3}},
        {"-sp 5500 -tp 5500", {5500, 6000}, 5500, {3}},
        {"", {5500, 6000}, 6000, {0, 1, 2, 7}},
        // Onto an occupied item: its data is overwritten.
        {"-sp 5500 -tp 6000", {6000}, 6000, {3}},
        // An empty source item: the target receives empty lists and the source is removed.
        {"-sp 5100 -tp 5200", {5200, 5500, 6000}, 5200, {}},
    };
    for (const auto& c : cases) {
        must("removeMultiInstance -b 1 bs.it[0].itg[0]");
        must("setAttr bs.it[0].itg[0].iti[6000].ict -type componentList 2 vtx[0:2] vtx[7]");
        must("setAttr bs.it[0].itg[0].iti[6000].ipt -type pointArray 4 0 1 0 1 0 2 0 1 0 3 0 1 0 4 0 1");
        must("setAttr bs.it[0].itg[0].iti[5500].ict -type componentList 1 vtx[3]");
        must("setAttr bs.it[0].itg[0].iti[5500].ipt -type pointArray 1 0.25 0 0 1");
        EXPECT_EQ(move(c.arguments), CommandResult(1)) << c.arguments;
        EXPECT_EQ(items(), c.items) << c.arguments;
        EXPECT_EQ(components(0, c.at), c.components) << c.arguments;
    }
    EXPECT_TRUE(errors().empty()) << allMessages();
}

TEST_F(SetInbetweenPosition, UndoRemovesTheTargetItemAndRestoresTheSource) {
    move("-sp 5500 -tp 5250");
    exec("undo");
    EXPECT_EQ(items(), (std::vector<int>{5500, 6000}));
    EXPECT_EQ(components(0, 5500), std::vector<int>{3});
    EXPECT_EQ(deltas(0, 5500), (Deltas{{0.25, 0, 0}}));
    exec("redo");
    EXPECT_EQ(items(), (std::vector<int>{5250, 6000}));
    EXPECT_EQ(deltas(0, 5250), (Deltas{{0.25, 0, 0}}));
    exec("undo");

    // Data overwritten at the target position is not brought back.
    move("-sp 5500 -tp 6000");
    exec("undo");
    EXPECT_EQ(items(), (std::vector<int>{5500}));
    EXPECT_EQ(components(0, 5500), std::vector<int>{3});
    EXPECT_TRUE(errors().empty()) << allMessages();
}

} // namespace
