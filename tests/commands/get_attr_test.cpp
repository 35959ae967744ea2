#include "CommandTestSupport.h"

namespace {

using builtin_test::BuiltinCommandTest;
using host::CommandResult;
using Doubles = std::vector<double>;

TEST_F(BuiltinCommandTest, GetAttrResultTypesSizesAndTypeNames) {
    ASSERT_TRUE(run("polyCube; createNode blendShape -n bs; setAttr bs.w[2] 0.5; setAttr bs.w[7] 1;"
                    "addAttr -ln label -dt string pCube1; addAttr -ln count -at long -dv 4 pCube1"));
    struct Case {
        const char* get;
        CommandResult expected;
    };
    const Case cases[] = {
        {"getAttr pCube1.t", Doubles{0, 0, 0}},
        {"getAttr pCube1.s", Doubles{1, 1, 1}},
        {"getAttr pCube1.v", true},
        {"getAttr pCube1.ro", 0},
        {"getAttr pCube1.count", 4},
        {"getAttr pCube1.label", std::string()},
        {"getAttr pCube1.m", Doubles{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}},
        {"getAttr bs.w", Doubles{0.5, 1}},
        {"getAttr bs.w[5]", 0.0},
        {"getAttr -s bs.w", 2},
        {"getAttr -s pCube1.tx", 1},
        {"getAttr -s pCubeShape1.vt", 8},
        {"getAttr -s pCubeShape1.ed", 12},
        {"getAttr -type pCube1.t", std::string("double3")},
        {"getAttr -type pCube1.v", std::string("bool")},
        {"getAttr -type bs.w", std::string("TdataCompound")},
        {"getAttr -type bs.it[0].itg[0].iti[6000].ict", std::string("componentList")},
        {"getAttr -type pCube1.label", std::string("string")},
        {"getAttr bs.it[0].itg[0].iti[6000].ict", std::vector<std::string>()},
    };
    for (const Case& c : cases) EXPECT_EQ(result(c.get), c.expected) << c.get;
}

TEST_F(BuiltinCommandTest, GetAttrReadsMeshPointsAndConnectedValues) {
    ASSERT_TRUE(run("polyCube -w 2 -h 4 -d 6"));
    const Doubles points = doubles("getAttr pCubeShape1.vt");
    ASSERT_EQ(points.size(), 24u);
    for (std::size_t i = 0; i < points.size(); ++i)
        EXPECT_EQ(std::abs(points[i]), 1.0 + static_cast<double>(i % 3)) << i;
    EXPECT_EQ(doubles("getAttr pCubeShape1.vt[7]"), Doubles(points.begin() + 21, points.end()));
    EXPECT_EQ(resultAs<double>("getAttr pCubeShape1.vt[7].vz"), points[23]);
    ASSERT_TRUE(
        run("createNode transform -n a; createNode transform -n b; setAttr a.tx 3; connectAttr a.tx b.ty"));
    EXPECT_EQ(doubles("getAttr b.t"), (Doubles{0, 3, 0}));
    EXPECT_EQ(resultAs<double>("getAttr b.ty"), 3.0);
}

TEST_F(BuiltinCommandTest, GetAttrErrors) {
    ASSERT_TRUE(run("polyCube; setAttr pCube1.iog[0].og[0].gid 1"));
    const std::pair<const char*, const char*> cases[] = {
        {"getAttr pCube1.nope", "No object matches name: pCube1.nope"},
        {"getAttr pCube1", "No object matches name: pCube1"},
        {"getAttr pCube1.msg", "message attribute"},
        {"getAttr pCubeShape1.o", "cannot be shown"},
        {"getAttr pCube1.iog", "cannot be shown as numbers"},
        {"getAttr pCube1.tx pCube1.ty", "give exactly one attribute"},
        {"getAttr -q pCube1.tx", "Invalid flag: -q"},
    };
    for (const auto& [script, error] : cases) expectFailure(script, error);
}

} // namespace
