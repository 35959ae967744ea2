#include "CommandTestSupport.h"

#include "mesh/MeshData.h"

namespace {

using builtin_test::BuiltinCommandTest;
using Names = std::vector<std::string>;

TEST_F(BuiltinCommandTest, PolyPrimitivesMakeATransformAndAShape) {
    struct Case {
        const char* script;
        Names result;
        int vertices, faces;
    };
    const Case cases[] = {
        {"polyCube", {"pCube1", "pCubeShape1"}, 8, 6},
        {"polyCube -sx 2 -sy 3 -sz 1 -w 2", {"pCube1", "pCubeShape1"}, 24, 22},
        {"polyCube -n box -ch 0", {"box"}, 8, 6},
        {"polyPlane -w 4 -h 2 -sx 3 -sy 2", {"pPlane1", "pPlaneShape1"}, 12, 6},
        {"polySphere -r 2 -sx 8 -sy 4 -n ball2", {"ball2", "ballShape2"}, 26, 32},
    };
    for (const Case& c : cases) {
        SetUp();
        EXPECT_EQ(strings(c.script), c.result) << c.script;
        const host::NodePtr transform = host::scene().findNode(c.result[0]);
        ASSERT_NE(transform, nullptr);
        ASSERT_EQ(transform->children().size(), 1u);
        const host::MeshData& mesh = *transform->children()[0]->mesh();
        EXPECT_EQ(mesh.numVertices(), c.vertices) << c.script;
        EXPECT_EQ(mesh.numFaces(), c.faces) << c.script;
        EXPECT_EQ(mesh.topologyError(), "") << c.script;
        EXPECT_EQ(strings("ls -sl"), Names{c.result[0]}) << c.script;
    }
    run("polyCube");
    EXPECT_EQ(strings("polyCube"), (Names{"pCube2", "pCubeShape2"}));
}

TEST_F(BuiltinCommandTest, PolyPrimitiveErrorsCreateNothing) {
    const std::pair<const char*, const char*> cases[] = {
        {"polyCube -w -1", "must be a positive number"},
        {"polyCube -sx 0", "must be between"},
        {"polyPlane -sx 100000 -sy 100000", "vertices"},
        {"polySphere -r abc", "Flag -r needs a number argument"},
        {"polyCube -n \"bad name\"", "Invalid node name"},
        {"polyCube extra", "unexpected argument extra"},
    };
    for (const auto& [script, error] : cases) expectFailure(script, error);
    EXPECT_EQ(strings("ls -dag"), Names{});
}

TEST_F(BuiltinCommandTest, PolySelectFindsShellsThroughSharedEdges) {
    // Two quads sharing edge 1-2, a third quad touching them at vertex 3 only, and a lone triangle.
    ASSERT_TRUE(run(
        "createNode mesh -n m; setAttr -s 13 \".vt[0:12]\" 0 0 0 1 0 0 1 1 0 0 1 0 2 0 0 2 1 0 1 2 0 0 2 0 "
        "-1 2 0 -1 1 0 5 5 5 6 5 5 5 6 5"));
    host::MeshData& mesh = *host::scene().findNode("m")->mesh();
    mesh.faceCounts = {4, 4, 4, 3};
    mesh.faceConnects = {0, 1, 2, 3, 1, 4, 5, 2, 3, 7, 8, 9, 10, 11, 12};
    mesh.invalidateTopology();
    struct Case {
        const char* script;
        std::vector<int> faces;
    };
    const Case cases[] = {
        {"polySelect -ns -ets 0 m", {0, 1}},
        {"polySelect -ns -ets 1 transform1", {0, 1}},
        {"polySelect -ns -ets 2 m", {2}},
        {"polySelect -ns -extendToShell 3 -ets 1 m", {0, 1, 3}},
    };
    run("select -cl");
    for (const Case& c : cases) EXPECT_EQ(resultAs<std::vector<int>>(c.script), c.faces) << c.script;
    EXPECT_EQ(strings("ls -sl"), Names{});
    EXPECT_EQ(resultAs<std::vector<int>>("polySelect -ets 1 m"), (std::vector<int>{0, 1}));
    EXPECT_EQ(strings("ls -sl"), Names{"m.f[0:1]"});
    const std::pair<const char*, const char*> errors[] = {
        {"polySelect -ns -ets 4 m", "face 4 is out of range (the mesh has 4 faces)"},
        {"polySelect -ns -ets -1 m", "face -1 is out of range"},
        {"polySelect -ns m", "give a face with -extendToShell"},
        {"polySelect -ns -ets 0", "give one mesh"},
        {"polySelect -ns -ets 0 initialShadingGroup", "is not a mesh"},
        {"polySelect -ns -ets 0 nothing", "No object matches name: nothing"},
    };
    for (const auto& [script, error] : errors) expectFailure(script, error);
}

} // namespace
