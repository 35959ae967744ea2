// duplicate and polyColorSet.
#include "FileTestSupport.h"

#include "eval/Evaluator.h"

namespace {

class DuplicateTest : public FileTest {};

TEST_F(DuplicateTest, CopiesAMeshTransformWithItsShape) {
    ASSERT_TRUE(run("polyCube; setAttr pCube1.tx 3; addAttr -ln note -dt \"string\" pCube1; "
                    "setAttr pCube1.note -type \"string\" \"kept\"; createNode transform -n other; "
                    "connectAttr other.ty pCube1.ty"));
    EXPECT_EQ(resultAs<std::vector<std::string>>("duplicate pCube1"), std::vector<std::string>{"pCube2"});
    const host::NodePtr copy = host::scene().findNode("pCube2");
    ASSERT_NE(copy, nullptr);
    ASSERT_EQ(copy->children().size(), 1u);
    EXPECT_EQ(copy->children()[0]->name(), "pCubeShape2");
    EXPECT_EQ(resultAs<double>("getAttr pCube2.tx"), 3.0);
    EXPECT_EQ(resultAs<std::string>("getAttr pCube2.note"), "kept");
    EXPECT_TRUE(host::scene().connectionsOf(*copy).empty());
    const auto original = host::scene().findNode("pCubeShape1")->mesh();
    const auto copied = host::scene().findNode("pCubeShape2")->mesh();
    EXPECT_EQ(copied->points, original->points);
    EXPECT_EQ(copied->faceConnects, original->faceConnects);
    // The copy's geometry is its own.
    ASSERT_TRUE(run("setAttr pCubeShape2.pt[0] -type float3 0 5 0"));
    EXPECT_EQ(host::evaluatedMesh(host::scene().findNode("pCubeShape1"))->points[0], original->points[0]);
}

TEST_F(DuplicateTest, NamesSelectsAndBakesTweaks) {
    ASSERT_TRUE(run("polyCube -n box; setAttr boxShape.pt[1] -type float3 0 2 0"));
    EXPECT_EQ(resultAs<std::vector<std::string>>("duplicate -n copy boxShape"),
              std::vector<std::string>{"copy"});
    EXPECT_EQ(resultAs<std::vector<std::string>>("ls -sl"), std::vector<std::string>{"copy"});
    const host::NodePtr shape = host::scene().findNode("copy")->children().empty()
                                    ? nullptr
                                    : host::scene().sharedNode(host::scene().findNode("copy")->children()[0]);
    ASSERT_NE(shape, nullptr);
    // The tweak is in the copy's points, not in its own tweaks.
    EXPECT_EQ(shape->mesh()->points[1], host::evaluatedMesh(host::scene().findNode("boxShape"))->points[1]);
    EXPECT_EQ(resultAs<std::vector<double>>("getAttr " + shape->name() + ".pt[1]"),
              (std::vector<double>{0, 0, 0}));
    EXPECT_FALSE(run("select -cl; duplicate"));
    EXPECT_FALSE(run("duplicate box.vtx[0]"));
}

class ColorSetTest : public FileTest {
protected:
    void SetUp() override {
        FileTest::SetUp();
        ASSERT_TRUE(run("polyCube -n box"));
    }
    std::vector<std::string> sets(const std::string& command) {
        return resultAs<std::vector<std::string>>(command);
    }
};

TEST_F(ColorSetTest, CreatesChoosesRenamesAndDeletes) {
    EXPECT_TRUE(sets("polyColorSet -q -allColorSets box").empty());
    EXPECT_EQ(sets("polyColorSet -create -colorSet paint box"), std::vector<std::string>{"paint"});
    EXPECT_EQ(sets("polyColorSet -create box"), std::vector<std::string>{"colorSet1"});
    EXPECT_EQ(sets("polyColorSet -q -allColorSets boxShape"),
              (std::vector<std::string>{"paint", "colorSet1"}));
    EXPECT_EQ(sets("polyColorSet -q -currentColorSet box"), std::vector<std::string>{"colorSet1"});
    ASSERT_TRUE(run("polyColorSet -currentColorSet -colorSet paint box"));
    EXPECT_EQ(sets("polyColorSet -q -currentColorSet box"), std::vector<std::string>{"paint"});
    EXPECT_EQ(sets("polyColorSet -rename -colorSet paint -newColorSet mask box"),
              std::vector<std::string>{"mask"});
    EXPECT_EQ(sets("polyColorSet -q -currentColorSet box"), std::vector<std::string>{"mask"});
    ASSERT_TRUE(run("polyColorSet -delete box"));
    EXPECT_EQ(sets("polyColorSet -q -allColorSets box"), std::vector<std::string>{"colorSet1"});
    EXPECT_EQ(sets("polyColorSet -q -currentColorSet box"), std::vector<std::string>{"colorSet1"});
    // A new set has a (not yet set) colour per vertex.
    const auto mesh = host::scene().findNode("boxShape")->mesh();
    ASSERT_EQ(mesh->colorSets.size(), 1u);
    EXPECT_EQ(mesh->colorSets[0].colors.size(), 8u);
    EXPECT_LT(mesh->colorSets[0].colors[0][3], 0.f);
}

TEST_F(ColorSetTest, RefusesWhatItCannotDo) {
    ASSERT_TRUE(run("polyColorSet -create -colorSet paint box; createNode transform -n empty"));
    const char* bad[] = {
        "polyColorSet -create -colorSet paint box",      // taken
        "polyColorSet -create -colorSet \"9lives\" box", // not a name
        "polyColorSet -currentColorSet -colorSet nope box",
        "polyColorSet -rename -colorSet paint box", // no new name
        "polyColorSet -delete -colorSet nope box",
        "polyColorSet -create -delete box",
        "polyColorSet -allColorSets box", // a query
        "polyColorSet -create empty",
        "polyColorSet -q -allColorSets nowhere",
    };
    for (const char* command : bad) EXPECT_FALSE(run(command)) << command;
    EXPECT_EQ(sets("polyColorSet -q -allColorSets box"), std::vector<std::string>{"paint"});
}

TEST_F(ColorSetTest, WorksOnTheSelectedMeshAndLeavesOtherCopiesAlone) {
    ASSERT_TRUE(run("duplicate box; select box1"));
    EXPECT_EQ(sets("polyColorSet -create -colorSet paint"), std::vector<std::string>{"paint"});
    EXPECT_TRUE(sets("polyColorSet -q -allColorSets box").empty());
    EXPECT_EQ(sets("polyColorSet -q -allColorSets box1"), std::vector<std::string>{"paint"});
}

} // namespace
