// The weight map arithmetic on plain arrays, at the boundaries of its rules.
#include "core/weights/WeightEdits.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace {

using Pairs = std::map<int, double>; // the map after the elements are written in order
using core::WeightMap;

Pairs applied(const WeightMap& writes) {
    Pairs result;
    for (std::size_t k = 0; k < writes.size(); ++k) result[writes.indices[k]] = writes.weights[k];
    return result;
}

TEST(WeightEdits, SetWeights) {
    const struct {
        WeightMap pairs;
        bool base;
        Pairs expected;
    } cases[] = {
        {{{0, 1}, {0.5, 1.5}}, false, {}}, // as many pairs as the weights add up to: stored empty
        {{{4}, {1.0}}, true, {}},
        {{{4, 5}, {1.0, 0.5}}, true, {{4, 1.0}, {5, 0.5}}},
        {{{4, 5}, {1.0, 0.5}}, false, {{5, 0.5}}},
        {{{2, 3}, {0.999995, 0.5}}, false, {{3, 0.5}}},
        {{{2, 3}, {1.00001, 0.5}}, false, {{2, 1.00001}, {3, 0.5}}},
        {{{3, 3}, {0.2, 0.7}}, false, {{3, 0.7}}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(applied(core::weightsToSet(c.pairs.indices, c.pairs.weights, c.base)), c.expected)
            << c.pairs.size() << " pairs, base " << c.base;
}

TEST(WeightEdits, TrimKeepsOneSideAndHalvesThePlane) {
    const std::vector<float> x = {-1.0f, -0.0005f, 0.0f, 0.0005f, 1.0f};
    const WeightMap map = {{0, 1, 2, 3, 4}, {0.3, 0.6, 0.8, 0.2, 0.4}};
    const struct {
        WeightMap map;
        float tolerance;
        bool direction;
        Pairs expected;
    } cases[] = {
        {map, 0.001f, true, {{0, 0.3}, {1, 0.5}, {2, 0.5}}},
        {map, 0.001f, false, {{1, 0.5}, {2, 0.5}, {4, 0.4}}},
        {map, 0.0005f, true, {{0, 0.3}, {1, 0.6}, {2, 0.5}}}, // |s| equal to the tolerance: off the plane
        {{{2}, {0.499994}}, 0.001f, true, {}},                // rounded to five decimals first
        {{{2}, {0.499996}}, 0.001f, true, {{2, 0.5}}},
        {{{2, 0}, {1.0, 1.0}}, 0.001f, true, {}},                  // 1.0 counts as off the plane
        {{{0, 7, -1}, {0.3, 0.1, 0.1}}, 0.001f, true, {{0, 0.3}}}, // no coordinate: dropped
    };
    for (const auto& c : cases)
        EXPECT_EQ(applied(core::trimmedWeights(c.map, x, c.tolerance, c.direction)), c.expected)
            << c.tolerance << " " << c.direction;
}

// Results are clamped only where their five-decimal rounding leaves 0 .. 1; else kept unrounded.
TEST(WeightEdits, AddAndSubtractClamp) {
    const auto vertex1 = [](double current, double file, core::Combine mode) {
        return core::combinedWeights({{1}, {current}}, {{1, 5, -1}, {file, 0.5, 0.5}}, 3, mode)[1];
    };
    EXPECT_EQ(vertex1(0.5, 0.500006, core::Combine::subtract), 0.0);
    EXPECT_EQ(vertex1(0.5, 0.500004, core::Combine::subtract), 0.5 - 0.500004);
    EXPECT_EQ(vertex1(0.5, 0.500004, core::Combine::add), 0.5 + 0.500004);
    EXPECT_EQ(vertex1(0.5, 0.500006, core::Combine::add), 1.0);
    EXPECT_EQ(core::combinedWeights({}, {{5, -1}, {0.5, 0.5}}, 2, core::Combine::add),
              (std::vector<double>{1, 1}));
}

// Vertices 0 .. 3 at x = -1, 0, 1, 0. Zero counts as the positive side in both directions.
TEST(WeightEdits, MirrorAndFlip) {
    const std::vector<float> x = {-1.0f, 0.0f, 1.0f, 0.0f};
    const struct {
        int source, partner;
        Pairs positiveToNegative, negativeToPositive;
    } cases[] = {
        {2, 0, {{0, 0.4}, {2, 0.4}}, {}}, {0, 2, {}, {{0, 0.4}, {2, 0.4}}}, {1, 1, {{1, 0.4}}, {{1, 0.4}}},
        {0, 1, {}, {{0, 0.4}, {1, 0.4}}}, {1, 0, {{0, 0.4}, {1, 0.4}}, {}}, {1, 3, {{1, 0.4}}, {{3, 0.4}}},
    };
    for (const auto& c : cases) {
        const WeightMap map = {{c.source}, {0.4}};
        EXPECT_EQ(applied(core::mirroredWeights(map, {c.partner}, x, true).writes), c.positiveToNegative)
            << c.source << " -> " << c.partner;
        EXPECT_EQ(applied(core::mirroredWeights(map, {c.partner}, x, false).writes), c.negativeToPositive)
            << c.source << " -> " << c.partner;
        EXPECT_EQ(applied(core::flippedWeights(map, {c.partner}, x).writes), (Pairs{{c.partner, 0.4}}));
    }
    // Unmapped or out-of-range partners, sources without a coordinate and sources without a
    // partner are skipped and counted.
    const WeightMap map = {{2, 9, 0, 1}, {0.4, 0.4, 0.4, 0.4}};
    const core::MirroredWeights mirrored = core::mirroredWeights(map, {-1, 0, 12}, x, true);
    EXPECT_TRUE(mirrored.writes.empty());
    EXPECT_EQ(mirrored.skipped, 4u);
    EXPECT_EQ(core::flippedWeights(map, {-1, 0, 12}, x).skipped, 3u);
}

} // namespace
