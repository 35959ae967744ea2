#include "engine/NodeType.h"

#include "nodes/NodeTypes.h"

#include <algorithm>

namespace host {

bool NodeType::hasFn(MFn::Type type) const {
    if (type == MFn::kBase || type == MFn::kNamedObject || type == MFn::kDependencyNode) return true;
    return std::find(fnTypes.begin(), fnTypes.end(), type) != fnTypes.end();
}

bool NodeType::isA(const std::string& typeName) const {
    for (const NodeType* t = this; t; t = t->base)
        if (t->name == typeName) return true;
    return false;
}

const AttrSpec* NodeType::findAttr(const std::string& attrName) const {
    auto it = byName.find(attrName);
    return it == byName.end() ? nullptr : it->second;
}

NodeTypeRegistry& NodeTypeRegistry::instance() {
    static NodeTypeRegistry registry;
    return registry;
}

NodeTypeRegistry::NodeTypeRegistry() {
    for (auto& def : builtinNodeTypes()) add(std::move(def));
}

static void indexNames(NodeType& type, const AttrSpec& attr) {
    type.byName.emplace(attr.longName, &attr);
    type.byName.emplace(attr.shortName, &attr);
    for (const auto& child : attr.children) indexNames(type, *child);
}

const NodeType* NodeTypeRegistry::add(NodeTypeDef def) {
    auto type = std::make_unique<NodeType>();
    type->name = def.name;
    type->apiType = def.apiType;
    if (!def.base.empty()) {
        type->base = find(def.base);
        if (type->base) {
            type->fnTypes = type->base->fnTypes;
            type->attrs = type->base->attrs;
            type->byName = type->base->byName;
            type->dag = type->base->dag;
            type->shape = type->base->shape;
            type->transform = type->base->transform;
        }
    }
    type->dag = type->dag || def.dag;
    type->shape = type->shape || def.shape;
    type->transform = type->transform || def.transform;
    type->fnTypes.push_back(def.apiType);
    type->fnTypes.insert(type->fnTypes.end(), def.extraFnTypes.begin(), def.extraFnTypes.end());
    for (auto& attr : def.attrs) {
        linkAttr(*attr, nullptr, static_cast<int>(type->attrs.size()));
        type->attrs.push_back(attr.get());
        indexNames(*type, *attr);
        type->ownAttrs.push_back(std::move(attr));
    }
    const NodeType* result = type.get();
    types_[type->name] = std::move(type);
    return result;
}

const NodeType* NodeTypeRegistry::find(const std::string& typeName) const {
    auto it = types_.find(typeName);
    return it == types_.end() ? nullptr : it->second.get();
}

const NodeType* NodeTypeRegistry::generic(const std::string& typeName) {
    if (const NodeType* existing = find(typeName)) return existing;
    NodeTypeDef def;
    def.name = typeName;
    def.base = "node";
    def.apiType = MFn::kUnknown;
    const NodeType* type = add(std::move(def));
    const_cast<NodeType*>(type)->generic = true;
    return type;
}

} // namespace host
