#include "api/command/WordValue.h"

#include "core/common/TextNumbers.h"

#include <cctype>
#include <cmath>
#include <limits>

namespace host {

namespace {

bool equalsIgnoringCase(std::string_view word, std::string_view lower) {
    if (word.size() != lower.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(word[i])) != lower[i]) return false;
    }
    return true;
}

} // namespace

MString wordString(std::string_view word) {
    MString text;
    text.str() = word;
    return text;
}

bool parseBoolWord(std::string_view word, bool& value) {
    for (const char* yes : {"on", "true", "yes"}) {
        if (equalsIgnoringCase(word, yes)) {
            value = true;
            return true;
        }
    }
    for (const char* no : {"off", "false", "no"}) {
        if (equalsIgnoringCase(word, no)) {
            value = false;
            return true;
        }
    }
    int number = 0;
    if (!parseIntWord(word, number)) return false;
    value = number != 0;
    return true;
}

bool parseIntWord(std::string_view word, int& value) {
    long long wide = 0;
    if (!common::parseLong(word, wide) || wide < std::numeric_limits<int>::min() ||
        wide > std::numeric_limits<int>::max())
        return false;
    value = static_cast<int>(wide);
    return true;
}

bool parseUnsignedWord(std::string_view word, unsigned int& value) {
    long long wide = 0;
    if (!common::parseLong(word, wide) || wide < 0 || wide > std::numeric_limits<unsigned int>::max())
        return false;
    value = static_cast<unsigned int>(wide);
    return true;
}

bool parseDoubleWord(std::string_view word, double& value) {
    double parsed = 0;
    if (!common::parseDouble(word, parsed)) return false;
    if (!std::isfinite(parsed)) return false;
    value = parsed;
    return true;
}

bool isNegativeNumber(std::string_view word) {
    if (word.size() < 2 || word[0] != '-') return false;
    const bool digitFirst =
        std::isdigit(static_cast<unsigned char>(word[1])) ||
        (word[1] == '.' && word.size() > 2 && std::isdigit(static_cast<unsigned char>(word[2])));
    double value = 0;
    return digitFirst && parseDoubleWord(word, value);
}

bool wordFitsType(std::string_view word, MSyntax::MArgType type) {
    bool flag = false;
    int integer = 0;
    unsigned int natural = 0;
    double number = 0;
    switch (type) {
    case MSyntax::kBoolean:
        return parseBoolWord(word, flag);
    case MSyntax::kLong:
        return parseIntWord(word, integer);
    case MSyntax::kUnsigned:
        return parseUnsignedWord(word, natural);
    case MSyntax::kDouble:
    case MSyntax::kDistance:
    case MSyntax::kAngle:
    case MSyntax::kTime:
        return parseDoubleWord(word, number);
    default:
        return true;
    }
}

const char* typeDescription(MSyntax::MArgType type) {
    switch (type) {
    case MSyntax::kBoolean:
        return "a boolean";
    case MSyntax::kLong:
        return "an integer";
    case MSyntax::kUnsigned:
        return "an unsigned integer";
    case MSyntax::kDouble:
        return "a double";
    case MSyntax::kDistance:
        return "a distance";
    case MSyntax::kAngle:
        return "an angle";
    case MSyntax::kTime:
        return "a time";
    case MSyntax::kSelectionItem:
        return "an object name";
    default:
        return "a string";
    }
}

} // namespace host
