#pragma once
// Node and plug names as commands take them: node names and DAG paths (":name" is the root
// namespace, as scene files write it) and "node.attr" plugs, where ".attr" means the current node.
#include "engine/Plug.h"

#include <string>

namespace host {

NodePtr lookupNode(const std::string& name, std::string* error);
// Reading a scene file (or setting on a generic node), an unknown top-level attribute becomes a
// generic attribute so that its value is kept.
Plug lookupPlug(const std::string& text, std::string* error);
// The name commands report for a node: the shortest unique DAG path, or the plain name.
std::string nodeName(const Node& node);

} // namespace host
