#pragma once
// Object arguments of select, ls, sets and delete: node names and DAG paths (":name" in the root
// namespace), patterns with * and ?, and mesh components such as "pCube1.vtx[3:7]", "pCube1.e[2]"
// or "pCubeShape1.f[*]"; a transform's components are those of its visible mesh shape.
#include "engine/NamePattern.h"
#include "engine/Selection.h"
#include "lang/CommandTable.h"

#include <string>
#include <vector>

namespace host {

// Appends the items an argument names. Components are checked against the mesh and listed in
// ascending order ([*] lists every element). A pattern may match nothing; any other name must
// resolve.
bool resolveObjectArg(const std::string& text, SelectionList& out, std::string* error);

// Appends the items of every argument in turn. The first that does not resolve is reported as an
// error and ends the reading with false.
bool resolveObjectArgs(const std::vector<const Token*>& names, SelectionList& out);

// Whether a node is an intermediate object (a deformed mesh's original shape, say).
bool isIntermediateObject(const Node& node);

// The number of vertices, edges or faces of a mesh node (0 for other types).
int componentCount(const Node& node, ComponentType type);

// An item as ls and sets print it: "node", or its components as compact items ("node.vtx[0:3]") or
// one per element ("node.vtx[0]" "node.vtx[1]" ...).
void appendItemNames(const SelectionItem& item, bool longNames, bool flatten, std::vector<std::string>& out);

} // namespace host
