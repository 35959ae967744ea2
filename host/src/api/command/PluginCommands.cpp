#include "api/command/PluginRegistry.h"
#include "api/command/SessionCommands.h"
#include "api/command/StatementArgs.h"
#include "engine/Scene.h"

#include <maya/MArgParser.h>
#include <maya/MStringArray.h>

namespace host {

namespace {

const char* const kPluginInfoUsage = "pluginInfo: use -query with -loaded, -version, -vendor or -path.";

void notFound(const std::string& name) {
    messageLog().error("Plug-in, \"" + name + "\", was not found on MAYA_PLUG_IN_PATH.");
}

// loadPlugin [-quiet] name…: the linked-in plug-in is the only one there is.
bool loadPlugin(Invocation& call) {
    MSyntax syntax;
    syntax.addFlag("-qt", "-quiet");
    syntax.setObjectType(MSyntax::kStringObjects, 1);
    MStatus status;
    const MArgParser parser(syntax, argListOf(call.statement), &status);
    if (status != MS::kSuccess) return false;
    MStringArray names;
    parser.getObjects(names);
    std::vector<std::string> loaded;
    for (const MString& name : names.vec()) {
        if (!namesTalvenPlugin(name.str())) {
            notFound(name.str());
            return false;
        }
        if (!loadTalvenPlugin(messageLog())) return false;
        loaded.push_back(talvenPlugin().name);
    }
    call.result = loaded;
    return true;
}

// pluginInfo -query with one of -loaded, -version, -vendor, -path, and the plug-in's name.
bool pluginInfo(Invocation& call) {
    MSyntax syntax;
    syntax.enableQuery();
    syntax.addFlag("-l", "-loaded");
    syntax.addFlag("-v", "-version");
    syntax.addFlag("-vd", "-vendor");
    syntax.addFlag("-p", "-path");
    syntax.setObjectType(MSyntax::kStringObjects, 1, 1);
    MStatus status;
    const MArgParser parser(syntax, argListOf(call.statement), &status);
    if (status != MS::kSuccess) return false;
    MStringArray names;
    parser.getObjects(names);
    const std::string name = names[0].str();
    const PluginRecord& plugin = talvenPlugin();
    if (!parser.isQuery()) {
        messageLog().error(kPluginInfoUsage);
        return false;
    }
    const bool known = namesTalvenPlugin(name);
    if (parser.isFlagSet("-loaded")) {
        call.result = known && plugin.loaded;
        return true;
    }
    if (!known) {
        notFound(name);
        return false;
    }
    if (!plugin.loaded) {
        messageLog().error("Plug-in, \"" + name + "\", is not loaded.");
        return false;
    }
    if (parser.isFlagSet("-version")) {
        call.result = plugin.version;
    } else if (parser.isFlagSet("-vendor")) {
        call.result = plugin.vendor;
    } else if (parser.isFlagSet("-path")) {
        call.result = pluginLoadPath();
    } else {
        messageLog().error(kPluginInfoUsage);
        return false;
    }
    return true;
}

} // namespace

void registerPluginCommands(CommandTable& table) {
    table.add("loadPlugin", loadPlugin, ArgForm::Words);
    table.add("pluginInfo", pluginInfo, ArgForm::Words);
}

} // namespace host
