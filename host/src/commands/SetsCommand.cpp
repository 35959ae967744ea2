// sets: creates object sets, adds, removes and lists members. Members are connections into the set,
// as Maya makes them: a DAG object's instObjGroups[0] (or, for components, its
// instObjGroups[0].objectGroups[g] holding them in objectGrpCompList) goes to dagSetMembers, any
// other node's message to dnSetMembers. -forceElement on a shading group first takes the members
// out of every other shading group, as an object is shaded by one group only.
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/Names.h"
#include "commands/ObjectItems.h"
#include "engine/ComponentText.h"
#include "engine/Scene.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace host {

namespace {

Plug plugAt(const NodePtr& node, const std::string& path) {
    return resolveAttrPath(node, path, nullptr);
}

Plug wholePlug(const NodePtr& node) {
    return plugAt(node, "iog[0]");
}

bool isGroupPlug(const Plug& plug) {
    return plug.attr()->longName == "objectGroups";
}

std::vector<Connection> memberConnections(const NodePtr& set) {
    std::vector<Connection> found;
    for (const Connection& c : scene().connections()) {
        if (c.destination.node() != set) continue;
        const std::string& attr = c.destination.attr()->longName;
        if (attr == "dagSetMembers" || attr == "dnSetMembers") found.push_back(c);
    }
    return found;
}

Plug nextMemberSlot(const NodePtr& set, const char* attr) {
    std::set<uint32_t> used;
    for (const Connection& c : memberConnections(set))
        if (c.destination.attr()->longName == attr) used.insert(c.destination.logicalIndex());
    uint32_t index = 0;
    while (used.count(index)) ++index;
    return plugAt(set, std::string(attr) + "[" + std::to_string(index) + "]");
}

Plug componentsPlug(const Plug& group) {
    return group.child(group.attr()->childNamed("objectGrpCompList"));
}

std::shared_ptr<const ComponentListData> groupComponents(const Plug& group) {
    const Value value = componentsPlug(group).value();
    const DataPtr* data = std::get_if<DataPtr>(&value);
    if (!data || !dataAs<ComponentListData>(*data)) return nullptr;
    return std::static_pointer_cast<const ComponentListData>(*data);
}

std::vector<int> sortedUnique(std::vector<int> e) {
    std::sort(e.begin(), e.end());
    e.erase(std::unique(e.begin(), e.end()), e.end());
    return e;
}

// Combines (add) or subtracts (!add) one component into a group's list; empty components are dropped.
void editGroup(const Plug& group, const ComponentData& change, bool add) {
    auto list = std::make_shared<ComponentListData>();
    bool merged = false;
    if (const auto old = groupComponents(group))
        for (const auto& c : old->components) {
            if (c->type != change.type) {
                list->components.push_back(c);
                continue;
            }
            const std::vector<int> a = sortedUnique(c->elements), b = sortedUnique(change.elements);
            auto edited = std::make_shared<ComponentData>(*c);
            edited->elements.clear();
            auto out = std::back_inserter(edited->elements);
            if (add)
                std::set_union(a.begin(), a.end(), b.begin(), b.end(), out);
            else
                std::set_difference(a.begin(), a.end(), b.begin(), b.end(), out);
            merged = true;
            if (!edited->elements.empty()) list->components.push_back(std::move(edited));
        }
    if (add && !merged) list->components.push_back(std::make_shared<ComponentData>(change));
    componentsPlug(group).setValue(DataPtr(std::move(list)));
}

bool groupEmpty(const Plug& group) {
    const auto list = groupComponents(group);
    return !list || list->components.empty();
}

void removeGroup(const Connection& c) {
    scene().disconnect(c.source, c.destination, nullptr);
    c.source.array().removeElement(c.source.logicalIndex());
}

// A new objectGroups element of the node for components.
Plug newGroup(const NodePtr& node) {
    const Plug groups = plugAt(node, "iog[0].og");
    const std::vector<uint32_t> existing = groups.existingIndices();
    return groups.element(existing.empty() ? 0 : existing.back() + 1);
}

void addMember(const NodePtr& set, const SelectionItem& item) {
    const NodePtr& node = item.node;
    if (!node->isDag()) {
        const Plug message = plugAt(node, "message");
        const auto members = memberConnections(set);
        if (std::none_of(members.begin(), members.end(),
                         [&](const Connection& c) { return c.source == message; }))
            scene().connect(message, nextMemberSlot(set, "dnSetMembers"), false, nullptr);
        return;
    }
    const Plug whole = wholePlug(node);
    std::vector<Connection> groups;
    for (const Connection& c : memberConnections(set)) {
        if (c.source == whole) return; // the whole object is a member already
        if (c.source.node() == node && isGroupPlug(c.source)) groups.push_back(c);
    }
    if (!item.component) {
        for (const Connection& c : groups) removeGroup(c);
        scene().connect(whole, nextMemberSlot(set, "dagSetMembers"), false, nullptr);
        return;
    }
    if (!groups.empty()) {
        editGroup(groups.front().source, *item.component, true);
        return;
    }
    const Plug group = newGroup(node);
    editGroup(group, *item.component, true);
    scene().connect(group, nextMemberSlot(set, "dagSetMembers"), false, nullptr);
}

// Takes an item out of a set; a whole member losing components keeps the rest of them.
void removeMember(const NodePtr& set, const SelectionItem& item) {
    const NodePtr& node = item.node;
    for (const Connection& c : memberConnections(set)) {
        if (c.source.node() != node) continue;
        if (!item.component) {
            if (isGroupPlug(c.source))
                removeGroup(c);
            else
                scene().disconnect(c.source, c.destination, nullptr);
            continue;
        }
        if (isGroupPlug(c.source)) {
            editGroup(c.source, *item.component, false);
            if (groupEmpty(c.source)) removeGroup(c);
        } else if (c.source == wholePlug(node)) {
            auto rest = std::make_shared<ComponentData>(*item.component);
            rest->elements.clear();
            rest->complete = false;
            for (int e = 0, n = componentCount(*node, rest->type); e < n; ++e) rest->elements.push_back(e);
            scene().disconnect(c.source, c.destination, nullptr);
            addMember(set, SelectionItem{node, rest, Plug()});
            for (const Connection& g : memberConnections(set))
                if (g.source.node() == node && isGroupPlug(g.source)) {
                    editGroup(g.source, *item.component, false);
                    if (groupEmpty(g.source)) removeGroup(g);
                }
        }
    }
}

std::vector<std::string> memberNames(const NodePtr& set) {
    std::vector<std::string> names;
    for (const Connection& c : memberConnections(set)) {
        const NodePtr& node = c.source.node();
        if (!isGroupPlug(c.source)) {
            names.push_back(nodeName(*node));
            continue;
        }
        if (const auto list = groupComponents(c.source))
            for (const auto& component : list->components)
                appendItemNames(SelectionItem{node, component, Plug()}, false, false, names);
    }
    return names;
}

NodePtr findSet(const ArgReader& args, const std::string& name) {
    std::string error;
    NodePtr set = scene().findNode(name, &error);
    if (!set) {
        messageLog().error(error);
        return nullptr;
    }
    if (!set->type().isA("objectSet")) {
        args.fail(name + " is not a set.");
        return nullptr;
    }
    return set;
}

bool setsCommand(Invocation& inv) {
    static const FlagTable flags = {
        {"e", "edit", ""},     {"q", "query", ""}, {"fe", "forceElement", "s"}, {"add", "addElement", "s"},
        {"rm", "remove", "s"}, {"n", "name", "s"}, {"em", "empty", ""},         {"nw", "noWarnings", ""}};
    ArgReader args("sets", inv.statement.args);
    if (!args.parse(flags)) return false;
    const auto& names = args.positional();
    if (args.has("query")) {
        if (names.size() != 1) return args.fail("give the set to query.");
        NodePtr set = findSet(args, names[0]->text);
        if (!set) return false;
        inv.result = memberNames(set);
        return true;
    }
    SelectionList items;
    if (!resolveObjectArgs(names, items)) return false;
    if (names.empty() && !args.has("empty")) items = scene().activeSelection();
    const char* editFlag = args.has("forceElement") ? "forceElement"
                           : args.has("addElement") ? "addElement"
                           : args.has("remove")     ? "remove"
                                                    : nullptr;
    NodePtr set;
    if (editFlag) {
        if (!(set = findSet(args, args.text(editFlag)))) return false;
    } else {
        std::string error;
        set = scene().createNode("objectSet", args.text("name"), nullptr, &error);
        if (!set) return args.fail(error);
        inv.result = nodeName(*set);
    }
    const bool shading = set->type().isA("shadingEngine");
    for (SelectionItem item : items) {
        if (!item.plug.isNull()) continue;
        if (shading && !item.component) item.node = shapeOf(scene(), item.node);
        if (editFlag && std::string(editFlag) == "remove") {
            removeMember(set, item);
            continue;
        }
        if (shading && args.has("forceElement"))
            for (const NodePtr& other : scene().nodes())
                if (other != set && other->type().isA("shadingEngine")) removeMember(other, item);
        addMember(set, item);
    }
    scene().touch();
    return true;
}

} // namespace

void registerSetsCommand(CommandTable& table) {
    table.add("sets", setsCommand);
}

} // namespace host
