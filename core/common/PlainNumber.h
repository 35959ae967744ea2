#pragma once
// Numbers as command words nearly always are ("12", "-0.5", "1e-3"), read exactly and at a
// fraction of the cost of strtoll/strtod, which the callers fall back to for anything else
// (spaces, '+', hexadecimal, inf, many digits).
#include <string_view>

namespace common {

// [-]digits, one to eighteen of them.
bool readPlainInteger(std::string_view word, long long& value);

// [-]digits[.digits][e[+-]digits] with one to fifteen digits before the exponent and a decimal
// exponent of at most 22 either way: the value is then one correctly rounded multiplication or
// division of exact doubles, the same double strtod gives.
bool readPlainDouble(std::string_view word, double& value);

} // namespace common
