// Corrective extraction arithmetic: known affine deformations, whose probes are exact, must give
// back the sculpt offset in the undeformed space; singular axes invert to the identity.
#include "core/sculpt/CorrectiveMath.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using core::Matrix4;
using core::Point4;

Matrix4 affine(const std::array<double, 9>& m, const std::array<double, 3>& t) {
    return {{{m[0], m[1], m[2], 0}, {m[3], m[4], m[5], 0}, {m[6], m[7], m[8], 0}, {t[0], t[1], t[2], 1}}};
}

Point4 times(const Point4& p, const Matrix4& m) {
    Point4 out{};
    for (int c = 0; c < 4; ++c)
        for (int k = 0; k < 4; ++k) out[c] += p[k] * m[k][c];
    return out;
}

std::vector<Point4> deform(const std::vector<Point4>& points, const Matrix4& m) {
    std::vector<Point4> out;
    for (const Point4& p : points) out.push_back(times(p, m));
    return out;
}

const std::vector<Point4> kBase = {{0, 0, 0, 1}, {1, 2, 3, 1}, {-4, 0.5, 2, 1}};
const std::vector<Point4> kSculptOffset = {{0, 0, 0, 0}, {0.5, -1, 0.25, 0}, {0, 0, 2, 0}};

TEST(CorrectiveMath, AffineDeformationsGiveTheOffsetInUndeformedSpace) {
    const struct {
        std::string name;
        Matrix4 deformation;
        // The expected corrected offset from B for each sculpt offset (row vector) d: d · M⁻¹.
        std::array<double, 9> inverseLinear;
    } cases[] = {
        {"none", affine({1, 0, 0, 0, 1, 0, 0, 0, 1}, {0, 0, 0}), {1, 0, 0, 0, 1, 0, 0, 0, 1}},
        {"translation", affine({1, 0, 0, 0, 1, 0, 0, 0, 1}, {3, -2, 7}), {1, 0, 0, 0, 1, 0, 0, 0, 1}},
        {"uniform scale 2",
         affine({2, 0, 0, 0, 2, 0, 0, 0, 2}, {0, 0, 0}),
         {0.5, 0, 0, 0, 0.5, 0, 0, 0, 0.5}},
        // A quarter turn about z (x goes to y) with a translation.
        {"rotation", affine({0, 1, 0, -1, 0, 0, 0, 0, 1}, {1, 1, 1}), {0, -1, 0, 1, 0, 0, 0, 0, 1}},
        {"shear", affine({1, 0, 0, 2, 1, 0, 0, 0, 1}, {0, 0, 0}), {1, 0, 0, -2, 1, 0, 0, 0, 1}},
    };
    for (const auto& c : cases) {
        const std::vector<Point4> deformed = deform(kBase, c.deformation);
        std::vector<Point4> sculpt = deformed;
        for (std::size_t i = 0; i < sculpt.size(); ++i)
            for (int k = 0; k < 3; ++k) sculpt[i][k] += kSculptOffset[i][k];
        const std::vector<Point4> px = deform(core::offsetPoints(kBase, 0, 1.0), c.deformation);
        const std::vector<Point4> py = deform(core::offsetPoints(kBase, 1, 1.0), c.deformation);
        const std::vector<Point4> pz = deform(core::offsetPoints(kBase, 2, 1.0), c.deformation);
        const auto result = core::correctivePoints({sculpt, deformed, kBase, px, py, pz});
        ASSERT_EQ(result.size(), kBase.size()) << c.name;
        const Matrix4 inv = affine(c.inverseLinear, {0, 0, 0});
        for (std::size_t i = 0; i < kBase.size(); ++i) {
            const Point4 offset = times(kSculptOffset[i], inv);
            for (int k = 0; k < 3; ++k)
                EXPECT_NEAR(result[i][k], kBase[i][k] + offset[k], 1e-12) << c.name << " vertex " << i;
            EXPECT_EQ(result[i][3], 1.0) << c.name;
        }
    }
}

TEST(CorrectiveMath, SingularMatricesInvertToTheIdentity) {
    const struct {
        std::string name;
        Matrix4 m;
        bool singular;
    } cases[] = {
        {"zero block", affine({0, 0, 0, 0, 0, 0, 0, 0, 0}, {1, 2, 3}), true},
        {"flattened z", affine({1, 0, 0, 0, 1, 0, 0, 0, 0}, {0, 0, 0}), true},
        {"equal rows", affine({1, 2, 3, 1, 2, 3, 0, 0, 1}, {0, 0, 0}), true},
        {"tiny", affine({1e-200, 0, 0, 0, 1e-200, 0, 0, 0, 1e-200}, {0, 0, 0}), true},
        {"not finite", affine({NAN, 0, 0, 0, 1, 0, 0, 0, 1}, {0, 0, 0}), true},
        {"regular", affine({2, 1, 0, 0, 1, 0, 1, 0, 3}, {4, -5, 6}), false},
    };
    for (const auto& c : cases) {
        const Matrix4 inv = core::inverseAffine(c.m);
        for (int r = 0; r < 4; ++r)
            for (int k = 0; k < 4; ++k) {
                ASSERT_TRUE(std::isfinite(inv[r][k])) << c.name;
                if (c.singular) {
                    EXPECT_EQ(inv[r][k], r == k ? 1.0 : 0.0) << c.name;
                }
            }
        if (c.singular) continue;
        const Point4 p = {1.5, -2, 0.25, 1};
        const Point4 back = times(times(p, c.m), inv);
        for (int k = 0; k < 4; ++k) EXPECT_NEAR(back[k], p[k], 1e-12) << c.name;
    }
}

TEST(CorrectiveMath, PointsDifferInAnyCoordinateIncludingW) {
    const std::vector<Point4> a = {{1, 2, 3, 1}, {4, 5, 6, 1}};
    const struct {
        std::vector<Point4> b;
        bool differ;
    } cases[] = {
        {a, false},
        {{{1, 2, 3, 1}, {4, 5, 6.0000001, 1}}, true},
        {{{1, 2, 3, 0}, {4, 5, 6, 1}}, true},
        {{{1, 2, 3, 1}}, false}, // only the common length counts
    };
    for (const auto& c : cases) EXPECT_EQ(core::pointsDiffer(a, c.b), c.differ);
}

} // namespace
