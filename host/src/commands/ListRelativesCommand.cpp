// listRelatives: the children, shapes, parents or all descendants of DAG objects (the selection
// when none are named), filtered by type and intermediate state, named as Maya names them: leaf
// names by default, unique partial paths with -path, full paths with -fullPath.
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/Names.h"
#include "commands/ObjectItems.h"
#include "commands/QueryArgs.h"
#include "engine/Scene.h"

#include <algorithm>
#include <unordered_set>

namespace host {

namespace {

struct Filter {
    std::vector<std::string> types;
    bool shapesOnly = false;
    bool noIntermediate = false;

    bool keeps(const Node& node) const {
        if (shapesOnly && !node.type().shape) return false;
        if (noIntermediate && isIntermediateObject(node)) return false;
        return types.empty() || std::any_of(types.begin(), types.end(),
                                            [&](const std::string& t) { return node.type().isA(t); });
    }
};

// Every descendant, deepest and last first, as Maya lists them: the reverse of a depth-first
// walk that visits a node before its children. Iterative, so deep hierarchies cannot overflow.
void appendDescendants(const Node& root, std::vector<const Node*>& out) {
    std::vector<const Node*> walk, stack(root.children().rbegin(), root.children().rend());
    while (!stack.empty()) {
        const Node* node = stack.back();
        stack.pop_back();
        walk.push_back(node);
        stack.insert(stack.end(), node->children().rbegin(), node->children().rend());
    }
    out.insert(out.end(), walk.rbegin(), walk.rend());
}

bool listRelativesCommand(Invocation& inv) {
    static const FlagTable flags = {
        {"c", "children", ""}, {"s", "shapes", ""}, {"p", "parent", ""},  {"ad", "allDescendents", ""},
        {"f", "fullPath", ""}, {"pa", "path", ""},  {"typ", "type", "s"}, {"ni", "noIntermediate", ""}};
    ArgReader args("listRelatives", inv.statement.args);
    if (!args.parse(flags)) return false;
    if (args.has("parent") && (args.has("allDescendents") || args.has("children")))
        return args.fail("-parent cannot be combined with -children or -allDescendents.");
    SelectionList objects;
    if (!queryItems(args, objects)) return false;
    Filter filter;
    filter.shapesOnly = args.has("shapes");
    filter.noIntermediate = args.has("noIntermediate");
    for (int i = 0; i < args.uses("type"); ++i) filter.types.push_back(args.text("type", 0, i));

    std::vector<const Node*> found;
    std::unordered_set<const Node*> seen;
    for (const SelectionItem& item : objects) {
        if (!item.node || !item.node->alive() || !item.node->isDag()) continue;
        const Node& node = *item.node; // a component stands for its shape
        if (!seen.insert(&node).second) continue;
        if (args.has("parent")) {
            if (node.parent()) found.push_back(node.parent());
        } else if (args.has("allDescendents")) {
            appendDescendants(node, found);
        } else {
            found.insert(found.end(), node.children().begin(), node.children().end());
        }
    }
    std::vector<std::string> names;
    std::unordered_set<const Node*> listed;
    for (const Node* node : found) {
        if (!filter.keeps(*node) || !listed.insert(node).second) continue;
        names.push_back(args.has("fullPath") ? scene().fullPath(*node)
                        : args.has("path")   ? nodeName(*node)
                                             : node->name());
    }
    inv.result = std::move(names);
    return true;
}

} // namespace

void registerListRelativesCommand(CommandTable& table) {
    table.add("listRelatives", listRelativesCommand);
}

} // namespace host
