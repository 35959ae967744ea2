#pragma once
// The tool contexts that context commands made, by context name. The host owns them (and the
// command that made each, which answers -edit and -query for it) until the command is
// deregistered.
#include <maya/MPxContext.h>
#include <maya/MPxContextCommand.h>

#include <map>
#include <memory>
#include <string>

namespace host {

struct ContextEntry {
    std::string commandName;
    std::shared_ptr<MPxContextCommand> command;
    std::unique_ptr<MPxContext> context;
};

std::map<std::string, ContextEntry>& contexts();

// The context of that name, or null; for the host to send events to.
MPxContext* findContext(const std::string& name);

void removeContextsOf(const std::string& commandName);

} // namespace host
