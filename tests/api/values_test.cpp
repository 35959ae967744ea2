#include <maya/MAngle.h>
#include <maya/MBoundingBox.h>
#include <maya/MColor.h>
#include <maya/MDistance.h>
#include <maya/MEulerRotation.h>
#include <maya/MFloatMatrix.h>
#include <maya/MFloatPoint.h>
#include <maya/MFloatVector.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MQuaternion.h>
#include <maya/MTime.h>
#include <maya/MTransformationMatrix.h>
#include <maya/MVector.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

const double kPi = 3.14159265358979323846;
const double kDeg = kPi / 180.0;

const MEulerRotation::RotationOrder kAllOrders[] = {MEulerRotation::kXYZ, MEulerRotation::kYZX,
                                                    MEulerRotation::kZXY, MEulerRotation::kXZY,
                                                    MEulerRotation::kYXZ, MEulerRotation::kZYX};

// The axis of the middle rotation of an order (0 = x).
unsigned int middleAxis(MEulerRotation::RotationOrder order) {
    const unsigned int middles[] = {1, 2, 0, 2, 0, 1};
    return middles[order];
}

MMatrix fromRows(const double rows[4][4]) {
    return MMatrix(rows);
}

MMatrix translation(double x, double y, double z) {
    MMatrix m;
    m[3][0] = x;
    m[3][1] = y;
    m[3][2] = z;
    return m;
}

MMatrix scaling(double x, double y, double z) {
    MMatrix m;
    m[0][0] = x;
    m[1][1] = y;
    m[2][2] = z;
    return m;
}

void expectNear(const MMatrix& actual, const MMatrix& expected, double tolerance = 1e-9) {
    EXPECT_TRUE(actual.isEquivalent(expected, tolerance)) << "actual " << actual << "\nexpected " << expected;
}

TEST(MMatrixTest, ProductAppliesLeftFactorFirst) {
    const double a[4][4] = {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}};
    const double b[4][4] = {{2, 0, 0, 1}, {0, 3, 1, 0}, {1, 0, 4, 0}, {0, 1, 0, 5}};
    const double ab[4][4] = {{5, 10, 14, 21}, {17, 26, 34, 45}, {29, 42, 54, 69}, {41, 58, 74, 93}};
    EXPECT_EQ(fromRows(a) * fromRows(b), fromRows(ab));
    EXPECT_EQ(fromRows(a)(2, 1), 10.0);
    // A point moved by T then scaled by S: (p + t) * s.
    const MPoint moved = MPoint(1, 2, 3) * (translation(1, 0, 0) * scaling(2, 2, 2));
    EXPECT_EQ(moved, MPoint(4, 4, 6));
}

