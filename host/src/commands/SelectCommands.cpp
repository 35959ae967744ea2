// select and ls.
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/CommandState.h"
#include "commands/ObjectItems.h"
#include "commands/SelectionEdit.h"
#include "engine/Scene.h"

#include <algorithm>
#include <unordered_set>

namespace host {

namespace {

// A name that matches nothing is an error; a pattern that matches nothing only a warning.
bool resolveAll(const ArgReader& args, SelectionList& items) {
    std::string error;
    for (const Token* token : args.positional()) {
        const std::size_t before = items.size();
        if (!resolveObjectArg(token->text, items, &error)) {
            messageLog().error(error);
            return false;
        }
        if (items.size() == before && isPattern(token->text))
            messageLog().warning("No object matches name: " + token->text);
    }
    return true;
}

bool selectCommand(Invocation& inv) {
    static const FlagTable flags = {{"r", "replace", ""},   {"add", "add", ""},    {"af", "addFirst", ""},
                                    {"d", "deselect", ""},  {"tgl", "toggle", ""}, {"cl", "clear", ""},
                                    {"ne", "noExpand", ""}, {"all", "all", ""}};
    ArgReader args("select", inv.statement.args);
    if (!args.parse(flags)) return false;
    SelectionList& selection = scene().activeSelection();
    if (args.has("clear")) {
        selection.clear();
        return true;
    }
    SelectionList items;
    if (!resolveAll(args, items)) {
        // What follows a failed `select -ne` in a file must not land on the node before it.
        if (args.has("noExpand")) setCurrentNode(nullptr);
        return false;
    }
    if (args.has("all"))
        for (Node* node : scene().topLevelDagNodes())
            items.push_back(SelectionItem{scene().sharedNode(node), nullptr, Plug()});
    if (args.has("deselect")) {
        for (const SelectionItem& item : items) removeFromSelection(selection, item);
    } else if (args.has("toggle")) {
        for (const SelectionItem& item : items) toggleInSelection(selection, item);
    } else if (args.has("add")) {
        for (const SelectionItem& item : items) addToSelection(selection, item);
    } else if (args.has("addFirst")) {
        SelectionList head;
        for (const SelectionItem& item : items) addToSelection(head, item);
        for (const SelectionItem& item : selection) addToSelection(head, item);
        selection = std::move(head);
    } else {
        // Replacing; with no objects this clears the selection.
        SelectionList fresh;
        for (const SelectionItem& item : items) addToSelection(fresh, item);
        selection = std::move(fresh);
        if (!items.empty()) setCurrentNode(items.front().node);
    }
    if (args.has("noExpand") && !items.empty()) setCurrentNode(items.front().node);
    return true;
}

bool lsCommand(Invocation& inv) {
    static const FlagTable flags = {
        {"sl", "selection", ""},  {"typ", "type", "s"},        {"l", "long", ""},   {"fl", "flatten", ""},
        {"dag", "dag", ""},       {"tr", "transforms", ""},    {"s", "shapes", ""}, {"o", "objectsOnly", ""},
        {"sn", "shortNames", ""}, {"ni", "noIntermediate", ""}};
    ArgReader args("ls", inv.statement.args);
    if (!args.parse(flags)) return false;
    SelectionList items;
    if (args.has("selection")) items = scene().activeSelection();
    // Names that match nothing list nothing, as patterns do.
    for (const Token* token : args.positional()) {
        std::string error;
        const std::string& text = token->text;
        if (text.find('.') == std::string::npos && !isPattern(text)) {
            // A short name may stand for several DAG nodes: list them all.
            const std::string name = text.size() > 1 && text[0] == ':' ? text.substr(1) : text;
            const bool byPath = name.find('|') != std::string::npos;
            for (const NodePtr& node : scene().nodes())
                if (byPath ? scene().findNode(name) == node : node->name() == name)
                    items.push_back(SelectionItem{node, nullptr, Plug()});
        } else {
            resolveObjectArg(text, items, &error);
        }
    }
    if (!args.has("selection") && args.positional().empty())
        for (const NodePtr& node : scene().nodes()) items.push_back(SelectionItem{node, nullptr, Plug()});
    std::vector<std::string> types;
    for (int i = 0; i < args.uses("type"); ++i) types.push_back(args.text("type", 0, i));
    auto keep = [&](const SelectionItem& item) {
        const NodeType& type = item.node->type();
        if (!types.empty() &&
            std::none_of(types.begin(), types.end(), [&](const std::string& t) { return type.isA(t); }))
            return false;
        if (args.has("dag") && !item.node->isDag()) return false;
        if (args.has("transforms") && !type.transform) return false;
        if (args.has("shapes") && !type.shape) return false;
        return !args.has("noIntermediate") || !isIntermediateObject(*item.node);
    };
    std::vector<std::string> names;
    std::unordered_set<const Node*> listed;
    for (SelectionItem item : items) {
        if (!item.node || !item.node->alive() || !keep(item)) continue;
        if (args.has("objectsOnly")) {
            item.component.reset();
            item.plug = Plug();
        }
        const bool wholeNode = !item.component && item.plug.isNull();
        if (wholeNode && !listed.insert(item.node.get()).second) continue;
        appendItemNames(item, args.has("long"), args.has("flatten"), names);
    }
    inv.result = std::move(names);
    return true;
}

} // namespace

void registerSelectCommands(CommandTable& table) {
    table.add("select", selectCommand);
    table.add("ls", lsCommand);
}

} // namespace host
