#pragma once
// The one plug-in the host knows: Talven, linked into the program. Its identity comes from the
// MFnPlugin that initializePlugin constructs; the commands it registered are remembered so that
// it can only deregister its own.
#include "engine/MessageLog.h"

#include <maya/MSyntax.h>
#include <maya/MTypes.h>

#include <string>
#include <vector>

namespace host {

// A command the plug-in registered. A plain command's syntax is kept for the command reference; a
// context command's comes from its appendSyntax().
struct RegisteredCommand {
    std::string name;
    bool context = false;
    MCreatorFunction creator = nullptr;
    MSyntax syntax;
};

struct PluginRecord {
    std::string name = "talven";
    std::string vendor = "Unknown";
    std::string version = "Unknown";
    std::string apiVersion = "Any";
    bool loading = false; // initializePlugin is running
    bool loaded = false;
    std::vector<RegisteredCommand> commands; // in the order of registration

    const RegisteredCommand* command(const std::string& name) const;
};

PluginRecord& talvenPlugin();

// Whether a loadPlugin/pluginInfo argument names the plug-in: "talven", "talven.so", a path.
bool namesTalvenPlugin(const std::string& word);

// The directory the plug-in was loaded from: the program's own.
std::string pluginLoadPath();

// Calls initializePlugin unless the plug-in is loaded; true when it is loaded afterwards. A
// failed load is reported to `log`.
bool loadTalvenPlugin(MessageLog& log);

} // namespace host
