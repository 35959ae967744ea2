#include "deform/DeformerCommands.h"

namespace host {

void registerDeformerCommands(CommandTable& table) {
    registerBlendShapeCommand(table);
    registerPointPositionCommand(table);
}

} // namespace host
