#include "commands/ObjectItems.h"

#include "commands/Names.h"
#include "engine/ComponentText.h"
#include "engine/NamePattern.h"
#include "engine/Scene.h"
#include "mesh/MeshData.h"

#include <algorithm>

namespace host {

namespace {

bool resolveComponent(const NodePtr& node, const std::string& text, const std::string& itemText,
                      SelectionList& out, std::string* error) {
    ComponentType type;
    std::string typeName;
    int first = 0, last = 0;
    bool all = false;
    NodePtr shape = shapeOf(scene(), node);
    const bool parsed = parseComponentItem(itemText, type, typeName, first, last, all);
    const int count = parsed && shape ? componentCount(*shape, type) : 0;
    if (!parsed || type == ComponentType::Other || type == ComponentType::FaceVertex || !shape ||
        !shape->type().isA("mesh") || (!all && last >= count)) {
        if (error) *error = "No object matches name: " + text;
        return false;
    }
    auto component = std::make_shared<ComponentData>();
    component->type = type;
    component->typeName = typeName;
    if (all) {
        first = 0;
        last = count - 1;
    }
    component->elements.reserve(static_cast<std::size_t>(last - first + 1));
    for (int e = first; e <= last; ++e) component->elements.push_back(e);
    SelectionItem item;
    item.node = shape;
    item.component = std::move(component);
    out.push_back(std::move(item));
    return true;
}

std::string displayName(const Node& node, bool longNames) {
    return longNames ? scene().fullPath(node) : nodeName(node);
}

} // namespace

bool isIntermediateObject(const Node& node) {
    const AttrSpec* attr = node.findAttr("intermediateObject");
    return attr && valueAsDouble(Plug(const_cast<Node&>(node).shared_from_this(), attr).value()) != 0.0;
}

int componentCount(const Node& node, ComponentType type) {
    const MeshData* mesh = node.mesh().get();
    if (!mesh) return 0;
    switch (type) {
    case ComponentType::Vertex:
        return mesh->numVertices();
    case ComponentType::Face:
        return mesh->numFaces();
    case ComponentType::Edge:
        return mesh->edges.empty() ? mesh->topology().numEdges() : static_cast<int>(mesh->edges.size());
    default:
        return 0;
    }
}

bool resolveObjectArg(const std::string& text, SelectionList& out, std::string* error) {
    if (isPattern(text)) {
        for (NodePtr& node : nodesMatching(scene(), text))
            out.push_back(SelectionItem{std::move(node), nullptr, Plug()});
        return true;
    }
    const std::size_t dot = text.find('.');
    NodePtr node = scene().findNode(text.substr(0, dot), error);
    if (!node) {
        if (error && error->rfind("More than one", 0) != 0) *error = "No object matches name: " + text;
        return false;
    }
    if (dot != std::string::npos) return resolveComponent(node, text, text.substr(dot + 1), out, error);
    SelectionItem item;
    item.node = node;
    out.push_back(std::move(item));
    return true;
}

bool resolveObjectArgs(const std::vector<const Token*>& names, SelectionList& out) {
    std::string error;
    for (const Token* token : names)
        if (!resolveObjectArg(token->text, out, &error)) {
            messageLog().error(error);
            return false;
        }
    return true;
}

void appendItemNames(const SelectionItem& item, bool longNames, bool flatten, std::vector<std::string>& out) {
    if (!item.node || !item.node->alive()) return;
    const std::string name = displayName(*item.node, longNames);
    if (!item.plug.isNull()) {
        out.push_back(name + "." + item.plug.attrPath(false));
        return;
    }
    if (!item.component) {
        out.push_back(name);
        return;
    }
    const ComponentData& c = *item.component;
    if (!flatten) {
        for (const std::string& text : componentItems(c)) out.push_back(name + "." + text);
        return;
    }
    const std::string prefix =
        name + "." + (c.typeName.empty() ? componentTypeName(c.type) : c.typeName) + "[";
    auto add = [&](int e) { out.push_back(prefix + std::to_string(e) + "]"); };
    if (c.complete)
        for (int e = 0, n = componentCount(*item.node, c.type); e < n; ++e) add(e);
    else
        for (int e : c.elements) add(e);
}

} // namespace host
