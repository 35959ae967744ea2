// createNode, rename and delete.
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/CommandState.h"
#include "commands/Names.h"
#include "commands/ObjectItems.h"
#include "commands/OwnHistory.h"
#include "engine/Scene.h"
#include "mesh/MeshData.h"

#include <algorithm>

namespace host {

namespace {

bool createNodeCommand(Invocation& inv) {
    static const FlagTable flags = {
        {"n", "name", "s"}, {"p", "parent", "s"}, {"ss", "skipSelect", ""}, {"s", "shared", ""}};
    // Until the node exists, relative attribute names refer to nothing.
    setCurrentNode(nullptr);
    ArgReader args("createNode", inv.statement.args);
    if (!args.parse(flags)) return false;
    if (args.positional().size() != 1) return args.fail("give exactly one node type.");
    const std::string& typeName = args.positional()[0]->text;
    const std::string& name = args.text("name");
    std::string error;
    NodePtr parent;
    if (args.has("parent") && !(parent = scene().findNode(args.text("parent"), &error))) {
        messageLog().error(error);
        return false;
    }
    if (parent && parent->type().shape)
        return args.fail("a shape cannot be a parent: " + nodeName(*parent) + ".");
    // A shared node (the cameras and globals every scene file names) is made only once.
    if (args.has("shared") && !name.empty()) {
        NodePtr existing = scene().findNode(name, nullptr);
        if (existing && existing->type().name == typeName) {
            setCurrentNode(existing);
            inv.result = nodeName(*existing);
            return true;
        }
    }
    const NodeType* type = NodeTypeRegistry::instance().find(typeName);
    if (!type && fileReadingMode()) type = NodeTypeRegistry::instance().generic(typeName);
    if (!type) {
        messageLog().error("Unknown object type: " + typeName);
        return false;
    }
    Scene& s = scene();
    // A shape needs a transform above it, as Maya makes one.
    NodePtr madeParent;
    if (type->shape && !parent) {
        if (!(madeParent = s.createNode("transform", "", nullptr, &error))) {
            messageLog().error(error);
            return false;
        }
        parent = madeParent;
    }
    NodePtr node = s.createNode(typeName, name, parent.get(), &error);
    if (!node) {
        if (madeParent) s.deleteNode(madeParent, nullptr);
        messageLog().error(error);
        return false;
    }
    if (type->isA("mesh")) node->mesh() = std::make_shared<MeshData>();
    setCurrentNode(node);
    if (!args.has("skipSelect")) s.activeSelection() = {SelectionItem{node, nullptr, Plug()}};
    inv.result = nodeName(*node);
    return true;
}

bool renameCommand(Invocation& inv) {
    static const FlagTable flags = {{"uid", "uuid", ""}, {"is", "ignoreShape", ""}};
    ArgReader args("rename", inv.statement.args);
    if (!args.parse(flags)) return false;
    const auto& names = args.positional();
    // Scene files give each node its UUID; the host does not keep them.
    if (args.has("uuid")) return names.size() == 1 || names.size() == 2 || args.fail("give a UUID.");
    if (names.empty() || names.size() > 2) return args.fail("give the node to rename and its new name.");
    std::string error;
    NodePtr node;
    if (names.size() == 2) {
        node = scene().findNode(names[0]->text, &error);
    } else {
        const auto& selection = scene().activeSelection();
        node = selection.empty() ? nullptr : selection.front().node;
        error = "Nothing is selected to rename.";
    }
    std::string newName = names.back()->text;
    if (newName.size() > 1 && newName[0] == ':') newName.erase(0, 1);
    if (!node || !scene().renameNode(node, newName, &error)) {
        messageLog().error(error);
        return false;
    }
    // A transform's visible shapes follow its new name, as Maya renames them.
    if (!args.has("ignoreShape") && !node->type().shape) {
        const std::vector<Node*> children = node->children();
        for (Node* child : children)
            if (child->type().shape && !isIntermediateObject(*child))
                scene().renameNode(scene().sharedNode(child), shapeNameFor(node->name()), nullptr);
    }
    inv.result = nodeName(*node);
    return true;
}

bool deleteCommand(Invocation& inv) {
    static const FlagTable flags = {{"ch", "constructionHistory", ""}};
    ArgReader args("delete", inv.statement.args);
    if (!args.parse(flags)) return false;
    SelectionList items;
    if (!resolveObjectArgs(args.positional(), items)) return false;
    if (args.positional().empty()) items = scene().activeSelection();
    if (items.empty()) return args.fail("Not enough objects or values.");
    for (const SelectionItem& item : items)
        if (item.component || !item.plug.isNull())
            return args.fail("components and attributes cannot be deleted.");
    // Nodes carry no construction history in the host: deleting it leaves nothing to do.
    if (args.has("constructionHistory")) return true;
    std::vector<NodePtr> nodes;
    for (const SelectionItem& item : items) nodes.push_back(item.node);
    for (NodePtr& node : ownHistory(nodes)) nodes.push_back(std::move(node));
    bool ok = true;
    std::string error;
    for (const NodePtr& node : nodes) {
        if (!node->alive()) continue; // went with a parent listed before it
        if (!scene().deleteNode(node, &error)) {
            messageLog().error(error);
            ok = false;
        }
    }
    return ok;
}

} // namespace

void registerNodeCommands(CommandTable& table) {
    table.add("createNode", createNodeCommand);
    table.add("rename", renameCommand);
    table.add("delete", deleteCommand);
}

} // namespace host
