#include "api/command/SessionCommands.h"

#include "api/command/StatementArgs.h"
#include "api/command/UndoSuspension.h"
#include "engine/ChangeJournal.h"
#include "engine/Scene.h"

#include <maya/MArgParser.h>

namespace host {

namespace {

// `undo` and `redo` take no arguments. What the entry runs is never recorded itself.
bool step(Invocation& call, bool backwards) {
    MStatus status;
    const MArgParser parser(MSyntax(), argListOf(call.statement), &status);
    if (status != MS::kSuccess) return false;
    std::string name;
    bool ok = true;
    bool found = false;
    {
        const UndoSuspension suspension;
        const JournalPause pause;
        UndoQueue& queue = scene().undoQueue();
        found = backwards ? queue.undo(name, ok) : queue.redo(name, ok);
    }
    if (!found) {
        messageLog().warning(backwards ? "There are no more commands to undo."
                                       : "There are no more commands to redo.");
        return true;
    }
    messageLog().info((backwards ? "Undo: " : "Redo: ") + name);
    return ok;
}

} // namespace

void registerUndoCommands(CommandTable& table) {
    table.add(
        "undo", [](Invocation& call) { return step(call, true); }, ArgForm::Words);
    table.add(
        "redo", [](Invocation& call) { return step(call, false); }, ArgForm::Words);
}

} // namespace host
