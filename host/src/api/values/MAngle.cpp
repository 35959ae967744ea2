#include "api/values/unitValue.h"

#include <maya/MAngle.h>

namespace {

// Size of one unit in radians; 0 for kInvalid, kLast and values outside the enumeration.
double radiansPerUnit(MAngle::Unit unit) {
    const double degree = 3.14159265358979323846 / 180.0;
    switch (unit) {
    case MAngle::kRadians:
        return 1.0;
    case MAngle::kDegrees:
        return degree;
    case MAngle::kAngMinutes:
        return degree / 60.0;
    case MAngle::kAngSeconds:
        return degree / 3600.0;
    default:
        return 0.0;
    }
}

} // namespace

MAngle::MAngle(double value, Unit u) : value_(value), unit_(u) {}

MStatus MAngle::setUnit(Unit newUnit) {
    if (radiansPerUnit(newUnit) == 0.0) return MS::kInvalidParameter;
    unit_ = newUnit;
    return MS::kSuccess;
}

MStatus MAngle::setValue(double newValue) {
    value_ = newValue;
    return MS::kSuccess;
}

double MAngle::as(Unit otherUnit, MStatus* ReturnStatus) const {
    return talven::convertUnit(value_, radiansPerUnit(unit_), radiansPerUnit(otherUnit), ReturnStatus);
}
