#include "CommandTestSupport.h"
using builtin_test::BuiltinCommandTest;
TEST_F(BuiltinCommandTest, Smoke) {
    EXPECT_EQ(strings("polyCube"), (std::vector<std::string>{"pCube1", "pCubeShape1"}));
    EXPECT_EQ(doubles("getAttr pCube1.t"), (std::vector<double>{0, 0, 0}));
}
