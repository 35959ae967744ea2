#include <maya/MTime.h>

namespace {

// Ticks of 1/141120000 s: every fixed rate, the NTSC ones (x/1.001) included, has a whole number of
// ticks per frame, so whole frames convert exactly. 0 marks a unit without a fixed rate.
double ticksPerUnit(MTime::Unit unit) {
    const double second = 141120000.0;
    switch (unit) {
    case MTime::kHours:
        return 3600.0 * second;
    case MTime::kMinutes:
        return 60.0 * second;
    case MTime::kSeconds:
        return second;
    case MTime::kMilliseconds:
        return second / 1000.0;
    case MTime::k15FPS:
        return second / 15.0;
    case MTime::k24FPS:
        return second / 24.0;
    case MTime::k25FPS:
        return second / 25.0;
    case MTime::k30FPS:
        return second / 30.0;
    case MTime::k48FPS:
        return second / 48.0;
    case MTime::k50FPS:
        return second / 50.0;
    case MTime::k60FPS:
        return second / 60.0;
    case MTime::k2FPS:
        return second / 2.0;
    case MTime::k3FPS:
        return second / 3.0;
    case MTime::k4FPS:
        return second / 4.0;
    case MTime::k5FPS:
        return second / 5.0;
    case MTime::k6FPS:
        return second / 6.0;
    case MTime::k8FPS:
        return second / 8.0;
    case MTime::k10FPS:
        return second / 10.0;
    case MTime::k12FPS:
        return second / 12.0;
    case MTime::k16FPS:
        return second / 16.0;
    case MTime::k20FPS:
        return second / 20.0;
    case MTime::k40FPS:
        return second / 40.0;
    case MTime::k75FPS:
        return second / 75.0;
    case MTime::k80FPS:
        return second / 80.0;
    case MTime::k100FPS:
        return second / 100.0;
    case MTime::k120FPS:
        return second / 120.0;
    case MTime::k125FPS:
        return second / 125.0;
    case MTime::k150FPS:
        return second / 150.0;
    case MTime::k200FPS:
        return second / 200.0;
    case MTime::k240FPS:
        return second / 240.0;
    case MTime::k250FPS:
        return second / 250.0;
    case MTime::k300FPS:
        return second / 300.0;
    case MTime::k375FPS:
        return second / 375.0;
    case MTime::k400FPS:
        return second / 400.0;
    case MTime::k500FPS:
        return second / 500.0;
    case MTime::k600FPS:
        return second / 600.0;
    case MTime::k750FPS:
        return second / 750.0;
    case MTime::k1200FPS:
        return second / 1200.0;
    case MTime::k1500FPS:
        return second / 1500.0;
    case MTime::k2000FPS:
        return second / 2000.0;
    case MTime::k3000FPS:
        return second / 3000.0;
    case MTime::k6000FPS:
        return second / 6000.0;
    case MTime::k23_976FPS:
        return second * 1001.0 / 24000.0;
    case MTime::k29_97FPS:
    case MTime::k29_97DF:
        return second * 1001.0 / 30000.0;
    case MTime::k47_952FPS:
        return second * 1001.0 / 48000.0;
    case MTime::k59_94FPS:
        return second * 1001.0 / 60000.0;
    case MTime::k44100FPS:
        return second / 44100.0;
    case MTime::k48000FPS:
        return second / 48000.0;
    case MTime::k90FPS:
        return second / 90.0;
    default:
        return 0.0;
    }
}

} // namespace

MTime::MTime(double time_val, Unit unit) : value_(time_val), unit_(unit) {}

MStatus MTime::setUnit(Unit new_unit) {
    if (ticksPerUnit(new_unit) == 0.0) return MS::kInvalidParameter;
    value_ = as(new_unit);
    unit_ = new_unit;
    return MS::kSuccess;
}

MStatus MTime::setValue(double new_value) {
    value_ = new_value;
    return MS::kSuccess;
}

double MTime::as(Unit other_unit) const {
    if (other_unit == unit_) return value_;
    const double target = ticksPerUnit(other_unit);
    return target == 0.0 ? 0.0 : ticks() / target;
}

double MTime::ticks() const {
    return value_ * ticksPerUnit(unit_);
}

MTime MTime::operator+(const MTime& rhs) const {
    return MTime(value_ + rhs.as(unit_), unit_);
}
MTime& MTime::operator+=(const MTime& rhs) {
    return *this = *this + rhs;
}
MTime& MTime::operator+=(double rhs) {
    return *this = *this + rhs;
}
MTime MTime::operator-(const MTime& rhs) const {
    return MTime(value_ - rhs.as(unit_), unit_);
}
MTime& MTime::operator-=(const MTime& rhs) {
    return *this = *this - rhs;
}
MTime& MTime::operator-=(double rhs) {
    return *this = *this - rhs;
}
MTime& MTime::operator*=(double rhs) {
    return *this = *this * rhs;
}
MTime& MTime::operator/=(double rhs) {
    return *this = *this / rhs;
}

bool MTime::operator==(const MTime& rhs) const {
    return ticks() == rhs.ticks();
}
bool MTime::operator<(const MTime& rhs) const {
    return ticks() < rhs.ticks();
}
