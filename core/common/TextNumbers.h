#pragma once

#include <string_view>

namespace common {

// Text-to-number conversions with the host string's semantics: the leading number is read as
// strtoll/strtod read it (leading whitespace skipped, "nan" and "inf" accepted by the real
// conversion), the text counts up to its first NUL byte, and a text without a number gives 0.
// The parse functions return true only when the whole text, bar trailing whitespace, was the number.

// Base-10 integer; an out-of-range number saturates as strtoll does and returns false.
bool parseLong(std::string_view text, long long& value);

// Integer that must fit an int; a number outside the int range gives 0 and returns false.
bool parseInt(std::string_view text, int& value);

// Floating-point number; overflow and underflow give strtod's result and still count as a number.
bool parseDouble(std::string_view text, double& value);

// The value the host string's double conversion returns for the text.
double textToDouble(std::string_view text);

} // namespace common
