// MMatrix::inverse never hands out infinities or NaNs: a matrix without an inverse gives the
// identity.
#include <maya/MMatrix.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

MMatrix rows(const double (&m)[4][4]) {
    return MMatrix(m);
}

TEST(MatrixInverse, SingularOrUnusableMatricesGiveTheIdentity) {
    const struct {
        std::string name;
        double m[4][4];
    } cases[] = {
        {"zero", {{0, 0, 0, 0}, {0, 0, 0, 0}, {0, 0, 0, 0}, {0, 0, 0, 0}}},
        {"collapsed axes", {{0, 0, 0, 0}, {0, 0, 0, 0}, {0, 0, 0, 0}, {1, 2, 3, 1}}},
        {"equal rows", {{1, 2, 3, 0}, {1, 2, 3, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}},
        {"denormal pivot", {{1e-320, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}},
        {"not finite", {{NAN, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}},
        {"infinite", {{INFINITY, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}},
    };
    for (const auto& c : cases) EXPECT_EQ(rows(c.m).inverse(), MMatrix::identity) << c.name;
}

TEST(MatrixInverse, RegularMatricesInvert) {
    const double m[4][4] = {{2, 1, 0, 0}, {0, 1, 0, 0}, {1, 0, 3, 0}, {4, -5, 6, 1}};
    const double tiny[4][4] = {{1e-9, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    for (const MMatrix& a : {rows(m), rows(tiny)})
        EXPECT_TRUE((a * a.inverse()).isEquivalent(MMatrix::identity));
}

} // namespace
