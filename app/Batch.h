#pragma once
// Runs the program's inputs (scenes, scripts, -c text) one after the other.
#include "Options.h"
#include "Reporter.h"

#include "lang/Interpreter.h"

#include <vector>

namespace app {

// Checks up front that every input file can be read, so a typo in the last argument does not
// surface after a long run. Prints the reason on stderr for the first one that cannot.
bool inputsReadable(const std::vector<Input>& inputs);

// Runs the inputs in order and returns the exit code. Stops at the first failed command unless
// the interpreter is set to keep going.
int runBatch(const std::vector<Input>& inputs, host::Interpreter& interpreter, Reporter& reporter);

} // namespace app
