// Undo and redo of the built-in commands: each scene-changing command, run after its setup, is
// undone back to the scene before it and redone to the scene after it, compared as saved text
// together with the selection and the current time.
#include "../files/FileTestSupport.h"
#include "files/SceneWriter.h"

namespace {

struct UndoCase {
    const char* name;
    std::string setup;
    std::string command;
};

class UndoSession : public FileTest {
protected:
    // The scene as text, the selection and the current time.
    static std::string snapshot() {
        std::vector<std::string> problems;
        std::string text = host::sceneText("undo.ma", problems);
        host::CommandResult selected, time;
        EXPECT_TRUE(host::interpreter().execute("ls -sl", selected));
        EXPECT_TRUE(host::interpreter().execute("currentTime -q", time));
        text += "\nselected:";
        if (auto* names = std::get_if<std::vector<std::string>>(&selected))
            for (const std::string& name : *names) text += " " + name;
        if (auto* frame = std::get_if<double>(&time)) text += "\ntime: " + std::to_string(*frame);
        return text;
    }

    // "{dir}" in a case's text stands for the test's folder.
    std::string expand(std::string text) const {
        for (std::size_t at; (at = text.find("{dir}")) != std::string::npos;)
            text.replace(at, 5, folder().string());
        return text;
    }
};

std::string manyValues(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += " " + std::to_string(i % 7) + ".5";
    return text;
}

const std::string cube = "polyCube -n box; ";
const std::string pair = "createNode transform -n a; createNode transform -n b; ";
const std::string deformed = "polyCube -n base; polyCube -n tgt; blendShape -n bs tgt base; ";

const UndoCase cases[] = {
    {"createNode", "", "createNode transform -n a"},
    {"createNodeUnderParent", pair, "createNode transform -n c -p a"},
    {"createMeshMakesTransform", "", "createNode mesh -n shapeOnly"},
    {"setAttrPlain", pair, "setAttr a.tx 2.5"},
    {"setAttrCompound", pair, "setAttr a.t 1 2 3"},
    {"setAttrManyElements", pair + "addAttr -ln w -at double -m a; setAttr a.w[3] 1",
     "setAttr -s 300 a.w[0:299]" + manyValues(300)},
    {"setAttrMeshPoints", cube, "setAttr boxShape.vt[2] 5 6 7"},
    {"setAttrTweak", cube, "setAttr boxShape.pt[1] 0 1 0"},
    {"addAttr", pair, "addAttr -ln note -dt \"string\" a"},
    {"connectAttr", pair, "connectAttr a.tx b.ty"},
    {"connectAttrForce", pair + "createNode transform -n c; connectAttr a.tx c.tz",
     "connectAttr -f b.tx c.tz"},
    {"disconnectAttr", pair + "setAttr a.tx 4; connectAttr a.tx b.ty", "disconnectAttr a.tx b.ty"},
    {"removeMultiInstance", pair + "addAttr -ln w -at double -m a; setAttr a.w[2] 1; setAttr a.w[5] 2",
     "removeMultiInstance a.w[2]"},
    {"aliasAttr", deformed, "aliasAttr smile bs.w[0]"},
    {"rename", cube, "rename box crate"},
    {"parent", pair, "parent b a"},
    {"parentToWorld", pair + "parent b a", "parent -w b"},
    {"deleteWithChildren", pair + "parent b a; connectAttr b.tx a.ty; select b", "delete a"},
    {"deleteMesh", cube + "createNode transform -n other; connectAttr other.tx box.ty", "delete box"},
    {"deleteDeformedMesh", deformed, "delete base"},
    {"duplicate", cube + "setAttr box.tx 3; addAttr -ln n -at double box", "duplicate box"},
    {"duplicateHierarchy", pair + "parent b a; createNode transform -n c -p b", "duplicate -n a2 a"},
    {"select", cube + pair, "select box a"},
    {"selectComponents", cube, "select box.vtx[0:3]"},
    {"sets", cube, "sets -n keep box"},
    {"blendShape", "polyCube -n base; polyCube -n tgt", "blendShape -n bs tgt base"},
    {"blendShapeAddTarget", deformed + "polyCube -n other", "blendShape -e -t base 1 other 1 bs"},
    {"blendShapeInBetween", deformed + "polyCube -n half", "blendShape -e -ib -t base 0 half 0.5 bs"},
    {"skinCluster", cube + "joint -n j0; select -cl; joint -n j1 -p 0 2 0", "skinCluster -n skin j0 j1 box"},
    {"joint", "", "joint -n j0 -p 1 2 3"},
    {"polyCube", "", "polyCube -n box"},
    {"polyPlane", "", "polyPlane -n floor"},
    {"polySphere", "", "polySphere -n ball"},
    {"polyColorSet", cube, "polyColorSet -create -colorSet paint box"},
    {"currentTime", "", "currentTime 12"},
    {"importObj", cube, "file -i -type \"OBJ\" \"{dir}/tri.obj\""},
    {"importScene", cube + "setAttr box.tx 2; file -rn \"{dir}/saved.ma\"; file -s",
     "file -i \"{dir}/saved.ma\""},
};

class UndoBuiltin : public UndoSession, public ::testing::WithParamInterface<UndoCase> {};

TEST_P(UndoBuiltin, UndoRestoresAndRedoRepeats) {
    const UndoCase& c = GetParam();
    std::ofstream(path("tri.obj")) << "o tri\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";
    ASSERT_TRUE(run(expand(c.setup))) << c.setup;
    const std::string before = snapshot();
    ASSERT_TRUE(run(expand(c.command))) << c.command;
    const std::string after = snapshot();
    ASSERT_NE(before, after) << c.command << " changed nothing";
    ASSERT_TRUE(run("undo"));
    EXPECT_EQ(snapshot(), before) << "undo " << c.command;
    ASSERT_TRUE(run("redo"));
    EXPECT_EQ(snapshot(), after) << "redo " << c.command;
    // Undo again after redo, as a user stepping back and forth does.
    ASSERT_TRUE(run("undo"));
    EXPECT_EQ(snapshot(), before) << "second undo " << c.command;
}

INSTANTIATE_TEST_SUITE_P(Commands, UndoBuiltin, ::testing::ValuesIn(cases),
                         [](const ::testing::TestParamInfo<UndoCase>& info) { return info.param.name; });

TEST_F(UndoSession, WholeScriptUndoesToTheEmptyScene) {
    const std::string empty = snapshot();
    const std::string script = deformed + "setAttr bs.w[0] 0.5; duplicate base; rename base1 copy; "
                                          "parent copy tgt; select copy; delete tgt; currentTime 4";
    ASSERT_TRUE(run(script));
    const std::string built = snapshot();
    int steps = 0;
    while (snapshot() != empty && steps < 100) {
        ASSERT_TRUE(run("undo"));
        ++steps;
    }
    EXPECT_EQ(snapshot(), empty);
    for (int i = 0; i < steps; ++i) ASSERT_TRUE(run("redo"));
    EXPECT_EQ(snapshot(), built);
}

TEST_F(UndoSession, QueriesAndFailuresLeaveNoEntry) {
    const std::string empty = snapshot();
    ASSERT_TRUE(run("createNode transform -n a"));
    ASSERT_TRUE(run("getAttr a.tx; ls; ls -sl; currentTime -q"));
    EXPECT_FALSE(run("setAttr a.nothing 1"));
    EXPECT_FALSE(run("connectAttr a.tx missing.ty"));
    ASSERT_TRUE(run("undo")); // undoes the createNode, nothing else
    EXPECT_EQ(snapshot(), empty);
}

TEST_F(UndoSession, UndoPastTheStartWarns) {
    ASSERT_TRUE(run("createNode transform -n a; undo"));
    host::messageLog().clearHistory();
    EXPECT_TRUE(run("undo"));
    EXPECT_TRUE(run("redo; redo"));
    bool warned = false;
    for (const host::Message& m : host::messageLog().history())
        warned = warned ||
                 (m.kind == host::MessageKind::Warning && m.text == "There are no more commands to undo.");
    EXPECT_TRUE(warned);
    EXPECT_NE(host::scene().findNode("a"), nullptr);
}

TEST_F(UndoSession, NewCommandDropsWhatCouldBeRedone) {
    ASSERT_TRUE(run("createNode transform -n a; createNode transform -n b; undo; createNode transform -n c"));
    host::messageLog().clearHistory();
    EXPECT_TRUE(run("redo"));
    EXPECT_EQ(host::scene().findNode("b"), nullptr);
    ASSERT_TRUE(run("undo; undo"));
    EXPECT_EQ(host::scene().findNode("a"), nullptr);
    EXPECT_EQ(host::scene().findNode("c"), nullptr);
}

TEST_F(UndoSession, OpeningASceneLeavesNothingToUndo) {
    ASSERT_TRUE(run("createNode transform -n a; file -f -new; createNode transform -n b"));
    ASSERT_TRUE(run("undo"));
    host::messageLog().clearHistory();
    ASSERT_TRUE(run("undo"));
    EXPECT_EQ(host::scene().findNode("a"), nullptr);
    ASSERT_FALSE(host::messageLog().history().empty());
    EXPECT_EQ(host::messageLog().history().back().text, "There are no more commands to undo.");
}

TEST_F(UndoSession, OptionVarsAreUndone) {
    ASSERT_TRUE(run("optionVar -iv undoProbe 3"));
    ASSERT_TRUE(run("optionVar -iv undoProbe 5; undo"));
    host::CommandResult value;
    ASSERT_TRUE(host::interpreter().execute("optionVar -q undoProbe", value));
    EXPECT_EQ(std::get<int>(value), 3);
    ASSERT_TRUE(run("optionVar -rm undoProbe"));
}

} // namespace
