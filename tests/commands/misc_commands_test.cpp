#include "CommandTestSupport.h"

namespace {

using builtin_test::BuiltinCommandTest;
using host::CommandResult;

TEST_F(BuiltinCommandTest, OptionVarStoresQueriesAndAppends) {
    run("optionVar -rm kvInt -rm kvList -rm kvName -rm kvNums");
    struct Case {
        const char* script;
        CommandResult expected;
    };
    const Case cases[] = {
        {"optionVar -q kvInt", 0},
        {"optionVar -ex kvInt", 0},
        {"optionVar -iv kvInt 3; optionVar -q kvInt", 3},
        {"optionVar -ex kvInt", 1},
        {"optionVar -fv kvInt -2.5; optionVar -q kvInt", -2.5},
        {"optionVar -sv kvName \"a b\"; optionVar -q kvName", std::string("a b")},
        {"optionVar -iva kvList 1 -iva kvList 2; optionVar -q kvList", std::vector<int>{1, 2}},
        {"optionVar -sva kvList x; optionVar -q kvList", std::vector<std::string>{"x"}},
        {"optionVar -ca kvList; optionVar -q kvList", std::vector<std::string>{}},
        {"optionVar -fva kvNums 0.5 -fva kvNums 1; optionVar -q kvNums", std::vector<double>{0.5, 1}},
        {"optionVar -rm kvInt; optionVar -ex kvInt", 0},
    };
    for (const Case& c : cases) EXPECT_EQ(result(c.script), c.expected) << c.script;
    // Option variables outlive the scene.
    host::resetScene();
    EXPECT_EQ(result("optionVar -q kvName"), CommandResult(std::string("a b")));
    const std::pair<const char*, const char*> errors[] = {
        {"optionVar -iv kvInt x", "Flag -iv needs an integer argument"},
        {"optionVar -iv kvInt", "Flag -iv needs an integer argument."},
        {"optionVar", "give a flag"},
        {"optionVar kvInt", "unexpected argument kvInt"},
    };
    for (const auto& [script, error] : errors) expectFailure(script, error);
}

TEST_F(BuiltinCommandTest, CurrentTimeSetsAndQueries) {
    EXPECT_EQ(resultAs<double>("currentTime -q"), 1.0);
    EXPECT_EQ(resultAs<double>("currentTime 12.5"), 12.5);
    EXPECT_EQ(resultAs<double>("currentTime -e -u false -q"), 12.5);
    EXPECT_EQ(resultAs<double>("currentTime -4"), -4.0);
    expectFailure("currentTime soon", "give the time as a number");
    expectFailure("currentTime", "give the time as a number");
    expectFailure("currentTime -q 3", "a query takes no time");
    EXPECT_EQ(resultAs<double>("currentTime -q"), -4.0);
}

} // namespace
