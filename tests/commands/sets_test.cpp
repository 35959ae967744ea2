#include "CommandTestSupport.h"

namespace {

using builtin_test::BuiltinCommandTest;
using Names = std::vector<std::string>;

TEST_F(BuiltinCommandTest, SetsForceElementMovesShadingBetweenGroups) {
    ASSERT_TRUE(run("polyCube; polyCube; createNode shadingEngine -n red; createNode shadingEngine -n blue"));
    struct Case {
        const char* script;
        Names initial, red, blue;
    };
    const Case cases[] = {
        {"sets -e -forceElement initialShadingGroup pCube1 pCube2", {"pCubeShape1", "pCubeShape2"}, {}, {}},
        {"sets -e -fe red pCube1.f[1:2]",
         {"pCubeShape2", "pCubeShape1.f[0]", "pCubeShape1.f[3:5]"},
         {"pCubeShape1.f[1:2]"},
         {}},
        {"sets -e -fe blue pCube1.f[2:3]",
         {"pCubeShape2", "pCubeShape1.f[0]", "pCubeShape1.f[4:5]"},
         {"pCubeShape1.f[1]"},
         {"pCubeShape1.f[2:3]"}},
        {"sets -e -fe red pCubeShape1.f[4]",
         {"pCubeShape2", "pCubeShape1.f[0]", "pCubeShape1.f[5]"},
         {"pCubeShape1.f[1]", "pCubeShape1.f[4]"},
         {"pCubeShape1.f[2:3]"}},
        {"sets -e -fe blue pCube1", {"pCubeShape2"}, {}, {"pCubeShape1"}},
        {"sets -e -fe blue pCube1.f[0]", {"pCubeShape2"}, {}, {"pCubeShape1"}},
    };
    for (const Case& c : cases) {
        EXPECT_TRUE(run(c.script)) << c.script << ": " << lastError();
        EXPECT_EQ(strings("sets -q initialShadingGroup"), c.initial) << c.script;
        EXPECT_EQ(strings("sets -q red"), c.red) << c.script;
        EXPECT_EQ(strings("sets -q blue"), c.blue) << c.script;
    }
}

TEST_F(BuiltinCommandTest, SetsMembersAreInstanceGroupConnections) {
    ASSERT_TRUE(run("polyCube; sets -e -fe initialShadingGroup pCube1; createNode shadingEngine -n red;"
                    "sets -e -fe red pCube1.f[0]"));
    const host::Plug whole = host::scene().findPlug("pCubeShape1.iog[0]");
    EXPECT_TRUE(host::scene().destinationsOf(whole).empty());
    const host::Plug group = host::scene().findPlug("pCubeShape1.iog[0].og[0]");
    ASSERT_EQ(host::scene().destinationsOf(group).size(), 1u);
    EXPECT_EQ(host::scene().destinationsOf(group)[0].name(), "initialShadingGroup.dagSetMembers[0]");
    EXPECT_EQ(strings("getAttr pCubeShape1.iog[0].og[0].gcl"), Names{"f[1:5]"});
}

TEST_F(BuiltinCommandTest, SetsCreatesAddsAndRemoves) {
    ASSERT_TRUE(run("polyCube; createNode transform -n loc; createNode blendShape -n bs"));
    EXPECT_EQ(resultAs<std::string>("sets -n picks loc pCube1.vtx[0:3] bs"), "picks");
    EXPECT_EQ(strings("sets -q picks"), (Names{"loc", "pCubeShape1.vtx[0:3]", "bs"}));
    EXPECT_TRUE(run("sets -add picks pCube1.vtx[7] loc; sets -rm picks pCube1.vtx[1] bs"));
    EXPECT_EQ(strings("sets -q picks"),
              (Names{"loc", "pCubeShape1.vtx[0]", "pCubeShape1.vtx[2:3]", "pCubeShape1.vtx[7]"}));
    EXPECT_TRUE(run("sets -rm picks pCube1.vtx[0:7]"));
    EXPECT_EQ(strings("sets -q picks"), Names{"loc"});
    EXPECT_EQ(resultAs<std::string>("select -cl; sets -em"), "set1");
    EXPECT_EQ(strings("sets -q set1"), Names{});
    const std::pair<const char*, const char*> cases[] = {
        {"sets -e -fe nothing pCube1", "No object matches name: nothing"},
        {"sets -e -fe loc pCube1", "loc is not a set"},
        {"sets -e -fe picks pCube1.vtx[99]", "No object matches name"},
        {"sets -q", "give the set to query"},
    };
    for (const auto& [script, error] : cases) expectFailure(script, error);
}

} // namespace
