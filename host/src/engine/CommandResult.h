#pragma once
// The value a command hands back to its caller: nothing, one number, a string or an array.
#include <string>
#include <variant>
#include <vector>

namespace host {

using CommandResult = std::variant<std::monostate, int, double, bool, std::string, std::vector<int>,
                                   std::vector<double>, std::vector<std::string>>;

} // namespace host
