#include "CommandTestSupport.h"

namespace {

using builtin_test::BuiltinCommandTest;
using Names = std::vector<std::string>;

TEST_F(BuiltinCommandTest, SelectEditsComponentsElementByElement) {
    run("polyCube");
    struct Case {
        const char* script;
        Names selected; // ls -sl afterwards
    };
    const Case cases[] = {
        {"select pCube1.vtx[1:3]", {"pCubeShape1.vtx[1:3]"}},
        {"select -add pCube1.vtx[5]", {"pCubeShape1.vtx[1:3]", "pCubeShape1.vtx[5]"}},
        {"select -add pCubeShape1.vtx[4]", {"pCubeShape1.vtx[1:5]"}},
        {"select -d pCube1.vtx[2]", {"pCubeShape1.vtx[1]", "pCubeShape1.vtx[3:5]"}},
        {"select -tgl pCube1.vtx[1] pCube1.vtx[7]", {"pCubeShape1.vtx[3:5]", "pCubeShape1.vtx[7]"}},
        {"select -add pCube1.f[2]", {"pCubeShape1.vtx[3:5]", "pCubeShape1.vtx[7]", "pCubeShape1.f[2]"}},
        {"select -d pCube1.vtx[*]", {"pCubeShape1.f[2]"}},
        {"select pCube1.e[*]", {"pCubeShape1.e[0:11]"}},
        {"select pCube1 pCubeShape1", {"pCube1", "pCubeShape1"}},
        {"select -af pCubeShape1.f[0]", {"pCubeShape1.f[0]", "pCube1", "pCubeShape1"}},
        {"select -d pCube1", {"pCubeShape1.f[0]", "pCubeShape1"}},
        {"select -cl", {}},
        {"select \"pCube*\"", {"pCube1", "pCubeShape1"}},
        {"select", {}},
    };
    for (const Case& c : cases) {
        EXPECT_TRUE(run(c.script)) << c.script << ": " << lastError();
        EXPECT_EQ(strings("ls -sl"), c.selected) << c.script;
    }
}

TEST_F(BuiltinCommandTest, SelectRefusesWhatIsNotThere) {
    run("polyCube; select pCube1.vtx[0]");
    const std::pair<const char*, const char*> cases[] = {
        {"select pCube1.vtx[8]", "No object matches name: pCube1.vtx[8]"},
        {"select pCube1.f[0:6]", "No object matches name: pCube1.f[0:6]"},
        {"select pCube1.vtx[-1]", "No object matches name"},
        {"select pCube1.vtx[7:6]", "No object matches name"},
        {"select pCube1.uv[0]", "No object matches name"},
        {"select pCube1.vtx[0:99999999999]", "No object matches name"},
        {"select nothing", "No object matches name: nothing"},
        {"select -bogus pCube1", "Invalid flag: -bogus"},
    };
    for (const auto& [script, error] : cases) expectFailure(script, error);
    EXPECT_EQ(strings("ls -sl"), Names{"pCubeShape1.vtx[0]"});
}

TEST_F(BuiltinCommandTest, LsFiltersAndNames) {
    run("polyCube; createNode joint -n j1; createNode transform -n grp; createNode transform -n leaf -p grp;"
        "createNode transform -n leaf -p j1; select pCube1.vtx[2:4] j1");
    struct Case {
        const char* script;
        Names listed;
    };
    const Case cases[] = {
        {"ls -type joint", {"j1"}},
        {"ls -type transform", {"pCube1", "j1", "grp", "grp|leaf", "j1|leaf"}},
        {"ls -type mesh -type joint", {"pCubeShape1", "j1"}},
        {"ls -tr \"*1\"", {"pCube1", "j1"}},
        {"ls -s", {"pCubeShape1"}},
        {"ls leaf", {"grp|leaf", "j1|leaf"}},
        {"ls -l leaf", {"|grp|leaf", "|j1|leaf"}},
        {"ls \"|grp|*\"", {"grp|leaf"}},
        {"ls nothing \"no*\"", {}},
        {"ls -sl", {"pCubeShape1.vtx[2:4]", "j1"}},
        {"ls -sl -fl", {"pCubeShape1.vtx[2]", "pCubeShape1.vtx[3]", "pCubeShape1.vtx[4]", "j1"}},
        {"ls -sl -o", {"pCubeShape1", "j1"}},
        {"ls -sl -type joint", {"j1"}},
        {"ls -fl pCube1.f[1:2]", {"pCubeShape1.f[1]", "pCubeShape1.f[2]"}},
        {"ls pCube1 pCube1 \"pCube*\"", {"pCube1", "pCubeShape1"}},
    };
    for (const Case& c : cases) EXPECT_EQ(strings(c.script), c.listed) << c.script;
    // Every node, defaults included, in creation order.
    const Names all = strings("ls");
    ASSERT_FALSE(all.empty());
    EXPECT_EQ(all.front(), "initialShadingGroup");
}

TEST_F(BuiltinCommandTest, SelectNoExpandSetsTheNodeRelativeNamesMean) {
    run("createNode transform -n a; createNode transform -n b; select -ne a");
    EXPECT_TRUE(run("setAttr \".tx\" 5"));
    EXPECT_EQ(resultAs<double>("getAttr a.tx"), 5.0);
    // After a failed select -ne, relative names must not reach the node before it.
    expectFailure("select -ne :missing", "No object matches name: :missing");
    expectFailure("setAttr \".tx\" 7", "No object matches name: .tx");
    EXPECT_EQ(resultAs<double>("getAttr a.tx"), 5.0);
    EXPECT_TRUE(run("select -ne :b; setAttr \".ty\" 2"));
    EXPECT_EQ(resultAs<double>("getAttr b.ty"), 2.0);
}

} // namespace
