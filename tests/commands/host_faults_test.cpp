// Faults of the embedded host found in use: values kept on disconnect, names kept by duplicate and
// taken from OBJ and scene imports, history deleted with a deformed mesh, and --strict batches.
#include "../files/FileTestSupport.h"

namespace {

class HostFaults : public FileTest {
protected:
    static bool exists(const std::string& name) { return host::scene().findNode(name) != nullptr; }
};

TEST_F(HostFaults, DisconnectKeepsTheDeliveredValue) {
    const struct {
        std::string connect, disconnect, read;
        host::CommandResult expected;
    } cases[] = {
        {"connectAttr a.tx b.ty", "disconnectAttr a.tx b.ty", "getAttr b.ty", 4.0},
        {"connectAttr a.tx b.ty", "disconnectAttr b.ty", "getAttr b.ty", 4.0},
        {"connectAttr a.t b.t", "disconnectAttr a.t b.t", "getAttr b.t", std::vector<double>{4, 5, 6}},
        {"connectAttr a.sx b.sy", "disconnectAttr a.sx b.sy", "getAttr b.sy", 1.0},
    };
    for (const auto& c : cases) {
        host::resetScene();
        ASSERT_TRUE(
            run("createNode transform -n a; createNode transform -n b; setAttr a.t 4 5 6; " + c.connect));
        ASSERT_TRUE(run(c.disconnect)) << c.disconnect;
        EXPECT_TRUE(host::scene().connections().empty()) << c.disconnect;
        EXPECT_EQ(result(c.read), c.expected) << c.disconnect;
        // The source no longer drives it.
        ASSERT_TRUE(run("setAttr a.t 7 8 9"));
        EXPECT_EQ(result(c.read), c.expected) << c.disconnect;
    }
}

TEST_F(HostFaults, DuplicateKeepsNamesBelowTheTop) {
    ASSERT_TRUE(
        run("createNode transform -n a; createNode transform -n b -p a; polyCube -n box; parent box b"));
    EXPECT_EQ(result("duplicate -n a2 a"), host::CommandResult(std::vector<std::string>{"a2"}));
    EXPECT_TRUE(exists("a2|b"));
    EXPECT_TRUE(exists("a2|b|box"));
    EXPECT_TRUE(exists("a|b|box|boxShape"));
    // Shapes take a free name, as before.
    EXPECT_TRUE(exists("a2|b|box|boxShape1"));
    EXPECT_EQ(result("duplicate a"), host::CommandResult(std::vector<std::string>{"a1"}));
    EXPECT_TRUE(exists("a1|b|box"));
}

TEST_F(HostFaults, ObjImportTakesTheObjectName) {
    const std::string triangle = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";
    const struct {
        std::string file, text, shape;
    } cases[] = {
        {"named.obj", "# head\no head_geo\n" + triangle, "head_geo|head_geoShape"},
        {"spaced.obj", "o  left eye \r\n" + triangle, "left_eye|left_eyeShape"},
        {"unnamed.obj", triangle, "unnamed|unnamedShape"},
        {"twice.obj", "o head_geo\n" + triangle, "head_geo1|head_geoShape1"},
    };
    for (const auto& c : cases) {
        std::ofstream(path(c.file)) << c.text;
        ASSERT_TRUE(run("file -i -type \"OBJ\" \"" + path(c.file) + "\"")) << c.file;
        EXPECT_TRUE(exists(c.shape)) << c.file;
    }
}

TEST_F(HostFaults, SceneImportRenamesClashingNodes) {
    const std::string file = path("rig.ma");
    ASSERT_TRUE(
        run("polyCube -n box; createNode transform -n ctl; setAttr ctl.tx 3; connectAttr ctl.tx box.ty; "
            "file -rn \"" +
            file + "\"; file -s; file -f -new; createNode transform -n ctl; createNode transform -n keep"));
    ASSERT_TRUE(run("file -i \"" + file + "\""));
    EXPECT_TRUE(exists("box")); // no clash: its own name
    EXPECT_TRUE(exists("rig_ctl"));
    EXPECT_TRUE(exists("ctl"));
    EXPECT_EQ(result("getAttr rig_ctl.tx"), host::CommandResult(3.0));
    EXPECT_EQ(result("getAttr box.ty"), host::CommandResult(3.0));
    ASSERT_EQ(host::scene().connections().size(), 1u);
    EXPECT_EQ(host::scene().connections()[0].source.node()->name(), "rig_ctl");
    // Importing again renames everything that clashes, the mesh with its shape below it.
    ASSERT_TRUE(run("file -i \"" + file + "\""));
    EXPECT_TRUE(exists("rig_box|boxShape"));
    EXPECT_TRUE(exists("rig_ctl1"));
    EXPECT_EQ(host::scene().connections().size(), 2u);
    // Failing import: nothing is read from a missing file.
    EXPECT_FALSE(run("file -i \"" + path("missing.ma") + "\""));
}

TEST_F(HostFaults, DeletingADeformedMeshDeletesItsOwnHistory) {
    ASSERT_TRUE(run("polyCube -n base; polyCube -n tgt; polyCube -n other; blendShape -n bs tgt base; "
                    "blendShape -n shared tgt other"));
    ASSERT_TRUE(exists("bs"));
    ASSERT_TRUE(run("delete base"));
    EXPECT_FALSE(exists("bs"));
    EXPECT_FALSE(exists("baseShapeOrig"));
    EXPECT_TRUE(exists("tgt")); // a target is no history of the base
    EXPECT_TRUE(exists("shared"));
    ASSERT_TRUE(run("delete otherShape"));
    EXPECT_FALSE(exists("shared"));
    EXPECT_FALSE(exists("otherShapeOrig"));
    EXPECT_TRUE(exists("other"));
    EXPECT_TRUE(exists("tgt"));
}

TEST_F(HostFaults, StrictBatchesStopAtAnErrorMessage) {
    host::CommandTable table;
    table.add("noisy", [](host::Invocation&) {
        host::messageLog().error("something went wrong");
        return true;
    });
    int ran = 0;
    table.add("count", [&ran](host::Invocation&) { return ++ran, true; });
    host::Interpreter interpreter(table, host::messageLog());
    std::vector<bool> outcomes;
    const auto collect = [&outcomes](const host::Outcome& o) { outcomes.push_back(o.ok); };
    EXPECT_TRUE(interpreter.run("count; noisy; count", "", collect));
    EXPECT_EQ(ran, 2);
    interpreter.setErrorsFail(true);
    outcomes.clear();
    EXPECT_FALSE(interpreter.run("count; noisy; count", "", collect));
    EXPECT_EQ(ran, 3);
    EXPECT_EQ(outcomes, (std::vector<bool>{true, false}));
}

} // namespace
