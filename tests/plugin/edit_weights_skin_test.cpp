// kv_blendShapeEditWeights with -sc: a weight map written into one skin cluster influence (-ex) or
// read from one (-im), and what undo restores of each.
#include "EditWeightsSession.h"

#include <maya/MDagPath.h>
#include <maya/MDoubleArray.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MFnSkinCluster.h>

namespace {

using host::CommandResult;

class EditWeightsSkin : public EditWeightsSession {
protected:
    // The cube "box" (8 vertices) bound to joints j0, j1, j2, every vertex weighted 0.5, 0.3, 0.2.
    void SetUp() override {
        EditWeightsSession::SetUp();
        must("polyCube -n box; select -cl; joint -n j0; select -cl; joint -n j1 -p 10 0 0; select -cl;"
             "joint -n j2 -p 20 0 0; skinCluster -n skin -tsb j0 j1 j2 box; createNode blendShape -n bs; "
             "select -cl");
        setSkin([](int) { return std::vector<double>{0.5, 0.3, 0.2}; });
    }
    static MDagPath shape() {
        MSelectionList list;
        list.add("boxShape");
        MDagPath path;
        list.getDagPath(0, path);
        return path;
    }
    // Every influence's weight at every vertex, vertex-major.
    static std::vector<double> skin() {
        MDoubleArray weights;
        unsigned int influences = 0;
        MFnSkinCluster(node("skin")).getWeights(shape(), MObject::kNullObj, weights, influences);
        return weights.vec();
    }
    template <class PerVertex> static void setSkin(PerVertex weights) {
        MDoubleArray values;
        for (int v = 0; v < 8; ++v)
            for (const double w : weights(v)) values.append(w);
        MFnSingleIndexedComponent component;
        MObject vertices = component.create(MFn::kMeshVertComponent);
        component.setCompleteData(8);
        MIntArray influences(std::vector<int>{0, 1, 2});
        ASSERT_TRUE(MFnSkinCluster(node("skin")).setWeights(shape(), vertices, influences, values, false));
    }
    static void expectSkin(const std::vector<double>& expected, const std::string& context) {
        const std::vector<double> actual = skin();
        ASSERT_EQ(actual.size(), expected.size()) << context;
        for (std::size_t i = 0; i < actual.size(); ++i)
            EXPECT_NEAR(actual[i], expected[i], 1e-9)
                << context << ": vertex " << i / 3 << " influence " << i % 3;
    }
};

TEST_F(EditWeightsSkin, ExportWritesOneInfluenceAndUndoRestoresIt) {
    const std::vector<double> start = skin();
    const struct {
        Map map;
        std::vector<double> one; // influence 1 afterwards; the others keep their proportion 5 : 2
    } cases[] = {
        {everyVertex(0, {{1, 0.125}, {2, 0.25}, {3, 1.0}}, 8), {0, 0.125, 0.25, 1, 0, 0, 0, 0}},
        {{{1, 0.5}, {3, 0.25}}, {0, 0.5, 0, 0.25, 0, 0, 0, 0}}, // sparse: cleared where the map has none
        {{{1, 0.5}, {3, 0.25}, {20, 0.75}}, {0, 0.5, 0, 0.25, 0, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        for (const char* mesh : {"boxShape", "box"}) {
            store(c.map);
            EXPECT_EQ(edit(std::string("-ex -sc skin -ii 1 -sm ") + mesh + " bs"), CommandResult(true))
                << mesh;
            std::vector<double> expected;
            for (const double w : c.one)
                expected.insert(expected.end(), {(1 - w) * 5 / 7, w, (1 - w) * 2 / 7});
            expectSkin(expected, mesh);
            EXPECT_EQ(stored(), c.map) << mesh;
            exec("undo");
            expectSkin(start, std::string("undo ") + mesh);
        }
    }
    store({});
    EXPECT_EQ(edit("-ex -sc skin -ii 1 -sm boxShape bs"), CommandResult(false));
    exec("undo");
    expectSkin(start, "empty map");
}

TEST_F(EditWeightsSkin, ImportReadsOneInfluence) {
    setSkin([](int v) { return std::vector<double>{1.0 - v / 8.0, v / 8.0, 0.0}; });
    const Map ramp = {{1, 0.875}, {2, 0.75}, {3, 0.625}, {4, 0.5}, {5, 0.375}, {6, 0.25}, {7, 0.125}};
    const struct {
        std::string arguments;
        int index;
        Map expected;
    } cases[] = {
        {"-ii 0", 0, ramp}, // 1.0 is left out of target weights
        {"-ii 0 -i -1", -1, everyVertex(1.0, ramp, 8)},
        {"-ii 2", 0, everyVertex(0.0, {}, 8)},
    };
    for (const auto& c : cases) {
        store({{3, 0.5}, {20, 0.25}}, c.index);
        EXPECT_EQ(edit("-im -sc skin -sm boxShape " + c.arguments + " bs"), CommandResult(true))
            << c.arguments;
        EXPECT_EQ(stored(c.index), c.expected) << c.arguments;
    }
    // Undo writes the old elements back; those the import added stay.
    store({{3, 0.5}});
    edit("-im -sc skin -sm boxShape -ii 2 bs");
    exec("undo");
    EXPECT_EQ(stored(), everyVertex(0.0, {{3, 0.5}}, 8));
    // A weight of 1.0 everywhere is an empty map, for base weights too.
    setSkin([](int) { return std::vector<double>{0, 1, 0}; });
    for (const char* index : {"0", "-1"}) {
        store({{3, 0.5}}, std::stoi(index));
        EXPECT_EQ(edit(std::string("-im -sc skin -sm boxShape -ii 1 -i ") + index + " bs"),
                  CommandResult(true));
        EXPECT_EQ(stored(std::stoi(index)), Map()) << index;
    }
}

TEST_F(EditWeightsSkin, BadSkinArgumentsChangeNothing) {
    must("polyCube -n loose; select -cl");
    const std::vector<double> start = skin();
    const struct {
        std::string arguments;
        CommandResult result;
        std::size_t errors;
    } cases[] = {
        {"-ex -sc skin -sm boxShape -ii 3", false, 1},
        {"-im -sc skin -sm boxShape -ii -1", false, 1},
        {"-ex -sc box -sm boxShape", 0, 1},
        {"-ex -sc skin -sm loose", false, 0},
        {"-im -sc skin -sm loose", false, 0},
        {"-ex -sc skin", false, 0},
        {"-m -sc skin -om boxShape", 0, 1}, // -sc replaces -om by -sm, which is missing
    };
    for (const auto& c : cases) {
        store({{1, 0.5}});
        clearMessages();
        EXPECT_EQ(edit(c.arguments + " bs"), c.result) << c.arguments;
        EXPECT_EQ(errors().size(), c.errors) << c.arguments << allMessages();
        EXPECT_EQ(stored(), (Map{{1, 0.5}})) << c.arguments;
        expectSkin(start, c.arguments);
    }
}

} // namespace
