#pragma once
// Reading a deformer's attributes during evaluation.
#include "engine/Plug.h"

#include <vector>

namespace host {

// A numeric attribute as the graph sees it (a connected plug shows its source); `fallback` when the
// path does not resolve.
double plugNumber(const NodePtr& node, const std::string& path, double fallback);

// The child of a compound plug by long or short name; null when either is missing.
Plug childPlug(const Plug& parent, const char* name);

// A sparse per-vertex weight map (targetWeights, baseWeights) as n values, unset elements 1.0;
// empty when no element is set, so callers can skip the multiplication.
std::vector<float> denseWeights(const Plug& map, std::size_t n);

} // namespace host
