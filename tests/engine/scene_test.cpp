#include "engine/Scene.h"

#include <gtest/gtest.h>

namespace {

class SceneTest : public ::testing::Test {
protected:
    void SetUp() override { host::resetScene(); }
    host::NodePtr make(const std::string& type, const std::string& name, host::Node* parent = nullptr) {
        return host::scene().createNode(type, name, parent, &error);
    }
    std::string error;
};

TEST_F(SceneTest, NamesAreMadeUniqueAsMayaDoes) {
    struct Case {
        const char* requested;
        const char* expected;
    } cases[] = {{"pCube1", "pCube1"}, {"pCube1", "pCube2"}, {"pCube", "pCube"},
                 {"pCube", "pCube3"},  {"thing#", "thing1"}, {"", "transform1"}};
    for (const auto& c : cases) {
        auto node = make("transform", c.requested);
        ASSERT_TRUE(node) << error;
        EXPECT_EQ(node->name(), c.expected) << c.requested;
    }
    EXPECT_FALSE(make("transform", "1bad"));
    EXPECT_FALSE(make("noSuchType", "x"));
    EXPECT_EQ(error, "Unknown object type: noSuchType");
}

TEST_F(SceneTest, DagShapesMayShareNamesUnderDifferentParents) {
    auto a = make("transform", "a");
    auto b = make("transform", "b");
    auto shapeA = make("mesh", "shape", a.get());
    auto shapeB = make("mesh", "shape", b.get());
    ASSERT_TRUE(shapeA && shapeB);
    EXPECT_EQ(shapeB->name(), "shape");
    EXPECT_FALSE(host::scene().findNode("shape", &error));
    EXPECT_EQ(error, "More than one object matches name: shape");
    EXPECT_EQ(host::scene().findNode("b|shape"), shapeB);
    EXPECT_EQ(host::scene().findNode("|a|shape"), shapeA);
    EXPECT_EQ(host::scene().fullPath(*shapeB), "|b|shape");
    EXPECT_EQ(host::scene().partialPath(*shapeA), "a|shape");
}

TEST_F(SceneTest, DeletingANodeBreaksItsConnectionsAndTakesItsChildren) {
    auto t = make("transform", "t");
    auto shape = make("mesh", "tShape", t.get());
    auto blend = make("blendShape", "bs");
    host::Plug src = host::scene().findPlug("bs.og[0]", &error);
    host::Plug dst = host::scene().findPlug("tShape.inMesh", &error);
    ASSERT_TRUE(host::scene().connect(src, dst, false, &error)) << error;
    EXPECT_FALSE(host::scene().connect(src, dst, false, &error));
    ASSERT_TRUE(host::scene().deleteNode(t, &error));
    EXPECT_FALSE(shape->alive());
    EXPECT_TRUE(host::scene().connections().empty());
    EXPECT_FALSE(host::scene().findNode("tShape"));
    EXPECT_FALSE(host::scene().deleteNode(t, &error)); // already gone
}

TEST_F(SceneTest, ReparentingRefusesCyclesAndShapesAtTheWorld) {
    auto a = make("transform", "a");
    auto b = make("transform", "b", a.get());
    auto shape = make("mesh", "s", b.get());
    EXPECT_FALSE(host::scene().reparent(a, b.get(), &error));
    EXPECT_FALSE(host::scene().reparent(shape, nullptr, &error));
    EXPECT_TRUE(host::scene().reparent(b, nullptr, &error));
    EXPECT_EQ(host::scene().fullPath(*shape), "|b|s");
}

TEST_F(SceneTest, EveryNewSceneHasTheInitialShadingGroup) {
    auto sg = host::scene().findNode("initialShadingGroup");
    ASSERT_TRUE(sg);
    EXPECT_TRUE(sg->type().hasFn(MFn::kSet));
    EXPECT_FALSE(host::scene().deleteNode(sg, &error));
}

} // namespace
