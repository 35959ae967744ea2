#pragma once
#include "lang/CommandTable.h"

namespace host {

// `file -new`, `file -o <scene.ma>`.
void registerFileCommands(CommandTable& table);

} // namespace host
