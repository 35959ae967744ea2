#include "CommandTestSupport.h"

#include "mesh/MeshData.h"

#include <map>
#include <random>

namespace {

using builtin_test::BuiltinCommandTest;

// Whatever the commands did, the scene must still hold together.
void expectConsistentScene() {
    host::Scene& scene = host::scene();
    for (const host::NodePtr& node : scene.nodes()) {
        ASSERT_TRUE(node->alive());
        if (const auto& mesh = node->mesh()) {
            long long corners = 0;
            for (int count : mesh->faceCounts) corners += count;
            ASSERT_EQ(corners, static_cast<long long>(mesh->faceConnects.size())) << node->name();
            for (int v : mesh->faceConnects) ASSERT_TRUE(v >= 0 && v < mesh->numVertices()) << node->name();
            for (const auto& e : mesh->edges)
                ASSERT_TRUE(e[0] >= 0 && e[0] < mesh->numVertices() && e[1] >= 0 &&
                            e[1] < mesh->numVertices());
        }
    }
    for (const host::Connection& c : scene.connections())
        ASSERT_TRUE(c.source.node()->alive() && c.destination.node()->alive());
    for (const host::SelectionItem& item : scene.activeSelection())
        ASSERT_TRUE(item.node && item.node->alive());
}

const char* kScene =
    "polyCube; createNode blendShape -n bs; createNode skinCluster -n sc; createNode mesh -n m;"
    "setAttr -s 3 m.vt[0:2] 0 0 0 1 0 0 0 1 0; setAttr -s 3 m.ed[0:2] 0 1 0 1 2 0 2 0 0;"
    "createNode objectSet -n set; addAttr -ln aal -dt attributeAlias bs";

TEST_F(BuiltinCommandTest, MalformedStatementsFailCleanly) {
    const char* statements[] = {
        "setAttr m.fc[0] -type polyFaces f 2147483647 0",
        "setAttr m.fc[0] -type polyFaces f 3 0 1 2 mu",
        "setAttr m.fc[0] -type polyFaces f 3 0 1 2 mu 0 9999999999",
        "setAttr m.fc[0] -type polyFaces f 3 -2147483648 1 2",
        "setAttr \"m.fc[0:4294967294]\" -type polyFaces f 3 0 1 2",
        "setAttr \"m.vt[4294967294]\" 1 2 3",
        "setAttr \"m.vt[0:4294967294]\" 1 2 3",
        "setAttr m.ed[0] 0 1e300 0",
        "setAttr bs.it[0].itg[0].iti[6000].ict -type componentList 2147483647",
        "setAttr bs.it[0].itg[0].iti[6000].ict -type componentList 1 vtx[99999999999]",
        "setAttr bs.it[0].itg[0].iti[6000].ipt -type pointArray 4611686018427387904",
        "setAttr bs.pw -type doubleArray 1e9",
        "setAttr bs.aal -type attributeAlias {",
        "setAttr bs.aal -type attributeAlias { , }",
        "setAttr \"bs.w[1:0]\" 1",
        "setAttr \"bs.w[:]\" 1",
        "setAttr \"bs.w[0:1]x\" 1 2",
        "setAttr \"bs.w[0:1].w[0:1]\" 1 2 3 4",
        "setAttr \"sc.wl[0:4294967294].w\" 1",
        "setAttr \"sc.wl[0].w\" 2147483647 0 1",
        "setAttr \"sc.wl[0].w\" 1 -5 1",
        "setAttr . 1",
        "setAttr .. 1",
        "setAttr \".\" -type",
        "setAttr pCube1.m -type matrix xform",
        "getAttr \"pCube1.t[0]\"",
        "getAttr .tx",
        "getAttr -s",
        "addAttr -ln a -at double3 -p nothing",
        "addAttr -ln b -at compound -nc -1 bs",
        "aliasAttr -rm",
        "aliasAttr -q",
        "aliasAttr \"\" bs.w[0]",
        "connectAttr -na bs.w bs.w",
        "connectAttr pCube1.iog pCube1.iog",
        "disconnectAttr",
        "removeMultiInstance \"bs.w[4294967295]\"",
        "select pCube1.vtx[0:2147483647]",
        "select \"pCube1.vtx[*]x\"",
        "select pCube1.vtx[",
        "ls -type",
        "sets -e -fe",
        "sets -e -fe set pCube1.f[2147483647]",
        "polySelect -ns -ets 2147483647 pCube1",
        "polyCube -sx 2147483647 -sy 2147483647 -sz 2147483647",
        "polySphere -sx -5",
        "optionVar -iva",
        "currentTime 1e999",
        "createNode mesh -p pCubeShape1",
        "parent pCube1 pCubeShape1",
        "parent -w pCubeShape1",
        "rename pCube1 \"\"",
        "delete initialShadingGroup",
    };
    for (const char* statement : statements) {
        SetUp();
        ASSERT_TRUE(run(kScene)) << lastError();
        EXPECT_FALSE(run(statement)) << statement;
        EXPECT_FALSE(lastError().empty()) << statement;
        expectConsistentScene();
    }
}

TEST_F(BuiltinCommandTest, RandomStatementsNeverBreakTheScene) {
    // Statement shapes with placeholders, so that many statements get past argument parsing.
    const std::vector<std::string> shapes = {"setAttr P V",
                                             "setAttr P V V V",
                                             "setAttr P -type T N C C C",
                                             "setAttr -s N P V V V V V V",
                                             "setAttr P -type polyFaces f N V V V F",
                                             "setAttr P -type T N V V V V V V V V",
                                             "getAttr P",
                                             "getAttr -s P",
                                             "select A C C",
                                             "select A O",
                                             "ls -sl -fl",
                                             "ls O",
                                             "sets -e -fe S C",
                                             "sets -e -fe S O",
                                             "sets -rm S C",
                                             "connectAttr P P",
                                             "connectAttr -f -na P P",
                                             "disconnectAttr P P",
                                             "removeMultiInstance -b B P",
                                             "delete O",
                                             "parent O O",
                                             "parent -w O",
                                             "polySelect -ns -ets N O",
                                             "aliasAttr W P",
                                             "aliasAttr -rm P",
                                             "addAttr -ln W -at T O",
                                             "rename O W",
                                             "createNode T -n W -p O",
                                             "polyCube -sx N",
                                             "X X X X"};
    const std::map<char, std::vector<std::string>> pools = {
        {'P',
         {"pCube1.t",
          "pCube1.tx",
          ".tx",
          "m.vt[0:2]",
          "m.vt[3]",
          "m.ed[3]",
          "m.fc[0]",
          "m.fc[0:1]",
          "bs.w[0]",
          "bs.w[0:3]",
          "bs.w",
          "sc.wl[0:1].w",
          "bs.it[0].itg[0].iti[6000].ict",
          "bs.it[0].itg[0]",
          "set.dsm",
          "pCubeShape1.iog[0]",
          "pCubeShape1.vt[7]",
          "bs.aal",
          "bs.smile",
          "m.pt[0:1]",
          "pCube1.m"}},
        {'V', {"0", "1", "-1", "2", "0.5", "1e308", "2147483647", "on", "x"}},
        {'N', {"0", "1", "2", "3", "5", "-1", "7", "2147483647"}},
        {'F', {"f", "mu", "h", "0", "1"}},
        {'T',
         {"componentList", "pointArray", "polyFaces", "double3", "matrix", "string", "attributeAlias",
          "Int32Array", "doubleArray", "mesh", "transform", "double", "compound", "bool"}},
        {'C',
         {"pCube1.vtx[0:3]", "pCube1.f[*]", "pCube1.e[11]", "m.vtx[1]", "vtx[0]", "vtx[2:9]", "f[*]", "e[1]",
          "pCube1.f[2]", "m.f[0]", "{", "}", ","}},
        {'O',
         {"pCube1", "pCubeShape1", "bs", "sc", "m", "set", "transform1", "pCube*", "initialShadingGroup",
          "nothing"}},
        {'S', {"set", "initialShadingGroup", "bs"}},
        {'A', {"-r", "-add", "-d", "-tgl", "-af", "-ne", "-cl"}},
        {'B', {"true", "false"}},
        {'W', {"smile", "a1", "tx", "9x", "w"}},
        {'X', {"-type", "-s", "-n", "{", "\"q\"", "1", "pCube1", "-q", "f", "*"}}};
    std::mt19937 random(20240611);
    auto pick = [&random](const std::vector<std::string>& from) {
        return from[std::uniform_int_distribution<std::size_t>(0, from.size() - 1)(random)];
    };
    int succeeded = 0;
    for (int round = 0; round < 40; ++round) {
        SetUp();
        ASSERT_TRUE(run(kScene)) << lastError();
        for (int s = 0; s < 150; ++s) {
            std::string statement;
            for (char c : pick(shapes)) {
                auto pool = pools.find(c);
                statement += pool == pools.end() ? std::string(1, c) : pick(pool->second);
            }
            succeeded += run(statement);
            expectConsistentScene();
            if (HasFatalFailure()) {
                ADD_FAILURE() << "after: " << statement;
                return;
            }
        }
    }
    EXPECT_GT(succeeded, 500); // the statements reach the commands' real work
}

} // namespace
