// kv_meshEvaluate: the visible and the intermediate shape of a mesh, the upstream walk from the
// tweak location, re-parenting of a stray original shape, the ambiguous-candidates report and the
// object errors.
#include "PluginSession.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>

namespace {

class MeshEvaluateTest : public PluginSession {
protected:
    // "box" bound to one joint: the skin cluster gives it the original shape boxShapeOrig.
    static void bindBox() { must("polyCube -n box; select -cl; joint -n j0; skinCluster -n skin j0 box"); }

    // A copy of boxShape's geometry as an intermediate mesh under `parent`, optionally feeding a
    // tweak node so that it is the source of a connection.
    static void addIntermediate(const char* name, const char* parent, bool connected) {
        MFnMesh mesh;
        mesh.copy(node("boxShape"), node(parent));
        MFnDependencyNode(mesh.object()).setName(name);
        must(std::string("setAttr ") + name + ".io 1");
        if (connected)
            must(std::string("createNode tweak -n ") + name + "Use; connectAttr " + name + ".worldMesh[0] " +
                 name + "Use.input[0].inputGeometry");
    }

    static std::vector<std::string> texts(host::MessageKind kind) {
        std::vector<std::string> out;
        for (const host::Message& m : messages())
            if (m.kind == kind) out.push_back(m.text);
        return out;
    }
};

TEST_F(MeshEvaluateTest, FindsTheVisibleAndTheIntermediateShape) {
    const struct {
        const char* setup;
        const char* command;
        const char* expected;
    } cases[] = {
        {"polyCube -n box", "kv_meshEvaluate box", "|box|boxShape"},
        {"polyCube -n box", "kv_meshEvaluate boxShape", "|box|boxShape"},
        {"polyCube -n box; select box", "kv_meshEvaluate", "|box|boxShape"},
        {"", "kv_meshEvaluate -i box", "|box|boxShapeOrig"},
        {"", "kv_meshEvaluate -intermediate boxShape", "|box|boxShapeOrig"},
        {"", "kv_meshEvaluate box", "|box|boxShape"},
    };
    for (const auto& c : cases) {
        host::resetScene();
        if (*c.setup)
            must(c.setup);
        else
            bindBox();
        MString result;
        ASSERT_TRUE(run(c.command, result)) << c.command << "\n" << allMessages();
        EXPECT_EQ(result, MString(c.expected)) << c.command;
    }
    MString path;
    ASSERT_TRUE(run("optionVar -q TALVENCurrentDagPath", path));
    EXPECT_EQ(path, "|box|boxShape");
}

TEST_F(MeshEvaluateTest, ErrorsFailTheCommand) {
    const struct {
        const char* setup;
        const char* command;
        const char* error;
    } cases[] = {
        {"select -cl", "kv_meshEvaluate", "No mesh node provided."},
        {"createNode transform -n empty", "kv_meshEvaluate empty", "empty has no shape node."},
        {"createNode blendShape -n bs", "kv_meshEvaluate bs", "bs is not a mesh object."},
        {"createNode transform -n t; createNode transform -n c -p t", "kv_meshEvaluate t",
         "c is not a mesh object."},
        {"polyCube -n box; createNode mesh -n second -p box", "kv_meshEvaluate box",
         "box has more than one shape node."},
        {"polyCube -n box; createNode mesh -n second -p box", "kv_meshEvaluate -i box",
         "box has more than one shape node."},
        {"polyCube -n box", "kv_meshEvaluate -i box", "box has no shape node."},
        {"polyCube -n box; createNode tweak -n tw; connectAttr tw.vlist[0].vertex[0] boxShape.tweakLocation",
         "kv_meshEvaluate -i box", "box has no intermediate shape node."},
    };
    for (const auto& c : cases) {
        host::resetScene();
        host::messageLog().clearHistory();
        must(c.setup);
        EXPECT_FALSE(run(c.command)) << c.command;
        const auto errors = texts(host::MessageKind::Error);
        ASSERT_FALSE(errors.empty()) << c.command;
        EXPECT_EQ(errors.back(), c.error) << c.command;
    }
}

TEST_F(MeshEvaluateTest, OnlyConnectedIntermediatesOfTheSameVertexCountAreCandidates) {
    bindBox();
    // Neither an unconnected copy nor a connected mesh of another vertex count competes.
    addIntermediate("spareOrig", "box", false);
    must("createNode mesh -n emptyOrig -p box; setAttr emptyOrig.io 1; createNode tweak -n emptyUse;"
         "connectAttr emptyOrig.worldMesh[0] emptyUse.input[0].inputGeometry");
    MString result;
    ASSERT_TRUE(run("kv_meshEvaluate -i box", result)) << allMessages();
    EXPECT_EQ(result, "|box|boxShapeOrig");

    addIntermediate("secondOrig", "box", true);
    host::messageLog().clearHistory();
    EXPECT_FALSE(run("kv_meshEvaluate -i box"));
    const std::vector<std::string> info = {
        "Possible excessive intermediate: :boxShapeOrig", "Possible excessive intermediate: :secondOrig",
        "Please remove all unnecessary shape nodes.\nA deformed mesh usually has only two shape nodes; the "
        "deformed shape and the original shape."};
    EXPECT_EQ(texts(host::MessageKind::Info), info);
    EXPECT_EQ(texts(host::MessageKind::Error),
              std::vector<std::string>{
                  "box has no too many intermediate shape nodes. See script editor for details."});
}

TEST_F(MeshEvaluateTest, WithoutConnectedCandidatesTheFirstIntermediateIsTaken) {
    must("polyCube -n box");
    addIntermediate("firstOrig", "box", false);
    addIntermediate("laterOrig", "box", false);
    MString result;
    ASSERT_TRUE(run("kv_meshEvaluate -i box", result)) << allMessages();
    EXPECT_EQ(result, "|box|firstOrig");
}

TEST_F(MeshEvaluateTest, UpstreamWalkReparentsAStrayOriginalOnce) {
    // boxShape's tweak location leads to a tweak node fed by a blend shape fed by an original shape
    // that lives under another transform.
    must("polyCube -n box; createNode transform -n other");
    addIntermediate("strayOrig", "other", false);
    must("createNode tweak -n tw; createNode blendShape -n bs;"
         "connectAttr tw.vlist[0].vertex[0] boxShape.tweakLocation;"
         "connectAttr bs.outputGeometry[0] tw.input[0].inputGeometry;"
         "connectAttr strayOrig.worldMesh[0] bs.input[0].inputGeometry");
    for (int call = 0; call < 2; ++call) {
        host::messageLog().clearHistory();
        MString result;
        ASSERT_TRUE(run("kv_meshEvaluate -i box", result)) << allMessages();
        EXPECT_EQ(result, "|box|strayOrig");
        const auto warnings = texts(host::MessageKind::Warning);
        if (call == 0)
            EXPECT_EQ(warnings,
                      std::vector<std::string>{"The intermediate shape |other|strayOrig is not a child "
                                               "of |box and has been re-parented."});
        else
            EXPECT_TRUE(warnings.empty());
    }
}

} // namespace
