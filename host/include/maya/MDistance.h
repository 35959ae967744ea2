#pragma once
// A distance value with its unit.
#include <maya/MStatus.h>
#include <maya/MTypes.h>

class MDistance {
public:
    enum Unit {
        kInvalid,
        kInches,
        kFeet,
        kYards,
        kMiles,
        kMillimeters,
        kCentimeters,
        kKilometers,
        kMeters,
        kLast
    };

    MDistance() = default;
    MDistance(const MDistance& src) = default;
    MDistance(double value, Unit unitSystem = kCentimeters);
    ~MDistance() = default;

    MDistance& operator=(const MDistance& src) = default;
    Unit unit() const { return unit_; }
    double value() const { return value_; }
    // Relabels the value: the distance it stands for changes with the unit.
    MStatus setUnit(Unit newUnit);
    MStatus setValue(double newValue);
    double as(Unit otherUnit, MStatus* ReturnStatus = NULL) const;
    double asInches() const { return as(kInches); }
    double asFeet() const { return as(kFeet); }
    double asYards() const { return as(kYards); }
    double asMiles() const { return as(kMiles); }
    double asMillimeters() const { return as(kMillimeters); }
    double asCentimeters() const { return as(kCentimeters); }
    double asKiloMeters() const { return as(kKilometers); }
    double asMeters() const { return as(kMeters); }

    static Unit internalUnit() { return kCentimeters; }

private:
    double value_ = 0.0;
    Unit unit_ = kCentimeters;
};
