#include "core/common/TextNumbers.h"

#include "core/common/PlainNumber.h"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

namespace common {

namespace {

// Calls parse with a NUL-terminated copy of the text, which strtoll/strtod need. Short texts (every
// number in practice) are copied to the stack so the hot path never allocates.
template <typename Parse> bool withTerminatedCopy(std::string_view text, Parse parse) {
    char buffer[128];
    if (text.size() < sizeof buffer) {
        std::memcpy(buffer, text.data(), text.size());
        buffer[text.size()] = '\0';
        return parse(buffer);
    }
    const std::string copy(text);
    return parse(copy.c_str());
}

bool onlySpaceFrom(const char* end) {
    while (*end && std::isspace(static_cast<unsigned char>(*end))) ++end;
    return *end == '\0';
}

} // namespace

bool parseLong(std::string_view text, long long& value) {
    // Plain numbers, which nearly all are, without the copy and the library call.
    if (readPlainInteger(text, value)) return true;
    return withTerminatedCopy(text, [&value](const char* begin) {
        char* end = nullptr;
        errno = 0;
        value = std::strtoll(begin, &end, 10);
        if (end == begin) {
            value = 0;
            return false;
        }
        const bool inRange = errno == 0;
        return onlySpaceFrom(end) && inRange;
    });
}

bool parseInt(std::string_view text, int& value) {
    long long wide = 0;
    const bool whole = parseLong(text, wide);
    if (wide > std::numeric_limits<int>::max() || wide < std::numeric_limits<int>::min()) {
        value = 0;
        return false;
    }
    value = static_cast<int>(wide);
    return whole;
}

bool parseDouble(std::string_view text, double& value) {
    if (readPlainDouble(text, value)) return true;
    return withTerminatedCopy(text, [&value](const char* begin) {
        char* end = nullptr;
        value = std::strtod(begin, &end);
        if (end == begin) {
            value = 0.0;
            return false;
        }
        return onlySpaceFrom(end);
    });
}

double textToDouble(std::string_view text) {
    double value = 0.0;
    parseDouble(text, value);
    return value;
}

} // namespace common