TEST(MMatrixTest, InverseRoundTrips) {
    const MMatrix cases[] = {
        translation(1, -2, 3) * MEulerRotation(0.3, -1.1, 2.0).asMatrix() * scaling(2, 0.5, -3),
        MEulerRotation(1.0, 0.2, -0.7, MEulerRotation::kZXY).asMatrix(),
        [] {
            const double rows[4][4] = {
                {0, 0, 2, 0}, {1, 0, 0, 0}, {0, 3, 0, 0}, {4, 5, 6, 1}}; // needs pivoting
            return MMatrix(rows);
        }(),
    };
    for (const MMatrix& m : cases) {
        expectNear(m * m.inverse(), MMatrix::identity);
        expectNear(m.inverse() * m, MMatrix::identity);
        EXPECT_NEAR(m.det4x4() * m.inverse().det4x4(), 1.0, 1e-9);
    }
    const double singular[4][4] = {{1, 2, 3, 0}, {2, 4, 6, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    EXPECT_EQ(MMatrix(singular).inverse(), MMatrix::identity);
    EXPECT_EQ(MMatrix(singular).det4x4(), 0.0);
}

TEST(MPointTest, RowVectorTimesMatrix) {
    const MMatrix m = MEulerRotation(0, 0, kPi / 2).asMatrix() * translation(10, 0, 0);
    struct Case {
        MPoint in, out;
    } cases[] = {
        {MPoint(1, 0, 0), MPoint(10, 1, 0)},
        {MPoint(0, 1, 0), MPoint(9, 0, 0)},
        {MPoint(2, 0, 0, 2), MPoint(20, 2, 0, 2)}, // homogeneous: translation scales with w
        {MPoint(1, 0, 0, 0), MPoint(0, 1, 0, 0)},  // w = 0 ignores translation
    };
    for (const Case& c : cases) EXPECT_TRUE((c.in * m).isEquivalent(c.out, 1e-12)) << c.in * m;
    // Directions ignore translation; column-vector forms use the transpose.
    EXPECT_TRUE((MVector(1, 0, 0) * m).isEquivalent(MVector(0, 1, 0)));
    EXPECT_TRUE((m.transpose() * MPoint(1, 0, 0)).isEquivalent(MPoint(10, 1, 0)));
    EXPECT_TRUE((m.transpose() * MVector(1, 0, 0)).isEquivalent(MVector(0, 1, 0)));

    MPoint p(2, 4, 6, 2);
    EXPECT_EQ(p.cartesianize(), MPoint(1, 2, 3, 1));
    EXPECT_DOUBLE_EQ(MPoint(1, 2, 3).distanceTo(MPoint(4, 6, 3)), 5.0);
    MPointArray points;
    points.append(1, 2, 3);
    EXPECT_EQ(points[0], MPoint(1, 2, 3, 1));
}

TEST(MVectorTest, Basics) {
    EXPECT_EQ(MVector::xAxis ^ MVector::yAxis, MVector::zAxis);
    EXPECT_EQ(MVector::yAxis ^ MVector::xAxis, MVector::zNegAxis);
    EXPECT_DOUBLE_EQ(MVector(1, 2, 2).length(), 3.0);
    EXPECT_DOUBLE_EQ(MVector(1, 0, 0).angle(MVector(-2, 0, 0)), kPi);
    EXPECT_EQ(MVector::zero.normal(), MVector::zero);
    EXPECT_EQ(MVector::zero.angle(MVector::xAxis), 0.0);
    EXPECT_TRUE(MVector::yAxis.rotateBy(MVector::kXaxis, kPi / 2).isEquivalent(MVector::zAxis));
    EXPECT_TRUE(MVector(3, 0, 0).rotateBy(MEulerRotation(0, 0, kPi / 2)).isEquivalent(MVector(0, 3, 0)));
    EXPECT_EQ(MPoint(1, 2, 3) - MPoint(1, 1, 1), MVector(0, 1, 2));
    EXPECT_EQ(2.0 * MVector(1, 2, 3), MVector(2, 4, 6));
}

TEST(MFloatTypesTest, MatchDoubleVersions) {
    const MMatrix m = translation(1, 2, 3) * MEulerRotation(0.5, -0.3, 1.0).asMatrix() * scaling(2, 1, 0.5);
    const MFloatMatrix fm(m.matrix);
    const MFloatPoint fp = MFloatPoint(1.0F, -2.0F, 0.5F) * fm;
    const MPoint p = MPoint(1, -2, 0.5) * m;
    EXPECT_TRUE(MPoint(fp).isEquivalent(p, 1e-5)) << MPoint(fp) << " " << p;
    EXPECT_TRUE((fm * fm.inverse()).isEquivalent(MFloatMatrix(), 1e-5F));
    EXPECT_EQ(MFloatVector(1, 0, 0) * MFloatMatrix(translation(5, 5, 5).matrix), MFloatVector(1, 0, 0));
    MFloatPoint cast;
    cast.setCast(MPoint(0.25, 0.5, 0.75, 1.0));
    EXPECT_EQ(cast, MFloatPoint(0.25F, 0.5F, 0.75F));
}

TEST(MColorTest, ColourModels) {
    struct Case {
        MColor rgb;
        float h, s, v;
    } cases[] = {
        {{1, 0, 0}, 0, 1, 1},  {{0, 1, 0}, 120, 1, 1},    {{0, 0, 0.5F}, 240, 1, 0.5F},
        {{1, 1, 0}, 60, 1, 1}, {{1, 0, 0.5F}, 330, 1, 1}, {{0.5F, 0.5F, 0.5F}, 0, 0, 0.5F},
    };
    for (const Case& c : cases) {
        float h, s, v;
        ASSERT_TRUE(c.rgb.get(MColor::kHSV, h, s, v));
        EXPECT_NEAR(h, c.h, 1e-4);
        EXPECT_NEAR(s, c.s, 1e-6);
        EXPECT_NEAR(v, c.v, 1e-6);
        EXPECT_TRUE(MColor(MColor::kHSV, c.h, c.s, c.v).isEquivalent(c.rgb))
            << MColor(MColor::kHSV, c.h, c.s, c.v);
    }
    EXPECT_TRUE(MColor(MColor::kHSV, 480.0, 1.0, 1.0).isEquivalent(MColor(0, 1, 0))); // hue wraps
    EXPECT_EQ(MColor(MColor::kCMY, 1.0F, 0.0F, 0.25F), MColor(0, 1, 0.75F));
    const unsigned char full = 255, none = 0, half = 51;
    EXPECT_TRUE(MColor(MColor::kRGB, full, none, half).isEquivalent(MColor(1, 0, 0.2F, 1)));
    EXPECT_EQ(MColor(0.5F).a, 0.5F);
}

TEST(MEulerRotationTest, OrderAppliesFirstLetterFirst) {
    const double x = 0.4, y = -0.9, z = 1.3;
    const MMatrix rx = MEulerRotation(x, 0, 0).asMatrix(), ry = MEulerRotation(0, y, 0).asMatrix(),
                  rz = MEulerRotation(0, 0, z).asMatrix();
    const MMatrix expected[] = {rx * ry * rz, ry * rz * rx, rz * rx * ry,
                                rx * rz * ry, ry * rx * rz, rz * ry * rx};
    for (int i = 0; i < 6; ++i)
        expectNear(MEulerRotation(x, y, z, kAllOrders[i]).asMatrix(), expected[i], 1e-12);
    // Right-handed: a quarter turn about x takes y to z, about y takes z to x, about z takes x to y.
    EXPECT_TRUE((MVector::yAxis * MEulerRotation(kPi / 2, 0, 0).asMatrix()).isEquivalent(MVector::zAxis));
    EXPECT_TRUE((MVector::zAxis * MEulerRotation(0, kPi / 2, 0).asMatrix()).isEquivalent(MVector::xAxis));
    EXPECT_TRUE((MVector::xAxis * MEulerRotation(0, 0, kPi / 2).asMatrix()).isEquivalent(MVector::yAxis));
}

TEST(MEulerRotationTest, DecomposeRoundTripsInEveryOrderPair) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> angle(-kPi, kPi);
    for (int sample = 0; sample < 200; ++sample) {
        const double x = angle(random), y = angle(random), z = angle(random);
        for (auto from : kAllOrders)
            for (auto to : kAllOrders) {
                const MEulerRotation source(x, y, z, from);
                const MEulerRotation result = source.reorder(to);
                ASSERT_EQ(result.order, to);
                expectNear(result.asMatrix(), source.asMatrix());
                expectNear(result.asQuaternion().asMatrix(), source.asMatrix());
                if (from != to) {
                    EXPECT_LE(std::abs(result[middleAxis(to)]), kPi / 2 + 1e-12);
                }
            }
    }
}

TEST(MEulerRotationTest, ReorderCases) {
    struct Case {
        MEulerRotation in;
        MEulerRotation::RotationOrder to;
        MEulerRotation expected;
    } cases[] = {
        {{90 * kDeg, 0, 0}, MEulerRotation::kZYX, {90 * kDeg, 0, 0, MEulerRotation::kZYX}},
        {{0, 0, 0, MEulerRotation::kYXZ}, MEulerRotation::kXZY, {0, 0, 0, MEulerRotation::kXZY}},
        // The same order keeps angles even outside the principal range.
        {{0, 100 * kDeg, 0}, MEulerRotation::kXYZ, {0, 100 * kDeg, 0}},
        // Another order gets the principal solution: middle angle within [-90, 90] degrees.
        {{0, 100 * kDeg, 0}, MEulerRotation::kZYX, {180 * kDeg, 80 * kDeg, 180 * kDeg, MEulerRotation::kZYX}},
    };
    for (const Case& c : cases) {
        const MEulerRotation result = c.in.reorder(c.to);
        EXPECT_TRUE(result.isEquivalent(c.expected, 1e-12)) << result << " expected " << c.expected;
    }
    // 90 degrees about x through single-precision degree factors comes back to the last digit.
    MEulerRotation e(90 * 0.01745329238474369, 0, 0);
    e.reorderIt(MEulerRotation::kZYX);
    EXPECT_EQ(e.x * 57.295780181884766, 90 * 0.01745329238474369 * 57.295780181884766);
    EXPECT_FALSE(std::signbit(e.y) || std::signbit(e.z));
    // (90, 45, 0) xyz in zyx reproduces the matrix; so does a rotation at gimbal lock.
    const MEulerRotation tilted(90 * kDeg, 45 * kDeg, 0);
    expectNear(tilted.reorder(MEulerRotation::kZYX).asMatrix(), tilted.asMatrix());
    const MEulerRotation locked(10 * kDeg, 90 * kDeg, 25 * kDeg, MEulerRotation::kYZX);
    expectNear(MEulerRotation::decompose(locked.asMatrix(), MEulerRotation::kYZX).asMatrix(),
               locked.asMatrix());
}

TEST(MEulerRotationTest, EquivalentSolutions) {
    const MEulerRotation r(2.5, -1.2, 3.0, MEulerRotation::kYXZ);
    expectNear(r.alternateSolution().asMatrix(), r.asMatrix());
    expectNear(r.inverse().asMatrix() * r.asMatrix(), MMatrix::identity);
    const MEulerRotation other(-0.4, 0.9, 0.1, MEulerRotation::kZYX);
    const MEulerRotation product = r * other;
    EXPECT_EQ(product.order, r.order);
    expectNear(product.asMatrix(), r.asMatrix() * other.asMatrix());
    const MEulerRotation wound(7.0, -8.0, 0.5);
    const MEulerRotation bounded = wound.bound();
    expectNear(bounded.asMatrix(), wound.asMatrix());
    EXPECT_TRUE(bounded.isEquivalent(MEulerRotation(7.0 - 2 * kPi, -8.0 + 2 * kPi, 0.5), 1e-12));
    const MEulerRotation near(2 * kPi + 0.1, 0.2, -2 * kPi);
    EXPECT_TRUE(MEulerRotation(0.1, 0.2, 0.0).closestSolution(near).isEquivalent(near, 1e-12));
}

TEST(MQuaternionTest, MatchesMatrices) {
    const MQuaternion a = MEulerRotation(0.3, 1.1, -0.4).asQuaternion();
    const MQuaternion b = MEulerRotation(-2.0, 0.5, 2.9, MEulerRotation::kZXY).asQuaternion();
    expectNear((a * b).asMatrix(), a.asMatrix() * b.asMatrix());
    // Half turns exercise every branch of the matrix conversion.
    const MEulerRotation rotations[] = {
        {0.3, 1.1, -0.4}, {kPi, 0, 0}, {0, kPi, 0}, {0, 0, kPi}, {kPi, 0.2, 0}};
    for (const MEulerRotation& r : rotations) {
        MQuaternion q;
        q = r.asMatrix();
        expectNear(q.asMatrix(), r.asMatrix());
    }
    EXPECT_TRUE(MVector::xAxis.rotateBy(MQuaternion(MVector::xAxis, MVector(0, 3, 4)))
                    .isEquivalent(MVector(0, 0.6, 0.8)));
    EXPECT_TRUE(MVector::xAxis.rotateBy(MQuaternion(MVector::xAxis, MVector::xNegAxis))
                    .isEquivalent(MVector::xNegAxis));
}

TEST(MTransformationMatrixTest, DecomposesTranslateRotateScale) {
    struct Case {
        MVector translate;
        MEulerRotation rotate;
        MVector scale;
    } cases[] = {
        {{1, 2, 3}, {0.3, -0.5, 1.2}, {1, 1, 1}},
        {{-4, 0, 9}, {1.4, 0.2, -2.8}, {2, 0.5, 3}},
        {{0, 0, 0}, {0, kPi / 2, 0}, {0.1, 10, 1}},
    };
    for (const Case& c : cases) {
        const MMatrix m = scaling(c.scale.x, c.scale.y, c.scale.z) * c.rotate.asMatrix() *
                          translation(c.translate.x, c.translate.y, c.translate.z);
        const MTransformationMatrix t(m);
        double scale[3], shear[3];
        t.getScale(scale, MSpace::kTransform);
        t.getShear(shear, MSpace::kTransform);
        EXPECT_TRUE(MVector(scale).isEquivalent(c.scale, 1e-12)) << MVector(scale);
        EXPECT_TRUE(MVector(shear).isEquivalent(MVector::zero, 1e-12)) << MVector(shear);
        EXPECT_TRUE(t.getTranslation(MSpace::kWorld).isEquivalent(c.translate));
        expectNear(t.asRotateMatrix(), c.rotate.asMatrix());
        expectNear(t.asMatrix(), m);
    }
    // Shear and mirroring come back as a matrix that rebuilds the same transformation.
    const double shear[3] = {0.5, -0.25, 2.0}, mirror[3] = {-1, 2, 3};
    MTransformationMatrix sheared;
    sheared.setShear(shear, MSpace::kTransform);
    sheared.setScale(mirror, MSpace::kTransform);
    sheared.setTranslation(MVector(1, 2, 3), MSpace::kTransform);
    const MTransformationMatrix rebuilt(sheared.asMatrix());
    expectNear(rebuilt.asMatrix(), sheared.asMatrix());
    EXPECT_GT(rebuilt.asMatrix().det3x3() * sheared.asMatrix().det3x3(), 0.0);

    // With positive scales the shear itself comes back.
    const double scale[3] = {2, 3, 0.5};
    MTransformationMatrix skewed;
    skewed.setShear(shear, MSpace::kTransform);
    skewed.setScale(scale, MSpace::kTransform);
    const double angles[3] = {0.2, -0.4, 1.0};
    skewed.setRotation(angles, MTransformationMatrix::kXYZ);
    double recovered[3];
    MTransformationMatrix(skewed.asMatrix()).getShear(recovered, MSpace::kTransform);
    EXPECT_TRUE(MVector(recovered).isEquivalent(MVector(shear), 1e-12)) << MVector(recovered);
}

TEST(MTransformationMatrixTest, QuaternionRotationKeepsOrder) {
    MTransformationMatrix t;
    const double angles[3] = {0.3, 0.2, -0.1};
    t.setRotation(angles, MTransformationMatrix::kYXZ);
    const MQuaternion q = MEulerRotation(1.0, -0.5, 0.25).asQuaternion();
    t.setRotationQuaternion(q.x, q.y, q.z, q.w);
    EXPECT_EQ(t.rotationOrder(), MTransformationMatrix::kYXZ);
    expectNear(t.asRotateMatrix(), q.asMatrix());
    double x, y, z, w;
    t.getRotationQuaternion(x, y, z, w);
    expectNear(MQuaternion(x, y, z, w).asMatrix(), q.asMatrix());
}

TEST(MTransformationMatrixTest, RotationOrdersMapByName) {
    const double angles[3] = {0.1, 0.2, 0.3};
    const MTransformationMatrix::RotationOrder orders[] = {
        MTransformationMatrix::kXYZ, MTransformationMatrix::kYZX, MTransformationMatrix::kZXY,
        MTransformationMatrix::kXZY, MTransformationMatrix::kYXZ, MTransformationMatrix::kZYX};
    for (int i = 0; i < 6; ++i) {
        MTransformationMatrix t;
        ASSERT_EQ(t.setRotation(angles, orders[i]), MS::kSuccess);
        EXPECT_EQ(t.eulerRotation(), MEulerRotation(0.1, 0.2, 0.3, kAllOrders[i]));
        EXPECT_EQ(t.rotationOrder(), orders[i]);
        expectNear(t.asMatrix(), t.eulerRotation().asMatrix());
        const MMatrix before = t.asMatrix();
        ASSERT_EQ(t.reorderRotation(orders[5 - i]), MS::kSuccess);
        EXPECT_EQ(t.eulerRotation().order, kAllOrders[5 - i]);
        expectNear(t.asMatrix(), before);
    }
    MTransformationMatrix t;
    EXPECT_EQ(t.setRotation(angles, MTransformationMatrix::kInvalid), MS::kInvalidParameter);
    EXPECT_EQ(t.setRotation(angles, MTransformationMatrix::kLast), MS::kInvalidParameter);
    EXPECT_EQ(t.eulerRotation(), MEulerRotation());

    const double scale[3] = {-1, 1, 1};
    t.setScale(scale, MSpace::kTransform);
    t.setTranslation(MVector(2, 0, 0), MSpace::kTransform);
    expectNear(t.asMatrix(), scaling(-1, 1, 1) * translation(2, 0, 0));
    expectNear(t.asMatrix(0.0), MMatrix::identity);
    expectNear(t.asMatrix(0.5), scaling(0, 1, 1) * translation(1, 0, 0));
}

TEST(MBoundingBoxTest, ContainsIncludesFaces) {
    const MBoundingBox box(MPoint(1, -1, 4), MPoint(-1, 2, 3)); // corners in mixed order
    EXPECT_EQ(box.min(), MPoint(-1, -1, 3));
    EXPECT_EQ(box.max(), MPoint(1, 2, 4));
    EXPECT_EQ(box.center(), MPoint(0, 0.5, 3.5));
    struct Case {
        MPoint point;
        bool inside;
    } cases[] = {
        {{0, 0, 3.5}, true},         {{1, 2, 4}, true},       {{-1, -1, 3}, true},  {{1, 0, 3.5}, true},
        {{1.000001, 0, 3.5}, false}, {{0, -1.5, 3.5}, false}, {{0, 0, 4.5}, false}, {{0, 0, NAN}, false},
    };
    for (const Case& c : cases) EXPECT_EQ(box.contains(c.point), c.inside) << c.point;

    MBoundingBox grown;
    EXPECT_FALSE(grown.contains(MPoint::origin));
    grown.expand(MPoint(2, 2, 2));
    EXPECT_TRUE(grown.contains(MPoint(2, 2, 2)));
    EXPECT_EQ(grown.width(), 0.0);
    grown.expand(box);
    EXPECT_EQ(grown.min(), MPoint(-1, -1, 2));
    EXPECT_DOUBLE_EQ(grown.depth(), 2.0);
    grown.clear();
    EXPECT_FALSE(grown.contains(MPoint::origin));

    MBoundingBox unit(MPoint(-1, -1, -1), MPoint(1, 1, 1));
    unit.transformUsing(MEulerRotation(0, 0, kPi / 4).asMatrix() * translation(10, 0, 0));
    EXPECT_NEAR(unit.width(), 2 * std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(unit.depth(), 2.0, 1e-12);
    EXPECT_TRUE(unit.center().isEquivalent(MPoint(10, 0, 0)));
    const MBoundingBox apart(MPoint(2, 0, 0), MPoint(3, 1, 1)), touching(MPoint(1, 0, 0), MPoint(2, 1, 1));
    const MBoundingBox cube(MPoint(0, 0, 0), MPoint(1, 1, 1));
    EXPECT_TRUE(cube.intersects(touching));
    EXPECT_FALSE(cube.intersects(apart));
    EXPECT_TRUE(cube.intersects(apart, 1.0));
    EXPECT_FALSE(cube.intersects(MBoundingBox()));
}

TEST(MTimeTest, ConvertsBetweenUnits) {
    struct Case {
        MTime time;
        MTime::Unit to;
        double expected;
    } cases[] = {
        {{48, MTime::kFilm}, MTime::kSeconds, 2.0},
        {{1, MTime::kHours}, MTime::kMinutes, 60.0},
        {{1.5, MTime::kSeconds}, MTime::kMilliseconds, 1500.0},
        {{10, MTime::kNTSCFrame}, MTime::kNTSCField, 20.0},
        {{25, MTime::kPALFrame}, MTime::kFilm, 24.0},
        {{30, MTime::kGames}, MTime::kShowScan, 96.0},
        {{30000, MTime::k29_97FPS}, MTime::kSeconds, 1001.0},
        {{1, MTime::kFilm}, MTime::kUserDef, 0.0},
    };
    for (const Case& c : cases) EXPECT_DOUBLE_EQ(c.time.as(c.to), c.expected) << c.time.value();

    MTime t(12.0); // film by default
    EXPECT_EQ(t.unit(), MTime::kFilm);
    EXPECT_EQ(t.setUnit(MTime::kSeconds), MS::kSuccess);
    EXPECT_DOUBLE_EQ(t.value(), 0.5);
    EXPECT_EQ(t.setUnit(MTime::kInvalid), MS::kInvalidParameter);
    EXPECT_EQ(t.unit(), MTime::kSeconds);
    EXPECT_EQ(MTime(24, MTime::kFilm), MTime(1, MTime::kSeconds));
    EXPECT_LT(MTime(24, MTime::kFilm), MTime(25, MTime::kFilm));
    const MTime sum = MTime(1, MTime::kSeconds) + MTime(12, MTime::kFilm);
    EXPECT_EQ(sum.unit(), MTime::kSeconds);
    EXPECT_DOUBLE_EQ(sum.value(), 1.5);
    const MTime difference = MTime(10, MTime::kFilm) - MTime(0.25, MTime::kSeconds);
    EXPECT_EQ(difference.unit(), MTime::kFilm);
    EXPECT_DOUBLE_EQ(difference.value(), 4.0);
    EXPECT_EQ(2.0 * MTime(3, MTime::kPALFrame), MTime(6, MTime::kPALFrame));
}

TEST(UnitValueTest, AngleAndDistanceConvert) {
    EXPECT_DOUBLE_EQ(MAngle(180, MAngle::kDegrees).asRadians(), kPi);
    EXPECT_DOUBLE_EQ(MAngle(1, MAngle::kDegrees).asAngSeconds(), 3600.0);
    EXPECT_DOUBLE_EQ(MAngle(kPi / 2).asDegrees(), 90.0);
    EXPECT_DOUBLE_EQ(MDistance(1, MDistance::kInches).asCentimeters(), 2.54);
    EXPECT_DOUBLE_EQ(MDistance(1, MDistance::kMiles).asFeet(), 5280.0);
    EXPECT_DOUBLE_EQ(MDistance(2500).asMeters(), 25.0);
    MStatus status;
    EXPECT_EQ(MDistance(3, MDistance::kMeters).as(MDistance::kInvalid, &status), 0.0);
    EXPECT_EQ(status, MS::kInvalidParameter);
}

} // namespace
