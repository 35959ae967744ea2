#include "CommandTestSupport.h"

#include "api/Transforms.h"
#include "commands/CommandState.h"
#include "mesh/MeshData.h"

namespace {

using builtin_test::BuiltinCommandTest;

TEST_F(BuiltinCommandTest, CreateNodeNamesParentsAndSelects) {
    struct Case {
        const char* script;
        std::string result;
        std::vector<std::string> longNames; // ls -l of the created DAG nodes, when any
    };
    const Case cases[] = {
        {"createNode transform", "transform1", {"|transform1"}},
        {"createNode transform -n grp; createNode transform -n child -p grp",
         "child",
         {"|grp", "|grp|child"}},
        {"createNode mesh", "polySurfaceShape1", {"|transform1", "|transform1|polySurfaceShape1"}},
        {"createNode mesh -n body", "body", {"|transform1", "|transform1|body"}},
        {"createNode joint -n j#", "j1", {"|j1"}},
        {"createNode blendShape", "blendShape1", {}},
    };
    for (const Case& c : cases) {
        SetUp();
        EXPECT_EQ(resultAs<std::string>(c.script), c.result) << c.script;
        EXPECT_EQ(strings("ls -l -dag"), c.longNames) << c.script;
        EXPECT_EQ(strings("ls -sl"), std::vector<std::string>{c.result}) << c.script;
        ASSERT_NE(host::currentNode(), nullptr);
        EXPECT_EQ(host::currentNode()->name(), c.result);
    }
}

TEST_F(BuiltinCommandTest, CreateNodeOptions) {
    // -ss leaves the selection alone; -s reuses an existing node of the same type.
    EXPECT_EQ(strings("createNode transform -n a; createNode transform -ss -n b; ls -sl"),
              std::vector<std::string>{"a"});
    EXPECT_EQ(resultAs<std::string>("createNode transform -s -n a"), "a");
    EXPECT_EQ(strings("ls -type transform"), (std::vector<std::string>{"a", "b"}));
    // A mesh node owns geometry from the start.
    run("createNode mesh -n m");
    EXPECT_NE(host::scene().findNode("m")->mesh(), nullptr);
}

TEST_F(BuiltinCommandTest, CreateNodeUnknownTypesOnlyWhileReadingFiles) {
    expectFailure("createNode fancyDeformer", "Unknown object type: fancyDeformer");
    EXPECT_EQ(strings("ls -type fancyDeformer"), std::vector<std::string>());
    host::setFileReadingMode(true);
    EXPECT_EQ(resultAs<std::string>("createNode fancyDeformer -n fd"), "fd");
    // Its attributes are made up as the file sets them, and read back.
    EXPECT_TRUE(run(
        "setAttr \".amount\" 0.25; setAttr \".list[2]\" 1 2 3; setAttr -s 2 \".wm\"; setAttr \".wm[1]\" 4"));
    EXPECT_EQ(resultAs<double>("getAttr fd.amount"), 0.25);
    EXPECT_EQ(doubles("getAttr fd.list[2]"), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(resultAs<double>("getAttr fd.wm[1]"), 4.0);
}

TEST_F(BuiltinCommandTest, CreateNodeFailuresLeaveNothingBehind) {
    const std::pair<const char*, const char*> cases[] = {
        {"createNode", "give exactly one node type"},
        {"createNode transform -n \"1bad\"", "Invalid node name"},
        {"createNode mesh -n \"bad name\"", "Invalid node name"},
        {"createNode transform -p nowhere", "No object matches name: nowhere"},
        {"createNode transform -q", "Invalid flag: -q"},
    };
    for (const auto& [script, error] : cases) {
        SetUp();
        expectFailure(script, error);
        EXPECT_EQ(strings("ls -dag"), std::vector<std::string>()) << script;
        EXPECT_EQ(host::currentNode(), nullptr) << script;
    }
}

TEST_F(BuiltinCommandTest, RenameGivesTheNewUniqueName) {
    run("createNode transform -n a; createNode transform -n b");
    EXPECT_EQ(resultAs<std::string>("rename a c"), "c");
    EXPECT_EQ(resultAs<std::string>("rename c b"), "b1");
    EXPECT_EQ(resultAs<std::string>("select b; rename d"), "d");
    EXPECT_TRUE(run("rename -uid \"0F1E-22\""));
    expectFailure("rename nothing e", "No object matches name: nothing");
    expectFailure("rename d \"9x\"", "not valid");
    EXPECT_EQ(strings("ls -type transform"), (std::vector<std::string>{"b1", "d"}));
}

TEST_F(BuiltinCommandTest, DeleteTakesChildrenAndConnections) {
    run("createNode transform -n grp; createNode transform -n kid -p grp; createNode transform -n other;"
        "connectAttr kid.tx other.tx; connectAttr other.ty kid.ty");
    EXPECT_TRUE(run("delete grp"));
    EXPECT_EQ(strings("ls -dag"), std::vector<std::string>{"other"});
    EXPECT_TRUE(host::scene().connections().empty());
    expectFailure("delete grp", "No object matches name: grp");
    expectFailure("delete other.vtx[0]", "No object matches name");
    EXPECT_TRUE(run("createNode transform -n p1; createNode transform -n p2; delete \"p*\""));
    EXPECT_EQ(strings("ls -dag"), std::vector<std::string>{"other"});
    EXPECT_TRUE(run("select other; delete"));
    EXPECT_EQ(strings("ls -dag"), std::vector<std::string>());
}

TEST_F(BuiltinCommandTest, ParentKeepsWorldPositionUnlessRelative) {
    run("createNode transform -n grp; setAttr grp.t 10 0 0; setAttr grp.s 2 2 2;"
        "createNode transform -n a; setAttr a.t 4 2 0; createNode transform -n b; setAttr b.t 4 2 0");
    EXPECT_EQ(strings("parent a grp"), std::vector<std::string>{"a"});
    EXPECT_EQ(strings("ls -l a"), std::vector<std::string>{"|grp|a"});
    const auto t = doubles("getAttr a.t");
    ASSERT_EQ(t.size(), 3u);
    EXPECT_NEAR(t[0], -3.0, 1e-9);
    EXPECT_NEAR(t[1], 1.0, 1e-9);
    EXPECT_NEAR(doubles("getAttr a.s")[0], 0.5, 1e-9);
    EXPECT_EQ(strings("parent -r b grp"), std::vector<std::string>{"b"});
    EXPECT_EQ(doubles("getAttr b.t"), (std::vector<double>{4, 2, 0}));
    // Back to the world: the world position comes back.
    EXPECT_EQ(strings("parent -w a"), std::vector<std::string>{"a"});
    const auto back = doubles("getAttr a.t");
    EXPECT_NEAR(back[0], 4.0, 1e-9);
    EXPECT_NEAR(back[1], 2.0, 1e-9);
    expectFailure("parent grp b", "Cannot parent a node under itself");
    expectFailure("parent a nowhere", "No object matches name: nowhere");
}

TEST_F(BuiltinCommandTest, ParentKeepsRotatedAndScaledWorldMatrices) {
    // A transform takes up the shear a non-uniformly scaled, rotated parent leaves; a joint has no shear,
    // so it is checked under a uniform scale.
    const std::pair<const char*, const char*> cases[] = {{"a", "1 2 0.5"}, {"j", "2 2 2"}};
    for (const auto& [name, scale] : cases) {
        SetUp();
        run(std::string("createNode transform -n grp; setAttr grp.t 1 2 3; setAttr grp.r 0.3 -1.2 0.7; "
                        "setAttr grp.ro 4;") +
            "setAttr grp.s " + scale + "; createNode joint -n j; setAttr j.jo 0.2 0 0; setAttr j.r 0 0.4 0;" +
            "createNode transform -n a; setAttr a.t -1 0 5; setAttr a.r 1 0.5 -0.25; setAttr a.ro 2; setAttr "
            "a.rp 0 1 0");
        const host::NodePtr node = host::scene().findNode(name);
        const MMatrix before = host::worldMatrix(*node);
        ASSERT_TRUE(run(std::string("parent ") + name + " grp")) << lastError();
        EXPECT_TRUE(host::worldMatrix(*node).isEquivalent(before, 1e-9)) << name;
        ASSERT_TRUE(run(std::string("parent -w ") + name));
        EXPECT_TRUE(host::worldMatrix(*node).isEquivalent(before, 1e-9)) << name;
    }
    expectFailure("parent a", "give the objects to parent");
}

} // namespace
