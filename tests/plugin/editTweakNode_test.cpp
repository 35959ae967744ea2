// kv_editTweakNode: offsets removed with and without baking, a tweak node without offsets, the
// checks, and that the command is not undone.
#include "TargetEditSession.h"

namespace {

using host::CommandResult;

class EditTweakNode : public TargetEditSession {
protected:
    // "src" feeds tweak "tw", whose result "box" shows; vertices 1 and 6 carry offsets.
    void SetUp() override {
        TargetEditSession::SetUp();
        must("polyCube -n src; polyCube -n box; createNode tweak -n tw; createNode blendShape -n bs");
        must("connectAttr srcShape.worldMesh[0] tw.input[0].inputGeometry; connectAttr tw.og[0] "
             "boxShape.inMesh");
        must("setAttr tw.vlist[0].vertex[1] 1 2 3; setAttr tw.vlist[0].vertex[6] 0 0.5 0");
    }
    static std::vector<int> offsetIndices() {
        MSelectionList list;
        list.add("tw.vlist[0].vertex");
        MPlug plug;
        list.getPlug(0, plug);
        MIntArray indices;
        plug.getExistingArrayAttributeIndices(indices);
        return indices.vec();
    }
};

TEST_F(EditTweakNode, RemovesOffsetsAndBakesOnRequest) {
    const Points original = meshPoints("srcShape");
    const Points tweaked = meshPoints("boxShape");
    ASSERT_NE(tweaked, original);
    const struct {
        const char* arguments;
        bool withOffsets;
        Points source, shown;
    } cases[] = {
        {"-om srcShape tw", true, original, original},
        {"-b 0 -om srcShape tw", true, original, original},
        {"-b 1 -om srcShape tw", true, tweaked, tweaked},
        // Without offsets nothing is added; baking rewrites the points unchanged.
        {"-b 1 -om srcShape tw", false, original, original},
    };
    for (const auto& c : cases) {
        SetUp();
        if (!c.withOffsets) must("removeMultiInstance -b 1 tw.vlist[0]");
        EXPECT_EQ(exec(std::string("kv_editTweakNode ") + c.arguments), CommandResult(1)) << c.arguments;
        EXPECT_EQ(offsetIndices(), std::vector<int>{}) << c.arguments;
        EXPECT_EQ(meshPoints("srcShape"), c.source) << c.arguments;
        EXPECT_EQ(meshPoints("boxShape"), c.shown) << c.arguments;
    }
    EXPECT_TRUE(errors().empty()) << allMessages();
}

TEST_F(EditTweakNode, IsNotUndone) {
    exec("kv_editTweakNode -b 1 -om srcShape tw");
    const Points baked = meshPoints("srcShape");
    run("undo");
    EXPECT_EQ(offsetIndices(), std::vector<int>{});
    EXPECT_EQ(meshPoints("srcShape"), baked);
}

TEST_F(EditTweakNode, ChecksChangeNothing) {
    const struct {
        const char* arguments;
        bool ok;
        const char* error;
    } cases[] = {
        {"-om srcShape", false, "No tweak node provided."},
        {"-om srcShape bs", false, "The node is not a tweak node."},
        {"tw", true, "The original mesh is not defined."},
        {"-om src tw", true, "src is not a mesh object."},
    };
    must("select -cl");
    for (const auto& c : cases) {
        clearMessages();
        EXPECT_EQ(exec(std::string("kv_editTweakNode ") + c.arguments, c.ok), CommandResult(0))
            << c.arguments;
        EXPECT_EQ(errors(), Lines{c.error}) << c.arguments;
        EXPECT_EQ(offsetIndices(), (std::vector<int>{1, 6})) << c.arguments;
    }
}

} // namespace
