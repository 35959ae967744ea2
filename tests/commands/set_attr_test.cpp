#include "CommandTestSupport.h"

#include "mesh/MeshData.h"

namespace {

using builtin_test::BuiltinCommandTest;
using host::CommandResult;
using Doubles = std::vector<double>;
using Names = std::vector<std::string>;

const char* kTestNodes =
    "createNode transform -n t; createNode blendShape -n bs; createNode skinCluster -n sc;"
    "createNode mesh -n m; addAttr -ln ids -dt Int32Array t; addAttr -ln tags -dt stringArray t;"
    "addAttr -ci true -h true -sn aal -ln attributeAliasList -dt attributeAlias bs";

const char* kItem = "bs.it[0].itg[0].iti[6000]";

TEST_F(BuiltinCommandTest, SetAttrValueForms) {
    struct Case {
        std::string set;
        std::string get;
        CommandResult expected;
    };
    const std::string item = kItem;
    const Case cases[] = {
        {"setAttr t.t 1 2 3", "getAttr t.t", Doubles{1, 2, 3}},
        {"setAttr t.tx -1.5", "getAttr t.tx", -1.5},
        {"setAttr t.t -type double3 4 5 -6", "getAttr t.t", Doubles{4, 5, -6}},
        {"setAttr t.v off", "getAttr t.v", false},
        {"setAttr t.v yes", "getAttr t.v", true},
        {"setAttr t.ro 3", "getAttr t.ro", 3},
        {"setAttr bs.w[3] 0.5", "getAttr bs.w[3]", 0.5},
        {"setAttr -s 3 \"bs.w[0:2]\" 0.25 0.5 0.75", "getAttr bs.w", Doubles{0.25, 0.5, 0.75}},
        {"setAttr -s 2 \"m.pt[0:1]\" -type float3 1 2 3 4 5 6", "getAttr m.pt[1]", Doubles{4, 5, 6}},
        {"setAttr m.cuvs -type \"string\" \"map one\"", "getAttr m.cuvs", std::string("map one")},
        {"setAttr sc.gm -type matrix 1 0 0 0 0 1 0 0 0 0 1 0 5 6 7 1", "getAttr sc.gm",
         Doubles{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1}},
        {"setAttr sc.gm -type matrix \"xform\" 2 2 2 0 0 0 0 1 2 3 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1 0 0 0 "
         "1 1 1 1 no",
         "getAttr sc.gm", Doubles{2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 1, 2, 3, 1}},
        {"setAttr sc.gm -type matrix \"xform\" 1 1 1 0 0 0 0 1 2 3 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1 1 0 0 "
         "0 1 1 1 no",
         "getAttr sc.gm", Doubles{1, 0, 0, 0, 0, -1, 0, 0, 0, 0, -1, 0, 1, 2, 3, 1}},
        {"setAttr t.ids -type Int32Array 3 7 -8 9", "getAttr t.ids", std::vector<int>{7, -8, 9}},
        {"setAttr t.tags -type stringArray 2 \"a b\" c", "getAttr t.tags", Names{"a b", "c"}},
        {"setAttr bs.pw -type doubleArray 2 0.5 1e-3", "getAttr bs.pw", Doubles{0.5, 1e-3}},
        {"setAttr " + item + ".ipt -type pointArray 2 1 2 3 1 -4 5 6 1", "getAttr " + item + ".ipt",
         Doubles{1, 2, 3, 1, -4, 5, 6, 1}},
        {"setAttr " + item + ".ict -type componentList 6 vtx[0] \"vtx[1]\" vtx[2:4] vtx[9] vtx[9] f[*]",
         "getAttr " + item + ".ict", Names{"vtx[0:4]", "vtx[9]", "vtx[9]", "f[*]"}},
        {"setAttr " + item + ".ict -type componentList 0", "getAttr " + item + ".ict", Names{}},
        {"setAttr \"sc.wl[0:1].w\" 2 0 0.25 1 0.75 1 3 1", "getAttr sc.wl[0].w", Doubles{0.25, 0.75}},
        {"setAttr \"sc.wl[0:1].w\" 2 0 0.25 1 0.75 1 3 1", "getAttr -s sc.wl[1].w", 1},
        {"setAttr -k on -l off t.tx", "getAttr t.tx", 0.0},
        {"setAttr -s 40 t.iog", "getAttr -s t.iog", 0},
    };
    for (const Case& c : cases) {
        SetUp();
        ASSERT_TRUE(run(kTestNodes));
        EXPECT_TRUE(run(c.set)) << c.set << ": " << lastError();
        EXPECT_EQ(result(c.get), c.expected) << c.set;
    }
}

TEST_F(BuiltinCommandTest, SetAttrComponentListKeepsOrderRepeatsAndTypes) {
    ASSERT_TRUE(run(kTestNodes));
    ASSERT_TRUE(
        run(std::string("setAttr ") + kItem + ".ict -type componentList 5 vtx[3] vtx[1] vtx[3] e[2] vtx[*]"));
    const host::Plug plug = host::scene().findPlug(std::string(kItem) + ".ict");
    const auto* list = host::dataAs<host::ComponentListData>(std::get<host::DataPtr>(plug.value()));
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->components.size(), 3u);
    EXPECT_EQ(list->components[0]->elements, (std::vector<int>{3, 1, 3}));
    EXPECT_EQ(list->components[0]->type, host::ComponentType::Vertex);
    EXPECT_EQ(list->components[1]->type, host::ComponentType::Edge);
    EXPECT_TRUE(list->components[2]->complete);
}

