#include "commands/TextValues.h"

#include <charconv>
#include <climits>
#include <cmath>

namespace host {

bool numberFromText(std::string_view text, double& out) {
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    if (text.empty() || text.front() == '+') return false;
    double value = 0.0;
    const char* end = text.data() + text.size();
    auto [ptr, ec] = std::from_chars(text.data(), end, value);
    if (ec != std::errc() || ptr != end || !std::isfinite(value)) return false;
    out = value;
    return true;
}

bool integerFromText(std::string_view text, int& out) {
    double value = 0.0;
    if (!numberFromText(text, value) || value != std::floor(value) || value < INT_MIN || value > INT_MAX)
        return false;
    out = static_cast<int>(value);
    return true;
}

bool boolFromText(std::string_view text, bool& out) {
    if (text == "on" || text == "true" || text == "yes") {
        out = true;
        return true;
    }
    if (text == "off" || text == "false" || text == "no") {
        out = false;
        return true;
    }
    double value = 0.0;
    if (!numberFromText(text, value)) return false;
    out = value != 0.0;
    return true;
}

} // namespace host
