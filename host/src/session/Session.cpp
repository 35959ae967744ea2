#include "session/Session.h"

#include "api/command/PluginRegistry.h"
#include "api/command/SessionCommands.h"
#include "deform/DeformerCommands.h"
#include "deform/SkinCommands.h"
#include "engine/Scene.h"
#include "files/FileCommand.h"
#include "lang/Interpreter.h"

namespace host {

CommandTable& commandTable() {
    static CommandTable table;
    return table;
}

Interpreter& interpreter() {
    static Interpreter instance(commandTable(), messageLog());
    return instance;
}

bool startSession(CommandTable& table, MessageLog& log) {
    // A table that has the framework's commands has been set up before.
    if (!table.find("pluginInfo")) {
        registerBuiltinCommands(table);
        registerFileCommands(table);
        registerDeformerCommands(table);
        registerSkinCommands(table);
        registerUndoCommands(table);
        registerPluginCommands(table);
    }
    return loadTalvenPlugin(log);
}

} // namespace host
