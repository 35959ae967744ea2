#pragma once
// Scene editing commands registered with `file`.
#include "lang/CommandTable.h"

namespace host {

// duplicate [-n name] [-rr] node…: copies of DAG hierarchies (transforms with their shapes and
// geometry) or of other nodes, with attribute values but without connections.
bool duplicateCommand(Invocation& inv);

// polyColorSet -create/-delete/-rename -colorSet name, -currentColorSet [-colorSet name],
// -query -allColorSets / -currentColorSet, on a mesh given or selected.
bool polyColorSetCommand(Invocation& inv);

} // namespace host
