#include "api/command/WordValue.h"

#include <maya/MString.h>

#include <algorithm>
#include <cctype>
#include <cmath>

namespace host {

bool parseBoolWord(const std::string& word, bool& value) {
    std::string lower = word;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (lower == "on" || lower == "true" || lower == "yes") {
        value = true;
        return true;
    }
    if (lower == "off" || lower == "false" || lower == "no") {
        value = false;
        return true;
    }
    int number = 0;
    if (!parseIntWord(word, number)) return false;
    value = number != 0;
    return true;
}

bool parseIntWord(const std::string& word, int& value) {
    MStatus status;
    const int parsed = MString(word).asInt(&status);
    if (!status) return false;
    value = parsed;
    return true;
}

bool parseUnsignedWord(const std::string& word, unsigned int& value) {
    MStatus status;
    const unsigned int parsed = MString(word).asUnsigned(&status);
    if (!status) return false;
    value = parsed;
    return true;
}

bool parseDoubleWord(const std::string& word, double& value) {
    MStatus status;
    const double parsed = MString(word).asDouble(&status);
    if (!status || !std::isfinite(parsed)) return false;
    value = parsed;
    return true;
}

bool isNegativeNumber(const std::string& word) {
    if (word.size() < 2 || word[0] != '-') return false;
    const bool digitFirst =
        std::isdigit(static_cast<unsigned char>(word[1])) ||
        (word[1] == '.' && word.size() > 2 && std::isdigit(static_cast<unsigned char>(word[2])));
    double value = 0;
    return digitFirst && parseDoubleWord(word, value);
}

bool wordFitsType(const std::string& word, MSyntax::MArgType type) {
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
