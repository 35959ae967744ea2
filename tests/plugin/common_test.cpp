#include "PluginSession.h"

#include "core/common/ComponentList.h"
#include "core/common/Numbers.h"
#include "plugin/common.h"

#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MPlug.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MStringArray.h>

#include <cmath>
#include <limits>

namespace {

std::vector<int> toVector(const MIntArray& array) {
    std::vector<int> values;
    for (unsigned int i = 0; i < array.length(); ++i) values.push_back(array[i]);
    return values;
}

// ----------------------------------------------------------------------------------- numbers

TEST(CommonNumbers, RoundToFiveDecimalsHalvesAwayFromZero) {
    const struct {
        double in, out;
    } cases[] = {{0.123456, 0.12346},   {-0.123456, -0.12346},  {0.000005, 0.00001},
                 {-0.000005, -0.00001}, {0.0000049, 0.0},       {1.0, 1.0},
                 {-2.5, -2.5},          {123.456784, 123.45678}};
    for (const auto& c : cases) {
        EXPECT_DOUBLE_EQ(core::roundDouble(c.in), c.out) << c.in;
        EXPECT_FLOAT_EQ(core::roundFloat(static_cast<float>(c.in)), static_cast<float>(c.out)) << c.in;
    }
    EXPECT_TRUE(std::isnan(core::roundDouble(std::numeric_limits<double>::quiet_NaN())));
    EXPECT_DOUBLE_EQ(core::roundDouble(1e300), 1e300);
}

TEST(CommonNumbers, CompareUsesStrictTolerance) {
    const struct {
        double a, b;
        bool equal;
    } cases[] = {{1.0, 1.00001, false},
                 {1.0, 1.000009, true},
                 {1.000009, 1.0, true},
                 {1.0, 0.99998, false},
                 {0.0, -0.0, true},
                 {-1.0, 1.0, false},
                 {0.0, std::numeric_limits<double>::quiet_NaN(), false}};
    for (const auto& c : cases) EXPECT_EQ(core::compareDouble(c.a, c.b), c.equal) << c.a << " " << c.b;
}

// ---------------------------------------------------------------------------- component lists

TEST(CommonComponentList, FlattensSelectionStrings) {
    const struct {
        std::vector<std::string> entries;
        std::vector<int> indices;
    } cases[] = {
        {{"m.vtx[3:5]", "m.vtx[9]"}, {3, 4, 5, 9}},
        {{"m.vtx[5:3]"}, {}},
        {{"m.vtx[4:4]"}, {4}},
        {{"m.vtx[2]", "m.vtx[0:2]"}, {2, 0, 1, 2}}, // input order, duplicates kept
        {{"|grp|ns:m.vtx[12]"}, {12}},
        {{"m..vtx[7]"}, {7}}, // empty pieces are dropped, as the host's split does
        {{"m.vtx[2147483646:2147483647]"}, {2147483646, 2147483647}},
        {{}, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(core::flattenComponentList(c.entries), c.indices) << c.entries.size();
}

// Malformed entries are skipped whole; the well-formed ones around them still count.
TEST(CommonComponentList, SkipsMalformedEntries) {
    const char* const malformed[] = {"",
                                     "m.vtx[",
                                     "m.vtx[]",
                                     "m.vtx[a:b]",
                                     "m.vtx[3a]",
                                     "m.vtx[ 3]",
                                     "m.vtx[-1]",
                                     "m.vtx[1:-2]",
                                     "m.vtx[1:2:3]",
                                     "m.vtx[:]",
                                     "mvtx[3]",
                                     ".vtx[3]",
                                     "m.vtx[99999999999]",
                                     "m.vtx[2147483648]",
                                     "m.vtx[0:2000000000]"};
    for (const char* entry : malformed) {
        std::vector<int> indices = {42};
        EXPECT_FALSE(core::appendComponentIndices(entry, indices)) << entry;
        EXPECT_EQ(indices, std::vector<int>{42}) << entry;
        EXPECT_EQ(core::flattenComponentList({"m.vtx[1]", entry, "m.vtx[2:3]"}), (std::vector<int>{1, 2, 3}))
            << entry;
    }
}

TEST(CommonComponentList, BuildsSetAttrCommand) {
    EXPECT_EQ(
        core::componentListCommand(
            "bs.inputTarget[0].inputTargetGroup[2].inputTargetItem[6000].inputComponentsTarget", {4, 5, 9}),
        "setAttr bs.inputTarget[0].inputTargetGroup[2].inputTargetItem[6000].inputComponentsTarget -type "
        "componentList 3 vtx[4] vtx[5] vtx[9] ;");
    EXPECT_EQ(core::componentListCommand("bs.ict", {}), "setAttr bs.ict -type componentList 0 ;");
    EXPECT_EQ(core::componentListCommand("p", {9999999, 0, 9999999}),
              "setAttr p -type componentList 3 vtx[9999999] vtx[0] vtx[9999999] ;");
}

TEST(CommonComponentList, MayaStringArrayWrapperMatchesCore) {
    MStringArray entries;
    entries.append("m.vtx[3:5]");
    entries.append("m.vtx[");
    entries.append("m.vtx[9]");
    EXPECT_EQ(toVector(common::flattenComponentList(entries)), (std::vector<int>{3, 4, 5, 9}));
}

// --------------------------------------------------------------------------- blend shape data

class CommonTest : public PluginSession {
protected:
    void SetUp() override {
        PluginSession::SetUp();
        makeBlendShape();
        blendShape = node("bs");
        ASSERT_FALSE(blendShape.isNull());
    }
    MObject blendShape;
};

TEST_F(CommonTest, PlugsAreNamedFromTheNode) {
    EXPECT_EQ(common::targetGroupPlug(blendShape, 3).name(),
              MString("bs.inputTarget[0].inputTargetGroup[3]"));
    MPlug plug;
    ASSERT_TRUE(common::inputPointsTargetPlug(blendShape, 3, 5500, plug));
    EXPECT_EQ(plug.name(),
              MString("bs.inputTarget[0].inputTargetGroup[3].inputTargetItem[5500].inputPointsTarget"));
    ASSERT_TRUE(common::inputComponentsTargetPlug(blendShape, 0, 6000, plug));
    EXPECT_EQ(plug.name(),
              MString("bs.inputTarget[0].inputTargetGroup[0].inputTargetItem[6000].inputComponentsTarget"));
    EXPECT_EQ(common::weightsPlug(blendShape, -1).name(), MString("bs.inputTarget[0].baseWeights"));
    EXPECT_EQ(common::weightsPlug(blendShape, 0).name(),
              MString("bs.inputTarget[0].inputTargetGroup[0].targetWeights"));
    EXPECT_TRUE(common::weightsPlug(blendShape, -2).isNull());
}

TEST_F(CommonTest, ReadsStoredTargetData) {
    EXPECT_EQ(toVector(common::getTargetComponents(blendShape, 0, 6000)), (std::vector<int>{0, 1, 2, 7}));
    const MPointArray points = common::getTargetPoints(blendShape, 0, 6000);
    ASSERT_EQ(points.length(), 4u);
    EXPECT_EQ(points[3], MPoint(0.0, 4.0, 0.0));
    EXPECT_EQ(toVector(common::targetItems(blendShape, 0)), std::vector<int>{6000});
    // Nothing stored: empty, not a failure the caller has to handle.
    EXPECT_EQ(common::getTargetPoints(blendShape, 1, 6000).length(), 0u);
    EXPECT_EQ(common::getTargetComponents(blendShape, 1, 6000).length(), 0u);
    EXPECT_EQ(common::targetItems(blendShape, 1).length(), 0u);
}

TEST_F(CommonTest, TargetDataRoundTrips) {
    MPointArray points;
    points.append(MPoint(0.5, -1.25, 3.0));
    points.append(MPoint(1e-7, 0.0, -2.0));
    points.append(MPoint(0.0, 0.0, 1.0));
    MIntArray indices;
    for (int index : {6, 0, 3}) indices.append(index);
    ASSERT_TRUE(common::setTargetPoints(blendShape, 2, 5500, points));
    ASSERT_TRUE(common::setTargetComponents(blendShape, 2, 5500, indices));

    EXPECT_EQ(toVector(common::getTargetComponents(blendShape, 2, 5500)), (std::vector<int>{6, 0, 3}));
    const MPointArray read = common::getTargetPoints(blendShape, 2, 5500);
    ASSERT_EQ(read.length(), points.length());
    for (unsigned int i = 0; i < read.length(); ++i) EXPECT_EQ(read[i], points[i]) << i;
    EXPECT_EQ(toVector(common::targetItems(blendShape, 2)), std::vector<int>{5500});
}

TEST_F(CommonTest, EmptyComponentListIsWrittenWithCountZero) {
    ASSERT_TRUE(common::setTargetComponents(blendShape, 0, 6000, MIntArray()));
    EXPECT_EQ(common::getTargetComponents(blendShape, 0, 6000).length(), 0u);
    MStringArray stored;
    ASSERT_TRUE(run("getAttr bs.it[0].itg[0].iti[6000].ict", stored));
    EXPECT_EQ(stored.length(), 0u);
}

TEST_F(CommonTest, WritesFailOnOtherNodesWithoutChangingThem) {
    const MObject mesh = node("boxShape");
    MIntArray indices;
    indices.append(1);
    MPointArray points;
    points.append(MPoint(1.0, 0.0, 0.0));
    EXPECT_FALSE(common::setTargetComponents(mesh, 0, 6000, indices));
    EXPECT_FALSE(common::setTargetPoints(mesh, 0, 6000, points));
    EXPECT_EQ(common::getTargetPoints(mesh, 0, 6000).length(), 0u);
    EXPECT_EQ(common::targetItems(mesh, 0).length(), 0u);
    EXPECT_TRUE(common::weightsPlug(mesh, -1).isNull());
}

TEST_F(CommonTest, DeleteWeightsClearsTheMap) {
    must("setAttr bs.it[0].itg[1].tw[3] 0.5; setAttr bs.it[0].itg[1].tw[70000] 0.25");
    must("setAttr bs.it[0].bw[2] 0.75");
    MPlug weights = common::weightsPlug(blendShape, 1);
    MIntArray existing;
    weights.getExistingArrayAttributeIndices(existing);
    ASSERT_EQ(toVector(existing), (std::vector<int>{3, 70000}));

    EXPECT_TRUE(common::deleteWeights(weights));
    weights.getExistingArrayAttributeIndices(existing);
    EXPECT_EQ(existing.length(), 0u);
    // The base weights are a different map and stay.
    MPlug baseWeights = common::weightsPlug(blendShape, -1);
    baseWeights.getExistingArrayAttributeIndices(existing);
    EXPECT_EQ(toVector(existing), std::vector<int>{2});
}

TEST_F(CommonTest, VertexTweaksRoundTrip) {
    must("setAttr boxShape.pt[4] 1 2 3");
    const MObject mesh = node("boxShape");
    MIntArray indices;
    for (int index : {4, 0, 4}) indices.append(index);
    MPointArray tweaks;
    ASSERT_TRUE(common::getVertexTweaks(mesh, indices, tweaks));
    ASSERT_EQ(tweaks.length(), 3u);
    EXPECT_EQ(tweaks[0], MPoint(1.0, 2.0, 3.0));
    EXPECT_EQ(tweaks[1], MPoint(0.0, 0.0, 0.0));
    EXPECT_EQ(tweaks[2], MPoint(1.0, 2.0, 3.0));

    MIntArray targets;
    targets.append(6);
    targets.append(1);
    MPointArray values;
    values.append(MPoint(-1.0, 0.5, 0.25));
    values.append(MPoint(0.0, 0.0, 9.0));
    ASSERT_TRUE(common::setVertexTweaks(mesh, targets, values));
    MDoubleArray stored;
    ASSERT_TRUE(run("getAttr boxShape.pt[6]", stored));
    EXPECT_EQ(stored.vec(), (std::vector<double>{-1.0, 0.5, 0.25}));
    ASSERT_TRUE(common::getVertexTweaks(mesh, targets, tweaks));
    EXPECT_EQ(tweaks[1], MPoint(0.0, 0.0, 9.0));
}

TEST_F(CommonTest, TweaksOfANodeWithoutPointsReportTheApiError) {
    MPointArray tweaks;
    tweaks.append(MPoint(5.0, 5.0, 5.0));
    MIntArray indices;
    indices.append(0);
    EXPECT_FALSE(common::getVertexTweaks(blendShape, indices, tweaks));
    EXPECT_FALSE(common::setVertexTweaks(blendShape, indices, tweaks));
    const auto log = messages();
    ASSERT_EQ(log.size(), 2u);
    for (const host::Message& message : log) {
        EXPECT_EQ(message.kind, host::MessageKind::Error);
        EXPECT_NE(message.text.find("API error detected in"), std::string::npos) << message.text;
        EXPECT_NE(message.text.find("common"), std::string::npos) << message.text;
    }
    EXPECT_EQ(tweaks.length(), 1u); // untouched
}

} // namespace
