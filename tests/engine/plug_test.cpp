#include "engine/Scene.h"

#include <gtest/gtest.h>

namespace {

class PlugTest : public ::testing::Test {
protected:
    void SetUp() override {
        host::resetScene();
        blend = host::scene().createNode("blendShape", "bs", nullptr, &error);
        ASSERT_TRUE(blend) << error;
    }
    std::string error;
    host::NodePtr blend;
};

// Paths in long, short and mixed names resolve to the same plug, and name() spells it in long names.
TEST_F(PlugTest, PathsResolveFromEitherName) {
    const char* paths[] = {
        "bs.it[0].itg[2].iti[6000].ipt",
        "bs.inputTarget[0].inputTargetGroup[2].inputTargetItem[6000].inputPointsTarget",
        "bs.it[0].inputTargetGroup[2].iti[6000].inputPointsTarget",
    };
    for (const char* path : paths) {
        host::Plug plug = host::scene().findPlug(path, &error);
        ASSERT_FALSE(plug.isNull()) << path << ": " << error;
        EXPECT_EQ(host::scene().plugName(plug),
                  "bs.inputTarget[0].inputTargetGroup[2].inputTargetItem[6000].inputPointsTarget");
        EXPECT_EQ(plug.attrPath(false), "it[0].itg[2].iti[6000].ipt");
    }
}

TEST_F(PlugTest, BadPathsAreRefused) {
    const char* bad[] = {"bs.nothing",       "bs.it[0].itg[x]",   "bs.w[a]",   "bs.w[-1]",
                         "bs.w[0",           "bs.envelope[3]",    "bs.",       "nope.w[0]",
                         "bs.it[0]..itg[0]", "bs.w[99999999999]", "bs.it[0].", "bs.w[0].x"};
    for (const char* path : bad) {
        error.clear();
        EXPECT_TRUE(host::scene().findPlug(path, &error).isNull()) << path;
        EXPECT_FALSE(error.empty()) << path;
    }
}

TEST_F(PlugTest, UnsetElementsReadTheDefaultAndWritesCreateThem) {
    host::Plug weights = host::scene().findPlug("bs.it[0].itg[0].tw", &error);
    ASSERT_TRUE(weights.isArray());
    EXPECT_EQ(host::valueAsDouble(weights.element(5).value()), 1.0); // target weights default to 1
    EXPECT_EQ(weights.numElements(), 0u);
    ASSERT_TRUE(weights.element(9).setValue(0.25));
    ASSERT_TRUE(weights.element(3).setValue(0.5));
    EXPECT_EQ(weights.existingIndices(), (std::vector<uint32_t>{3, 9}));
    EXPECT_EQ(host::valueAsDouble(weights.element(9).value()), 0.25);
    EXPECT_TRUE(weights.removeElement(3));
    EXPECT_EQ(weights.numElements(), 1u);
}

TEST_F(PlugTest, AMissingIndexAboveTheLastAttributeMeansElementZero) {
    host::Plug plug = host::scene().findPlug("bs.it.itg[3].tw[7]", &error);
    ASSERT_FALSE(plug.isNull()) << error;
    EXPECT_EQ(plug.attrPath(false), "it[0].itg[3].tw[7]");
}

TEST_F(PlugTest, ArrayAndCompoundPlugsTakeNoValue) {
    host::Plug group = host::scene().findPlug("bs.it[0].itg", &error);
    EXPECT_FALSE(group.setValue(1.0));
    EXPECT_FALSE(group.element(0).setValue(1.0)); // a compound element
}

TEST_F(PlugTest, AliasesResolveToTheirAttribute) {
    blend->aliases().push_back({"smile", "w[3]"});
    host::Plug plug = host::scene().findPlug("bs.smile", &error);
    ASSERT_FALSE(plug.isNull()) << error;
    EXPECT_EQ(plug.attrPath(true), "weight[3]");
}

} // namespace

namespace {

// Scene files set attributes the host does not model; they are made up as generic attributes
// with the multi and compound structure the path shows, and known attributes keep their kind.
TEST(GenericPaths, UnknownAttributesAreMadeUpWithTheirStructure) {
    host::resetScene();
    std::string error;
    auto node = host::scene().createNode("blendShape", "bs", nullptr, &error);
    host::Plug plug = host::obtainGenericPath(node, "tgdt[2].cid[5]", &error);
    ASSERT_FALSE(plug.isNull()) << error;
    EXPECT_TRUE(plug.setValue(3));
    EXPECT_EQ(plug.attrPath(false), "tgdt[2].cid[5]");
    host::Plug again = host::resolveAttrPath(node, "tgdt[2].cid[5]", &error);
    EXPECT_EQ(host::valueAsDouble(again.value()), 3.0);
    // A known attribute is not turned into something else.
    EXPECT_TRUE(host::obtainGenericPath(node, "envelope[3]", &error).isNull());
    EXPECT_TRUE(host::obtainGenericPath(node, "w[0].madeUp", &error).isNull());
}

} // namespace
