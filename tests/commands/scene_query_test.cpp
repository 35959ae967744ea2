// objExists, nodeType, objectType, listRelatives, listConnections and listAttr on a small rig-like
// scene: names, paths, patterns, filters and the errors for bad input.
#include "CommandTestSupport.h"

#include <maya/MSelectionList.h>

namespace {

using builtin_test::BuiltinCommandTest;
using host::CommandResult;
using Strings = std::vector<std::string>;

class SceneQueryTest : public BuiltinCommandTest {
protected:
    void SetUp() override {
        BuiltinCommandTest::SetUp();
        ASSERT_TRUE(
            run("createNode transform -n grp;"
                "polyCube -n body; parent body grp;"
                "createNode mesh -n bodyOrig -p body; setAttr bodyOrig.io 1;"
                "createNode joint -n root; createNode joint -n mid -p root; createNode joint -n tip -p mid;"
                "connectAttr root.s mid.is; connectAttr mid.s tip.is;"
                "createNode blendShape -n bs; setAttr bs.w[0] 0.5; setAttr bs.w[3] 1;"
                "connectAttr root.tx bs.w[0];"
                "addAttr -ln flex -at double -k 1 root; addAttr -ln note -dt string root;"
                "select -cl"))
            << lastError();
    }
};

TEST_F(SceneQueryTest, AnswersAsMayaDoes) {
    struct Case {
        const char* command;
        CommandResult expected;
    };
    const Case cases[] = {
        {"objExists root", true},
        {"objExists nothing", false},
        {"objExists root.tx", true},
        {"objExists root.nothing", false},
        {"objExists \"bo*\"", true},
        {"objExists \"zz*\"", false},
        {"objExists body.vtx[7]", true},
        {"objExists body.vtx[8]", false},
        {"nodeType root", std::string("joint")},
        {"nodeType bodyShape", std::string("mesh")},
        {"nodeType root.tx", std::string("joint")},
        {"nodeType -i root", Strings{"node", "dagNode", "transform", "joint"}},
        {"objectType bs", std::string("blendShape")},
        {"objectType -isType transform root", false},
        {"objectType -isAType transform root", true},
        // listRelatives: children by default, shapes, parents, descendants deepest first.
        {"listRelatives grp", Strings{"body"}},
        {"listRelatives -s body", Strings{"bodyShape", "bodyOrig"}},
        {"listRelatives -s -ni body", Strings{"bodyShape"}},
        {"listRelatives -c -type mesh body", Strings{"bodyShape", "bodyOrig"}},
        {"listRelatives -p bodyShape", Strings{"body"}},
        {"listRelatives -p -f bodyShape", Strings{"|grp|body"}},
        {"listRelatives -f -s -ni body", Strings{"|grp|body|bodyShape"}},
        {"listRelatives -ad root", Strings{"tip", "mid"}},
        {"listRelatives -ad -type joint -f root", Strings{"|root|mid|tip", "|root|mid"}},
        {"listRelatives -ad grp", Strings{"bodyOrig", "bodyShape", "body"}},
        {"listRelatives -p root", Strings{}},
        {"listRelatives -p mid tip", Strings{"root", "mid"}},
        {"listRelatives -s \"m*\"", Strings{}},
        // listConnections: both directions by default, plugs and pairs on request.
        {"listConnections mid", Strings{"root", "tip"}},
        {"listConnections -s 0 mid", Strings{"tip"}},
        {"listConnections -d 0 mid", Strings{"root"}},
        {"listConnections -p 1 mid", Strings{"root.scale", "tip.inverseScale"}},
        {"listConnections -c 1 -p 1 mid.s", Strings{"mid.scale", "tip.inverseScale"}},
        {"listConnections -c 1 bs", Strings{"bs.weight[0]", "root"}},
        {"listConnections -type blendShape root", Strings{"bs"}},
        {"listConnections root.ty", Strings{}},
        // listAttr: user-defined, keyable, multi elements.
        {"listAttr -ud root", Strings{"flex", "note"}},
        {"listAttr -k bs", Strings{"envelope", "weight"}},
        {"listAttr -m -k bs", Strings{"envelope", "weight[0]", "weight[3]"}},
        {"listAttr -k -ud root", Strings{"flex"}},
        {"listAttr root.t", Strings{"translate", "translateX", "translateY", "translateZ"}},
        {"listAttr -sn root.t", Strings{"t", "tx", "ty", "tz"}},
    };
    for (const Case& c : cases) EXPECT_EQ(result(c.command), c.expected) << c.command;

    const Strings keyable = strings("listAttr -k mid");
    EXPECT_EQ(keyable, (Strings{"visibility", "translateX", "translateY", "translateZ", "rotateX", "rotateY",
                                "rotateZ", "scaleX", "scaleY", "scaleZ"}));
}

TEST_F(SceneQueryTest, WorksOnTheSelectionWhenNothingIsNamed) {
    ASSERT_TRUE(run("select mid"));
    EXPECT_EQ(strings("listRelatives"), Strings{"tip"});
    EXPECT_EQ(strings("listConnections -s 0"), Strings{"tip"});
    EXPECT_EQ(strings("listAttr -ud"), Strings{});
}

TEST_F(SceneQueryTest, PatternsNameEveryMatchingNode) {
    EXPECT_EQ(strings("ls -type joint \"*i*\""), (Strings{"mid", "tip"}));
    EXPECT_EQ(strings("ls \"|root|mid|t?p\""), (Strings{"tip"}));
    ASSERT_TRUE(run("select \"body*\""));
    EXPECT_EQ(strings("ls -sl"), (Strings{"body", "bodyShape", "bodyOrig"}));
    // A pattern that matches nothing warns and selects nothing.
    host::messageLog().clearHistory();
    ASSERT_TRUE(run("select \"zz*\""));
    EXPECT_EQ(strings("ls -sl"), Strings{});
    ASSERT_FALSE(host::messageLog().history().empty());
    EXPECT_EQ(host::messageLog().history().front().text, "No object matches name: zz*");
    MSelectionList list;
    EXPECT_TRUE(list.add("r??t"));
    EXPECT_TRUE(list.add("?i?"));
    EXPECT_EQ(list.length(), 3u);
    EXPECT_EQ(list.add("zz*"), MS::kInvalidParameter);
}

TEST_F(SceneQueryTest, BadInputIsAClearError) {
    const std::pair<const char*, const char*> cases[] = {
        {"nodeType nothing", "No object matches name: nothing"},
        {"objectType", "give exactly one object name"},
        {"objExists a b", "give exactly one object name"},
        {"listRelatives nothing", "No object matches name: nothing"},
        {"listRelatives -p -ad root", "cannot be combined"},
        {"listRelatives -bogus root", "Invalid flag: -bogus"},
        {"listConnections -s maybe root", "needs"},
        {"listConnections nothing.tx", "No object matches name"},
        {"listAttr root.nothing", "nothing"},
        {"objectType -isType root", "give exactly one object name"},
    };
    for (const auto& [command, message] : cases) expectFailure(command, message);
}

} // namespace