TEST_F(BuiltinCommandTest, SetAttrAMillionComponents) {
    ASSERT_TRUE(run(kTestNodes));
    std::string text = std::string("setAttr ") + kItem + ".ict -type componentList 1000000";
    text.reserve(text.size() + 14000000);
    for (int i = 0; i < 1000000; ++i) text += " vtx[" + std::to_string(i < 500000 ? i : i + 1) + "]";
    ASSERT_TRUE(run(text + ";")) << lastError();
    EXPECT_EQ(strings(std::string("getAttr ") + kItem + ".ict"),
              (Names{"vtx[0:499999]", "vtx[500001:1000000]"}));
}

TEST_F(BuiltinCommandTest, SetAttrBuildsMeshGeometry) {
    // A cube as scene files write it: points, edges as (vertex, vertex, hardness), faces as signed edges.
    ASSERT_TRUE(run(
        "createNode mesh -n cube; setAttr -s 8 \".vt[0:7]\" -0.5 -0.5 0.5 0.5 -0.5 0.5 -0.5 0.5 0.5"
        " 0.5 0.5 0.5 -0.5 0.5 -0.5 0.5 0.5 -0.5 -0.5 -0.5 -0.5 0.5 -0.5 -0.5;"
        "setAttr -s 12 \".ed[0:11]\" 0 1 0 2 3 0 4 5 0 6 7 0 0 2 0 1 3 0 2 4 0 3 5 0 4 6 0 5 7 0 6 0 0 7 1 0;"
        "setAttr -s 6 -ch 24 \".fc[0:5]\" -type \"polyFaces\" f 4 0 5 -2 -5 mu 0 4 0 1 3 2"
        " f 4 1 7 -3 -7 mu 0 4 2 3 5 4 f 4 2 9 -4 -9 f 4 3 11 -1 -11 h 1 3 f 4 -12 -10 -8 -6 fc 4 0 1 2 3"
        " f 4 10 4 6 8 mc 0 4 0 1 2 3"))
        << lastError();
    const host::MeshData& mesh = *host::scene().findNode("cube")->mesh();
    EXPECT_EQ(mesh.numVertices(), 8);
    EXPECT_EQ(mesh.faceCounts, (std::vector<int>{4, 4, 4, 4, 4, 4}));
    EXPECT_EQ(std::vector<int>(mesh.faceConnects.begin(), mesh.faceConnects.begin() + 8),
              (std::vector<int>{0, 1, 3, 2, 2, 3, 5, 4}));
    EXPECT_EQ(mesh.topologyError(), "");
    EXPECT_EQ(mesh.topology().numEdges(), 12);
    EXPECT_EQ(doubles("getAttr cube.vt[3]"), (Doubles{0.5, 0.5, 0.5}));
    EXPECT_EQ(resultAs<int>("getAttr -s cube.fc"), 6);
    EXPECT_EQ(resultAs<std::vector<int>>("getAttr cube.fc[5]"), (std::vector<int>{10, 4, 6, 8}));
    // Single elements and children update the geometry in place; a face may be replaced.
    ASSERT_TRUE(run("setAttr cube.vt[3].vy 2; setAttr cube.vt[8] 1 1 1; setAttr cube.fc[0] -type polyFaces f "
                    "4 4 6 8 10"));
    // Written geometry is a new copy: the undo queue keeps the old one.
    const host::MeshData& edited = *host::scene().findNode("cube")->mesh();
    EXPECT_EQ(edited.points[3][1], 2.0f);
    EXPECT_EQ(edited.numVertices(), 9);
    EXPECT_EQ(std::vector<int>(edited.faceConnects.begin(), edited.faceConnects.begin() + 4),
              (std::vector<int>{0, 2, 4, 6}));
    EXPECT_EQ(edited.numFaces(), 6);
    // Edges that follow from the faces are spelled out when one of them is written.
    ASSERT_TRUE(run("polyCube; setAttr pCubeShape1.ed[3] 0 2 0"));
    const host::MeshData& cube = *host::scene().findNode("pCubeShape1")->mesh();
    EXPECT_EQ(cube.edges.size(), 12u);
    EXPECT_EQ(cube.topologyError(), "");
}

