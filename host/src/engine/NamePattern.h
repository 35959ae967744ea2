#pragma once
// Node names with * (any run of characters) and ? (any one character), as commands and
// MSelectionList::add take them. A pattern with '|' matches full DAG paths (with or without the
// leading '|'), any other pattern plain node names; a leading ':' names the root namespace.
#include "engine/Node.h"

#include <string>
#include <string_view>
#include <vector>

namespace host {

class Scene;

// Whether a name holds * or ? before any attribute or component part.
bool isPattern(const std::string& text);
// Glob matching in linear space.
bool matchesPattern(std::string_view pattern, std::string_view text);
// The scene's nodes a pattern matches, in creation order.
std::vector<NodePtr> nodesMatching(const Scene& scene, const std::string& pattern);

} // namespace host
