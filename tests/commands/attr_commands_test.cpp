#include "CommandTestSupport.h"

#include "engine/Scene.h"

namespace {

using builtin_test::BuiltinCommandTest;
using host::CommandResult;
using Doubles = std::vector<double>;
using Names = std::vector<std::string>;

TEST_F(BuiltinCommandTest, AddAttrMakesTypedDynamicAttributes) {
    ASSERT_TRUE(run("createNode transform -n t"));
    struct Case {
        const char* add;
        const char* set; // may be empty
        const char* get;
        CommandResult expected;
    };
    const Case cases[] = {
        {"addAttr -ln flag -at bool t", "", "getAttr t.flag", false},
        {"addAttr -ln level -sn lv -at long -dv 3 t", "setAttr t.lv 2.6", "getAttr t.level", 3},
        {"addAttr -ln mode -at enum -en \"a:b\" t", "setAttr t.mode 1", "getAttr t.mode", 1},
        {"addAttr -ln gain -at double -min 0 -max 1 -dv 0.5 -k true t", "", "getAttr t.gain", 0.5},
        {"addAttr -ln soft -at float -smn -10 -smx 10 t", "setAttr t.soft 0.25", "getAttr t.soft", 0.25},
        {"addAttr -ln note -dt \"string\" t", "setAttr t.note -type \"string\" hello", "getAttr t.note",
         std::string("hello")},
        {"addAttr -ln ids -dt Int32Array t", "setAttr t.ids -type Int32Array 2 4 5", "getAttr t.ids",
         std::vector<int>{4, 5}},
        {"addAttr -ln vals -dt doubleArray t", "setAttr t.vals -type doubleArray 1 2.5", "getAttr t.vals",
         Doubles{2.5}},
        {"addAttr -ln pts -dt pointArray t", "setAttr t.pts -type pointArray 1 1 2 3 1", "getAttr t.pts",
         Doubles{1, 2, 3, 1}},
        {"addAttr -ln comps -dt componentList t", "setAttr t.comps -type componentList 1 vtx[2]",
         "getAttr t.comps", Names{"vtx[2]"}},
        {"addAttr -ln xf -dt matrix t", "", "getAttr t.xf",
         Doubles{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}},
        {"addAttr -ln weights -at double -m t", "setAttr t.weights[4] 0.5", "getAttr t.weights",
         Doubles{0.5}},
        {"addAttr -ln link -at message t", "", "getAttr -type t.link", std::string("message")},
        {"addAttr -ln pos -at double3 t; addAttr -ln posX -at double -p pos t; addAttr -ln posY -at double "
         "-p pos t;"
         "addAttr -ln posZ -at double -p pos -dv 7 t",
         "setAttr t.posX 1", "getAttr t.pos", Doubles{1, 0, 7}},
        {"addAttr -ln box -at compound -nc 2 t; addAttr -ln size -at float -p box t; addAttr -ln on -at bool "
         "-p box t",
         "setAttr t.on 1", "getAttr t.box", Doubles{0, 1}},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(run(c.add)) << c.add << ": " << lastError();
        if (*c.set) {
            EXPECT_TRUE(run(c.set)) << c.set << ": " << lastError();
        }
        EXPECT_EQ(result(c.get), c.expected) << c.add;
    }
}

TEST_F(BuiltinCommandTest, AddAttrCompoundsAppearOnlyWhenComplete) {
    ASSERT_TRUE(
        run("createNode transform -n t; addAttr -ln col -at float3 t; addAttr -ln colR -at float -p col t"));
    expectFailure("getAttr t.col", "No object matches name: t.col");
    expectFailure("addAttr -ln colR -at float -p col t", "already used");
    ASSERT_TRUE(run("addAttr -ln colG -at float -p col t; addAttr -ln colB -at float -p col t"));
    EXPECT_EQ(doubles("getAttr t.col"), (Doubles{0, 0, 0}));
    expectFailure("addAttr -ln colA -at float -p col t", "no compound 'col' waiting");
}

TEST_F(BuiltinCommandTest, AddAttrTargetsAndErrors) {
    ASSERT_TRUE(run("createNode transform -n a; createNode transform -n b; select a b; addAttr -ln both"));
    EXPECT_EQ(resultAs<double>("getAttr a.both"), 0.0);
    EXPECT_EQ(resultAs<double>("getAttr b.both"), 0.0);
    const std::pair<const char*, const char*> cases[] = {
        {"addAttr -ln tx a", "already used"},
        {"addAttr -ln both a", "already used"},
        {"addAttr -ln \"2fast\" a", "not a valid attribute name"},
        {"addAttr -at double a", "give the attribute a name"},
        {"addAttr -ln odd -at quaternionish a", "unknown attribute type 'quaternionish'"},
        {"addAttr -ln grp -at compound a", "needs -nc"},
        {"addAttr -ln grp -at compound -nc 100000 a", "needs -nc"},
        {"addAttr -ln kid -at double -p nothing a", "no compound 'nothing' waiting"},
        {"addAttr -ln x -at double nowhere", "No object matches name: nowhere"},
        {"addAttr -ln x -dv abc a", "Flag -dv needs a number argument"},
    };
    for (const auto& [script, error] : cases) expectFailure(script, error);
    host::setFileReadingMode(true);
    EXPECT_TRUE(run("addAttr -ln odd -at quaternionish a"));
}

TEST_F(BuiltinCommandTest, AliasAttrNamesPlugs) {
    ASSERT_TRUE(run("createNode blendShape -n bs; setAttr bs.w[0] 0.25"));
    EXPECT_TRUE(run("aliasAttr smile bs.w[0]; aliasAttr frown bs.w[1]"));
    EXPECT_EQ(resultAs<double>("getAttr bs.smile"), 0.25);
    EXPECT_TRUE(run("setAttr bs.frown 0.5"));
    EXPECT_EQ(resultAs<double>("getAttr bs.w[1]"), 0.5);
    EXPECT_EQ(resultAs<std::string>("aliasAttr -q bs.smile"), "weight[0]");
    // A plug keeps one alias: a new one replaces the old.
    EXPECT_TRUE(run("aliasAttr grin bs.w[0]"));
    EXPECT_EQ(strings("aliasAttr -q bs"), (Names{"frown", "weight[1]", "grin", "weight[0]"}));
    const std::pair<const char*, const char*> cases[] = {
        {"aliasAttr grin bs.w[2]", "already used for bs.weight[0]"},
        {"aliasAttr en bs.w[2]", "cannot be an alias"},
        {"aliasAttr \"9lives\" bs.w[2]", "cannot be an alias"},
        {"aliasAttr x bs.nope[0]", "No object matches name: bs.nope[0]"},
        {"aliasAttr x", "give an alias and the attribute"},
        {"aliasAttr -rm bs.nothing", "there is no alias bs.nothing"},
    };
    for (const auto& [script, error] : cases) expectFailure(script, error);
    EXPECT_TRUE(run("aliasAttr -rm bs.grin; aliasAttr -rm bs.w[1]"));
    EXPECT_EQ(strings("aliasAttr -q bs"), Names{});
    expectFailure("getAttr bs.grin", "No object matches name");
}

TEST_F(BuiltinCommandTest, ConnectAndDisconnectAttr) {
    ASSERT_TRUE(run("createNode transform -n a; createNode transform -n b; createNode objectSet -n set"));
    EXPECT_EQ(resultAs<std::string>("connectAttr a.tx b.tx"), "Connected a.translateX to b.translateX.");
    expectFailure("connectAttr a.ty b.tx", "already has an incoming connection");
    EXPECT_TRUE(run("connectAttr -f a.ty b.tx"));
    EXPECT_EQ(host::scene().sourceOf(host::scene().findPlug("b.tx")).name(), "a.translateY");
    // -na takes the lowest free element; connecting an element makes it exist.
    EXPECT_TRUE(run(
        "connectAttr -na a.msg set.dnsm; connectAttr b.msg set.dnsm[5]; connectAttr -na set.msg set.dnsm"));
    EXPECT_EQ(host::scene().findPlug("set.dnsm").existingIndices(), (std::vector<uint32_t>{0, 1, 5}));
    EXPECT_EQ(resultAs<std::string>("disconnectAttr a.ty b.tx"),
              "Disconnect a.translateY from b.translateX.");
    EXPECT_TRUE(run("disconnectAttr -na b.msg set.dnsm; disconnectAttr set.dnsm[0]"));
    EXPECT_EQ(host::scene().connections().size(), 1u);
    const std::pair<const char*, const char*> cases[] = {
        {"connectAttr a.tx", "give a source and a destination"},
        {"connectAttr a.tx b.nope", "No object matches name: b.nope"},
        {"connectAttr a.tx a.tx", "Cannot connect a plug to itself"},
        {"disconnectAttr a.tx b.tx", "There is no connection"},
        {"disconnectAttr a.tx b.tx c.tx", "give a source and a destination"},
    };
    for (const auto& [script, error] : cases) expectFailure(script, error);
}

TEST_F(BuiltinCommandTest, RemoveMultiInstance) {
    ASSERT_TRUE(
        run("createNode blendShape -n bs; createNode transform -n t; setAttr bs.w[0] 1; setAttr bs.w[1] 1;"
            "setAttr bs.it[0].itg[3].iti[6000].ipt -type pointArray 0; connectAttr t.tx bs.w[1];"
            "connectAttr t.msg bs.it[0].itg[3].tw[2]"));
    EXPECT_TRUE(run("removeMultiInstance bs.w[0]"));
    expectFailure("removeMultiInstance bs.w[1]", "is connected: use -b true");
    expectFailure("removeMultiInstance -b false bs.it[0].itg[3]", "is connected");
    EXPECT_TRUE(run("removeMultiInstance -b true bs.it[0].itg[3]"));
    EXPECT_EQ(host::scene().findPlug("bs.it[0].itg").existingIndices(), std::vector<uint32_t>{});
    EXPECT_EQ(host::scene().connections().size(), 1u);
    EXPECT_EQ(host::scene().findPlug("bs.w").existingIndices(), std::vector<uint32_t>{1});
    expectFailure("removeMultiInstance bs.w", "is not an element");
    expectFailure("removeMultiInstance bs.envelope", "is not an element");
    expectFailure("removeMultiInstance bs.w[0] bs.w[1]", "give one element");
    EXPECT_TRUE(run("removeMultiInstance bs.w[9]"));
}

} // namespace
