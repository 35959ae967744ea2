#include "api/command/PluginRegistry.h"

#include <maya/MFnPlugin.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <filesystem>

namespace host {

PluginRecord& talvenPlugin() {
    static PluginRecord record;
    return record;
}

const RegisteredCommand* PluginRecord::command(const std::string& commandName) const {
    for (const RegisteredCommand& entry : commands)
        if (entry.name == commandName) return &entry;
    return nullptr;
}

bool namesTalvenPlugin(const std::string& word) {
    return std::filesystem::path(word).stem() == talvenPlugin().name;
}

std::string pluginLoadPath() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : program.parent_path().string();
}

bool loadTalvenPlugin(MessageLog& log) {
    PluginRecord& plugin = talvenPlugin();
    if (plugin.loaded) return true;
    plugin.loading = true;
    const MStatus status = initializePlugin(MObject());
    plugin.loading = false;
    plugin.loaded = status == MS::kSuccess;
    if (!plugin.loaded) log.error("(" + plugin.name + ") initializePlugin function failed");
    return plugin.loaded;
}

} // namespace host
