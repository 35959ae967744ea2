#pragma once
#include <maya/MVector.h>

#include <cmath>

namespace talven {

// A unit vector at right angles to v (v non-zero), crossed with the axis least aligned with it.
inline MVector perpendicular(const MVector& v) {
    const MVector other = std::abs(v.x) < std::abs(v.z) ? MVector::xAxis : MVector::zAxis;
    return (v ^ other).normal();
}

} // namespace talven
