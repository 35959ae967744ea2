#include "core/common/PlainNumber.h"

#include <cstdint>

namespace common {

namespace {

constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kMaxExactPower = 22;
// Fifteen digits stay below 2^53, so the mantissa is an exact double.
constexpr std::size_t kMaxExactDigits = 15;

// Reads the digits from `pos` on into `value` and returns where they end. Past nineteen digits the
// value wraps; callers reject such counts.
std::size_t readDigits(std::string_view word, std::size_t pos, std::uint64_t& value) {
    for (; pos < word.size(); ++pos) {
        const unsigned int digit = static_cast<unsigned char>(word[pos]) - static_cast<unsigned int>('0');
        if (digit > 9) break;
        value = value * 10 + digit;
    }
    return pos;
}

} // namespace

bool readPlainInteger(std::string_view word, long long& value) {
    const std::size_t first = !word.empty() && word[0] == '-' ? 1 : 0;
    std::uint64_t magnitude = 0;
    const std::size_t end = readDigits(word, first, magnitude);
    if (end != word.size() || end == first || end - first > 18) return false;
    value = first ? -static_cast<long long>(magnitude) : static_cast<long long>(magnitude);
    return true;
}

bool readPlainDouble(std::string_view word, double& value) {
    const std::size_t first = !word.empty() && word[0] == '-' ? 1 : 0;
    std::uint64_t mantissa = 0;
    std::size_t pos = readDigits(word, first, mantissa);
    std::size_t digits = pos - first;
    long exponent = 0;
    if (pos < word.size() && word[pos] == '.') {
        const std::size_t fractionStart = pos + 1;
        pos = readDigits(word, fractionStart, mantissa);
        digits += pos - fractionStart;
        exponent = -static_cast<long>(std::min(pos - fractionStart, kMaxExactDigits + 1));
    }
    if (digits == 0 || digits > kMaxExactDigits) return false;
    if (pos < word.size() && (word[pos] == 'e' || word[pos] == 'E')) {
        const bool negative = ++pos < word.size() && word[pos] == '-';
        if (pos < word.size() && (word[pos] == '-' || word[pos] == '+')) ++pos;
        std::uint64_t written = 0;
        const std::size_t end = readDigits(word, pos, written);
        if (end == pos || end - pos > 3) return false;
        pos = end;
        exponent += negative ? -static_cast<long>(written) : static_cast<long>(written);
    }
    if (pos != word.size() || exponent > kMaxExactPower || exponent < -kMaxExactPower) return false;
    const double exact = static_cast<double>(mantissa);
    const double magnitude = exponent >= 0 ? exact * kPowersOfTen[exponent] : exact / kPowersOfTen[-exponent];
    value = first ? -magnitude : magnitude;
    return true;
}

} // namespace common
