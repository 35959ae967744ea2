// Rotations are stored in radians and read and written in degrees by setAttr and getAttr.
#include "CommandTestSupport.h"

#include <maya/MEulerRotation.h>

#include "api/Transforms.h"

#include <cmath>

namespace builtin_test {
namespace {

TEST_F(BuiltinCommandTest, AnglesAreDegreesOutsideAndRadiansInside) {
    ASSERT_TRUE(run("createNode transform -n t; setAttr t.r 90 0 0"));
    host::Plug rx = host::scene().findPlug("t.rx");
    EXPECT_NEAR(host::valueAsDouble(rx.value()), M_PI / 2, 1e-12);
    host::CommandResult shown;
    ASSERT_TRUE(interpreter().execute("getAttr t.rx", shown));
    EXPECT_NEAR(std::get<double>(shown), 90.0, 1e-9);
    // Translation is not an angle.
    ASSERT_TRUE(run("setAttr t.tx 90"));
    EXPECT_EQ(host::valueAsDouble(host::scene().findPlug("t.tx").value()), 90.0);
    // The matrix rotates a quarter turn about x: y goes to z.
    MMatrix m = host::localMatrix(*host::scene().findNode("t"));
    EXPECT_NEAR(m.matrix[1][2], 1.0, 1e-12);
}

} // namespace
} // namespace builtin_test
