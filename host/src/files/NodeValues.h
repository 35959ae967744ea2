#pragma once
// The setAttr statements of one node's block, in attribute order: values that differ from their
// defaults, every existing element of a multi (runs of consecutive elements in one statement with
// "-s", sparse rows for weight lists), tuples such as translate as one "double3" value, a mesh's
// geometry, attribute aliases, and the flags (-k, -l, -cb…) the file set on plugs.
#include "engine/Node.h"

#include <string>
#include <vector>

namespace host {

struct NodeFileInfo;

// Appends the statements; `problems` collects what could not be written.
void appendNodeValues(const NodePtr& node, const NodeFileInfo* info, std::string& out,
                      std::vector<std::string>& problems);

} // namespace host
