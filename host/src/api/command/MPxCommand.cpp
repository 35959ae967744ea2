#include <maya/MPxCommand.h>

#include "api/command/ResultConvert.h"
#include "api/command/ResultStack.h"
#include "engine/Scene.h"

namespace {

std::vector<std::string> strings(const MStringArray& values) {
    std::vector<std::string> out;
    out.reserve(values.length());
    for (const MString& value : values.vec()) out.push_back(value.str());
    return out;
}

// appendToResult turns nothing or a single value into an array and appends. Integers appended to
// doubles become doubles. A value of the other kind (a string after numbers, a number after
// strings) starts a new array: Maya results never mix them.
void appendNumber(double value, bool integral) {
    host::CommandResult& result = host::currentResult();
    const bool integersSoFar = std::holds_alternative<std::monostate>(result) ||
                               std::holds_alternative<int>(result) || std::holds_alternative<bool>(result) ||
                               std::holds_alternative<std::vector<int>>(result);
    if (integral && integersSoFar) {
        MIntArray values;
        host::readResult(result, values);
        values.append(static_cast<int>(value));
        result = values.vec();
        return;
    }
    MDoubleArray values;
    if (!host::readResult(result, values)) values.clear();
    values.append(value);
    result = values.vec();
}

void appendString(const MString& value) {
    host::CommandResult& result = host::currentResult();
    MStringArray values;
    if (!host::readResult(result, values)) values.clear();
    values.append(value);
    result = strings(values);
}

} // namespace

MPxCommand::MPxCommand() = default;
MPxCommand::~MPxCommand() = default;

MStatus MPxCommand::doIt(const MArgList&) {
    return MS::kSuccess;
}
MStatus MPxCommand::undoIt() {
    return MS::kSuccess;
}
MStatus MPxCommand::redoIt() {
    return MS::kSuccess;
}
bool MPxCommand::isUndoable() const {
    return undoable_;
}
bool MPxCommand::hasSyntax() const {
    return true;
}

MSyntax MPxCommand::syntax() const {
    return syntax_;
}

MString MPxCommand::commandString() const {
    return commandString_;
}

MStatus MPxCommand::setCommandString(const MString& str) {
    commandString_ = str;
    return MS::kSuccess;
}

MStatus MPxCommand::setUndoable(bool state) {
    undoable_ = state;
    return MS::kSuccess;
}

void MPxCommand::displayInfo(const MString& theInfo) {
    host::messageLog().info(theInfo.str());
}

void MPxCommand::displayWarning(const MString& theWarning, bool) {
    host::messageLog().warning(theWarning.str());
}

void MPxCommand::displayError(const MString& theError, bool) {
    host::messageLog().error(theError.str());
}

void MPxCommand::clearResult() {
    host::currentResult() = {};
}
void MPxCommand::setResult(unsigned int val) {
    host::currentResult() = static_cast<int>(val);
}
void MPxCommand::setResult(int val) {
    host::currentResult() = val;
}
void MPxCommand::setResult(double val) {
    host::currentResult() = val;
}
void MPxCommand::setResult(bool val) {
    host::currentResult() = val;
}
void MPxCommand::setResult(const char* val) {
    host::currentResult() = std::string(val ? val : "");
}
void MPxCommand::setResult(const MString& val) {
    host::currentResult() = val.str();
}
void MPxCommand::setResult(const MIntArray& val) {
    host::currentResult() = val.vec();
}
void MPxCommand::setResult(const MDoubleArray& val) {
    host::currentResult() = val.vec();
}
void MPxCommand::setResult(const MStringArray& val) {
    host::currentResult() = strings(val);
}

void MPxCommand::appendToResult(int val) {
    appendNumber(val, true);
}
void MPxCommand::appendToResult(double val) {
    appendNumber(val, false);
}
void MPxCommand::appendToResult(bool val) {
    appendNumber(val ? 1 : 0, true);
}
void MPxCommand::appendToResult(const char* val) {
    appendString(MString(val));
}
void MPxCommand::appendToResult(const MString& val) {
    appendString(val);
}

bool MPxCommand::isCurrentResultArray() {
    const auto type = host::resultTypeOf(host::currentResult());
    return type == MCommandResult::kIntArray || type == MCommandResult::kDoubleArray ||
           type == MCommandResult::kStringArray;
}

MPxCommand::MResultType MPxCommand::currentResultType() {
    switch (host::resultTypeOf(host::currentResult())) {
    case MCommandResult::kInt:
    case MCommandResult::kIntArray:
        return kLong;
    case MCommandResult::kDouble:
    case MCommandResult::kDoubleArray:
        return kDouble;
    case MCommandResult::kString:
    case MCommandResult::kStringArray:
        return kString;
    default:
        return kNoArg;
    }
}

int MPxCommand::currentIntResult(MStatus* ReturnStatus) {
    int value = 0;
    const bool ok = host::readResult(host::currentResult(), value);
    if (ReturnStatus) *ReturnStatus = ok ? MS::kSuccess : MS::kFailure;
    return ok ? value : 0;
}

double MPxCommand::currentDoubleResult(MStatus* ReturnStatus) {
    double value = 0;
    const bool ok = host::readResult(host::currentResult(), value);
    if (ReturnStatus) *ReturnStatus = ok ? MS::kSuccess : MS::kFailure;
    return ok ? value : 0.0;
}

MString MPxCommand::currentStringResult(MStatus* ReturnStatus) {
    MString value;
    const bool ok = host::readResult(host::currentResult(), value);
    if (ReturnStatus) *ReturnStatus = ok ? MS::kSuccess : MS::kFailure;
    return value;
}
