#pragma once
// Built-in commands that belong to the command framework: undo/redo over the undo queue, and
// loadPlugin/pluginInfo for the linked-in plug-in.
#include "lang/CommandTable.h"

namespace host {

void registerUndoCommands(CommandTable& table);
void registerPluginCommands(CommandTable& table);

} // namespace host
