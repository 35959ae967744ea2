// Region arithmetic on plain arrays: normalisation, merging painted weights, filling unassigned
// weight and the colours a map shows as.
#include <gtest/gtest.h>

#include "core/regions/RegionColors.h"
#include "core/regions/RegionEdits.h"

#include <cmath>
#include <limits>
#include <vector>

namespace {

using core::RegionLocks;
using core::RegionMap;
using core::RegionWeights;

constexpr RegionLocks kNoLocks{};

// A map from one row of six weights per vertex.
RegionMap mapOf(const std::vector<RegionWeights>& rows) {
    RegionMap map;
    for (const RegionWeights& row : rows)
        for (int k = 0; k < core::kRegionCount; ++k) map.regions[k].push_back(row[k]);
    return map;
}

void expectWeights(const RegionWeights& actual, const RegionWeights& expected, const char* label) {
    for (int k = 0; k < core::kRegionCount; ++k)
        EXPECT_NEAR(actual[k], expected[k], 1e-6) << label << " region " << k;
}

TEST(RegionNormalize, ScalesOnlyUnlockedWeightsOfOverfullVertices) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        const char* label;
        RegionWeights in;
        RegionLocks locks;
        RegionWeights out;
    } cases[] = {
        {"three halves", {0.5, 0.5, 0.5, 0, 0, 0}, kNoLocks, {0.33333, 0.33333, 0.33333, 0, 0, 0}},
        {"first locked", {0.5, 0.5, 0.5, 0, 0, 0}, {1, 0, 0, 0, 0, 0}, {0.5, 0.25, 0.25, 0, 0, 0}},
        {"one region above 1", {1.2, 0, 0, 0, 0, 0}, kNoLocks, {1.2, 0, 0, 0, 0, 0}},
        {"below 1", {0.2, 0.3, 0, 0, 0, 0}, kNoLocks, {0.2, 0.3, 0, 0, 0, 0}},
        {"rounds to exactly 1", {0.500002, 0.500002, 0, 0, 0, 0}, kNoLocks, {0.5, 0.5, 0, 0, 0, 0}},
        {"tiny second weight", {1.2, 0.000004, 0, 0, 0, 0}, kNoLocks, {1.2, 0, 0, 0, 0, 0}},
        {"locked keep, rest share", {0.6, 0.6, 0, 0, 0.2, 0}, {0, 1, 0, 0, 0, 0}, {0.3, 0.6, 0, 0, 0.1, 0}},
    };
    for (const auto& c : cases) expectWeights(core::normalizeArray(c.in, c.locks), c.out, c.label);
    // A NaN weight counts as a weight and spreads through the total.
    const RegionWeights withNan = core::normalizeArray({nan, 0.5, 0, 0, 0, 0}, kNoLocks);
    EXPECT_TRUE(std::isnan(withNan[0]));
    EXPECT_EQ(withNan[1], 0.5);
}

