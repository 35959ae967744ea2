// listConnections: what is connected to nodes or plugs (the selection when none are named), as
// Maya lists it: the nodes at the other end, or their plugs (-plugs), each preceded by the plug on
// this side (-connections); sources and destinations both unless one is switched off; -type keeps
// the other ends of a node type.
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/Names.h"
#include "commands/QueryArgs.h"
#include "engine/Scene.h"

namespace host {

namespace {

// Whether `plug` is `top` or an element or child below it.
bool isAtOrBelow(const Plug& plug, const Plug& top) {
    if (plug.node() != top.node()) return false;
    for (Plug p = plug; !p.isNull(); p = p.isElement() ? p.array() : p.parent())
        if (p == top) return true;
    return false;
}

struct Options {
    bool sources = true, destinations = true, plugs = false, pairs = false;
    std::string type;
};

void listItem(const SelectionItem& item, const Options& options, std::vector<std::string>& out) {
    const Scene& s = scene();
    for (const Connection& c : s.connectionsOf(*item.node)) {
        // A connection from a node to itself is listed from both of its ends.
        for (int end = 0; end < 2; ++end) {
            const bool incoming = end == 0;
            const Plug& own = incoming ? c.destination : c.source;
            const Plug& other = incoming ? c.source : c.destination;
            if (own.node() != item.node || (incoming ? !options.sources : !options.destinations)) continue;
            if (!item.plug.isNull() && !isAtOrBelow(own, item.plug)) continue;
            if (!options.type.empty() && !other.node()->type().isA(options.type)) continue;
            if (options.pairs) out.push_back(s.plugName(own));
            out.push_back(options.plugs ? s.plugName(other) : nodeName(*other.node()));
        }
    }
}

bool listConnectionsCommand(Invocation& inv) {
    static const FlagTable flags = {{"s", "source", "b"},
                                    {"d", "destination", "b"},
                                    {"p", "plugs", "b"},
                                    {"c", "connections", "b"},
                                    {"t", "type", "s"}};
    ArgReader args("listConnections", inv.statement.args);
    if (!args.parse(flags)) return false;
    Options options;
    if (args.has("source")) options.sources = args.enabled("source");
    if (args.has("destination")) options.destinations = args.enabled("destination");
    options.plugs = args.enabled("plugs");
    options.pairs = args.enabled("connections");
    if (args.has("type")) options.type = args.text("type");

    SelectionList items;
    if (!queryItems(args, items)) return false;
    std::vector<std::string> names;
    for (const SelectionItem& item : items)
        if (item.node && item.node->alive()) listItem(item, options, names);
    inv.result = std::move(names);
    return true;
}

} // namespace

void registerListConnectionsCommand(CommandTable& table) {
    table.add("listConnections", listConnectionsCommand);
}

} // namespace host
