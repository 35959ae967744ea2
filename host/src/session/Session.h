#pragma once
// Process-wide services: the command table shared by scripts, scene files and the plug-in, and the
// interpreter that runs command text. startSession registers the built-in commands and loads the
// statically linked plug-in once.
#include "engine/MessageLog.h"
#include "lang/CommandTable.h"

namespace host {

class Interpreter;

CommandTable& commandTable();
Interpreter& interpreter();

// Registers built-in commands and loads the plug-in; safe to call more than once.
bool startSession(CommandTable& table, MessageLog& log);

// Built-in command groups, each in its own file under commands/.
void registerBuiltinCommands(CommandTable& table);

} // namespace host