TEST(RegionAddPainted, PaintedWeightReplacesRegionAndLoweredWeightIsShared) {
    const struct {
        const char* label;
        RegionWeights before;
        RegionLocks locks;
        bool distribute;
        double painted; // into region 0
        RegionWeights after;
    } cases[] = {
        {"lowered, shared", {0.6, 0.3, 0.1, 0, 0, 0}, kNoLocks, true, 0.2, {0.2, 0.5, 0.3, 0, 0, 0}},
        {"not distributed", {0.6, 0.3, 0.1, 0, 0, 0}, kNoLocks, false, 0.2, {0.2, 0.3, 0.1, 0, 0, 0}},
        {"raised", {0.5, 0.5, 0, 0, 0, 0}, kNoLocks, true, 1.0, {0.66667, 0.33333, 0, 0, 0, 0}},
        {"painted locked", {0.6, 0.6, 0, 0, 0, 0}, {1, 0, 0, 0, 0, 0}, true, 0.0, {0.6, 0.4, 0, 0, 0, 0}},
        // Only the painted region's lock is looked at: the locked region 1 still gets its share.
        {"other locked", {0.6, 0.3, 0.1, 0, 0, 0}, {0, 1, 0, 0, 0, 0}, true, 0.2, {0.2, 0.5, 0.3, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        RegionMap map = mapOf({{0.1, 0.2, 0.3, 0.4, 0, 0}, c.before});
        core::addPaintedWeights(map, c.locks, 0, {1}, {c.painted}, c.distribute);
        expectWeights(map.at(1), c.after, c.label);
        expectWeights(map.at(0), {0.1, 0.2, 0.3, 0.4, 0, 0}, c.label); // not painted: untouched
    }
}

TEST(RegionAddPainted, PaintsOtherRegionsAndSkipsVerticesOutsideTheMap) {
    RegionMap map = mapOf({{0.5, 0, 0, 0.5, 0, 0}, {0, 0, 0, 0, 0, 0}});
    core::addPaintedWeights(map, kNoLocks, 3, {1, 7, -1, 0}, {0.25, 1.0, 1.0, 0.1}, true);
    expectWeights(map.at(1), {0, 0, 0, 0.25, 0, 0}, "vertex 1");
    expectWeights(map.at(0), {0.9, 0, 0, 0.1, 0, 0}, "vertex 0");
    EXPECT_EQ(map.vertexCount(), 2u);
}

TEST(RegionAppend, FillsTheLackingWeight) {
    const struct {
        const char* label;
        RegionWeights before;
        RegionLocks locks;
        int index;
        RegionWeights after;
    } cases[] = {
        {"into region 2", {0.25, 0, 0, 0, 0, 0}, kNoLocks, 2, {0.25, 0, 0.75, 0, 0, 0}},
        {"region 2 locked", {0.25, 0, 0, 0, 0, 0}, {0, 0, 1, 0, 0, 0}, 2, {0.25, 0, 0, 0, 0, 0}},
        {"already full", {0.5, 0.5, 0, 0, 0, 0}, kNoLocks, 2, {0.5, 0.5, 0, 0, 0, 0}},
        // Neighbours 0 and 2 hold (1, 0, ...) and (0.5, 0.5, ...): region 0 averages 0.75 over both,
        // region 1 0.5 over the one where it is set; neighbour 9 is outside the map.
        {"from neighbours", {0, 0, 0, 0, 0, 0}, kNoLocks, -1, {0.75, 0.5, 0, 0, 0, 0}},
        {"from neighbours, half missing", {0, 0, 0.5, 0, 0, 0}, kNoLocks, -1, {0.375, 0.25, 0.5, 0, 0, 0}},
    };
    core::NeighbourLists neighbours;
    neighbours.indices = {0, 2, 9};
    neighbours.offsets = {0, 3};
    for (const auto& c : cases) {
        RegionMap map = mapOf({{1, 0, 0, 0, 0, 0}, c.before, {0.5, 0.5, 0, 0, 0, 0}});
        core::appendUnassigned(map, c.locks, c.index, {1}, neighbours);
        expectWeights(map.at(1), c.after, c.label);
        expectWeights(map.at(0), {1, 0, 0, 0, 0, 0}, c.label);
    }
}

TEST(RegionColors, ModesShowRegionsOrAssignment) {
    struct Case {
        const char* label;
        RegionWeights weights;
        int mode;
        std::array<float, 3> rgb;
        bool partial;
    };
    const Case cases[] = {
        {"region 3, coloured", {0, 0, 0, 1, 0, 0}, 1, {0, 1, 1}, false},
        {"region 3, ramp", {0, 0, 0, 1, 0, 0}, 2, {0, 0, 0}, false},
        {"regions 0 and 1 mixed", {0.5, 0.5, 0, 0, 0, 0}, 1, {1, 0.5, 0}, false},
        {"a quarter, grey", {0.25, 0, 0, 0, 0, 0}, 0, {0.75, 0.75, 0.75}, true},
        {"a quarter, ramp is yellow", {0.25, 0, 0, 0, 0, 0}, 2, {1, 1, 0}, true},
        {"a quarter, mode -1 is the ramp", {0, 0, 0, 0, 0.25, 0}, -1, {1, 1, 0}, true},
        {"nothing, grey", {0, 0, 0, 0, 0, 0}, 0, {1, 1, 1}, true},
        {"0.9991 rounds up to full", {0.9991, 0, 0, 0, 0, 0}, 0, {0, 0, 0}, false},
        {"0.999 stays partial", {0.999, 0, 0, 0, 0, 0}, 0, {0.001f, 0.001f, 0.001f}, true},
        {"0.999, ramp is nearly blue", {0.999, 0, 0, 0, 0, 0}, 2, {0, 0.004f, 1}, true},
        // A single region above 1 is not scaled: the grey goes negative and still counts.
        {"overfull single region, grey", {1.5, 0, 0, 0, 0, 0}, 0, {-0.5, -0.5, -0.5}, true},
    };
    for (const Case& c : cases) {
        const core::RegionColors colors = core::regionColors(mapOf({c.weights}), kNoLocks, c.mode);
        ASSERT_EQ(colors.rgb.size(), 3u) << c.label;
        for (int i = 0; i < 3; ++i) EXPECT_NEAR(colors.rgb[i], c.rgb[i], 2e-4) << c.label << " channel " << i;
        EXPECT_EQ(colors.partial, c.partial ? 1u : 0u) << c.label;
    }
}

TEST(RegionColors, NormalisesWithLocksAndCountsEveryPartialVertex) {
    RegionMap map =
        mapOf({{0.5, 0.5, 0.5, 0, 0, 0}, {0.1, 0, 0, 0, 0, 0}, {0, 0, 1, 0, 0, 0}, {0.5, 0, 0, 0, 0, 0}});
    const core::RegionColors colors = core::regionColors(map, {1, 0, 0, 0, 0, 0}, 1);
    EXPECT_NEAR(colors.rgb[0], 0.75, 1e-6); // 0.5 locked + 0.25 of region 1
    EXPECT_NEAR(colors.rgb[1], 0.5, 1e-6);
    EXPECT_NEAR(colors.rgb[2], 0.0, 1e-6);
    EXPECT_EQ(core::regionColors(map, kNoLocks, 0).partial, 2u);
    EXPECT_TRUE(core::regionColors(RegionMap(), kNoLocks, 0).rgb.empty());
}

} // namespace