TEST_F(BuiltinCommandTest, SetAttrRefusesBadMeshGeometryWithoutChangingIt) {
    ASSERT_TRUE(
        run("createNode mesh -n m; setAttr -s 3 \".vt[0:2]\" 0 0 0 1 0 0 0 1 0;"
            "setAttr -s 3 \".ed[0:2]\" 0 1 0 1 2 0 2 0 0; setAttr \".fc[0]\" -type polyFaces f 3 0 1 2"));
    const std::pair<const char*, const char*> cases[] = {
        {"setAttr m.vt[5] 1 1 1", "mesh point 5 is past the end of the 3 points"},
        {"setAttr m.ed[3] 0 7 0", "names vertex 7"},
        {"setAttr m.ed[3] 0 -1 0", "names vertex -1"},
        {"setAttr m.ed[3].e1 1", "needs both of its vertices"},
        {"setAttr m.fc[1] -type polyFaces f 3 0 1 5", "names edge 5"},
        {"setAttr m.fc[1] -type polyFaces f 3 0 -2 2", "do not form a loop"},
        {"setAttr m.fc[1] -type polyFaces f 3 0 1", "not enough data"},
        {"setAttr m.fc[1] -type polyFaces q 3 0 1 2", "expected 'f'"},
        {"setAttr m.fc[1] -type polyFaces f 3 0 1 2 zz 1 0", "unknown record 'zz'"},
        {"setAttr m.fc[1] -type polyFaces f 0", "has no edges"},
        {"setAttr m.fc[1] -type polyFaces f 3 0 1 2 f 3 0 1 2", "too much data"},
        {"removeMultiInstance m.vt[1]", "cannot be removed"},
    };
    for (const auto& [script, error] : cases) expectFailure(script, error);
    const host::MeshData& mesh = *host::scene().findNode("m")->mesh();
    EXPECT_EQ(mesh.numVertices(), 3);
    EXPECT_EQ(mesh.edges.size(), 3u);
    EXPECT_EQ(mesh.faceConnects, (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(resultAs<int>("getAttr -s m.fc"), 1);
}

TEST_F(BuiltinCommandTest, SetAttrRefusesBadInputAndChangesNothing) {
    ASSERT_TRUE(run(kTestNodes));
    ASSERT_TRUE(run("setAttr t.t 1 2 3; setAttr bs.w[0] 0.5"));
    const std::string ict = std::string(kItem) + ".ict";
    const std::pair<std::string, const char*> cases[] = {
        {"setAttr " + ict + " -type componentList 5 vtx[0] vtx[1] vtx[2]",
         "setAttr: not enough data provided for the -type componentList (expected 5, found 3)."},
        {"setAttr " + ict + " -type componentList 2 vtx[0] vtx[a]", "'vtx[a]' is not a component"},
        {"setAttr " + ict + " -type componentList -1", "must start with a count"},
        {"setAttr " + ict + " -type componentList 1 vtx[0:2147483647]", "names more than"},
        {"setAttr " + std::string(kItem) + ".ipt -type pointArray 2000000000 1 2 3 4",
         "not enough data provided for the -type pointArray (expected 8000000000, found 4)."},
        {"setAttr " + std::string(kItem) + ".ipt -type pointArray 1 1 2 x 1", "'x' is not a number"},
        {"setAttr t.t 7 8", "not enough data provided for t.translate (expected 3, found 2)."},
        {"setAttr t.t 7 8 9 10", "too much data provided for t.translate"},
        {"setAttr t.tx abc", "'abc' is not a number."},
        {"setAttr t.t -type double2 7 8", "does not take -type double2"},
        {"setAttr t.nope 1", "No object matches name: t.nope"},
        {"setAttr nothing.tx 1", "No object matches name: nothing.tx"},
        {"setAttr t.tx", "not enough data was provided."},
        {"setAttr -x t.tx 1", "Invalid flag: -x"},
        {"setAttr -s -1 t.tx 1", "-s needs a count"},
        {"setAttr", "give the attribute to set"},
        {"setAttr t.m 1 2", "needs a -type flag"},
        {"setAttr sc.gm -type matrix 1 2 3",
         "not enough data provided for the -type matrix (expected 16, found 3)"},
        {"setAttr sc.gm -type matrix xform 1 1 1", "expected 37"},
        {"setAttr bs.w[0] -type componentList 0", "does not take -type componentList"},
        {"setAttr t.tx -type fooType 1", "unknown data type 'fooType'"},
        {"setAttr \"bs.w[3:1]\" 1 2 3", "Invalid index range"},
        {"setAttr \"bs.w[0:4294967294]\" 1",
         "not enough data provided for bs.weight[0] (expected 4294967295, found 1)"},
        {"setAttr \"bs.w[0:1]\" 1 2 3", "too much data"},
        {"setAttr bs.w x", "must start with a count"},
        {"setAttr bs.w 1", "not enough data provided for bs.weight (expected 2, found 0)."},
        {"setAttr \"sc.wl[0:1].w\" 2 0 0.25 1", "not enough data"},
        {"setAttr t.iog 1", "is an array"},
        {"setAttr bs.msg 1", "needs a -type flag"},
    };
    for (const auto& [script, error] : cases) expectFailure(script, error);
    EXPECT_EQ(doubles("getAttr t.t"), (Doubles{1, 2, 3}));
    EXPECT_EQ(doubles("getAttr bs.w"), (Doubles{0.5}));
    EXPECT_EQ(strings("getAttr " + ict), Names{});
    EXPECT_EQ(doubles("getAttr " + std::string(kItem) + ".ipt"), Doubles{});
}

TEST_F(BuiltinCommandTest, SetAttrRefusesConnectedPlugs) {
    ASSERT_TRUE(run(
        "createNode transform -n a; createNode transform -n b; connectAttr a.tx b.ty; connectAttr a.r b.r"));
    expectFailure("setAttr b.ty 1",
                  "The attribute 'b.translateY' is locked or connected and cannot be modified.");
    expectFailure("setAttr b.t 1 2 3", "locked or connected");
    expectFailure("setAttr b.rx 1", "locked or connected");
    EXPECT_TRUE(run("setAttr b.tx 4"));
    EXPECT_EQ(doubles("getAttr b.t"), (Doubles{4, 0, 0}));
}

TEST_F(BuiltinCommandTest, SetAttrAliasListNamesWeights) {
    ASSERT_TRUE(run(kTestNodes));
    ASSERT_TRUE(run("setAttr bs.aal -type attributeAlias {\"smile\",\"weight[0]\",\"blink\",\"w[1]\"}"));
    EXPECT_EQ(strings("aliasAttr -q bs"), (Names{"smile", "weight[0]", "blink", "weight[1]"}));
    ASSERT_TRUE(run("setAttr bs.smile 0.5; setAttr bs.blink 1"));
    EXPECT_EQ(doubles("getAttr bs.w"), (Doubles{0.5, 1}));
    const std::pair<const char*, const char*> cases[] = {
        {"setAttr bs.aal -type attributeAlias {\"1bad\",\"weight[0]\"}", "cannot be an alias"},
        {"setAttr bs.aal -type attributeAlias {\"en\",\"weight[0]\"}", "cannot be an alias"},
        {"setAttr bs.aal -type attributeAlias {\"lonely\"}", "alias and attribute pairs"},
        {"setAttr bs.aal -type attributeAlias {\"x\",\"nope[0]\"}", "No object matches name"},
        {"setAttr bs.aal -type attributeAlias {\"x\" \"weight[0]\"}", "must be a list"},
        {"setAttr bs.aal -type attributeAlias \"x\" \"weight[0]\"", "must be a list"},
        {"setAttr bs.aal -type attributeAlias {\"x\",\"weight[0]\"", "must be a list"},
    };
    for (const auto& [script, error] : cases) expectFailure(script, error);
    EXPECT_EQ(strings("aliasAttr -q bs"), (Names{"smile", "weight[0]", "blink", "weight[1]"}));
}

TEST_F(BuiltinCommandTest, SetAttrKeepsUnknownDataWhileReadingFiles) {
    host::setFileReadingMode(true);
    ASSERT_TRUE(run("createNode mesh -n m; setAttr \".covm[0]\" 0 1 1; setAttr \".cd\" -type "
                    "\"dataPolyComponent\" Index_Data"
                    " Edge 0; setAttr \".dcc\" -type \"string\" \"Ambient+Diffuse\"; setAttr \".vif\" yes"));
    EXPECT_EQ(doubles("getAttr m.covm[0]"), (Doubles{0, 1, 1}));
    EXPECT_EQ(strings("getAttr m.cd"), (Names{"Index_Data", "Edge", "0"}));
    EXPECT_EQ(resultAs<std::string>("getAttr -type m.cd"), "dataPolyComponent");
    EXPECT_EQ(resultAs<std::string>("getAttr m.dcc"), "Ambient+Diffuse");
    EXPECT_EQ(resultAs<bool>("getAttr m.vif"), true);
    host::setFileReadingMode(false);
    expectFailure("setAttr m.brandNew 1", "No object matches name: m.brandNew");
}

} // namespace
