#include <maya/MArgDatabase.h>

#include "api/command/ParsedArgs.h"
#include "api/command/WordValue.h"

#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

MArgDatabase::MArgDatabase() = default;

MArgDatabase::MArgDatabase(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus)
    : MArgParser(syntax, argList, ReturnStatus) {}

MArgDatabase::MArgDatabase(const MArgDatabase& rhs) = default;
MArgDatabase& MArgDatabase::operator=(const MArgDatabase& rhs) = default;
MArgDatabase::~MArgDatabase() = default;

// Adds the object the argument names to `result`.
MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, MSelectionList& result) const {
    std::string_view word;
    if (!parsed() || !parsed()->argument(flag, index, word)) return MS::kFailure;
    return result.add(host::wordString(word));
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, bool& result) const {
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, int& result) const {
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, double& result) const {
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, MString& result) const {
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const {
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, MDistance& result) const {
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, MAngle& result) const {
    return MArgParser::getFlagArgument(flag, index, result);
}

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, MTime& result) const {
    return MArgParser::getFlagArgument(flag, index, result);
}

// The objects of the call: resolved from the arguments, or the selection when none were given.
MStatus MArgDatabase::getObjects(MSelectionList& result) const {
    const host::ParsedArgs* args = parsed();
    if (!args) return MS::kFailure;
    if (args->syntax.objectFormat == MSyntax::kSelectionList) {
        result = args->objects;
        return MS::kSuccess;
    }
    // String objects are resolved now; a name that matches nothing fails.
    MSelectionList resolved;
    for (unsigned int i = 0; i < args->objectCount(); ++i) {
        if (!resolved.add(host::wordString(args->object(i)))) return MS::kInvalidParameter;
    }
    result = resolved;
    return MS::kSuccess;
}

MStatus MArgDatabase::getObjects(MStringArray& result) const {
    return MArgParser::getObjects(result);
}
