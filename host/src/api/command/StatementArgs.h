#pragma once
// A statement of the command language as plug-in commands see it.
#include "lang/CommandTable.h"

#include <maya/MArgList.h>

#include <string>

namespace host {

// The words after the command name, shared with the statement when it holds them in one buffer;
// quoted words stay marked so they are never taken as flags.
MArgList argListOf(const Statement& statement);

// The call as it could be typed again ("cmd -f 1 \"a b\""), for undo and redo lines.
std::string commandTextOf(const std::string& command, const MArgList& args);

} // namespace host
