#pragma once
#include "lang/CommandTable.h"

namespace host {

// `file` (-new, -open, -save, -rename, -import and -exportSelected/-exportAll of OBJ, -query
// -sceneName), and the scene editing commands that come with it: duplicate and polyColorSet.
void registerFileCommands(CommandTable& table);

} // namespace host
