#pragma once

#include "core/mesh/MeshTopology.h"
#include "core/symmetry/ShellComponents.h"
#include "core/symmetry/SymmetryReport.h"

#include <vector>

namespace core {

// Maps every shell entry whose start faces are set: its two walks run at the same time, and where both
// reach the same number of vertices, the vertices at equal positions of the two orders become partners
// in `map` (both directions). A walk that runs dry or two walks of different lengths stop the run with
// the reasons reported; `map` may then hold the pairs of earlier shells and must not be stored.
// `mappedShells` counts the shells mapped.
bool mapShells(const MeshTopology& topology, const ShellComponents& shells, std::vector<int>& map,
               int& mappedShells, SymmetryReport& report);

} // namespace core
