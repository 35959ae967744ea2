#pragma once
// Component text as Maya writes it: "vtx[3]", "vtx[3:7]", "e[2]", "f[0:3]", "vtx[*]", and the
// selection strings "pCube1.vtx[3]" that name a mesh and its components.
#include "engine/Data.h"
#include "engine/Selection.h"

#include <string>
#include <string_view>

namespace host {

// Parses one item such as "vtx[4:9]" (no node name). Ranges are inclusive and must ascend.
// Appends the elements to `out` when its type matches, else fails. False on malformed text.
bool parseComponentItem(std::string_view text, ComponentType& type, std::string& typeName, int& first,
                        int& last, bool& all);
ComponentType componentTypeOf(std::string_view typeName);
const char* componentTypeName(ComponentType type);

// Compact item strings for a component's elements: runs of consecutive indices become "vtx[a:b]".
std::vector<std::string> componentItems(const ComponentData& component);

class Scene;
// Resolves a selection string: a node or DAG path, optionally followed by ".vtx[…]" (a transform's
// components resolve to its shape) or by an attribute path (a plug item).
bool resolveSelectionString(const Scene& scene, const std::string& text, SelectionItem& item,
                            std::string* error);

// The visible (non-intermediate) shape under a transform, or the node itself when it is a shape.
NodePtr shapeOf(const Scene& scene, const NodePtr& node);

} // namespace host
