#pragma once
// Command-table handlers for the plug-in's MPxCommand and MPxContextCommand classes.
#include "lang/CommandTable.h"

#include <maya/MSyntax.h>
#include <maya/MTypes.h>

#include <string>

namespace host {

// Per call: creates the command, runs doIt with the call's words and the command's result slot
// current, then keeps the object on the undo queue if it succeeded and is undoable.
CommandHandler pluginCommandHandler(MCreatorFunction creator, const MSyntax& syntax);

// Per call: creates a context through makeObj() and answers its name, or with -edit/-query and a
// context name hands the call to the command that made that context.
CommandHandler contextCommandHandler(const std::string& name, MCreatorFunction creator);

} // namespace host
