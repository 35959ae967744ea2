#pragma once
// An angle value with its unit.
#include <maya/MStatus.h>
#include <maya/MTypes.h>

class MAngle {
public:
    enum Unit { kInvalid, kRadians, kDegrees, kAngMinutes, kAngSeconds, kLast };

    MAngle() = default;
    MAngle(const MAngle& src) = default;
    MAngle(double value, Unit u = kRadians);
    ~MAngle() = default;

    MAngle& operator=(const MAngle& src) = default;
    Unit unit() const { return unit_; }
    double value() const { return value_; }
    // Relabels the value: the angle it stands for changes with the unit.
    MStatus setUnit(Unit newUnit);
    MStatus setValue(double newValue);
    double as(Unit otherUnit, MStatus* ReturnStatus = NULL) const;
    double asRadians() const { return as(kRadians); }
    double asDegrees() const { return as(kDegrees); }
    double asAngMinutes() const { return as(kAngMinutes); }
    double asAngSeconds() const { return as(kAngSeconds); }

    static Unit internalUnit() { return kRadians; }

private:
    double value_ = 0.0;
    Unit unit_ = kRadians;
};
