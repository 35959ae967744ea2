// kv_blendShapeReplaceTarget: deltas from a sculpted mesh, the checks of both mesh names, a mesh of
// another size, and undo.
#include "TargetEditSession.h"

#include <cmath>
#include <limits>

namespace {

using host::CommandResult;

class ReplaceTarget : public TargetEditSession {
protected:
    void SetUp() override {
        TargetEditSession::SetUp();
        makeBlendShape();
        copyBox();
        must("polyPlane -n plane; select -cl");
    }
    // "sculpt": a copy of the box whose shape is "sculptShape".
    static void copyBox() {
        must("duplicate -n sculpt box");
        must("rename " + shapeOf("sculpt") + " sculptShape");
    }
    static CommandResult replace(const std::string& arguments, bool expectOk = true) {
        return exec("kv_blendShapeReplaceTarget " + arguments, expectOk);
    }
};

TEST_F(ReplaceTarget, DeltasOfMovedVerticesOnly) {
    // Vertex 0 sits at x = -0.5: the smallest step away from it is kept as a delta.
    const float tiny = std::nextafter(-0.5f, 0.0f) + 0.5f;
    const struct {
        const char* name;
        std::map<int, std::array<float, 3>> moves;
        const char* item;
        std::vector<int> components;
        Deltas deltas;
    } cases[] = {
        {"two vertices", {{3, {0, 0, 1}}, {5, {0.5f, 0, 0}}}, "", {3, 5}, {{0, 0, 1}, {0.5, 0, 0}}},
        {"unchanged mesh", {}, "", {}, {}},
        {"smallest change", {{0, {tiny, 0, 0}}}, "", {0}, {{tiny, 0, 0}}},
        {"in-between item", {{6, {0, -1, 0}}}, "-ti 5500 ", {6}, {{0, -1, 0}}},
    };
    for (const auto& c : cases) {
        must("delete sculpt");
        copyBox();
        movePoints("sculptShape", c.moves);
        EXPECT_EQ(replace(std::string(c.item) + "-om boxShape -m sculptShape bs"), CommandResult(1))
            << c.name;
        const unsigned int item = c.item[0] ? 5500 : 6000;
        EXPECT_EQ(components(0, item), c.components) << c.name;
        EXPECT_EQ(deltas(0, item), c.deltas) << c.name;
    }
    EXPECT_TRUE(errors().empty()) << allMessages();
}

TEST_F(ReplaceTarget, BadMeshesChangeNothing) {
    const struct {
        const char* arguments;
        const char* error;
    } cases[] = {
        {"-om boxShape", "Mesh flag and original mesh flag must be defined."},
        {"-m sculptShape", "Mesh flag and original mesh flag must be defined."},
        {"-om boxShape -m boxShape", "Mesh flag and original mesh flag must be defined."},
        {"-om boxShape -m nothing", "Mesh flag and original mesh flag must be defined."},
        // Always the first entry (the original mesh) is named.
        {"-om boxShape -m sculpt", "boxShape is not a mesh object."},
        {"-om box -m sculptShape", "box is not a mesh object."},
        {"-om boxShape -m planeShape",
         "planeShape has 121 vertices but the original mesh boxShape has 8. The vertex counts must match."},
    };
    movePoints("sculptShape", {{3, {0, 0, 1}}});
    for (const auto& c : cases) {
        clearMessages();
        EXPECT_EQ(replace(std::string(c.arguments) + " bs"), CommandResult(0)) << c.arguments;
        EXPECT_EQ(errors(), Lines{c.error}) << c.arguments;
        EXPECT_EQ(components(0), (std::vector<int>{0, 1, 2, 7})) << c.arguments;
    }
    clearMessages();
    EXPECT_EQ(replace("-om boxShape -m sculptShape", false), CommandResult(0));
    EXPECT_EQ(errors(), Lines{"No blend shape node provided."});
}

TEST_F(ReplaceTarget, UndoRestoresTheItemAsItWas) {
    movePoints("sculptShape", {{4, {1, 1, 1}}});
    const struct {
        const char* item;
        std::vector<int> undoneComponents;
        Deltas undoneDeltas;
    } cases[] = {
        {"-i 0", {0, 1, 2, 7}, {{0, 1, 0}, {0, 2, 0}, {0, 3, 0}, {0, 4, 0}}},
        // An item without data goes back to empty lists (its fill is not kept).
        {"-i 1", {}, {}},
    };
    for (const auto& c : cases) {
        replace(std::string(c.item) + " -om boxShape -m sculptShape bs");
        const unsigned int target = c.item[3] - '0';
        EXPECT_EQ(components(target), (std::vector<int>{4})) << c.item;
        exec("undo");
        EXPECT_EQ(components(target), c.undoneComponents) << c.item;
        EXPECT_EQ(deltas(target), c.undoneDeltas) << c.item;
        exec("redo");
        EXPECT_EQ(deltas(target), (Deltas{{1, 1, 1}})) << c.item;
    }
    EXPECT_TRUE(errors().empty()) << allMessages();
}

} // namespace
