#pragma once
// How scene files name a plug below its node: short names, an index on every multi level, and
// compound parents left out where the child's name alone is enough ("tx", "iog[0].og[1].gco").
// Compounds made up for unmodelled data keep their name in the path, since the names of their
// children may repeat.
#include "engine/Plug.h"

#include <string>

namespace host {

std::string filePlugPath(const Plug& plug);

} // namespace host
