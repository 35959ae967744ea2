// duplicate: copies of nodes with their attribute values and no connections. A DAG node is copied
// with the hierarchy below it (intermediate shapes left out); a shape stands for its transform. A
// mesh copy holds the geometry the original shows, deformers and tweaks applied.
#include "commands/ArgReader.h"
#include "commands/ObjectItems.h"
#include "engine/Scene.h"
#include "eval/Evaluator.h"
#include "files/SceneCommands.h"

#include <cctype>

namespace host {

namespace {

// "pCube1" -> "pCube2" (or the next number no node uses), "box" -> "box1".
std::string nextFreeName(const std::string& name) {
    std::size_t end = name.size();
    while (end > 0 && std::isdigit(static_cast<unsigned char>(name[end - 1]))) --end;
    const std::string stem = name.substr(0, end);
    long long n = end < name.size() && name.size() - end < 15 ? std::stoll(name.substr(end)) + 1 : 1;
    while (scene().nameInUse(stem + std::to_string(n))) ++n;
    return stem + std::to_string(n);
}

AttrPtr cloneSpec(const AttrSpec& source) {
    auto copy = std::make_unique<AttrSpec>();
    copy->longName = source.longName;
    copy->shortName = source.shortName;
    copy->type = source.type;
    copy->dataKind = source.dataKind;
    copy->typeName = source.typeName;
    copy->multi = source.multi;
    copy->hidden = source.hidden;
    copy->dynamic = source.dynamic;
    copy->madeUp = source.madeUp;
    copy->defaultValue = source.defaultValue;
    for (const auto& child : source.children) copy->children.push_back(cloneSpec(*child));
    return copy;
}

bool isIntermediate(const NodePtr& node) {
    const Plug io = resolveAttrPath(node, "intermediateObject", nullptr);
    return !io.isNull() && valueAsDouble(io.value()) != 0.0;
}

// Dynamic attributes, values and aliases; a mesh takes the geometry the original shows, so its tweaks
// are already in it.
void copyContents(const NodePtr& from, const NodePtr& to) {
    for (const AttrPtr& attr : from->dynamicAttrs()) {
        AttrPtr copy = cloneSpec(*attr);
        AttrSpec* added = copy.get();
        if (!to->addDynamicAttr(std::move(copy))) continue;
        added->dynamic = attr->dynamic;
        added->madeUp = attr->madeUp;
    }
    const bool mesh = from->type().isA("mesh");
    for (std::size_t i = 0; i < from->attrCount() && i < to->attrCount(); ++i) {
        const AttrSpec* attr = from->attrAt(i);
        const Slot* slot = from->topSlotIfAny(attr);
        if (!slot || (mesh && attr->longName == "pnts")) continue;
        to->topSlot(to->attrAt(i)) = slot->clone();
    }
    to->aliases() = from->aliases();
    if (mesh)
        if (MeshPtr shown = evaluatedMesh(from)) to->mesh() = std::make_shared<MeshData>(*shown);
    to->touch();
}

// Copies `from` and the hierarchy below it, parents before children in the original order, without
// recursion: hierarchies may be deep. The top copy takes `name` (or the next free name); below it,
// transforms keep their names under their new parents and shapes take the next free name, as Maya
// names a copied shape.
NodePtr copyTree(const NodePtr& from, Node* parent, const std::string& name, std::string& error) {
    NodePtr top = scene().createNode(from->type().name, name.empty() ? nextFreeName(from->name()) : name,
                                     parent, &error);
    if (!top) return nullptr;
    copyContents(from, top);
    std::vector<std::pair<Node*, Node*>> pending; // original child, parent of its copy
    const auto queueChildren = [&pending](const Node& original, Node* copy) {
        const auto& children = original.children();
        for (auto it = children.rbegin(); it != children.rend(); ++it) pending.emplace_back(*it, copy);
    };
    queueChildren(*from, top.get());
    while (!pending.empty()) {
        const auto [child, copyParent] = pending.back();
        pending.pop_back();
        const NodePtr original = scene().sharedNode(child);
        if (isIntermediate(original)) continue;
        const std::string childName =
            original->type().shape ? nextFreeName(original->name()) : original->name();
        NodePtr copy = scene().createNode(original->type().name, childName, copyParent, &error);
        if (!copy) return nullptr;
        copyContents(original, copy);
        queueChildren(*original, copy.get());
    }
    return top;
}

} // namespace

bool duplicateCommand(Invocation& inv) {
    static const FlagTable flags = {{"n", "name", "s"}, {"rr", "returnRootsOnly", ""}};
    ArgReader args("duplicate", inv.statement.args);
    if (!args.parse(flags)) return false;
    SelectionList items;
    if (!resolveObjectArgs(args.positional(), items)) return false;
    if (args.positional().empty()) items = scene().activeSelection();
    if (items.empty()) return args.fail("give or select the objects to duplicate.");
    std::vector<NodePtr> originals;
    for (const SelectionItem& item : items) {
        if (item.component || !item.plug.isNull()) return args.fail("only whole objects can be duplicated.");
        NodePtr node = item.node;
        if (node->type().shape && node->parent()) node = scene().sharedNode(node->parent());
        originals.push_back(node);
    }
    std::vector<std::string> names;
    SelectionList copies;
    std::string error;
    for (std::size_t i = 0; i < originals.size(); ++i) {
        const NodePtr& original = originals[i];
        NodePtr copy =
            copyTree(original, original->parent(), i == 0 ? args.text("name") : std::string(), error);
        if (!copy) return args.fail(error);
        names.push_back(scene().partialPath(*copy));
        copies.push_back(SelectionItem{copy, nullptr, Plug()});
    }
    scene().activeSelection() = std::move(copies);
    inv.result = std::move(names);
    return true;
}

} // namespace host
