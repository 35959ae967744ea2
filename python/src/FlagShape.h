#pragma once
// What a flag of a command takes, as far as the command's syntax is known: plug-in commands
// declare theirs; built-in commands keep their flag tables to themselves, so only the flags that
// need a boolean argument are listed for them.
#include <maya/MSyntax.h>

#include <string>
#include <vector>

namespace pytalven {

struct FlagShape {
    bool known = false; // argument types and multi-use come from the command's syntax
    bool multiUse = false;
    std::vector<MSyntax::MArgType> argTypes;
    bool booleanArgument = false; // the flag takes true/false rather than standing alone
};

FlagShape flagShape(const std::string& command, const std::string& flag);

} // namespace pytalven
