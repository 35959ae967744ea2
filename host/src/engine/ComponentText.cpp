#include "engine/ComponentText.h"

#include "engine/Scene.h"

namespace host {

namespace {

bool parseInt(std::string_view text, int& value) {
    if (text.empty() || text.size() > 10) return false;
    long long v = 0;
    for (char c : text) {
        if (c < '0' || c > '9') return false;
        v = v * 10 + (c - '0');
    }
    if (v > 0x7FFFFFFF) return false;
    value = static_cast<int>(v);
    return true;
}

} // namespace

ComponentType componentTypeOf(std::string_view typeName) {
    if (typeName == "vtx") return ComponentType::Vertex;
    if (typeName == "e") return ComponentType::Edge;
    if (typeName == "f") return ComponentType::Face;
    if (typeName == "vtxFace") return ComponentType::FaceVertex;
    return ComponentType::Other;
}

const char* componentTypeName(ComponentType type) {
    switch (type) {
    case ComponentType::Vertex:
        return "vtx";
    case ComponentType::Edge:
        return "e";
    case ComponentType::Face:
        return "f";
    case ComponentType::FaceVertex:
        return "vtxFace";
    case ComponentType::Other:
        break;
    }
    return "";
}

bool parseComponentItem(std::string_view text, ComponentType& type, std::string& typeName, int& first,
                        int& last, bool& all) {
    const std::size_t open = text.find('[');
    if (open == std::string_view::npos || open == 0 || text.size() < open + 3 || text.back() != ']')
        return false;
    typeName.assign(text.substr(0, open));
    type = componentTypeOf(typeName);
    std::string_view inner = text.substr(open + 1, text.size() - open - 2);
    all = inner == "*";
    if (all) {
        first = 0;
        last = -1;
        return true;
    }
    const std::size_t colon = inner.find(':');
    if (colon == std::string_view::npos) {
        if (!parseInt(inner, first)) return false;
        last = first;
        return true;
    }
    return parseInt(inner.substr(0, colon), first) && parseInt(inner.substr(colon + 1), last) &&
           first <= last;
}

std::vector<std::string> componentItems(const ComponentData& component) {
    const std::string name =
        component.typeName.empty() ? componentTypeName(component.type) : component.typeName;
    std::vector<std::string> items;
    if (component.complete) {
        items.push_back(name + "[*]");
        return items;
    }
    const auto& e = component.elements;
    for (std::size_t i = 0; i < e.size();) {
        std::size_t j = i;
        while (j + 1 < e.size() && static_cast<long long>(e[j + 1]) == static_cast<long long>(e[j]) + 1) ++j;
        if (j == i)
            items.push_back(name + "[" + std::to_string(e[i]) + "]");
        else
            items.push_back(name + "[" + std::to_string(e[i]) + ":" + std::to_string(e[j]) + "]");
        i = j + 1;
    }
    return items;
}

NodePtr shapeOf(const Scene& scene, const NodePtr& node) {
    if (!node || !node->type().transform) return node;
    NodePtr fallback;
    for (Node* child : node->children()) {
        if (!child->type().shape) continue;
        NodePtr shape = scene.sharedNode(child);
        Plug io = resolveAttrPath(shape, "intermediateObject", nullptr);
        if (!io.isNull() && valueAsDouble(io.value()) == 0.0) return shape;
        if (!fallback) fallback = shape;
    }
    return fallback ? fallback : node;
}

bool resolveSelectionString(const Scene& scene, const std::string& text, SelectionItem& item,
                            std::string* error) {
    item = SelectionItem();
    const std::size_t dot = text.find('.');
    NodePtr node = scene.findNode(text.substr(0, dot), error);
    if (!node) return false;
    if (dot == std::string::npos) {
        item.node = node;
        return true;
    }
    const std::string rest = text.substr(dot + 1);
    ComponentType type;
    std::string typeName;
    int first = 0, last = 0;
    bool all = false;
    if (parseComponentItem(rest, type, typeName, first, last, all) && type != ComponentType::Other) {
        NodePtr shape = shapeOf(scene, node);
        if (!shape->mesh() && !shape->type().isA("mesh")) {
            if (error) *error = "No object matches name: " + text;
            return false;
        }
        auto component = std::make_shared<ComponentData>();
        component->type = type;
        component->typeName = typeName;
        component->complete = all;
        if (!all) {
            // The same cap as component lists in setAttr: a typing slip must not allocate gigabytes.
            if (static_cast<long long>(last) - first >= (1LL << 26)) {
                if (error) *error = "Component range too large: " + text;
                return false;
            }
            component->elements.reserve(static_cast<std::size_t>(last - first + 1));
            for (long long i = first; i <= last; ++i) component->elements.push_back(static_cast<int>(i));
        }
        item.node = shape;
        item.component = component;
        return true;
    }
    item.plug = resolveAttrPath(node, rest, error);
    if (item.plug.isNull()) return false;
    item.node = node;
    return true;
}

} // namespace host
