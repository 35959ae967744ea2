#pragma once
// Numbers and booleans as command arguments spell them, read without copying or allocating (a
// payload may hold millions of them). No locale, no exceptions: a malformed or non-finite value is
// simply rejected.
#include <string_view>

namespace host {

bool numberFromText(std::string_view text, double& out);
// Integral numbers only ("3", "-2", also "3.0"), within the range of int.
bool integerFromText(std::string_view text, int& out);
// on/off, true/false, yes/no and numbers (non-zero is true).
bool boolFromText(std::string_view text, bool& out);

} // namespace host
