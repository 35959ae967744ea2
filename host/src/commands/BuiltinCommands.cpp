#include "commands/CommandGroups.h"
#include "session/Session.h"

namespace host {

void registerBuiltinCommands(CommandTable& table) {
    registerNodeCommands(table);
    registerParentCommand(table);
    registerSelectCommands(table);
    registerSetAttrCommand(table);
    registerGetAttrCommand(table);
    registerAddAttrCommand(table);
    registerAliasCommand(table);
    registerConnectCommands(table);
    registerMultiCommands(table);
    registerSetsCommand(table);
    registerPolyCommands(table);
    registerPolySelectCommand(table);
    registerMiscCommands(table);
    registerNodeQueryCommands(table);
    registerListRelativesCommand(table);
    registerListConnectionsCommand(table);
    registerListAttrCommand(table);
    registerPolyEvaluateCommand(table);
    registerPolyInfoCommand(table);
    registerMoveCommands(table);
    registerPolyColorPerVertexCommand(table);
    registerToolCommands(table);
}

} // namespace host
