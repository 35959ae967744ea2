#pragma once
// Editing a selection list item by item, as select's -add, -d and -tgl do: a node is listed once,
// and the components of one mesh of one type form one item whose elements stay sorted and unique,
// so components can be added, removed and toggled element by element.
#include "engine/Selection.h"

namespace host {

void addToSelection(SelectionList& list, const SelectionItem& item);
void removeFromSelection(SelectionList& list, const SelectionItem& item);
void toggleInSelection(SelectionList& list, const SelectionItem& item);

} // namespace host
