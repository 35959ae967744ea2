#pragma once
// The kinds of change a journal records. Each holds the state that is not in the scene now and
// swaps it with the scene's.
#include "engine/ChangeJournal.h"
#include "engine/Scene.h"

namespace host {

// A node in or out of the scene's node list, at `listIndex`; `inScene` tells which it is now.
std::unique_ptr<Change> nodePresence(NodePtr node, std::size_t listIndex, bool inScene);
// A DAG node's other parent (null: none) and its place among that parent's children.
std::unique_ptr<Change> parentChange(NodePtr child, Node* otherParent, std::size_t otherPosition);
std::unique_ptr<Change> nameChange(NodePtr node, std::string otherName);
std::unique_ptr<Change> connectionPresence(Connection connection, std::size_t index, bool inScene);
// The value storage at a multi element (which may be missing), a multi or a top-level attribute.
std::unique_ptr<Change> slotChange(const Plug& location);
// The same for a state already taken out of the slot.
std::unique_ptr<Change> slotChange(const Plug& location, Slot saved);
// The numbers held by the elements of a multi whose elements are all numbers, in physical order.
std::unique_ptr<Change> numbersChange(const Plug& array, std::vector<double> other);
std::unique_ptr<Change> meshChange(NodePtr node, std::shared_ptr<MeshData> other);
std::unique_ptr<Change> aliasChange(NodePtr node, Node::AliasList other);
// A dynamic attribute on the node now (`detached` empty) or taken out (held in `detached`).
std::unique_ptr<Change> attrPresence(NodePtr node, const AttrSpec* attr, Node::DetachedAttr detached);
std::unique_ptr<Change> selectionChange(SelectionList other);
std::unique_ptr<Change> optionVarsChange(std::map<std::string, OptionValue> other);
std::unique_ptr<Change> timeChange(double other);

} // namespace host
