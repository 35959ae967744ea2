// kv_blendShapeEditWeights mirror, flip and trim: by position across an axis, and through the vertex
// order map of a mesh.
#include "EditWeightsSession.h"

#include "plugin/vertexOrderMap.h"

#include <maya/MDagPath.h>

namespace {

using host::CommandResult;

class EditWeightsMirror : public EditWeightsSession {
protected:
    // Two weights on each side of x = 0 and one on it; 5 (partner of 3) and 6 (of 8) weigh 1.0.
    const Map start = {{0, 0.25}, {2, 0.75}, {3, 0.5}, {4, 0.375}, {8, 0.125}};

    void SetUp() override {
        EditWeightsSession::SetUp();
        makePlane();
        must("polyPlane -n other -w 2 -h 2 -sx 2 -sy 2; select -cl");
    }
    static void setOrderMap(const char* shape, std::vector<int> entries) {
        MSelectionList list;
        list.add(shape);
        MDagPath mesh;
        list.getDagPath(0, mesh);
        MPlug plug;
        if (!common::findVertexOrderMap(mesh, plug)) {
            ASSERT_TRUE(common::createVertexOrderMap(mesh, plug));
        }
        ASSERT_TRUE(common::writeVertexOrderMap(plug, MIntArray(std::move(entries))));
    }
    // Runs the edit on the start map; its result, map and messages.
    void expectEdit(const std::string& arguments, CommandResult result, const Map& expected,
                    const Lines& messages = {}) {
        store(start);
        clearMessages();
        EXPECT_EQ(edit(arguments + " bs"), result) << arguments;
        EXPECT_EQ(stored(), expected) << arguments;
        Lines shown;
        for (const host::Message& message : PluginSession::messages()) shown.push_back(message.text);
        EXPECT_EQ(shown, messages) << arguments;
    }
};

TEST_F(EditWeightsMirror, ByPositionAndByOrderMap) {
    const Map positiveToNegative = {{0, 0.75}, {2, 0.75}, {4, 0.375}, {6, 0.125}, {8, 0.125}};
    const Map negativeToPositive = {{0, 0.25}, {2, 0.25}, {3, 0.5}, {4, 0.375}, {5, 0.5}};
    const Map flipped = {{0, 0.75}, {2, 0.25}, {4, 0.375}, {5, 0.5}, {6, 0.125}};
    setOrderMap("plShape", {2, 1, 0, 5, 4, 3, 8, 7, 6});
    setOrderMap("otherShape", {2, 1, 0, 5, 4, 3, 8, 7, 6});
    for (const std::string order : {"", " -ob pl", " -ob other"}) {
        expectEdit("-m -om pl" + order, true, positiveToNegative);
        expectEdit("-m -dir 0 -om pl" + order, true, negativeToPositive);
        expectEdit("-flp -dir 0 -om pl" + order, true, flipped);
    }
    // Across z the rows pair up (0-6, 2-8); across y every vertex is its own partner.
    expectEdit("-m -ax z -om pl", true, {{0, 0.25}, {2, 0.75}, {3, 0.5}, {4, 0.375}, {6, 0.25}, {8, 0.75}});
    expectEdit("-m -ax y -om pl", true, start);
    expectEdit("-t -om pl", true, {{0, 0.25}, {3, 0.5}});
    expectEdit("-t -dir 0 -ax z -om pl", true, {{0, 0.25}, {2, 0.75}, {3, 0.5}});
    expectEdit("-t -tol 1.5 -om pl", true, {{2, 0.5}, {3, 0.5}}); // everything lies on the plane
}

// The order map decides the partners, whatever the positions say; the coordinates still decide
// which side is the source. Unmapped entries, entries outside the mesh and vertices beyond the
// map are skipped: their weights are lost.
TEST_F(EditWeightsMirror, OrderMapWinsOverPositions) {
    setOrderMap("plShape", {8, 1, 6, 5, 4, 3, 2, 7, 0});
    expectEdit("-flp -om pl -ob pl", true, {{8, 0.25}, {6, 0.75}, {5, 0.5}, {4, 0.375}, {0, 0.125}});
    expectEdit("-m -om pl -ob pl", true, {{6, 0.75}, {2, 0.75}, {4, 0.375}, {0, 0.125}, {8, 0.125}});
    setOrderMap("plShape", {-1, 1, 0, 99, 4, 3, 8, 7, -7});
    expectEdit("-flp -om pl -ob pl", true, {{0, 0.75}, {4, 0.375}}, {"Skipped 3 asymmetrical components."});
    setOrderMap("plShape", {2, 1, 0, 5});
    expectEdit(
        "-flp -om pl -ob pl", true, {{0, 0.75}, {2, 0.25}, {5, 0.5}},
        {"The vertex order map of pl has 4 entries for 9 vertices; vertices it does not cover are skipped.",
         "Skipped 2 asymmetrical components."});
    expectEdit("-m -om pl -ob other", false, start, {"other has no vertex order map."});
    expectEdit("-flp -om pl -ob nothing", 0, start, {"nothing does not exist."});
}

// Unmatched vertices stop the mirror before anything is written.
TEST_F(EditWeightsMirror, UnmatchedVerticesAreCounted) {
    must("setAttr plShape.vt[2] 1.01 0 1"); // 0 and 2 lose each other at the default tolerance
    const auto unable = [](int count) {
        return Lines{
            "Unable to find " + std::to_string(count) +
            " mirrored points. Please increase the tolerance to account for non-symmetrical points."};
    };
    expectEdit("-m -om pl", false, start, unable(2));
    expectEdit("-flp -om pl -tol 0.009", false, start, unable(2));
    expectEdit("-m -om pl -tol 0", false, start, unable(5));
    expectEdit("-flp", false, start, {"The original mesh is not defined."}); // no mesh to search
    expectEdit("-m -om pl -tol 0.011", true, {{0, 0.75}, {2, 0.75}, {4, 0.375}, {6, 0.125}, {8, 0.125}});
    // The tolerance is in the parent's space: it is divided by the transform's mean scale.
    must("setAttr plShape.vt[2] 1.0005 0 1");
    expectEdit("-flp -om pl", true, {{0, 0.75}, {2, 0.25}, {4, 0.375}, {5, 0.5}, {6, 0.125}});
    for (const char* scale : {"10 10 10", "1 1 28"}) { // the mean scale counts
        must(std::string("setAttr pl.s ") + scale);
        expectEdit("-flp -om pl", false, start, unable(2));
    }
    must("setAttr pl.s 0.1 0.1 0.1");
    expectEdit("-flp -om pl -tol 0.0001", true, {{0, 0.75}, {2, 0.25}, {4, 0.375}, {5, 0.5}, {6, 0.125}});

    store({});
    clearMessages();
    for (const char* mode : {"-m", "-flp", "-t"})
        EXPECT_EQ(edit(std::string(mode) + " -om pl bs"), CommandResult(false));
    EXPECT_TRUE(errors().empty()) << allMessages();
}

} // namespace
