// connectAttr and disconnectAttr.
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/ConnectedPlugs.h"
#include "commands/Names.h"
#include "engine/Evaluation.h"
#include "engine/Scene.h"

#include <set>

namespace host {

namespace {

bool lookupBoth(const ArgReader& args, Plug& source, Plug& destination) {
    std::string error;
    source = lookupPlug(args.positional()[0]->text, &error);
    if (!source.isNull()) destination = lookupPlug(args.positional()[1]->text, &error);
    if (!source.isNull() && !destination.isNull()) return true;
    messageLog().error(error);
    return false;
}

// The lowest element of an array plug that has no incoming connection.
Plug nextAvailable(const Plug& array) {
    std::set<uint32_t> used;
    for (const Connection& c : scene().connections())
        if (c.destination.isElement() && c.destination.array() == array)
            used.insert(c.destination.logicalIndex());
    uint32_t index = 0;
    while (used.count(index)) ++index;
    return array.element(index);
}

// The leaf values a connection delivers into `plug` (itself, or the children of a compound).
void deliveredValues(const Plug& plug, std::vector<std::pair<Plug, Value>>& out) {
    if (plug.isNull() || plug.isArray()) return;
    if (!plug.isCompound()) {
        out.emplace_back(plug, evaluatedValue(plug));
        return;
    }
    for (std::size_t k = 0; k < plug.attr()->children.size(); ++k) deliveredValues(plug.child(k), out);
}

// Breaks a connection; the destination keeps the value it was last given, as Maya leaves it, also
// when that was no value at all (an empty data attribute).
bool disconnectKeepingValue(const Plug& source, const Plug& destination, std::string* error) {
    std::vector<std::pair<Plug, Value>> kept;
    deliveredValues(destination, kept);
    if (!scene().disconnect(source, destination, error)) return false;
    for (auto& [plug, value] : kept)
        if (value != plug.value()) plug.setValue(std::move(value));
    return true;
}

bool connectAttrCommand(Invocation& inv) {
    static const FlagTable flags = {
        {"f", "force", ""}, {"na", "nextAvailable", ""}, {"l", "lock", "b"}, {"rd", "referenceDest", "s"}};
    ArgReader args("connectAttr", inv.statement.args);
    if (!args.parse(flags)) return false;
    if (args.positional().size() != 2) return args.fail("give a source and a destination attribute.");
    Plug source, destination;
    if (!lookupBoth(args, source, destination)) return false;
    if (args.has("nextAvailable") && destination.isArray()) destination = nextAvailable(destination);
    if (source != destination && (isAtOrBelow(source, destination) || isAtOrBelow(destination, source)))
        return args.fail("cannot connect " + scene().plugName(source) + " to a part of itself.");
    std::string error;
    if (!scene().connect(source, destination, args.has("force"), &error)) return args.fail(error);
    // Connecting an element makes it exist.
    for (const Plug* plug : {&source, &destination})
        if (!plug->isArray()) plug->slotForWrite();
    inv.result = "Connected " + scene().plugName(source) + " to " + scene().plugName(destination) + ".";
    return true;
}

bool disconnectAttrCommand(Invocation& inv) {
    static const FlagTable flags = {{"na", "nextAvailable", ""}};
    ArgReader args("disconnectAttr", inv.statement.args);
    if (!args.parse(flags)) return false;
    const auto& names = args.positional();
    std::string error;
    if (names.size() == 1) {
        // One plug: every connection into or out of it goes.
        const Plug plug = lookupPlug(names[0]->text, &error);
        if (plug.isNull()) return args.fail(error);
        std::vector<Connection> found;
        for (const Connection& c : scene().connections())
            if (c.source == plug || c.destination == plug) found.push_back(c);
        for (const Connection& c : found) disconnectKeepingValue(c.source, c.destination, nullptr);
        return true;
    }
    if (names.size() != 2) return args.fail("give a source and a destination attribute.");
    Plug source, destination;
    if (!lookupBoth(args, source, destination)) return false;
    if (args.has("nextAvailable") && destination.isArray())
        for (const Plug& d : scene().destinationsOf(source))
            if (d.isElement() && d.array() == destination) {
                destination = d;
                break;
            }
    if (!disconnectKeepingValue(source, destination, &error)) return args.fail(error);
    inv.result = "Disconnect " + scene().plugName(source) + " from " + scene().plugName(destination) + ".";
    return true;
}

} // namespace

void registerConnectCommands(CommandTable& table) {
    table.add("connectAttr", connectAttrCommand);
    table.add("disconnectAttr", disconnectAttrCommand);
}

} // namespace host
