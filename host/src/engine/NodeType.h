#pragma once
// Node types: a name, a base type, the function-set types a node of it answers to, and the table
// of its top-level attributes (inherited ones first) with a lookup by long or short name at any level.
#include "engine/Attribute.h"

#include <maya/MFn.h>

#include <string>
#include <unordered_map>
#include <vector>

namespace host {

struct NodeType {
    std::string name;
    const NodeType* base = nullptr;
    MFn::Type apiType = MFn::kDependencyNode;
    std::vector<MFn::Type> fnTypes; // every type hasFn answers true for, inherited included
    bool dag = false;
    bool shape = false;
    bool transform = false;
    bool generic = false; // an unknown type met in a file: attributes are made up as they are set

    std::vector<AttrPtr> ownAttrs;
    std::vector<const AttrSpec*> attrs; // top-level, base type's first; position = slot index
    std::unordered_map<std::string, const AttrSpec*> byName;

    bool hasFn(MFn::Type type) const;
    bool isA(const std::string& typeName) const;
    const AttrSpec* findAttr(const std::string& name) const;
};

// Describes a type before it is registered.
struct NodeTypeDef {
    std::string name;
    std::string base; // empty for the root type
    MFn::Type apiType = MFn::kDependencyNode;
    std::vector<MFn::Type> extraFnTypes;
    bool dag = false, shape = false, transform = false;
    std::vector<AttrPtr> attrs;
};

class NodeTypeRegistry {
public:
    static NodeTypeRegistry& instance();
    const NodeType* add(NodeTypeDef def);
    const NodeType* find(const std::string& name) const;
    // A type for names the host does not model: keeps whatever attributes a file sets on it.
    const NodeType* generic(const std::string& name);

private:
    NodeTypeRegistry();
    std::unordered_map<std::string, std::unique_ptr<NodeType>> types_;
};

} // namespace host
