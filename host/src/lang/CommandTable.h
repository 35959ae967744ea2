#pragma once
// Commands by name: the built-in commands of the engine and the plug-in's registered commands
// share one table, so a script, a scene file and MGlobal::executeCommand all reach the same code.
#include "engine/CommandResult.h"
#include "lang/WordList.h"

#include <functional>
#include <memory>
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
    // The words after the command, as tokens; empty when they were read into `words` instead.
    std::vector<Token> args;
    int line = 0; // line of the command word in its source, 1-based
    // The words after the command in one buffer, for commands that take them so (ArgForm::Words);
    // null when they were read into `args`.
    std::shared_ptr<WordList> words;
};

struct Invocation {
    const Statement& statement;
    CommandResult result;
};

// Returns false for a failure status; messages go through the scene's message log.
using CommandHandler = std::function<bool(Invocation&)>;

// How a command gets the words after its name: as tokens in Statement::args, or all in one buffer
// in Statement::words, which costs nothing per word. A command reading words must also accept
// tokens: callers other than the interpreter (scene files) pass those.
enum class ArgForm { Tokens, Words };

struct CommandEntry {
    CommandHandler handler;
    ArgForm form = ArgForm::Tokens;
};

class CommandTable {
public:
    // False when the name is taken.
    bool add(const std::string& name, CommandHandler handler, ArgForm form = ArgForm::Tokens);
    bool remove(const std::string& name);
    const CommandHandler* find(const std::string& name) const;
    const CommandEntry* entry(const std::string& name) const;
    std::vector<std::string> names() const;

private:
    std::unordered_map<std::string, CommandEntry> entries_;
};

} // namespace host
