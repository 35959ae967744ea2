// polyEvaluate, polyInfo, polyCylinder, getAttr -mi / ranges / edges and polyColorPerVertex on
// primitives whose numbering is known.
#include "CommandTestSupport.h"

namespace {

using builtin_test::BuiltinCommandTest;
using host::CommandResult;
using Doubles = std::vector<double>;
using Ints = std::vector<int>;
using Strings = std::vector<std::string>;

TEST_F(BuiltinCommandTest, PolyQueriesCountAndConnectElements) {
    ASSERT_TRUE(run("polyCube -n box; polyCylinder -n can -sx 8 -sy 2; polyPlane -n sheet -sx 2 -sy 1;"
                    "createNode transform -n empty; select -cl"));
    struct Case {
        const char* command;
        CommandResult expected;
    };
    const Case cases[] = {
        {"polyEvaluate -v box", 8},
        {"polyEvaluate -e box", 12},
        {"polyEvaluate -f -t box", Ints{6, 12}},
        {"polyEvaluate -t -v boxShape", Ints{12, 8}},
        {"polyEvaluate -v box sheet", 14},
        {"polyEvaluate box", std::string("vertex: 8 edge: 12 face: 6 triangle: 12")},
        // 8 around, 3 rings, two cap centres; 16 side quads and 16 cap triangles.
        {"polyEvaluate -v -f -e -t can", Ints{26, 32, 56, 48}},
        {"polyEvaluate -v empty", std::string("Nothing counted : no polygonal object is selected.")},
        {"polyInfo -fv box.f[0]", Strings{"FACE      0:      0      1      3      2 \n"}},
        {"polyInfo -ev box.e[0]", Strings{"EDGE      0:      0      1  Hard\n"}},
        {"polyInfo -ef sheet.e[1]", Strings{"EDGE      1:      0      1 \n"}},
        {"polyInfo -ev sheet.e[1:2]",
         Strings{"EDGE      1:      1      4  Hard\n", "EDGE      2:      4      3  Hard\n"}},
        {"polyInfo -vf sheet.vtx[1]", Strings{"VERTEX      1:      0      1 \n"}},
        {"polyInfo -ve sheet.vtx[0]", Strings{"VERTEX      0:      0      3 \n"}},
        {"getAttr -mi boxShape.vt", Ints{0, 1, 2, 3, 4, 5, 6, 7}},
        {"getAttr boxShape.vt[0:1]", Doubles{-0.5, -0.5, 0.5, 0.5, -0.5, 0.5}},
        {"getAttr boxShape.ed[0]", Doubles{0, 1, 0}},
    };
    for (const Case& c : cases) EXPECT_EQ(result(c.command), c.expected) << c.command;
    EXPECT_EQ(strings("polyInfo -fv sheet").size(), 2u);
    ASSERT_TRUE(run("createNode blendShape -n bs; setAttr bs.w[4] 1; setAttr bs.w[9] 0"));
    EXPECT_EQ(result("getAttr -mi bs.w"), CommandResult(Ints{4, 9}));
}

TEST_F(BuiltinCommandTest, PolyColorPerVertexWritesAndReadsTheCurrentColourSet) {
    ASSERT_TRUE(run("polyCube -n box; polyColorPerVertex -rgb 1 0.5 0 box.vtx[1:2]"));
    EXPECT_EQ(doubles("polyColorPerVertex -q -rgb box.vtx[2]"), (Doubles{1, 0.5, 0}));
    EXPECT_EQ(doubles("polyColorPerVertex -q -r -a box.vtx[1]"), (Doubles{1, 1}));
    EXPECT_EQ(doubles("polyColorPerVertex -q -g box.vtx[0]"), (Doubles{-1}));
}

TEST_F(BuiltinCommandTest, PolyQueriesRejectBadInput) {
    ASSERT_TRUE(run("polyCube -n box"));
    const std::pair<const char*, const char*> cases[] = {
        {"polyInfo box", "give exactly one of"},
        {"polyInfo -ev -fv box", "give exactly one of"},
        {"polyInfo -ev nothing", "No object matches name: nothing"},
        {"polyEvaluate -v box.vtx[9]", "No object matches name"},
        {"polyCylinder -sx 2", "subdivisionsX must be between 3"},
        {"getAttr -mi box.tx", "-multiIndices needs a multi attribute"},
        {"getAttr boxShape.vt[6:9]", "reaches past the end of the mesh"},
        {"polyColorPerVertex -q box.vtx[0]", "query -rgb"},
        {"polyColorPerVertex -rgb 1 0 0 box.e[0]", "name vertices"},
    };
    for (const auto& [command, message] : cases) expectFailure(command, message);
}

TEST_F(BuiltinCommandTest, MoveAndXformPlaceTransformsAndVertices) {
    ASSERT_TRUE(run("createNode transform -n top; setAttr top.s 2 2 2; setAttr top.ry 90;"
                    "polyCube -n box; parent -r box top; select -cl"));
    struct Step {
        const char* command;
        const char* query;
        Doubles expected;
    };
    const Step steps[] = {
        // Absolute world placement goes through the parent's rotation and scale.
        {"move 0 0 -4 box", "xform -q -t box", {2, 0, 0}},
        {"move 0 0 -4 box", "xform -q -ws -t box", {0, 0, -4}},
        {"move -r 0 2 0 box", "xform -q -ws -t box", {0, 2, -4}},
        {"move -r -ls 1 0 0 box", "getAttr box.t", {3, 1, 0}},
        {"xform -t 0 0 0 box", "xform -q -ws -t box", {0, 0, 0}},
        {"xform -ws -t 2 0 0 box", "getAttr box.t", {0, 0, 1}},
        {"xform -ro 0 45 0 box", "xform -q -ro box", {0, 45, 0}},
        {"xform -r -ro 0 45 0 box", "getAttr box.r", {0, 90, 0}},
        {"xform -s 1 2 3 box", "xform -q -s box", {1, 2, 3}},
        {"xform -r -s 2 2 2 box", "getAttr box.s", {2, 4, 6}},
        // Components: object space with -os, world space otherwise.
        {"xform -t 0 0 0 box; move -r -os 1 0 0 box.vtx[0]", "xform -q -t box.vtx[0]", {0.5, -0.5, 0.5}},
        {"move -a -os 1 1 1 box.vtx[0:1]", "getAttr boxShape.vt[0:1]", {1, 1, 1, 1, 1, 1}},
        {"xform -s 1 1 1 box; xform -ro 0 0 0 box; move -a 0 0 0 box.f[0]",
         "xform -q -ws -t box.vtx[3]",
         {0, 0, 0}},
        {"move -r 0 1 0 box.e[0]", "xform -q -t box.vtx[0]", {0, 0.5, 0}},
        // setAttr on a vertex sets its tweak, on the shape or through the transform.
        {"setAttr box.vtx[5] 0 1 0", "xform -q -t box.vtx[5]", {0.5, 1.5, -0.5}},
        {"setAttr boxShape.vtx[6:7] 1 0 0 1 0 0", "getAttr boxShape.pnts[7]", {1, 0, 0}},
    };
    for (const Step& s : steps) {
        ASSERT_TRUE(run(s.command)) << s.command << ": " << lastError();
        const Doubles actual = doubles(s.query);
        ASSERT_EQ(actual.size(), s.expected.size()) << s.command;
        for (std::size_t i = 0; i < actual.size(); ++i)
            EXPECT_NEAR(actual[i], s.expected[i], 1e-9) << s.command;
    }
}

TEST_F(BuiltinCommandTest, MoveAndXformRejectBadInput) {
    ASSERT_TRUE(run("polyCube -n box; createNode blendShape -n bs; select -cl"));
    const std::pair<const char*, const char*> cases[] = {
        {"move 1 2 box", "give three numbers"},
        {"move 1 2 3", "nothing to work on"},
        {"move -r -a 1 2 3 box", "cannot be combined"},
        {"move 1 2 3 bs", "is not a transform"},
        {"xform -q box", "query exactly one of"},
        {"xform -t 1 box", "needs"},
        {"xform -ro 0 1 0 box.vtx[0]", "components can only be translated"},
        {"xform -q -t nothing", "No object matches name: nothing"},
    };
    for (const auto& [command, message] : cases) expectFailure(command, message);
}

} // namespace
