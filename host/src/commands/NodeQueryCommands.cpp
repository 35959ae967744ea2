// objExists, nodeType and objectType: whether a name names something, and what type a node is.
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/Names.h"
#include "commands/ObjectItems.h"
#include "commands/QueryArgs.h"
#include "engine/Scene.h"

namespace host {

namespace {

// The node a name (or a plug or component on it) names; null with Maya's error text otherwise.
NodePtr namedNode(const std::string& text, std::string& error) {
    SelectionList items;
    if (resolveObjectArg(text, items, &error) && !items.empty()) return items.front().node;
    const Plug plug = isPattern(text) || namesComponent(text) ? Plug() : lookupPlug(text, nullptr);
    if (!plug.isNull()) return plug.node();
    error = "No object matches name: " + text;
    return nullptr;
}

bool objExistsCommand(Invocation& inv) {
    ArgReader args("objExists", inv.statement.args);
    if (!args.parse({})) return false;
    if (args.positional().size() != 1) return args.fail("give exactly one object name.");
    std::string error;
    inv.result = namedNode(args.positional()[0]->text, error) != nullptr;
    return true;
}

// The type names from the root down to the node's own type.
std::vector<std::string> inheritedTypes(const NodeType& type) {
    std::vector<std::string> names;
    for (const NodeType* t = &type; t; t = t->base) names.insert(names.begin(), t->name);
    return names;
}

bool nodeTypeCommand(Invocation& inv) {
    static const FlagTable flags = {{"i", "inherited", ""}};
    ArgReader args("nodeType", inv.statement.args);
    if (!args.parse(flags)) return false;
    if (args.positional().size() != 1) return args.fail("give exactly one object name.");
    std::string error;
    const NodePtr node = namedNode(args.positional()[0]->text, error);
    if (!node) return args.fail(error);
    if (args.has("inherited"))
        inv.result = inheritedTypes(node->type());
    else
        inv.result = node->type().name;
    return true;
}

bool objectTypeCommand(Invocation& inv) {
    static const FlagTable flags = {{"i", "isType", "s"}, {"isa", "isAType", "s"}};
    ArgReader args("objectType", inv.statement.args);
    if (!args.parse(flags)) return false;
    if (args.positional().size() != 1) return args.fail("give exactly one object name.");
    if (args.has("isType") && args.has("isAType"))
        return args.fail("-isType and -isAType cannot be combined.");
    std::string error;
    const NodePtr node = namedNode(args.positional()[0]->text, error);
    if (!node) return args.fail(error);
    if (args.has("isType"))
        inv.result = node->type().name == args.text("isType");
    else if (args.has("isAType"))
        inv.result = node->type().isA(args.text("isAType"));
    else
        inv.result = node->type().name;
    return true;
}

} // namespace

void registerNodeQueryCommands(CommandTable& table) {
    table.add("objExists", objExistsCommand);
    table.add("nodeType", nodeTypeCommand);
    table.add("objectType", objectTypeCommand);
}

} // namespace host
