#pragma once
// The sculpt user interface procedures that the compare dragger runs. A studio supplies the real
// ones in its user interface; the embedded host has them as built-in commands that do nothing but
// record each call, so scripts and tests can see when the tool ran them.
#include "lang/CommandTable.h"

#include <string>
#include <vector>

namespace host {

// "talvenSculpt_compareSculpt" and "talvenSculpt_resetCompare".
void registerInterfaceProcedures(CommandTable& table);

// The procedure names in the order they were called, since the last clear.
const std::vector<std::string>& interfaceProcedureCalls();
void clearInterfaceProcedureCalls();

} // namespace host
