#pragma once
// The interactive shell: line editing and history on a terminal.
#include "Reporter.h"

#include "lang/Interpreter.h"

namespace app {

// Reads and runs statements until quit, exit or end of input. Failed commands are shown and the
// shell goes on, so it always returns success.
int runShell(host::Interpreter& interpreter, Reporter& reporter, bool banner);

} // namespace app
