#pragma once
// joint and skinCluster: building skeletons and binding meshes to them.
#include "lang/CommandTable.h"

namespace host {

void registerSkinCommands(CommandTable& table);

} // namespace host
