#include <maya/MArgParser.h>

#include "api/command/ParsedArgs.h"
#include "api/command/WordValue.h"

#include <maya/MAngle.h>
#include <maya/MDistance.h>
#include <maya/MStringArray.h>
#include <maya/MTime.h>

namespace {

// Reads the index-th argument of the flag through `convert`; fails when the flag was not given,
// has no such argument, or the word does not convert.
template <class T, class Convert>
MStatus readArgument(const host::ParsedArgs* parsed, const char* flag, unsigned int index, T& result,
                     Convert convert) {
    std::string_view word;
    if (!parsed || !parsed->argument(flag, index, word)) return MS::kFailure;
    T value{};
    if (!convert(word, value)) return MS::kInvalidParameter;
    result = value;
    return MS::kSuccess;
}

MStatus readDouble(const host::ParsedArgs* parsed, const char* flag, unsigned int index, double& result) {
    return readArgument(parsed, flag, index, result, host::parseDoubleWord);
}

} // namespace

MArgParser::MArgParser() = default;

MArgParser::MArgParser(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus)
    : parsed_(host::parseArgs(syntax.data(), argList)) {
    if (ReturnStatus) *ReturnStatus = parsed_ ? MS::kSuccess : MS::kFailure;
}

MArgParser::MArgParser(const MArgParser& other) = default;
MArgParser& MArgParser::operator=(const MArgParser& other) = default;
MArgParser::~MArgParser() = default;

bool MArgParser::isFlagSet(const char* flag, MStatus* ReturnStatus) const {
    const bool known = parsed_ && flag && parsed_->syntax.findFlag(flag) >= 0;
    if (ReturnStatus) *ReturnStatus = known ? MS::kSuccess : MS::kInvalidParameter;
    return known && parsed_->useCount(flag) > 0;
}

bool MArgParser::isEdit(MStatus* ReturnStatus) const {
    return isFlagSet(host::kEditLong, ReturnStatus);
}

bool MArgParser::isQuery(MStatus* ReturnStatus) const {
    return isFlagSet(host::kQueryLong, ReturnStatus);
}

unsigned int MArgParser::numberOfFlagsUsed() const {
    return parsed_ ? static_cast<unsigned int>(parsed_->uses.size()) : 0;
}

unsigned int MArgParser::numberOfFlagUses(const char* flag) const {
    return parsed_ ? parsed_->useCount(flag) : 0;
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, bool& result) const {
    return readArgument(parsed(), flag, index, result, host::parseBoolWord);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, int& result) const {
    return readArgument(parsed(), flag, index, result, host::parseIntWord);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, double& result) const {
    return readDouble(parsed(), flag, index, result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, MString& result) const {
    return readArgument(parsed(), flag, index, result, [](std::string_view word, MString& value) {
        value.str() = word;
        return true;
    });
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const {
    return readArgument(parsed(), flag, index, result, host::parseUnsignedWord);
}

// Distances, angles and times are read in the default user units: centimetres, degrees, film
// frames.
MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, MDistance& result) const {
    double value = 0;
    const MStatus status = readDouble(parsed(), flag, index, value);
    if (status) result = MDistance(value, MDistance::kCentimeters);
    return status;
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, MAngle& result) const {
    double value = 0;
    const MStatus status = readDouble(parsed(), flag, index, value);
    if (status) result = MAngle(value, MAngle::kDegrees);
    return status;
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, MTime& result) const {
    double value = 0;
    const MStatus status = readDouble(parsed(), flag, index, value);
    if (status) result = MTime(value, MTime::kFilm);
    return status;
}

MStatus MArgParser::getFlagArgumentList(const char* flag, unsigned int i, MArgList& args) const {
    const host::FlagUse* use = parsed_ ? parsed_->use(flag, i) : nullptr;
    if (!use) return MS::kFailure;
    // Refilled in place: commands read thousands of uses into one list.
    args.clearWords();
    for (unsigned int k = 0; k < use->wordCount; ++k)
        args.addWord((*parsed_->words)[use->firstWord + k], false);
    return MS::kSuccess;
}

MStatus MArgParser::getObjects(MStringArray& result) const {
    if (!parsed_) return MS::kFailure;
    result.clear();
    if (parsed_->objectsFromSelection) return parsed_->objects.getSelectionStrings(result);
    for (unsigned int i = 0; i < parsed_->objectCount(); ++i)
        result.append(host::wordString(parsed_->object(i)));
    return MS::kSuccess;
}
