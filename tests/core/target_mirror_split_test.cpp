// The arithmetic of mirroring and splitting target deltas, at the boundaries of its rules.
#include "core/targets/MirrorDeltas.h"
#include "core/targets/SplitWeights.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>
#include <vector>

namespace {

using core::kNoPartner;
using Entries = std::vector<std::pair<int, std::array<double, 3>>>;

core::TargetDeltas deltasOf(const Entries& entries) {
    core::TargetDeltas deltas;
    for (const auto& [v, d] : entries) {
        deltas.components.push_back(v);
        deltas.deltas.push_back({d[0], d[1], d[2], 1.0});
    }
    return deltas;
}

Entries entriesOf(const core::TargetDeltas& deltas) {
    Entries entries;
    for (std::size_t k = 0; k < deltas.components.size(); ++k)
        entries.push_back(
            {deltas.components[k], {deltas.deltas[k].x, deltas.deltas[k].y, deltas.deltas[k].z}});
    return entries;
}

TEST(TargetMirror, RemoveSkippedTakesLastOccurrences) {
    const Entries start = {{3, {1, 0, 0}}, {5, {2, 0, 0}}, {3, {3, 0, 0}}, {7, {4, 0, 0}}};
    const struct {
        std::vector<int> skip;
        Entries expected;
    } cases[] = {
        {{}, start},
        {{3}, {{3, {1, 0, 0}}, {5, {2, 0, 0}}, {7, {4, 0, 0}}}},
        {{3, 9, 3, 3}, {{5, {2, 0, 0}}, {7, {4, 0, 0}}}},
        {{7, 5, -1}, {{3, {1, 0, 0}}, {3, {3, 0, 0}}}},
    };
    for (const auto& c : cases) {
        core::TargetDeltas deltas = deltasOf(start);
        core::removeSkipped(deltas, c.skip);
        EXPECT_EQ(entriesOf(deltas), c.expected) << c.skip.size();
    }
}

// Vertices on x: 0 at 5 and 1 at -5 (partners), 2 at 0.5 (inside the band of tolerance 10, its
// own partner), 3 at -1 = -band (the far-side test is strict) and 4 at 1 (partners).
TEST(TargetMirror, ModesSidesAndCentreBand) {
    const std::vector<float> x = {5, -5, 0.5f, -1, 1};
    const Entries source = {{0, {1, 2, 3}}, {1, {4, 5, 6}}, {2, {7, 8, 9}}, {3, {1, 1, 1}}};
    const std::vector<std::uint32_t> partners = {1, 0, 2, 4};
    const struct {
        int type;
        bool flip, direction;
        Entries expected;
    } cases[] = {
        {0, false, true, {{1, {-1, 2, 3}}, {2, {0, 8, 9}}, {4, {-1, 1, 1}}, {0, {1, 2, 3}}, {3, {1, 1, 1}}}},
        {0, false, false, {{0, {-4, 5, 6}}, {2, {0, 8, 9}}, {4, {-1, 1, 1}}, {1, {4, 5, 6}}, {3, {1, 1, 1}}}},
        {1, false, true, {{1, {-1, 2, 3}}, {2, {-7, 8, 9}}, {4, {-1, 1, 1}}}},
        {2, false, true, {{1, {-1, 2, 3}}, {0, {-4, 5, 6}}, {2, {-7, 8, 9}}, {4, {-1, 1, 1}}}},
        {0, true, true, {{1, {-1, 2, 3}}, {0, {-4, 5, 6}}, {2, {0, 8, 9}}, {4, {-1, 1, 1}}, {3, {1, 1, 1}}}},
        {2, true, true, {{1, {-1, 2, 3}}, {0, {-4, 5, 6}}, {2, {-7, 8, 9}}, {4, {-1, 1, 1}}}},
        {1, true, false, {{1, {-1, 2, 3}}, {0, {-4, 5, 6}}, {2, {-7, 8, 9}}, {4, {-1, 1, 1}}}},
    };
    for (const auto& c : cases) {
        core::MirrorSettings settings;
        settings.type = c.type;
        settings.flip = c.flip;
        settings.direction = c.direction;
        settings.tolerance = 10.0f;
        const core::MirroredDeltas result = core::mirrorDeltas(deltasOf(source), partners, x, settings);
        EXPECT_EQ(entriesOf(result.output), c.expected) << c.type << c.flip << c.direction;
        EXPECT_EQ(result.skipped, 0u);
    }
}

TEST(TargetMirror, AxesMissingPartnersAndDuplicates) {
    const std::vector<float> coordinate = {1, -1, 0};
    const struct {
        int axis;
        Entries source;
        std::vector<std::uint32_t> partners;
        Entries expected;
        std::size_t skipped;
    } cases[] = {
        {1, {{0, {1, 2, 3}}}, {1}, {{1, {1, -2, 3}}, {0, {1, 2, 3}}}, 0},
        {2, {{0, {1, 2, 3}}, {2, {1, 2, 3}}}, {1, 2}, {{1, {1, 2, -3}}, {2, {1, 2, 0}}, {0, {1, 2, 3}}}, 0},
        // No partner, or one outside the mesh: skipped, the source delta stays.
        {0, {{0, {1, 2, 3}}, {2, {1, 1, 1}}}, {kNoPartner, 7}, {{0, {1, 2, 3}}, {2, {1, 1, 1}}}, 2},
        // Two sources with one partner both write it; a kept vertex listed twice is kept once.
        {0,
         {{0, {1, 0, 0}}, {2, {2, 0, 0}}, {0, {3, 0, 0}}},
         {1, 1, 1},
         {{1, {-1, 0, 0}}, {1, {0, 0, 0}}, {1, {-3, 0, 0}}, {0, {1, 0, 0}}, {2, {2, 0, 0}}},
         0},
        // A component the mesh does not have counts as lying on the plane.
        {0, {{9, {1, 2, 3}}}, {2}, {{2, {0, 2, 3}}, {9, {1, 2, 3}}}, 0},
    };
    for (const auto& c : cases) {
        core::MirrorSettings settings;
        settings.axis = c.axis;
        const core::MirroredDeltas result =
            core::mirrorDeltas(deltasOf(c.source), c.partners, coordinate, settings);
        EXPECT_EQ(entriesOf(result.output), c.expected) << c.axis << " " << c.source.size();
        EXPECT_EQ(result.skipped, c.skipped);
    }
}

TEST(TargetSplit, RampBandAndSides) {
    const struct {
        float v;
        double blend, center;
        int side;
        double tolerance;
        bool base;
        double expected;
    } cases[] = {
        {0.1f, 0.2, 0, 1, 0.001, false, 0.74981}, // 1 - (0.2001 - 0.1) / 0.4001
        {-0.3f, 0.2, 0, 1, 0.001, false, 0},        {0.25f, 0.2, 0, 1, 0.001, false, 1},
        {0.0005f, 0, 0, 1, 0.001, false, 0.5}, // hard split, inside the band
        {0.0005f, 0, 0, 1, 0.001, true, 1},         {0.0005f, 0, 0, -1, 0.001, false, 0.5},
        {0.5f, 0, 0, 1, 0.001, false, 1},           {-0.5f, 0, 0, 1, 0.001, false, 0},
        {0.00005f, 0, 0, 1, 0.00001, false, 0.5}, // outside the band, on the hard split's tiny ramp
        {0.00005f, 0.2, 0, 1, 0.001, false, 0.5}, // a ramp never uses the band
        {0.5f, 0.2, 0, 0, 0.001, false, 0.49988}, // side 0: every coordinate counts as 0
        {-0.5f, 0.2, 0, -1, 0.001, false, 1},       {1.2f, 0.1, 1.0, 1, 0.001, false, 1},
        {1.0f, 0.1, 1.0, 1, 0.001, false, 0.49975},
    };
    for (const auto& c : cases) {
        core::SplitSettings settings;
        settings.blend = c.blend;
        settings.center = c.center;
        settings.side = c.side;
        settings.tolerance = c.tolerance;
        settings.baseWeights = c.base;
        EXPECT_NEAR(core::splitWeight(c.v, settings), c.expected, 1e-12)
            << c.v << " blend " << c.blend << " side " << c.side;
    }
}

TEST(TargetSplit, HalvedCentreDeltasAddUpWithTheOppositeHalf) {
    const std::vector<float> x = {-1, 0.0005f, 1};
    const core::TargetDeltas deltas =
        deltasOf({{0, {1, 2, 3}}, {1, {4, 6, 8}}, {2, {2, 2, 2}}, {5, {1, 1, 1}}});
    const core::TargetDeltas halved = core::halvedCentreDeltas(deltas, x, 0, 0.001);
    EXPECT_EQ(entriesOf(halved),
              (Entries{{0, {1, 2, 3}}, {1, {0, 3, 4}}, {2, {2, 2, 2}}, {5, {0, 0.5, 0.5}}}));
    EXPECT_EQ(entriesOf(core::halvedCentreDeltas(deltas, x, 1, 0.0)), entriesOf(deltas));
}

} // namespace
