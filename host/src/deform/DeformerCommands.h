#pragma once
// Commands that build deformers and read deformed geometry, one file each.
#include "lang/CommandTable.h"

namespace host {

void registerDeformerCommands(CommandTable& table);

void registerBlendShapeCommand(CommandTable& table);    // blendShape
void registerPointPositionCommand(CommandTable& table); // pointPosition

} // namespace host
