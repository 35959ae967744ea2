#pragma once
// Commands by name: the built-in commands of the engine and the plug-in's registered commands
// share one table, so a script, a scene file and MGlobal::executeCommand all reach the same code.
#include "engine/CommandResult.h"

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace host {

// One word of a statement. `quoted` tells "-type" (a string) from -type (a flag).
struct Token {
    std::string text;
    bool quoted = false;
};

struct Statement {
    std::string command;
    std::vector<Token> args;
    int line = 0; // line of the command word in its source, 1-based
};

struct Invocation {
    const Statement& statement;
    CommandResult result;
};

// Returns false for a failure status; messages go through the scene's message log.
using CommandHandler = std::function<bool(Invocation&)>;

class CommandTable {
public:
    // False when the name is taken.
    bool add(const std::string& name, CommandHandler handler);
    bool remove(const std::string& name);
    const CommandHandler* find(const std::string& name) const;
    std::vector<std::string> names() const;

private:
    std::unordered_map<std::string, CommandHandler> handlers_;
};

} // namespace host
