#pragma once

namespace core {

// Tolerance under which two values count as equal, and the step values are rounded to.
constexpr double kCompareTolerance = 0.00001;

// x rounded to five decimals in single precision, halves away from zero.
float roundFloat(float x);

// x rounded to five decimals in double precision, halves away from zero.
double roundDouble(double x);

// True when |a - b| is strictly less than kCompareTolerance.
bool compareDouble(double a, double b);

} // namespace core
