// removeMultiInstance: removes one element of a multi attribute with everything below it.
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/ConnectedPlugs.h"
#include "commands/MeshAttrs.h"
#include "commands/Names.h"
#include "engine/Scene.h"

namespace host {

namespace {

bool removeMultiInstanceCommand(Invocation& inv) {
    static const FlagTable flags = {{"b", "break", "b"}, {"all", "allChildren", ""}};
    ArgReader args("removeMultiInstance", inv.statement.args);
    if (!args.parse(flags)) return false;
    if (args.positional().size() != 1) return args.fail("give one element of a multi attribute.");
    std::string error;
    const Plug plug = lookupPlug(args.positional()[0]->text, &error);
    if (plug.isNull()) return args.fail(error);
    if (!plug.isElement())
        return args.fail(scene().plugName(plug) + " is not an element of a multi attribute.");
    // The mesh's geometry arrays cannot lose an element in the middle.
    if (meshArrayOf(plug) != MeshArray::None)
        return args.fail("the geometry elements of a mesh cannot be removed.");
    bool connected = false;
    for (const Connection& c : scene().connections())
        connected = connected || isAtOrBelow(c.source, plug) || isAtOrBelow(c.destination, plug);
    if (connected && !args.enabled("break"))
        return args.fail(scene().plugName(plug) + " is connected: use -b true to break its connections.");
    if (connected) scene().disconnectBelow(plug);
    plug.array().removeElement(plug.logicalIndex());
    scene().touch();
    return true;
}

} // namespace

void registerMultiCommands(CommandTable& table) {
    table.add("removeMultiInstance", removeMultiInstanceCommand);
}

} // namespace host
