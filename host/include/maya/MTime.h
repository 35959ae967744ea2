#pragma once
// A time value with its unit. Times in different units compare and combine by the moment they
// stand for; a result takes the unit of the left operand.
#include <maya/MStatus.h>
#include <maya/MTypes.h>

class MTime {
public:
    enum Unit {
        kInvalid,
        kHours,
        kMinutes,
        kSeconds,
        kMilliseconds,
        k15FPS,
        k24FPS,
        k25FPS,
        k30FPS,
        k48FPS,
        k50FPS,
        k60FPS,
        k2FPS,
        k3FPS,
        k4FPS,
        k5FPS,
        k6FPS,
        k8FPS,
        k10FPS,
        k12FPS,
        k16FPS,
        k20FPS,
        k40FPS,
        k75FPS,
        k80FPS,
        k100FPS,
        k120FPS,
        k125FPS,
        k150FPS,
        k200FPS,
        k240FPS,
        k250FPS,
        k300FPS,
        k375FPS,
        k400FPS,
        k500FPS,
        k600FPS,
        k750FPS,
        k1200FPS,
        k1500FPS,
        k2000FPS,
        k3000FPS,
        k6000FPS,
        k23_976FPS,
        k29_97FPS,
        k29_97DF,
        k47_952FPS,
        k59_94FPS,
        k44100FPS,
        k48000FPS,
        k90FPS,
        kUserDef,
        kLast,
        kGames = k15FPS,
        kFilm = k24FPS,
        kPALFrame = k25FPS,
        kNTSCFrame = k30FPS,
        kShowScan = k48FPS,
        kPALField = k50FPS,
        kNTSCField = k60FPS
    };

    MTime() = default;
    MTime(const MTime& src) = default;
    MTime(double time_val, Unit = kFilm);
    ~MTime() = default;

    MTime& operator=(const MTime& rhs) = default;
    Unit unit() const { return unit_; }
    double value() const { return value_; }
    // Changes the unit keeping the moment: the value is converted.
    MStatus setUnit(Unit new_unit);
    MStatus setValue(double new_value);
    // The time in another unit; 0 when either unit has no fixed rate.
    double as(Unit other_unit) const;

    MTime operator+(const MTime& rhs) const;
    MTime operator+(double rhs) const { return MTime(value_ + rhs, unit_); }
    MTime& operator+=(const MTime& rhs);
    MTime& operator+=(double rhs);
    MTime operator-(const MTime& rhs) const;
    MTime operator-(double rhs) const { return MTime(value_ - rhs, unit_); }
    MTime& operator-=(const MTime& rhs);
    MTime& operator-=(double rhs);
    MTime operator*(double rhs) const { return MTime(value_ * rhs, unit_); }
    MTime& operator*=(double rhs);
    MTime operator/(double rhs) const { return MTime(value_ / rhs, unit_); }
    MTime& operator/=(double rhs);

    bool operator==(const MTime& rhs) const;
    bool operator!=(const MTime& rhs) const { return !(*this == rhs); }
    bool operator<(const MTime& rhs) const;
    bool operator>(const MTime& rhs) const { return rhs < *this; }
    bool operator<=(const MTime& rhs) const { return !(rhs < *this); }
    bool operator>=(const MTime& rhs) const { return !(*this < rhs); }

    friend MTime operator+(double lhs, const MTime& rhs) { return MTime(lhs + rhs.value_, rhs.unit_); }
    friend MTime operator-(double lhs, const MTime& rhs) { return MTime(lhs - rhs.value_, rhs.unit_); }
    friend MTime operator*(double lhs, const MTime& rhs) { return MTime(lhs * rhs.value_, rhs.unit_); }

private:
    double ticks() const;

    double value_ = 0.0;
    Unit unit_ = kFilm;
};
