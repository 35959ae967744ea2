#include "api/command/PluginCommand.h"

#include "api/command/ContextRegistry.h"
#include "api/command/ResultStack.h"
#include "api/command/StatementArgs.h"
#include "engine/ChangeJournal.h"
#include "engine/Scene.h"

#include <maya/MPxCommand.h>
#include <maya/MStringArray.h>

#include <memory>

namespace host {

namespace {

// Runs undoIt or redoIt with a result slot of its own, so it cannot overwrite the result of the
// undo or redo command that called it.
bool replay(MPxCommand& command, MStatus (MPxCommand::*step)()) {
    CommandResult ignored;
    ResultFrame frame(ignored);
    return (command.*step)() == MS::kSuccess;
}

bool runCommand(MCreatorFunction creator, const MSyntax& syntax, Invocation& call) {
    std::shared_ptr<MPxCommand> command(static_cast<MPxCommand*>(creator()));
    if (!command) {
        messageLog().error("Command " + call.statement.command + " could not be created.");
        return false;
    }
    command->setSyntax(syntax);
    command->setCommandString(MString(call.statement.command));
    const MArgList args = argListOf(call.statement);
    MStatus status;
    {
        // The command's own undoIt puts back what it changes, built-in commands it runs included.
        const JournalPause pause;
        ResultFrame frame(call.result);
        status = command->doIt(args);
    }
    if (status != MS::kSuccess) return false;
    if (command->isUndoable()) {
        scene().undoQueue().push({commandTextOf(call.statement.command, args),
                                  [command] { return replay(*command, &MPxCommand::undoIt); },
                                  [command] { return replay(*command, &MPxCommand::redoIt); }});
    }
    return true;
}

std::string unusedContextName(const std::string& base) {
    for (unsigned int n = 1;; ++n) {
        std::string name = base + std::to_string(n);
        if (!contexts().count(name)) return name;
    }
}

// -edit and -query: the command that made the named context reads the flags.
bool editOrQuery(const std::string& commandName, const MArgParser& parser, const MStringArray& objects) {
    auto it = objects.length() == 1 ? contexts().find(objects[0].str()) : contexts().end();
    if (it == contexts().end() || it->second.commandName != commandName) {
        messageLog().error(objects.length() == 1
                               ? "Context not found: " + objects[0].str()
                               : commandName + ": a context name is needed with -edit and -query.");
        return false;
    }
    MPxContextCommand& owner = *it->second.command;
    owner.setParser(parser);
    return (parser.isQuery() ? owner.doQueryFlags() : owner.doEditFlags()) == MS::kSuccess;
}

bool runContextCommand(const std::string& commandName, MCreatorFunction creator, Invocation& call) {
    const JournalPause pause; // tool contexts are no scene state
    std::shared_ptr<MPxContextCommand> command(static_cast<MPxContextCommand*>(creator()));
    if (!command) {
        messageLog().error("Command " + commandName + " could not be created.");
        return false;
    }
    MSyntax syntax = command->syntax(); // shares the command's syntax
    syntax.enableQuery();
    syntax.enableEdit();
    syntax.setObjectType(MSyntax::kStringObjects, 0, 1);
    if (command->appendSyntax() != MS::kSuccess) return false;
    MStatus status;
    const MArgParser parser(syntax, argListOf(call.statement), &status);
    if (status != MS::kSuccess) return false;
    command->setParser(parser);
    MStringArray objects;
    parser.getObjects(objects);

    ResultFrame frame(call.result);
    if (parser.isEdit() || parser.isQuery()) return editOrQuery(commandName, parser, objects);
    const std::string name = objects.length() == 1 ? objects[0].str() : unusedContextName(commandName);
    if (contexts().count(name)) {
        messageLog().error("Context name is not unique: " + name);
        return false;
    }
    std::unique_ptr<MPxContext> context(command->makeObj());
    if (!context) {
        messageLog().error(commandName + ": the tool context could not be created.");
        return false;
    }
    contexts()[name] = ContextEntry{commandName, std::move(command), std::move(context)};
    call.result = name;
    return true;
}

} // namespace

CommandHandler pluginCommandHandler(MCreatorFunction creator, const MSyntax& syntax) {
    return [creator, syntax](Invocation& call) { return runCommand(creator, syntax, call); };
}

CommandHandler contextCommandHandler(const std::string& name, MCreatorFunction creator) {
    return [name, creator](Invocation& call) { return runContextCommand(name, creator, call); };
}

} // namespace host
