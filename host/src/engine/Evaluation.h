#pragma once
// Reading values as the dependency graph sees them: a connected destination shows its source's value.
#include "engine/Plug.h"

namespace host {

Value evaluatedValue(const Plug& plug);

} // namespace host
