#include <maya/MFnPlugin.h>

#include "api/command/ContextRegistry.h"
#include "api/command/PluginCommand.h"
#include "api/command/PluginRegistry.h"
#include "session/Session.h"

#include <maya/MSyntax.h>

#include <algorithm>

namespace {

void setStatus(MStatus* status) {
    if (status) *status = MS::kSuccess;
}

MStatus addCommand(host::RegisteredCommand entry, host::CommandHandler handler) {
    if (entry.name.empty()) return MS::kInvalidParameter;
    if (!host::commandTable().add(entry.name, std::move(handler), host::ArgForm::Words)) return MS::kFailure;
    host::talvenPlugin().commands.push_back(std::move(entry));
    return MS::kSuccess;
}

// Removes a command this plug-in registered with the same kind of call.
MStatus removeCommand(const MString& name, bool context) {
    auto& commands = host::talvenPlugin().commands;
    const auto it = std::find_if(commands.begin(), commands.end(),
                                 [&](const host::RegisteredCommand& entry) { return entry.name == name.str(); });
    if (it == commands.end() || it->context != context) return MS::kFailure;
    commands.erase(it);
    host::commandTable().remove(name.str());
    if (context) host::removeContextsOf(name.str());
    return MS::kSuccess;
}

} // namespace

MFnPlugin::MFnPlugin() = default;

// The identity given while initializePlugin runs is the plug-in's; later function sets (as in
// uninitializePlugin) only read it.
MFnPlugin::MFnPlugin(MObject&, const char* vendor, const char* version, const char* requiredApiVersion,
                     MStatus* ReturnStatus) {
    host::PluginRecord& plugin = host::talvenPlugin();
    if (plugin.loading) {
        plugin.vendor = vendor ? vendor : "";
        plugin.version = version ? version : "";
        plugin.apiVersion = requiredApiVersion ? requiredApiVersion : "";
    }
    setStatus(ReturnStatus);
}

MFnPlugin::~MFnPlugin() = default;

MString MFnPlugin::vendor(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus);
    return MString(host::talvenPlugin().vendor);
}

MString MFnPlugin::version(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus);
    return MString(host::talvenPlugin().version);
}

MString MFnPlugin::apiVersion(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus);
    return MString(host::talvenPlugin().apiVersion);
}

MString MFnPlugin::name(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus);
    return MString(host::talvenPlugin().name);
}

MString MFnPlugin::loadPath(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus);
    return MString(host::pluginLoadPath());
}

MStatus MFnPlugin::registerCommand(const MString& commandName, MCreatorFunction creatorFunction,
                                   MCreateSyntaxFunction createSyntaxFunction) {
    if (!creatorFunction) return MS::kInvalidParameter;
    const MSyntax syntax = createSyntaxFunction ? createSyntaxFunction() : MSyntax();
    return addCommand({commandName.str(), false, creatorFunction, syntax},
                      host::pluginCommandHandler(creatorFunction, syntax));
}

MStatus MFnPlugin::deregisterCommand(const MString& commandName) {
    return removeCommand(commandName, false);
}

MStatus MFnPlugin::registerContextCommand(const MString& commandName, MCreatorFunction creatorFunction) {
    if (!creatorFunction) return MS::kInvalidParameter;
    return addCommand({commandName.str(), true, creatorFunction, MSyntax()},
                      host::contextCommandHandler(commandName.str(), creatorFunction));
}

MStatus MFnPlugin::deregisterContextCommand(const MString& commandName) {
    return removeCommand(commandName, true);
}
