#pragma once
// The addAttr statements that recreate a node's dynamic attributes in a scene file: as the file that
// was read wrote them (with ranges, nice names and the like the host does not keep), or made from
// the attribute's description for attributes added since. A node with aliases gets the alias list
// attribute Maya gives it.
#include "engine/Node.h"

#include <string>

namespace host {

struct NodeFileInfo;

void appendAddAttrs(const Node& node, const NodeFileInfo* info, std::string& out);

} // namespace host
