#include "core/common/Numbers.h"

#include <cmath>

namespace core {

float roundFloat(float x) {
    return std::round(x * 100000.0f) / 100000.0f;
}

double roundDouble(double x) {
    return std::round(x * 100000.0) / 100000.0;
}

bool compareDouble(double a, double b) {
    return std::fabs(a - b) < kCompareTolerance;
}

} // namespace core
