#pragma once
// State the built-in commands share between statements: whether a scene file is being read, and the
// node that relative plug names (".t") refer to, as scene files use them after createNode or
// `select -ne`.
#include "engine/Node.h"

namespace host {

// While a scene file is read, unknown node types become generic nodes and unknown attributes are
// kept as generic attributes instead of being errors.
void setFileReadingMode(bool reading);
bool fileReadingMode();

void setCurrentNode(const NodePtr& node);
// Null when unset, deleted, or left over from an earlier scene.
NodePtr currentNode();

} // namespace host
