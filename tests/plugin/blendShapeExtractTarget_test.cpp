// kv_blendShapeExtractTarget: the extracted mesh per item, the fill of empty items, messages and
// results of the checks, and undo and redo of the created mesh.
#include "TargetEditSession.h"

#include <algorithm>

namespace {

using host::CommandResult;

class ExtractTarget : public TargetEditSession {
protected:
    void SetUp() override {
        TargetEditSession::SetUp();
        makeBlendShapeWithInbetween();
        must("select -cl");
    }
    static CommandResult extract(const std::string& arguments, bool expectOk = true) {
        return exec("kv_blendShapeExtractTarget " + arguments, expectOk);
    }
    static std::string extracted(const CommandResult& result) {
        const auto* name = std::get_if<std::string>(&result);
        return name ? *name : std::string();
    }
};

TEST_F(ExtractTarget, EachItemBecomesAMesh) {
    const Points box = meshPoints("boxShape");
    const struct {
        const char* arguments;
        std::vector<int> components;
        Deltas deltas;
        const char* suffix;
    } cases[] = {
        {"-om boxShape bs", {0, 1, 2, 7}, {{0, 1, 0}, {0, 2, 0}, {0, 3, 0}, {0, 4, 0}}, "_6000"},
        // The in-between itself, not the full shape at its weight.
        {"-i 0 -ti 5500 -om boxShape bs", {3}, {{0.25, 0, 0}}, "_5500"},
        // An item without data extracts the original and is filled with vertex 0 and a zero delta.
        {"-i 1 -om boxShape bs", {}, {}, "_6000"},
    };
    for (const auto& c : cases) {
        clearMessages();
        const std::string name = extracted(extract(c.arguments));
        ASSERT_GE(name.size(), 5u) << c.arguments << "\n" << allMessages();
        EXPECT_EQ(name.substr(name.size() - 5), c.suffix);
        ASSERT_TRUE(exists(name)) << name;
        EXPECT_EQ(meshPoints(name), withDeltas(box, c.components, c.deltas)) << c.arguments;
        EXPECT_TRUE(errors().empty()) << allMessages();
        // The next result would take this one's name (see ResultNamesFollowTheHost).
        must("delete " + name);
    }
    EXPECT_EQ(components(1), (std::vector<int>{0}));
    EXPECT_EQ(deltas(1), (Deltas{{0, 0, 0}}));
    // The temporary deformer and copies are gone; the source keeps its own data.
    EXPECT_EQ(nodesOfType("blendShape"), (std::vector<std::string>{"bs"}));
    EXPECT_EQ(nodesOfType("mesh"), (std::vector<std::string>{"boxShape"}));
    EXPECT_EQ(components(0), (std::vector<int>{0, 1, 2, 7}));
}

TEST_F(ExtractTarget, ResultHasDefaultShading) {
    const std::string name = extracted(extract("-om boxShape bs"));
    ASSERT_TRUE(exists(name));
    const CommandResult members = exec("sets -q initialShadingGroup");
    const auto* list = std::get_if<std::vector<std::string>>(&members);
    ASSERT_NE(list, nullptr);
    EXPECT_NE(std::find_if(list->begin(), list->end(),
                           [&](const std::string& m) { return m.find(shapeOf(name)) != std::string::npos; }),
              list->end());
}

// The result is the name asked for: the host's name for the new transform plus the item. When a
// mesh of that name exists already the new one is renamed by the host, and the result still names
// the older one.
TEST_F(ExtractTarget, ResultNamesFollowTheHost) {
    const std::string first = extracted(extract("-om boxShape bs"));
    EXPECT_EQ(first, "polySurface3_6000");
    EXPECT_EQ(extracted(extract("-om boxShape bs")), first);
    EXPECT_EQ(nodesOfType("mesh").size(), 3u);
}

TEST_F(ExtractTarget, ChecksAndMessages) {
    const struct {
        const char* arguments;
        bool ok;
        const char* error;
    } cases[] = {
        {"-om boxShape", false, "No blend shape node provided."},
        {"-om boxShape boxShape", false, "The node is not a blend shape node."},
        // The original mesh errors are reported without failing.
        {"bs", true, "The original mesh is not defined."},
        {"-om box bs", true, "box is not a mesh object."},
        {"-om nothing bs", true, "nothing is not a mesh object."},
    };
    const std::size_t meshes = nodesOfType("mesh").size();
    for (const auto& c : cases) {
        clearMessages();
        EXPECT_EQ(extract(c.arguments, c.ok), CommandResult(std::string())) << c.arguments;
        EXPECT_EQ(errors(), Lines{c.error}) << c.arguments;
    }
    EXPECT_EQ(nodesOfType("mesh").size(), meshes);
    // -h answers with the help text whatever else is given.
    const auto help = std::get<std::string>(extract("-h -om box bs"));
    EXPECT_NE(help.find("Extracts an existing blend shape target."), std::string::npos);
}

TEST_F(ExtractTarget, UndoDeletesTheMeshRedoMakesANewOne) {
    const std::string name = extracted(extract("-i 1 -om boxShape bs"));
    ASSERT_TRUE(exists(name));
    exec("undo");
    EXPECT_FALSE(exists(name));
    // The fill of the empty item stays.
    EXPECT_EQ(components(1), (std::vector<int>{0}));
    exec("redo");
    EXPECT_EQ(nodesOfType("mesh").size(), 2u);
    EXPECT_EQ(nodesOfType("blendShape").size(), 1u);
    EXPECT_TRUE(errors().empty()) << allMessages();
}

} // namespace
