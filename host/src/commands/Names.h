#pragma once
// Names as commands take and give them: "node.attr" plugs, where ".attr" means the current node,
// node names in results, and new attribute names.
#include "engine/Plug.h"

#include <string>

namespace host {

// Reading a scene file (or on a node of a generic type), attributes the node does not have are made
// up as generic ones so that the file's data is kept.
Plug lookupPlug(const std::string& text, std::string* error);
// The name commands report for a node: the shortest unique DAG path, or the plain name.
std::string nodeName(const Node& node);
// The name Maya gives the shape of a transform: "head" -> "headShape", "head1" -> "headShape1".
std::string shapeNameFor(const std::string& transform);
// Attribute and alias names: a letter, then letters, digits and underscores.
bool validAttrName(const std::string& name);

} // namespace host
