#pragma once
// The one plug-in the host knows: Talven, linked into the program. Its identity comes from the
// MFnPlugin that initializePlugin constructs; the commands it registered are remembered so that
// it can only deregister its own.
#include "engine/MessageLog.h"

#include <map>
#include <string>

namespace host {

struct PluginRecord {
    std::string name = "talven";
    std::string vendor = "Unknown";
    std::string version = "Unknown";
    std::string apiVersion = "Any";
    bool loading = false; // initializePlugin is running
    bool loaded = false;
    std::map<std::string, bool> commands; // registered name -> is a context command
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
