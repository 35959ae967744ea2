#pragma once
// The node types the host models, in registration order (base types first).
#include "engine/NodeType.h"

#include <vector>

namespace host {

std::vector<NodeTypeDef> builtinNodeTypes();

// One group each.
void addDagTypes(std::vector<NodeTypeDef>& out);
void addDeformerTypes(std::vector<NodeTypeDef>& out);
void addSetTypes(std::vector<NodeTypeDef>& out);
void addRegionTypes(std::vector<NodeTypeDef>& out);

// Helpers for the tables.
template <class... A> std::vector<AttrPtr> attrs(A... a) {
    std::vector<AttrPtr> out;
    (out.push_back(std::move(a)), ...);
    return out;
}

NodeTypeDef typeDef(const std::string& name, const std::string& base, MFn::Type apiType,
                    std::vector<AttrPtr> attrs);

} // namespace host
