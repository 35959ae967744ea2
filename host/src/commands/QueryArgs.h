#pragma once
// The object arguments of query and edit commands: node names, DAG paths, patterns, components
// ("arm.vtx[0:3]") and plugs ("root.tx"); the active selection when none is named.
#include "commands/ArgReader.h"
#include "engine/Selection.h"

namespace host {

// Whether a name's part after the node is a component ("arm.vtx[3]", "arm.e[0:2]"): such a name
// never falls back to a plug.
bool namesComponent(const std::string& text);

// Resolves the positional arguments from `first` on; false with an error for a name that matches
// nothing (a pattern may match nothing).
bool queryItems(const ArgReader& args, SelectionList& out, std::size_t first = 0);

} // namespace host
