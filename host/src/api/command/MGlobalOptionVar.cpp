// MGlobal: option variables. They live in the scene's table and outlive new scenes.
#include <maya/MGlobal.h>

#include "api/command/ResultConvert.h"
#include "engine/Scene.h"

namespace {

// The variable as a command result, so it reads with the same conversions; false if absent.
bool lookup(const MString& name, host::CommandResult& value, bool* exists) {
    const auto& vars = host::scene().optionVars();
    auto it = vars.find(name.str());
    if (exists) *exists = it != vars.end();
    if (it == vars.end()) return false;
    value = std::visit([](const auto& stored) { return host::CommandResult(stored); }, it->second);
    return true;
}

} // namespace

bool MGlobal::optionVarExists(const MString& name) {
    return host::scene().optionVars().count(name.str()) > 0;
}

// Numbers convert between int and double; other values read as 0.
int MGlobal::optionVarIntValue(const MString& name, bool* exists) {
    host::CommandResult value;
    int result = 0;
    if (lookup(name, value, exists)) host::readResult(value, result);
    return result;
}

double MGlobal::optionVarDoubleValue(const MString& name, bool* exists) {
    host::CommandResult value;
    double result = 0;
    if (lookup(name, value, exists)) host::readResult(value, result);
    return result;
}

// Numbers read as text; arrays as their elements joined by blanks.
MString MGlobal::optionVarStringValue(const MString& name, bool* exists) {
    host::CommandResult value;
    return lookup(name, value, exists) ? MString(host::resultText(value)) : MString();
}

bool MGlobal::setOptionVarValue(const MString& name, int value) {
    host::scene().optionVars()[name.str()] = value;
    return true;
}

bool MGlobal::setOptionVarValue(const MString& name, double value) {
    host::scene().optionVars()[name.str()] = value;
    return true;
}

bool MGlobal::setOptionVarValue(const MString& name, MString value) {
    host::scene().optionVars()[name.str()] = value.str();
    return true;
}

void MGlobal::removeOptionVar(const MString& name) {
    host::scene().optionVars().erase(name.str());
}
