// kv_blendShapeRemoveDeltas: vertex, edge and face selections, the first selected object only, an
// empty selection, and undo.
#include "TargetEditSession.h"

namespace {

using host::CommandResult;

class RemoveDeltas : public TargetEditSession {
protected:
    // Target 0 of "bs" holds deltas for vertices 0, 1, 2 and 7 of "box" (see makeBlendShape).
    void SetUp() override {
        TargetEditSession::SetUp();
        makeBlendShape();
        must("polyCube -n other");
    }
    const std::vector<int> all = {0, 1, 2, 7};
    const Deltas allDeltas = {{0, 1, 0}, {0, 2, 0}, {0, 3, 0}, {0, 4, 0}};
};

TEST_F(RemoveDeltas, BySelection) {
    const struct {
        const char* selection;
        std::vector<int> components;
        Deltas deltas;
    } cases[] = {
        {"select box.vtx[1] box.vtx[7]", {0, 2}, {{0, 1, 0}, {0, 3, 0}}},
        {"select box.vtx[3:5]", {0, 1, 2, 7}, {{0, 1, 0}, {0, 2, 0}, {0, 3, 0}, {0, 4, 0}}},
        {"select box.vtx[0:2] box.vtx[7]", {}, {}},
        // Edge 0 joins vertices 0 and 1; face 0 has the corners 0, 1, 3, 2, shared with other faces.
        {"select box.e[0]", {2, 7}, {{0, 3, 0}, {0, 4, 0}}},
        {"select box.f[0]", {7}, {{0, 4, 0}}},
        {"select box.f[0:5]", {}, {}},
        // Only the first selected object's components count, on whatever mesh they are.
        {"select other.vtx[7]; select -add box.vtx[0]", {0, 1, 2}, {{0, 1, 0}, {0, 2, 0}, {0, 3, 0}}},
        {"select other.f[0]", {7}, {{0, 4, 0}}},
        // No components selected: the item keeps no deltas, written as vertex 0 with a zero delta.
        {"select -cl", {0}, {{0, 0, 0}}},
        {"select box", {0}, {{0, 0, 0}}},
    };
    for (const auto& c : cases) {
        must("setAttr bs.it[0].itg[0].iti[6000].ict -type componentList 2 vtx[0:2] vtx[7]");
        must("setAttr bs.it[0].itg[0].iti[6000].ipt -type pointArray 4 0 1 0 1 0 2 0 1 0 3 0 1 0 4 0 1");
        must(c.selection);
        EXPECT_EQ(exec("kv_blendShapeRemoveDeltas bs"), CommandResult(1)) << c.selection;
        EXPECT_EQ(components(0), c.components) << c.selection;
        EXPECT_EQ(deltas(0), c.deltas) << c.selection;
    }
    EXPECT_TRUE(errors().empty()) << allMessages();
}

TEST_F(RemoveDeltas, UndoAndRedo) {
    for (const char* selection : {"select box.f[0]", "select -cl"}) {
        must(selection);
        exec("kv_blendShapeRemoveDeltas bs");
        const std::vector<int> edited = components(0);
        exec("undo");
        EXPECT_EQ(components(0), all) << selection;
        EXPECT_EQ(deltas(0), allDeltas) << selection;
        // Redo works from the selection as it is then.
        exec("redo");
        EXPECT_EQ(components(0), edited) << selection;
        exec("undo");
    }
    EXPECT_TRUE(errors().empty()) << allMessages();
}

} // namespace
