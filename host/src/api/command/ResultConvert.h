#pragma once
// Reading a command's result as the type the caller asks for. Numbers convert between int and
// double (a double truncates toward zero, booleans are 0 and 1); a single value reads as a
// one-element array; nothing reads as an empty array. Everything else fails.
#include "engine/CommandResult.h"

#include <maya/MCommandResult.h>
#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

namespace host {

// Holds a CommandResult for MCommandResult, whose header cannot name the variant.
struct CommandResultBox {
    CommandResult value;
};

MCommandResult::Type resultTypeOf(const CommandResult& result);

bool readResult(const CommandResult& result, int& out);
bool readResult(const CommandResult& result, double& out);
bool readResult(const CommandResult& result, MString& out);
bool readResult(const CommandResult& result, MIntArray& out);
bool readResult(const CommandResult& result, MDoubleArray& out);
bool readResult(const CommandResult& result, MStringArray& out);

// The result as one string: numbers as the script editor prints them, arrays joined by blanks.
std::string resultText(const CommandResult& result);

} // namespace host
