#pragma once
// The command reference in Markdown: one section per registered plug-in command, in registration
// order, with every flag (short, long, argument, default, meaning), the objects it takes, whether it
// is undoable, its result and an example, read from its help text and its syntax table.
#include <string>

namespace tools {

// Loads the plug-in into a fresh session and writes the reference.
std::string commandReference();

} // namespace tools
