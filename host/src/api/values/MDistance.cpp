#include "api/values/unitValue.h"

#include <maya/MDistance.h>

namespace {

// Size of one unit in centimetres; 0 for kInvalid, kLast and values outside the enumeration.
double centimetresPerUnit(MDistance::Unit unit) {
    switch (unit) {
    case MDistance::kInches:
        return 2.54;
    case MDistance::kFeet:
        return 30.48;
    case MDistance::kYards:
        return 91.44;
    case MDistance::kMiles:
        return 160934.4;
    case MDistance::kMillimeters:
        return 0.1;
    case MDistance::kCentimeters:
        return 1.0;
    case MDistance::kKilometers:
        return 100000.0;
    case MDistance::kMeters:
        return 100.0;
    default:
        return 0.0;
    }
}

} // namespace

MDistance::MDistance(double value, Unit unitSystem) : value_(value), unit_(unitSystem) {}

MStatus MDistance::setUnit(Unit newUnit) {
    if (centimetresPerUnit(newUnit) == 0.0) return MS::kInvalidParameter;
    unit_ = newUnit;
    return MS::kSuccess;
}

MStatus MDistance::setValue(double newValue) {
    value_ = newValue;
    return MS::kSuccess;
}

double MDistance::as(Unit otherUnit, MStatus* ReturnStatus) const {
    return talven::convertUnit(value_, centimetresPerUnit(unit_), centimetresPerUnit(otherUnit),
                               ReturnStatus);
}
